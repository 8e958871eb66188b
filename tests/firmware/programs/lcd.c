// Writes "Hello" on the first line and "World" on the second of an HD44780 in 4-bit
// mode: RS = PB0, E = PB1, D4..D7 = PD4..PD7.
#include <avr/io.h>
#include <util/delay.h>

static void Nibble(uint8_t nibble)
{
    PORTD = (PORTD & 0x0f) | (nibble << 4);
    PORTB |= _BV(PB1);
    _delay_us(1);
    PORTB &= ~_BV(PB1);
    _delay_us(50);
}

static void Byte(uint8_t value, uint8_t data)
{
    if (data)
        PORTB |= _BV(PB0);
    else
        PORTB &= ~_BV(PB0);
    Nibble(value >> 4);
    Nibble(value & 0x0f);
}

static void Text(const char* text)
{
    while (*text)
        Byte(*text++, 1);
}

int main(void)
{
    DDRB = _BV(DDB0) | _BV(DDB1);
    DDRD = 0xf0;
    _delay_ms(40);
    // The power-on sequence that brings the controller into 4-bit mode from any state.
    Nibble(0x3);
    _delay_ms(5);
    Nibble(0x3);
    _delay_us(150);
    Nibble(0x3);
    Nibble(0x2);
    Byte(0x28, 0); // two lines, 5x8
    Byte(0x0c, 0); // display on
    Byte(0x06, 0); // increment
    Byte(0x01, 0); // clear
    _delay_ms(2);
    Text("Hellx");
    Byte(0x80 | 4, 0); // back over the typo
    Text("o");
    Byte(0x80 | 0x40, 0);
    Text("World");
    for (;;) {
    }
}
