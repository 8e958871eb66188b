// Reads ADC channel 3 against AVcc every time a byte arrives and sends the 10-bit result,
// high byte first.
#include <avr/io.h>

static void Send(uint8_t byte)
{
    loop_until_bit_is_set(UCSR0A, UDRE0);
    UDR0 = byte;
}

int main(void)
{
    UBRR0 = F_CPU / 16 / 1200 - 1;
    UCSR0B = _BV(RXEN0) | _BV(TXEN0);
    UCSR0C = _BV(UCSZ01) | _BV(UCSZ00);
    ADMUX = _BV(REFS0) | 3;
    ADCSRA = _BV(ADEN) | _BV(ADPS2) | _BV(ADPS1) | _BV(ADPS0);
    for (;;) {
        loop_until_bit_is_set(UCSR0A, RXC0);
        (void)UDR0;
        ADCSRA |= _BV(ADSC);
        loop_until_bit_is_clear(ADCSRA, ADSC);
        const uint16_t value = ADC;
        Send(value >> 8);
        Send(value & 0xff);
    }
}
