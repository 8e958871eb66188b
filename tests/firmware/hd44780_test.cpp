// The display decoder, fed the bus as a firmware drives it.
#include "hd44780.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

namespace {

// A controller switched to 4-bit mode as a firmware does at power-on, then fed whole
// bytes: a number is an instruction, a text is data.
using CStep = std::variant<int, const char*>;

CHd44780 Fed(const std::vector<CStep>& steps)
{
    CHd44780 lcd;
    for (std::uint8_t nibble : {0x3, 0x3, 0x3, 0x2})
        lcd.Strobe(false, nibble);
    const auto byte = [&](bool rs, std::uint8_t value) {
        lcd.Strobe(rs, value >> 4);
        lcd.Strobe(rs, value & 0x0f);
    };
    byte(false, 0x28);
    for (const CStep& step : steps)
        if (const int* code = std::get_if<int>(&step))
            byte(false, std::uint8_t(*code));
        else
            for (const char* c = std::get<const char*>(step); *c; ++c)
                byte(true, std::uint8_t(*c));
    return lcd;
}

} // namespace

TEST(AvrSimHd44780, InstructionsMoveTheAddressAndDataWritesThere)
{
    const std::string blank(16, ' ');
    const struct
    {
        const char* Behaviour;
        std::vector<CStep> Steps;
        std::string Line0, Line1;
    } rows[] = {
        {"starts blank", {}, blank, blank},
        {"writes at the DDRAM address",
         {"Hello", 0x80 | 0x40, "World", 0x80 | 0x0b, "12345"},
         "Hello      12345",
         "World           "},
        {"clear blanks both lines and goes home",
         {"abc", 0x80 | 0x40, "def", 0x01, "X"},
         "X               ",
         blank},
        {"home keeps the text", {"abc", 0x02, "X"}, "Xbc             ", blank},
        {"line 0 runs on into line 1 past column 40",
         {0x80 | 0x27, "ab"},
         blank,
         "b               "},
        {"decrement mode writes leftwards", {0x04, 0x80 | 0x05, "abc"}, "   cba          ", blank},
        {"cursor shifts move the address",
         {"abc", 0x10, 0x10, "X", 0x14, "Y"},
         "aXcY            ",
         blank},
        {"character patterns are not text",
         {"ab", 0x40, "\x1f\x1f\x1f", 0x80 | 0x02, "c"},
         "abc             ",
         blank},
        {"display, cursor and entry instructions leave the text",
         {"ab", 0x0c, 0x0f, 0x08, 0x18, 0x1c, 0x06, "c"},
         "abc             ",
         blank},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        const CHd44780 lcd = Fed(row.Steps);
        EXPECT_EQ(lcd.Line(0), row.Line0);
        EXPECT_EQ(lcd.Line(1), row.Line1);
    }
    EXPECT_EQ(Fed({}).Line(2), "");
    EXPECT_EQ(Fed({0x80 | 0x27, "ab"}).Address(), 0x41);
}
