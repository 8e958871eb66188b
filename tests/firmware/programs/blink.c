// PB5 toggles every 500 ms from the Timer1 compare interrupt: a 1 s period.
#include <avr/interrupt.h>
#include <avr/io.h>

ISR(TIMER1_COMPA_vect)
{
    PINB = _BV(PB5); // writing PINx toggles the pin
}

int main(void)
{
    DDRB = _BV(DDB5);
    OCR1A = 31249; // 16 MHz / 256 = 62500 Hz; 31250 counts = 500 ms
    TCCR1B = _BV(WGM12) | _BV(CS12);
    TIMSK1 = _BV(OCIE1A);
    sei();
    for (;;) {
    }
}
