/* The character LCD and the seven-segment display. */

#if Q_USE_LCD
#include <util/delay.h>

/* What the display should show; the refresh copies it out one byte a scan. */
static uint8_t q_lcd_chars[32];
static uint8_t q_lcd_next;

static void q_lcd_nibble(uint8_t high)
{
    PORTD = (uint8_t)((PORTD & 0x0F) | (high & 0xF0));
    Q_PORT(Q_LCD_E) |= Q_MASK(Q_LCD_E);
    _delay_us(1);
    Q_PORT(Q_LCD_E) &= (uint8_t)~Q_MASK(Q_LCD_E);
}

static void q_lcd_write(q_bit data, uint8_t byte)
{
    Q_PIN_WRITE(Q_LCD_RS, data);
    q_lcd_nibble(byte);
    q_lcd_nibble((uint8_t)(byte << 4));
}

/* The HD44780 start-up in 4-bit mode, with the waits of its data sheet. It runs before
 * the first scan, so it may block. */
void q_lcd_begin(void)
{
    Q_PIN_OUTPUT(Q_LCD_RS, 0);
    Q_PIN_OUTPUT(Q_LCD_E, 0);
    DDRD |= 0xF0;
    _delay_ms(50);
    q_lcd_nibble(0x30);
    _delay_ms(5);
    q_lcd_nibble(0x30);
    _delay_us(150);
    q_lcd_nibble(0x30);
    _delay_us(150);
    q_lcd_nibble(0x20);
    _delay_us(50);
    q_lcd_write(0, 0x28); /* two lines, 5x8 dots */
    _delay_us(50);
    q_lcd_write(0, 0x0C); /* display on, no cursor */
    _delay_us(50);
    q_lcd_write(0, 0x06); /* cursor moves right */
    _delay_us(50);
    q_lcd_write(0, 0x01); /* clear */
    _delay_ms(2);
    for (uint8_t i = 0; i < sizeof q_lcd_chars; ++i)
        q_lcd_chars[i] = ' ';
}

void q_lcd_show(uint8_t line, const char* text)
{
    uint8_t* chars = q_lcd_chars;
    uint8_t count = 32;
    if (line) {
        chars += (uint8_t)((line - 1) * 16);
        count = 16;
    }
    for (uint8_t i = 0; i < count; ++i) {
        const char c = line ? (char)pgm_read_byte(text) : 0;
        if (c) {
            chars[i] = (uint8_t)c;
            ++text;
        } else {
            chars[i] = ' ';
        }
    }
}

/* Positions 0 and 17 set the address of a line, the others write its characters: a whole
 * refresh takes 34 scans, and each write is done long before the next one. */
void q_lcd_refresh(void)
{
    const uint8_t p = q_lcd_next;
    if (p == 0)
        q_lcd_write(0, 0x80);
    else if (p == 17)
        q_lcd_write(0, 0xC0);
    else
        q_lcd_write(1, q_lcd_chars[p < 17 ? p - 1 : p - 2]);
    q_lcd_next = p == 33 ? 0 : p + 1;
}
#endif

#if Q_USE_SEG1 || Q_USE_SEG4
uint8_t q_seg[4];

/* Segment patterns of 0-9 and A-F: bit 0 is a, bit 6 g, bit 7 the decimal point. */
static const uint8_t q_seg_font[16] PROGMEM = {
    0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F, 0x77, 0x7C, 0x39, 0x5E, 0x79, 0x71,
};

#if Q_USE_SEG4
#define Q_SEG_DIGITS 4
#else
#define Q_SEG_DIGITS 1
#endif

void q_seg_begin(void)
{
    DDRD |= 0xFC; /* a..f */
    DDRB |= 0x03; /* g, dp */
#if Q_USE_SEG4
    PORTB |= _BV(PB3) | _BV(PB4) | _BV(PB5); /* no digit selected */
    PORTC |= _BV(PC0);
    DDRB |= _BV(PB3) | _BV(PB4) | _BV(PB5);
    DDRC |= _BV(PC0);
#endif
}

static uint8_t q_seg_glyph(uint8_t digit)
{
    return pgm_read_byte(&q_seg_font[digit & 15]);
}

/* Four bits a digit, the rightmost digit in the lowest bits. */
void q_seg_hex(uint16_t value, q_bit lit)
{
    for (int8_t i = Q_SEG_DIGITS - 1; i >= 0; --i) {
        q_seg[i] = lit ? q_seg_glyph((uint8_t)value) : 0;
        value >>= 4;
    }
}

/* Right-aligned decimal without leading zeros; Q_SEG_BLANK shows nothing. */
void q_seg_number(uint16_t value, q_bit lit)
{
    const q_bit blank = !lit || value == Q_SEG_BLANK;
    for (int8_t i = Q_SEG_DIGITS - 1; i >= 0; --i) {
        const q_bit leading = i < Q_SEG_DIGITS - 1 && value == 0;
        q_seg[i] = blank || leading ? 0 : q_seg_glyph((uint8_t)(value % 10));
        value /= 10;
    }
}

/* Eight segments a digit, the leftmost digit in the lowest byte. */
void q_seg_pattern(uint32_t segments, q_bit lit)
{
    for (uint8_t i = 0; i < Q_SEG_DIGITS; ++i) {
        q_seg[i] = lit ? (uint8_t)segments : 0;
        segments >>= 8;
    }
}

static void q_seg_out(uint8_t pattern)
{
    PORTD = (uint8_t)((PORTD & 0x03) | (uint8_t)(pattern << 2));
    PORTB = (uint8_t)((PORTB & 0xFC) | (pattern >> 6));
}

/* The four-digit display shows one digit a scan, each for 1 ms in 4. */
void q_seg_refresh(void)
{
#if Q_USE_SEG4
    static uint8_t digit;
    PORTB |= _BV(PB3) | _BV(PB4) | _BV(PB5);
    PORTC |= _BV(PC0);
    q_seg_out(q_seg[digit]);
    if (digit < 3)
        PORTB &= (uint8_t)~_BV(PB3 + digit);
    else
        PORTC &= (uint8_t)~_BV(PC0);
    digit = (digit + 1) & 3;
#else
    q_seg_out(q_seg[0]);
#endif
}
#endif
