/* The run-time of a layout on the ATmega328P: what the generated BASE.c calls. BASE.h,
 * written by quillon-panelc for each layout, gives F_CPU and switches on only the parts
 * the layout uses. Pins are named by the board's header number: 0-7 PD0-PD7, 8-13
 * PB0-PB5, 14-19 PC0-PC5. */
#ifndef PANEL_H
#define PANEL_H

#include "BASE.h"

#include <avr/interrupt.h>
#include <avr/io.h>
#include <avr/pgmspace.h>
#include <avr/sleep.h>
#include <stddef.h>
#include <stdint.h>

typedef uint8_t q_bit;

/* BASE.c keeps its nets in RAM, where the simulator reads them through the map the size
 * check writes. A net is used only inside the scan, so GCC would drop its variable (and
 * keep the value in a register) unless told that something else uses it. */
#define Q_MAPPED __attribute__((used))

#if Q_USE_LONG_TIMES
typedef uint32_t q_time_t; /* a timer or delay beyond 65.535 s */
#else
typedef uint16_t q_time_t;
#endif

/* Constant header numbers fold to single sbi/cbi/sbic instructions. */
#define Q_PORT(n) (*((n) < 8 ? &PORTD : (n) < 14 ? &PORTB : &PORTC))
#define Q_DDR(n) (*((n) < 8 ? &DDRD : (n) < 14 ? &DDRB : &DDRC))
#define Q_PINS(n) (*((n) < 8 ? &PIND : (n) < 14 ? &PINB : &PINC))
#define Q_MASK(n) ((uint8_t)(1u << ((n) < 8 ? (n) : (n) < 14 ? (n)-8 : (n)-14)))

#define Q_PIN_READ(n) ((Q_PINS(n) & Q_MASK(n)) != 0)
#define Q_PIN_WRITE(n, v)                                                                          \
    do {                                                                                           \
        if (v)                                                                                     \
            Q_PORT(n) |= Q_MASK(n);                                                                \
        else                                                                                       \
            Q_PORT(n) &= (uint8_t)~Q_MASK(n);                                                      \
    } while (0)
/* An output starts at the level given, so an active-low lamp does not flash at reset. */
#define Q_PIN_OUTPUT(n, v)                                                                         \
    do {                                                                                           \
        Q_PIN_WRITE(n, v);                                                                         \
        Q_DDR(n) |= Q_MASK(n);                                                                     \
    } while (0)
#define Q_PIN_PULLUP(n) (Q_PORT(n) |= Q_MASK(n))

/* What q_begin starts of each part in use. */
void q_uart_begin(void);
void q_lcd_begin(void);
void q_seg_begin(void);

/* Timers, delays and debouncing count scans. */
typedef struct
{
    uint8_t out;
    uint8_t prev;
    q_time_t count;
} q_timer_t;

typedef struct
{
    uint8_t out;
    uint8_t prev;
} q_flipflop_t;

typedef struct
{
    uint16_t count;
    uint8_t prev;
} q_counter_t;

/* The tick: timer 0's compare interrupt (ports.c) sets this bit of GPIOR0 every
 * millisecond, and q_wait_tick takes it. A bit of a low I/O register is set, tested and
 * cleared by single instructions that touch no register and no status flag, so the
 * interrupt has nothing to save. */
#define Q_TICK 0

/* The scan: one pass of the layout every millisecond, timed by timer 0. The small parts
 * of the scan are inline: -Os puts a part used once in place and calls a part used often. */
static inline void q_begin(void)
{
    /* Timer 0 in CTC mode, clock / 64, 250 counts: a compare match every 1 ms at 16 MHz.
     * Its interrupt wakes the chip from idle sleep; interrupts stay off until the first
     * wait, so the parts started below keep their timing. */
    TCCR0A = _BV(WGM01);
    OCR0A = (uint8_t)(F_CPU / 64 / 1000 - 1);
    TCCR0B = _BV(CS01) | _BV(CS00);
    TIMSK0 = _BV(OCIE0A);
    SMCR = 0; /* idle sleep, which keeps the timers and the serial line running */
#if Q_USE_UART_RX || Q_USE_UART_TX
    q_uart_begin();
#endif
#if Q_USE_ADC
    ADMUX = _BV(REFS0);                                        /* AVcc reference */
    ADCSRA = _BV(ADEN) | _BV(ADPS2) | _BV(ADPS1) | _BV(ADPS0); /* 125 kHz */
#endif
#if Q_USE_LCD
    q_lcd_begin();
#endif
#if Q_USE_SEG1 || Q_USE_SEG4
    q_seg_begin();
#endif
}

/* Idle sleep until the next tick: less power on the board, and a simulator skips the idle
 * cycles. The flag is tested with interrupts off, and sei lets the sleep instruction after
 * it run before any interrupt, so a tick that comes after the test still wakes the chip.
 * A scan longer than the millisecond finds the flag set and runs the next one at once. */
static inline void q_wait_tick(void)
{
    cli();
    while (!(GPIOR0 & _BV(Q_TICK))) {
        sleep_enable();
        sei();
        sleep_cpu();
        sleep_disable();
        cli();
    }
    GPIOR0 &= (uint8_t)~_BV(Q_TICK);
    sei();
}

/* Rising edge since the last call; *prev starts at 0, so an input on from power-up
 * rises in the first scan. */
static inline q_bit q_rising(uint8_t* prev, q_bit in)
{
    const q_bit rose = in && !*prev;
    *prev = in;
    return rose;
}

/* The output takes the input's level once `time` scans in a row have seen it: debouncing
 * (21 reads, so the pin has held the level for 20 ms) and the delay panel. */
