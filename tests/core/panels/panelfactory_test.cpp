// Making panels from their keywords.
#include "core/panels/paneltest.h"

#include "analogpanel.h"
#include "buzzerpanel.h"
#include "counterpanel.h"
#include "delaypanel.h"
#include "flipfloppanel.h"
#include "jumppanel.h"
#include "lamppanel.h"
#include "lcdpanel.h"
#include "logicpanel.h"
#include "pulsepanel.h"
#include "pwmpanel.h"
#include "segmentdecoderpanel.h"
#include "serialbitpanel.h"
#include "serialinpanel.h"
#include "serialoutpanel.h"
#include "sevensegpanel.h"
#include "stepmotoroutpanel.h"
#include "stepmotorpanel.h"
#include "switchpanel.h"
#include "timerpanel.h"
#include "webinpanel.h"
#include "weboutpanel.h"
#include "wirepanel.h"

#include <functional>

namespace {

template <class T>
bool Is(const CPanel* p)
{
    return dynamic_cast<const T*>(p) != nullptr;
}

struct CKeywordRow
{
    const char* Keyword;
    std::function<bool(const CPanel*)> IsClass;
    int Area;
};

} // namespace

TEST(PanelFactory, EveryKeywordMakesItsClassInTableOrder)
{
    const CKeywordRow rows[] = {
        {"KEY", Is<CSwitchPanel>, 1},         {"SW", Is<CSwitchPanel>, 1},
        {"ANI", Is<CAnalogPanel>, 1},         {"DGI", Is<CSwitchPanel>, 1},
        {"UARI", Is<CSerialInPanel>, 1},      {"UARI0", Is<CSerialInPanel>, 1},
        {"DGO", Is<CLampPanel>, 2},           {"BUZZ", Is<CBuzzerPanel>, 2},
        {"LAMP", Is<CLampPanel>, 2},          {"PWM", Is<CPwmPanel>, 2},
        {"UARO", Is<CSerialOutPanel>, 2},     {"UARO0", Is<CSerialOutPanel>, 2},
        {"7SEG", Is<CSevenSegPanel>, 2},      {"7SEG4", Is<CSevenSegPanel>, 2},
        {"LINE", Is<CWirePanel>, 3},          {"JPI", Is<CJumpPanel>, 3},
        {"UART", Is<CSerialBitPanel>, 3},     {"UART0", Is<CSerialBitPanel>, 3},
        {"7S_", Is<CSegmentDecoderPanel>, 3}, {"7S4_", Is<CSegmentDecoderPanel>, 3},
        {"7S_B", Is<CSegmentDecoderPanel>, 3}, {"7S_D", Is<CSegmentDecoderPanel>, 3},
        {"7S_S", Is<CSegmentDecoderPanel>, 3}, {"7S4_B", Is<CSegmentDecoderPanel>, 3},
        {"7S4_D", Is<CSegmentDecoderPanel>, 3}, {"7S4_S", Is<CSegmentDecoderPanel>, 3},
        {"JPO", Is<CJumpPanel>, 3},           {"NOT", Is<CLogicPanel>, 3},
        {"AND", Is<CLogicPanel>, 3},          {"OR", Is<CLogicPanel>, 3},
        {"XOR", Is<CLogicPanel>, 3},          {"ON", Is<CLogicPanel>, 3},
        {"OFF", Is<CLogicPanel>, 3},          {"CNT", Is<CCounterPanel>, 3},
        {"DLY", Is<CDelayPanel>, 3},          {"TIM", Is<CTimerPanel>, 3},
        {"TIM1", Is<CTimerPanel>, 3},         {"RSFF", Is<CFlipFlopPanel>, 3},
        {"T_FF", Is<CFlipFlopPanel>, 3},      {"D_FF", Is<CFlipFlopPanel>, 3},
        {"FF", Is<CFlipFlopPanel>, 3},        {"SMOT", Is<CStepMotorPanel>, 3},
        {"PULS", Is<CPulsePanel>, 2},         {"LCD", Is<CLcdPanel>, 2},
        {"WEBIN", Is<CWebInPanel>, 1},        {"WEBOUT", Is<CWebOutPanel>, 2},
        {"SMOTO", Is<CStepMotorOutPanel>, 2},
    };
    QStringList order;
    for (const CKeywordRow& row : rows) {
        order << row.Keyword;
        const auto panel = CPanelFactory::Create(QString::fromLatin1(row.Keyword) + "\tX");
        ASSERT_TRUE(panel) << row.Keyword;
        EXPECT_TRUE(row.IsClass(panel.get())) << row.Keyword;
        EXPECT_EQ(panel->GetArea(), row.Area) << row.Keyword;
    }
    EXPECT_EQ(CPanelFactory::Keywords(), order);
}

TEST(PanelFactory, KeywordsAreWholeCaseSensitiveAndEndAtBlankOrTab)
{
    EXPECT_TRUE(Is<CSevenSegPanel>(CPanelFactory::Create("7SEG4\t;7SEG4_B").get()));
    EXPECT_EQ(MakePanel("7SEG4\t;7SEG4_B")->GetMode(), 4);
    EXPECT_FALSE(CPanelFactory::Create("key\tH,P1"));
    EXPECT_FALSE(CPanelFactory::Create("SW,P0"));   // a comma does not end the keyword here
    EXPECT_FALSE(CPanelFactory::Create("LAMPS\tH")); // no prefix match
    EXPECT_TRUE(CPanelFactory::Create("  \tSW H,P0"));
    EXPECT_EQ(CPanelFactory::Keyword(" \t "), "");
    EXPECT_FALSE(CPanelFactory::Create(""));
}

TEST(PanelFactory, LongLinesAreCutForRecognitionOnly)
{
    const QString line = "ANI\t" + QString(296, u'x');
    ASSERT_EQ(line.size(), 300);
    const auto panel = CPanelFactory::Create(line);
    ASSERT_TRUE(Is<CAnalogPanel>(panel.get()));
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
