/* The stepping motors: the process-area motor and the output-column driver. */

#if Q_USE_MOTOR
/* Coils A, B, A', B' in bits 0..3. */
const uint8_t q_motor_one_phase[4] PROGMEM = {0x1, 0x2, 0x4, 0x8};
const uint8_t q_motor_two_phase[4] PROGMEM = {0x3, 0x6, 0xC, 0x9};
const uint8_t q_motor_half_step[8] PROGMEM = {0x1, 0x3, 0x2, 0x6, 0x4, 0xC, 0x8, 0x9};

/* The position is kept while the motor stands, so it goes on from where it stopped. */
void q_motor(q_motor_t* m, q_bit run, q_bit backward, uint16_t speed, const uint8_t* steps,
             uint8_t count)
{
    if (!run) {
        m->on = 0;
        m->out = 0;
        return;
    }
    if (!m->on) {
        m->on = 1;
        m->count = 0;
    } else if (++m->count >= speed) {
        m->count = 0;
        if (backward)
            m->pos = m->pos == 0 ? count - 1 : m->pos - 1;
        else
            m->pos = m->pos + 1 == count ? 0 : m->pos + 1;
    }
    m->out = pgm_read_byte(&steps[m->pos]);
}
#endif
