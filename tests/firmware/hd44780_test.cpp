// The display decoder, fed the bus as a firmware drives it.
#include "hd44780.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// A controller already switched to 4-bit mode the way a firmware does at power-on.
struct AvrSimHd44780 : testing::Test
{
    CHd44780 lcd;

    void SetUp() override
    {
        for (std::uint8_t nibble : {0x3, 0x3, 0x3, 0x2})
            lcd.Strobe(false, nibble);
        ASSERT_TRUE(lcd.FourBitMode());
        Command(0x28);
    }

    void Byte(bool rs, std::uint8_t value)
    {
        lcd.Strobe(rs, value >> 4);
        lcd.Strobe(rs, value & 0x0f);
    }
    void Command(std::uint8_t code) { Byte(false, code); }
    void Text(const std::string& text)
    {
        for (char c : text)
            Byte(true, std::uint8_t(c));
    }
};

} // namespace

TEST_F(AvrSimHd44780, StartsBlank)
{
    EXPECT_EQ(lcd.Line(0), std::string(16, ' '));
    EXPECT_EQ(lcd.Line(1), std::string(16, ' '));
    EXPECT_EQ(lcd.Line(2), "");
}

TEST_F(AvrSimHd44780, WritesAtTheDdramAddress)
{
    Text("Hello");
    Command(0x80 | 0x40);
    Text("World");
    Command(0x80 | 0x0b);
    Text("12345");
    EXPECT_EQ(lcd.Line(0), "Hello      12345");
    EXPECT_EQ(lcd.Line(1), "World           ");
}

TEST_F(AvrSimHd44780, ClearBlanksBothLinesAndGoesHome)
{
    Text("abc");
    Command(0x80 | 0x40);
    Text("def");
    Command(0x01);
    Text("X");
    EXPECT_EQ(lcd.Line(0), "X               ");
    EXPECT_EQ(lcd.Line(1), std::string(16, ' '));
}

TEST_F(AvrSimHd44780, HomeKeepsTheText)
{
    Text("abc");
    Command(0x02);
    Text("X");
    EXPECT_EQ(lcd.Line(0).substr(0, 3), "Xbc");
}

TEST_F(AvrSimHd44780, LineZeroRunsOnIntoLineOne)
{
    // Past column 40 of line 0 the address jumps to 0x40.
    Command(0x80 | 0x27);
    Text("ab");
    EXPECT_EQ(lcd.Line(1).substr(0, 1), "b");
    EXPECT_EQ(lcd.Address(), 0x41);
}

TEST_F(AvrSimHd44780, DecrementModeWritesLeftwards)
{
    Command(0x04);
    Command(0x80 | 0x05);
    Text("abc");
    EXPECT_EQ(lcd.Line(0).substr(3, 3), "cba");
}

TEST_F(AvrSimHd44780, CursorShiftMovesTheAddress)
{
    Text("abc");
    Command(0x10); // left
    Command(0x10);
    Text("X");
    Command(0x14); // right
    Text("Y");
    EXPECT_EQ(lcd.Line(0).substr(0, 4), "aXcY");
}

TEST_F(AvrSimHd44780, CharacterPatternsAreNotText)
{
    Text("ab");
    Command(0x40);
    Text("\x1f\x1f\x1f");
    Command(0x80 | 0x02);
    Text("c");
    EXPECT_EQ(lcd.Line(0).substr(0, 4), "abc ");
}

TEST_F(AvrSimHd44780, OtherInstructionsLeaveTheText)
{
    Text("ab");
    for (std::uint8_t code : {0x0c, 0x0f, 0x08, 0x18, 0x1c, 0x06})
        Command(code);
    Text("c");
    EXPECT_EQ(lcd.Line(0).substr(0, 4), "abc ");
}

TEST(AvrSimHd44780PowerOn, NibblesBeforeFourBitModeAreWholeInstructions)
{
    CHd44780 lcd;
    // Three 8-bit "function set" writes, then the switch: one nibble each.
    lcd.Strobe(false, 0x3);
    lcd.Strobe(false, 0x3);
    lcd.Strobe(false, 0x3);
    EXPECT_FALSE(lcd.FourBitMode());
    lcd.Strobe(false, 0x2);
    EXPECT_TRUE(lcd.FourBitMode());
    // Now a data byte takes two nibbles.
    lcd.Strobe(true, 0x4);
    EXPECT_EQ(lcd.Line(0)[0], ' ');
    lcd.Strobe(true, 0x1);
    EXPECT_EQ(lcd.Line(0)[0], 'A');
}
