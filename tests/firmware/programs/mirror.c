// PB5 follows PD2, which has its pull-up on so an open input reads high. PD7 toggles on
// every turn, so PORTD, pull-up bit included, is written all the time. Every edge on PD2
// (INT0) toggles PB0, so a glitch on the input shows as an extra edge there.
#include <avr/interrupt.h>
#include <avr/io.h>

ISR(INT0_vect)
{
    PINB = _BV(PB0);
}

int main(void)
{
    DDRB = _BV(DDB5) | _BV(DDB0);
    DDRD = _BV(DDD7);
    PORTD = _BV(PD2);
    EICRA = _BV(ISC00);
    EIMSK = _BV(INT0);
    sei();
    for (;;) {
        if (PIND & _BV(PIND2))
            PORTB |= _BV(PB5);
        else
            PORTB &= ~_BV(PB5);
        PORTD ^= _BV(PD7);
    }
}
