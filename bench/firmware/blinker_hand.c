/* The blinker written by hand: the lamp on PB5 turns over every 500 ms, timed by the
 * same polled 1 ms tick of timer 0 the panel run-time uses, for a fair size comparison. */
#include <avr/io.h>
#include <stdint.h>

int main(void)
{
    TCCR0A = _BV(WGM01);
    OCR0A = (uint8_t)(F_CPU / 64 / 1000 - 1);
    TCCR0B = _BV(CS01) | _BV(CS00);
    DDRB |= _BV(PB5);
    static uint16_t left;
    for (;;) {
        while (!(TIFR0 & _BV(OCF0A)))
            ;
        TIFR0 = _BV(OCF0A);
        if (left == 0) {
            PINB = _BV(PB5); /* writing PINB toggles the pin */
            left = 500;
        }
        --left;
    }
}
