#include "hd44780.h"

CHd44780::CHd44780()
{
    m_ddram.fill(' ');
}

void CHd44780::Strobe(bool rs, std::uint8_t nibble)
{
    nibble &= 0x0f;
    if (!m_fourBit) {
        // At power-on the controller reads 8 bits; D0..D3 are not wired and read low.
        const std::uint8_t value = std::uint8_t(nibble << 4);
        rs ? Data(value) : Instruction(value);
        return;
    }
    if (!m_haveHigh) {
        m_high = nibble;
        m_haveHigh = true;
        return;
    }
    m_haveHigh = false;
    const std::uint8_t value = std::uint8_t(m_high << 4 | nibble);
    rs ? Data(value) : Instruction(value);
}

void CHd44780::Step(bool forward)
{
    // Line 0 is 0x00-0x27 and line 1 0x40-0x67; each runs on into the other.
    if (forward)
        m_address = m_address == 0x27 ? 0x40 : m_address == 0x67 ? 0x00 : m_address + 1;
    else
        m_address = m_address == 0x00 ? 0x67 : m_address == 0x40 ? 0x27 : m_address - 1;
}

void CHd44780::Instruction(std::uint8_t code)
{
    if (code & 0x80) {
        m_cgram = false;
        const std::uint8_t address = code & 0x7f;
        m_address = (address & 0x3f) > 0x27 ? address & 0x40 : address;
    } else if (code & 0x40) {
        m_cgram = true;
    } else if (code & 0x20) {
        const bool fourBit = !(code & 0x10);
        if (fourBit != m_fourBit)
            m_haveHigh = false;
        m_fourBit = fourBit;
    } else if (code & 0x10) {
        if (!(code & 0x08))
            Step(code & 0x04);
    } else if (code & 0x08) {
        // Display on/off and the cursor: nothing that changes the text.
    } else if (code & 0x04) {
        m_increment = code & 0x02;
    } else if (code & 0x02) {
        m_address = 0;
        m_cgram = false;
    } else if (code & 0x01) {
        m_ddram.fill(' ');
        m_address = 0;
        m_increment = true;
        m_cgram = false;
    }
}

void CHd44780::Data(std::uint8_t value)
{
    // Character patterns are not kept; only the text is.
    if (m_cgram)
        return;
    m_ddram[m_address] = char(value);
    Step(m_increment);
}

std::string CHd44780::Line(int line) const
{
    if (line != 0 && line != 1)
        return std::string();
    const int start = line == 0 ? 0x00 : 0x40;
    return std::string(m_ddram.begin() + start, m_ddram.begin() + start + Columns);
}
