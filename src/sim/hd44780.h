#pragma once

#include <array>
#include <cstdint>
#include <string>

// The display controller as the firmware sees it through a 4-bit bus with RS and E: it
// keeps the text of a two-line display. The busy flag is not modelled; the firmware
// never reads the bus.
class CHd44780
{
  public:
    CHd44780();

    // Called on each falling edge of E with the levels of RS and D4..D7 (bit 0 = D4).
    void Strobe(bool rs, std::uint8_t nibble);

    // The first 16 characters of line 0 or 1.
    std::string Line(int line) const;

    std::uint8_t Address() const { return m_address; }
    bool FourBitMode() const { return m_fourBit; }

    static constexpr int Columns = 16;

  private:
    void Instruction(std::uint8_t code);
    void Data(std::uint8_t value);
    void Step(bool forward);

    std::array<char, 0x68> m_ddram{};
    std::uint8_t m_address = 0;
    bool m_increment = true;
    bool m_fourBit = false;
    bool m_cgram = false;
    // In 4-bit mode the high nibble waits here for the low one.
    bool m_haveHigh = false;
    std::uint8_t m_high = 0;
};