static inline void q_settle(q_timer_t* t, q_bit in, q_time_t time)
{
    if (in == t->out) {
        t->count = 0;
    } else if (++t->count >= time) {
        t->out = in;
        t->count = 0;
    }
}

static inline void q_timer_hold(q_timer_t* t, q_bit in, q_time_t time)
{
    if (in) {
        t->out = 1;
        t->count = 0;
    } else if (t->out && ++t->count >= time) {
        t->out = 0;
    }
}

/* count holds the scans left until the next turn: 0 while the input is off, so the
 * first scan with the input on turns the output on, also at power-up. */
static inline void q_timer_toggle(q_timer_t* t, q_bit in, q_time_t time)
{
    if (!in) {
        t->out = 0;
        t->count = 0;
        return;
    }
    if (t->count == 0) {
        t->out ^= 1;
        t->count = time;
    }
    --t->count;
}

static inline void q_timer_oneshot(q_timer_t* t, q_bit in, q_time_t time)
{
    const q_bit rose = q_rising(&t->prev, in);
    if (t->out) {
        if (++t->count >= time)
            t->out = 0;
    } else if (rose) {
        t->out = 1;
        t->count = 0;
    }
}

static inline void q_timer_retrigger(q_timer_t* t, q_bit in, q_time_t time)
{
    if (q_rising(&t->prev, in)) {
        t->out = 1;
        t->count = 0;
    } else if (t->out && ++t->count >= time) {
        t->out = 0;
    }
}

static inline void q_rsff(q_flipflop_t* f, q_bit set, q_bit reset)
{
    if (reset)
        f->out = 0;
    else if (set)
        f->out = 1;
}

static inline void q_dff(q_flipflop_t* f, q_bit data, q_bit clock)
{
    if (q_rising(&f->prev, clock))
        f->out = data;
}

static inline void q_tff(q_flipflop_t* f, q_bit toggle, q_bit reset)
{
    const q_bit rose = q_rising(&f->prev, toggle);
    if (reset)
        f->out = 0;
    else if (rose)
        f->out = !f->out;
}

/* Hold stops at `largest`; cyclic goes on from 1 after it. */
static inline void q_count_hold(q_counter_t* c, q_bit in, q_bit reset, uint16_t largest)
{
    const q_bit rose = q_rising(&c->prev, in);
    if (reset)
        c->count = 0;
    else if (rose && c->count < largest)
        ++c->count;
}

static inline void q_count_cyclic(q_counter_t* c, q_bit in, q_bit reset, uint16_t largest)
{
    const q_bit rose = q_rising(&c->prev, in);
    if (reset)
        c->count = 0;
    else if (rose && largest > 0)
        c->count = c->count >= largest ? 1 : c->count + 1;
}

#if Q_USE_ADC
uint16_t q_adc_read(uint8_t channel);
#endif

#if Q_USE_UART_RX
extern uint8_t q_rx_byte; /* the last byte received */
extern uint8_t q_rx_new;  /* 1 in the scan a byte arrived */
void q_uart_receive(void);
#endif

#if Q_USE_UART_TX
/* Sends at once, or after the byte being sent; a third byte in that time is lost. */
void q_uart_send(uint8_t byte);
#endif

/* Hardware waves: level 0 is a low pin, level > top a high pin, else the pin is high
 * for `level` of every top + 1 timer counts. */
#define Q_WAVE_OFF 0, 0, 0
#if Q_USE_WAVE_T1A
void q_wave_t1a(uint8_t prescale, uint16_t top, uint16_t level);
#endif
#if Q_USE_WAVE_T1B
void q_wave_t1b(uint8_t prescale, uint16_t top, uint16_t level);
#endif
#if Q_USE_WAVE_T2B
void q_wave_t2b(uint8_t prescale, uint8_t top, uint16_t level);
#endif

#if Q_USE_PULSE
extern uint8_t q_pulse_phase; /* 0 to 3: the millisecond within the pulse period */
#define Q_PULSE_NEXT() (q_pulse_phase = (uint8_t)((q_pulse_phase + 1) & 3))
#endif

#if Q_USE_LCD
/* RS = PB0 (D8), E = PB1 (D9), D4..D7 = PD4..PD7; R/W tied low. */
#define Q_LCD_RS 8
#define Q_LCD_E 9
/* line 0 clears both lines; line 1 or 2 writes text (in flash) and clears the rest. */
void q_lcd_show(uint8_t line, const char* text);
void q_lcd_refresh(void);
#endif

#if Q_USE_SEG1 || Q_USE_SEG4
/* Segments a..g, dp on PD2..PD7, PB0, PB1 (D2..D9), lit high; the four digits of the
 * multiplexed display, leftmost first, on PB3, PB4, PB5, PC0 (D11, D12, D13, A0),
 * selected low. */
#define Q_SEG_BLANK 0xFFFFu
extern uint8_t q_seg[4];
void q_seg_hex(uint16_t value, q_bit lit);
void q_seg_number(uint16_t value, q_bit lit);
void q_seg_pattern(uint32_t segments, q_bit lit);
void q_seg_refresh(void);
#endif

#if Q_USE_MOTOR
typedef struct
{
    uint8_t out; /* coils A, B, A', B' in bits 0..3 */
    uint8_t pos;
    uint8_t on;
    uint16_t count;
} q_motor_t;

extern const uint8_t q_motor_one_phase[4] PROGMEM;
extern const uint8_t q_motor_two_phase[4] PROGMEM;
extern const uint8_t q_motor_half_step[8] PROGMEM;
/* While run is on: the coils of the current step at once, one step every `speed` scans. */
void q_motor(q_motor_t* m, q_bit run, q_bit backward, uint16_t speed, const uint8_t* steps,
             uint8_t count);
#endif

#endif
