/* The blinker written by hand: the lamp on PB5 turns over every 500 ms, timed by the
 * same 1 ms tick of timer 0 the panel run-time uses, sleeping between ticks as it does, for
 * a fair size comparison. */
#include <avr/interrupt.h>
#include <avr/io.h>
#include <avr/sleep.h>
#include <stdint.h>

ISR(TIMER0_COMPA_vect, ISR_NAKED)
{
    __asm__ __volatile__("sbi %0, 0" : : "I"(_SFR_IO_ADDR(GPIOR0)));
    reti();
}

int main(void)
{
    TCCR0A = _BV(WGM01);
    OCR0A = (uint8_t)(F_CPU / 64 / 1000 - 1);
    TCCR0B = _BV(CS01) | _BV(CS00);
    TIMSK0 = _BV(OCIE0A);
    DDRB |= _BV(PB5);
    static uint16_t left;
    for (;;) {
        cli();
        while (!(GPIOR0 & 1)) {
            sleep_enable();
            sei();
            sleep_cpu();
            sleep_disable();
            cli();
        }
        GPIOR0 &= (uint8_t)~1;
        sei();
        if (left == 0) {
            PINB = _BV(PB5); /* writing PINB toggles the pin */
            left = 500;
        }
        --left;
    }
}
