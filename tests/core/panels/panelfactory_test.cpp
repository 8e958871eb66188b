// Making panels from their keywords.
#include "core/panels/paneltest.h"

#include <typeinfo>

// KEYWORD=Family and area (the class name without its C and Panel) in the factory's order; a
// keyword alone is of the family before it.
const char* const kKeywords =
    "KEY=Switch1 SW ANI=Analog1 DGI=Switch1 UARI=SerialIn1 UARI0 DGO=Lamp2 BUZZ=Buzzer2 LAMP=Lamp2 "
    "PWM=Pwm2 UARO=SerialOut2 UARO0 7SEG=SevenSeg2 7SEG4 LINE=Wire3 JPI=Jump3 UART=SerialBit3 "
    "UART0 7S_=SegmentDecoder3 7S4_ 7S_B 7S_D 7S_S 7S4_B 7S4_D 7S4_S JPO=Jump3 NOT=Logic3 AND OR "
    "XOR ON OFF CNT=Counter3 DLY=Delay3 TIM=Timer3 TIM1 RSFF=FlipFlop3 T_FF D_FF FF "
    "SMOT=StepMotor3 PULS=Pulse2 LCD=Lcd2 WEBIN=WebIn1 WEBOUT=WebOut2 SMOTO=StepMotorOut2";

TEST(PanelFactory, EveryKeywordMakesItsFamilyInTableOrder)
{
    QStringList order;
    QString family;
    for (const QString& entry : QString(kKeywords).split(u' ')) {
        order << entry.section(u'=', 0, 0);
        family = entry.contains(u'=') ? entry.section(u'=', 1) : family;
        const auto panel = CPanelFactory::Create(order.last() + "\tX");
        ASSERT_TRUE(panel) << entry.toStdString();
        // Both mangled and plain type names end in the class name.
        const QByteArray type = typeid(*panel).name();
        EXPECT_TRUE(type.endsWith("C" + family.chopped(1).toLatin1() + "Panel")) << type.data();
        EXPECT_EQ(panel->GetArea(), family.right(1).toInt()) << entry.toStdString();
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
