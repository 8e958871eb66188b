// Sends back every byte received at 1200 bps, plus one.
#include <avr/io.h>

int main(void)
{
    UBRR0 = F_CPU / 16 / 1200 - 1;
    UCSR0B = _BV(RXEN0) | _BV(TXEN0);
    UCSR0C = _BV(UCSZ01) | _BV(UCSZ00);
    for (;;) {
        loop_until_bit_is_set(UCSR0A, RXC0);
        const uint8_t byte = UDR0;
        loop_until_bit_is_set(UCSR0A, UDRE0);
        UDR0 = byte + 1;
    }
}
