/* The scan tick, the analog input, the serial line and the timer outputs. */

/* The run-time's only interrupt (every other part polls its flags in the scan): it wakes
 * the chip from its sleep between scans and marks the tick. */
ISR(TIMER0_COMPA_vect, ISR_NAKED)
{
    __asm__ __volatile__("sbi %0, %1" : : "I"(_SFR_IO_ADDR(GPIOR0)), "I"(Q_TICK));
    reti();
}

#if Q_USE_ADC
uint16_t q_adc_read(uint8_t channel)
{
    ADMUX = _BV(REFS0) | channel;
    ADCSRA |= _BV(ADSC);
    while (ADCSRA & _BV(ADSC))
        ;
    return ADC;
}
#endif

#if Q_USE_UART_RX || Q_USE_UART_TX
/* 1200 bps, 8 data bits, no parity, 1 stop bit on the USB serial pins PD0/PD1. */
void q_uart_begin(void)
{
    UBRR0 = (uint16_t)(F_CPU / 16 / 1200 - 1);
    UCSR0C = _BV(UCSZ01) | _BV(UCSZ00);
    UCSR0B = 0
#if Q_USE_UART_RX
             | _BV(RXEN0)
#endif
#if Q_USE_UART_TX
             | _BV(TXEN0)
#endif
        ;
}
#endif

#if Q_USE_UART_RX
uint8_t q_rx_byte;
uint8_t q_rx_new;

/* A byte takes 8.3 ms at 1200 bps, so at most one arrives between two scans. */
void q_uart_receive(void)
{
    q_rx_new = 0;
    if (UCSR0A & _BV(RXC0)) {
        const uint8_t broken = UCSR0A & _BV(FE0);
        const uint8_t byte = UDR0;
        if (!broken) {
            q_rx_byte = byte;
            q_rx_new = 1;
        }
    }
}
#endif

#if Q_USE_UART_TX
/* The data register holds one byte while the shift register sends another: exactly the
 * one waiting byte the serial send panel promises. */
void q_uart_send(uint8_t byte)
{
    if (UCSR0A & _BV(UDRE0))
        UDR0 = byte;
}
#endif

#if Q_USE_WAVE_T1A || Q_USE_WAVE_T1B
/* Timer 1 in fast PWM with ICR1 as top (mode 14). A new setting stops the timer and
 * starts it from 0, so a shorter top never lets the counter run past it. */
static void q_wave_t1(uint8_t pin, uint8_t com, volatile uint16_t* ocr, uint8_t prescale,
                      uint16_t top, uint16_t level)
{
    static uint8_t lastPrescale = 0xFF;
    static uint16_t lastTop, lastLevel;
    if (prescale == lastPrescale && top == lastTop && level == lastLevel)
        return;
    lastPrescale = prescale;
    lastTop = top;
    lastLevel = level;
    TCCR1B = 0;
    TCCR1A = 0;
    const uint8_t mask = _BV(pin);
    DDRB |= mask;
    if (level == 0 || level > top) {
        if (level)
            PORTB |= mask;
        else
            PORTB &= (uint8_t)~mask;
        return;
    }
    *ocr = level - 1; /* written at once: the timer is in normal mode here */
    ICR1 = top;
    TCNT1 = 0;
    TCCR1A = com | _BV(WGM11);
    TCCR1B = _BV(WGM13) | _BV(WGM12) | prescale;
}
#endif

#if Q_USE_WAVE_T1A
void q_wave_t1a(uint8_t prescale, uint16_t top, uint16_t level)
{
    q_wave_t1(PB1, _BV(COM1A1), &OCR1A, prescale, top, level);
}
#endif

#if Q_USE_WAVE_T1B
void q_wave_t1b(uint8_t prescale, uint16_t top, uint16_t level)
{
    q_wave_t1(PB2, _BV(COM1B1), &OCR1B, prescale, top, level);
}
#endif

#if Q_USE_WAVE_T2B
/* Timer 2 in fast PWM with OCR2A as top (mode 7), out on OC2B = PD3; OC2A is the top, so
 * PB3 cannot give a wave. */
void q_wave_t2b(uint8_t prescale, uint8_t top, uint16_t level)
{
    static uint8_t lastPrescale = 0xFF, lastTop;
    static uint16_t lastLevel;
    if (prescale == lastPrescale && top == lastTop && level == lastLevel)
        return;
    lastPrescale = prescale;
    lastTop = top;
    lastLevel = level;
    TCCR2B = 0;
    TCCR2A = 0;
    DDRD |= _BV(PD3);
    if (level == 0 || level > top) {
        if (level)
            PORTD |= _BV(PD3);
        else
            PORTD &= (uint8_t)~_BV(PD3);
        return;
    }
    OCR2B = (uint8_t)(level - 1);
    OCR2A = top;
    TCNT2 = 0;
    TCCR2A = _BV(COM2B1) | _BV(WGM21) | _BV(WGM20);
    TCCR2B = _BV(WGM22) | prescale;
}
#endif

#if Q_USE_PULSE
uint8_t q_pulse_phase;
#endif
