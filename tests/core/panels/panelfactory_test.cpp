// Making panels from their keywords.
#include "core/panels/paneltest.h"

#include "analogpanel.h"
#include "flipfloppanel.h"
#include "jumppanel.h"
#include "lamppanel.h"
#include "segmentdecoderpanel.h"
#include "serialoutpanel.h"
#include "sevensegpanel.h"
#include "switchpanel.h"

#include <tuple>
#include <typeinfo>

TEST(PanelFactory, EveryKeywordMakesItsFamilyInTableOrder)
{
    // keyword, the class name without its C and Panel, area
    const std::tuple<const char*, const char*, int> rows[] = {
        {"KEY", "Switch", 1},
        {"SW", "Switch", 1},
        {"ANI", "Analog", 1},
        {"DGI", "Switch", 1},
        {"UARI", "SerialIn", 1},
        {"UARI0", "SerialIn", 1},
        {"DGO", "Lamp", 2},
        {"BUZZ", "Buzzer", 2},
        {"LAMP", "Lamp", 2},
        {"PWM", "Pwm", 2},
        {"UARO", "SerialOut", 2},
        {"UARO0", "SerialOut", 2},
        {"7SEG", "SevenSeg", 2},
        {"7SEG4", "SevenSeg", 2},
        {"LINE", "Wire", 3},
        {"JPI", "Jump", 3},
        {"UART", "SerialBit", 3},
        {"UART0", "SerialBit", 3},
        {"7S_", "SegmentDecoder", 3},
        {"7S4_", "SegmentDecoder", 3},
        {"7S_B", "SegmentDecoder", 3},
        {"7S_D", "SegmentDecoder", 3},
        {"7S_S", "SegmentDecoder", 3},
        {"7S4_B", "SegmentDecoder", 3},
        {"7S4_D", "SegmentDecoder", 3},
        {"7S4_S", "SegmentDecoder", 3},
        {"JPO", "Jump", 3},
        {"NOT", "Logic", 3},
        {"AND", "Logic", 3},
        {"OR", "Logic", 3},
        {"XOR", "Logic", 3},
        {"ON", "Logic", 3},
        {"OFF", "Logic", 3},
        {"CNT", "Counter", 3},
        {"DLY", "Delay", 3},
        {"TIM", "Timer", 3},
        {"TIM1", "Timer", 3},
        {"RSFF", "FlipFlop", 3},
        {"T_FF", "FlipFlop", 3},
        {"D_FF", "FlipFlop", 3},
        {"FF", "FlipFlop", 3},
        {"SMOT", "StepMotor", 3},
        {"PULS", "Pulse", 2},
        {"LCD", "Lcd", 2},
        {"WEBIN", "WebIn", 1},
        {"WEBOUT", "WebOut", 2},
        {"SMOTO", "StepMotorOut", 2},
    };
    QStringList order;
    for (const auto& [keyword, family, area] : rows) {
        order << keyword;
        const auto panel = CPanelFactory::Create(QString::fromLatin1(keyword) + "\tX");
        ASSERT_TRUE(panel) << keyword;
        // Both mangled and plain type names end in the class name.
        const QByteArray type = typeid(*panel).name();
        EXPECT_TRUE(type.endsWith("C" + QByteArray(family) + "Panel")) << keyword << type.data();
        EXPECT_EQ(panel->GetArea(), area) << keyword;
    }
    EXPECT_EQ(CPanelFactory::Keywords(), order);
}

TEST(PanelFactory, KeywordsAreWholeCaseSensitiveAndEndAtBlankOrTab)
{
    EXPECT_EQ(MakePanel("7SEG4\t;7SEG4_B")->GetMode(), 4);
    EXPECT_FALSE(CPanelFactory::Create("key\tH,P1"));
    EXPECT_FALSE(CPanelFactory::Create("SW,P0"));    // a comma does not end the keyword here
    EXPECT_FALSE(CPanelFactory::Create("LAMPS\tH")); // no prefix match
    EXPECT_TRUE(CPanelFactory::Create("  \tSW H,P0"));
    EXPECT_EQ(CPanelFactory::Keyword(" \t "), "");
    EXPECT_FALSE(CPanelFactory::Create(""));
}

TEST(PanelFactory, LongLinesAreCutForRecognitionOnly)
{
    const QString line = "ANI\t" + QString(296, u'x');
    const auto panel = CPanelFactory::Create(line);
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->GetText(), line);
    // A keyword pushed past byte 254 by blanks is not seen.
    EXPECT_FALSE(CPanelFactory::Create(QString(254, u' ') + "SW"));
    EXPECT_TRUE(CPanelFactory::Create(QString(252, u' ') + "SW"));
}

TEST(PanelFactory, PanelsMadeWithoutALineHoldTheirDefaultKeyword)
{
    EXPECT_EQ(CSwitchPanel().GetLine(), "DGI ");
    EXPECT_EQ(CLampPanel().GetLine(), "DGO ");
    EXPECT_EQ(CSevenSegPanel().GetLine(), "7SEG");
    EXPECT_EQ(CAnalogPanel().GetLine(), "ANI ");
    EXPECT_EQ(CFlipFlopPanel().GetLine(), "FF  ");
    EXPECT_EQ(CSegmentDecoderPanel().GetLine(), "7S_ ");
    EXPECT_EQ(CSerialOutPanel().GetLine(), "UARO");
    EXPECT_EQ(CJumpPanel().GetLine(), "");
}
