// Timer1 fast PWM on OC1A (PB1): 2 kHz with a 25 % duty.
#include <avr/io.h>

int main(void)
{
    DDRB = _BV(DDB1);
    ICR1 = 999;  // 16 MHz / 8 / 1000 = 2 kHz
    OCR1A = 249; // high for 250 of the 1000 counts
    TCCR1A = _BV(COM1A1) | _BV(WGM11);
    TCCR1B = _BV(WGM13) | _BV(WGM12) | _BV(CS11);
    for (;;) {
    }
}
