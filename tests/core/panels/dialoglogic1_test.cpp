// What the time, timer, switch, flip-flop, buzzer, counter, seven-segment and one-number
// dialogs open with, when they enable OK and the tokens they give. Flags are 1 and 0.
#include "buzzerdialoglogic.h"
#include "core/panels/panelfacts.h"
#include "counterdialoglogic.h"
#include "flipflopdialoglogic.h"
#include "numberdialoglogic.h"
#include "sevensegdialoglogic.h"
#include "switchdialoglogic.h"
#include "timedialoglogic.h"
#include "timerdialoglogic.h"
#include "timetext.h"

namespace {

// name, token, the time dialog's text
using CTimeRow = std::tuple<CText, CText, CText>;

const CTimeRow kTimeRead[] = {
    {"MinuteAndAHalf", "90.45S", "000130.45"},     {"OneDigitFractionIsTenths", "2.5", "000002.50"},
    {"LeadingZeroFraction", "2.05S", "000002.05"}, {"ThirdDecimalIgnored", "1.479S", "000001.47"},
    {"NoDotIsWholeSeconds", "3", "000003.00"},     {"Longest", "32399.00S", "085959.00"},
    {"NoNumberIsZero", "abc", "000000.00"},        {"DotFirstIsZero", ".5S", "000000.00"},
};

const CTimeRow kTimeWritten[] = {
    {"RoundsDownToFive", "1.45S", "000001.47"},
    {"KeepsAMultipleOfFive", "90.45S", "000130.45"},
    {"Shortest", "0.05S", "000000.05"},
    {"Longest", "32399.00S", "085959.00"},
    {"NinetyNineBecomesNinetyFive", "1199.95S", "001959.99"},
    {"ThreeDigitFraction", "1.45S", "000001.470"},
    {"NoFractionIsZero", "0.00S", "000130."},
};

TEST(TimeText, ReadsTokensAndKeepsTheTwentiethSecondGrid)
{
    for (const auto& [name, token, text] : kTimeRead)
        EXPECT_EQ(CTimeText::FromToken(token).Text(), text) << name;
    for (const auto& [name, token, text] : kTimeWritten)
        EXPECT_EQ(CTimeText::FromText(text).Token(), token) << name;
    EXPECT_EQ(CTimeText::FromToken("3723.05S").Shown(), "1h 2m 3.05s");
}

// "fields" are hours, minutes, seconds and hundredths; "delay" what the delay's line gets.
const CText kTime[] = {
    "DelayOpensAsHoursMinutesSecondsHundredths|DLY,90.45S||fields=0,1,30,45|ok|delay=DLY,90.45S",
    "DelayWithoutTimeOpensAtZeroAndCannotBeConfirmed|DLY||fields=0,0,0,00|!ok|delay=DLY,0.00S",
    "FourHundredthsTooShort|DLY||>fields=0,0,0,04|!ok|hundredths|delay=DLY,0.00S",
    "FiveHundredthsShortest|DLY||>fields=0,0,0,05|ok|hundredths|delay=DLY,0.05S",
    "EmptyFieldsCountAsZero|DLY||>fields=,,,|!ok|hundredths|delay=DLY,0.00S",
    "TwentyMinutesDropsHundredths|DLY||>fields=0,20,0,45|ok|!hundredths|fields=0,20,0,00",
    "NineteenMinutesKeepsHundredths|DLY||>fields=0,19,59,99|ok|hundredths|delay=DLY,1199.95S",
    "OneHourDropsHundredths|DLY||>fields=1,0,0,50|ok|!hundredths|delay=DLY,3600.00S",
    "NineHoursTooLong|DLY||>fields=9,0,0,00|!ok|!hundredths|delay=DLY,32400.00S",
    "LongestAccepted|DLY||>fields=8,59,59,00|ok|!hundredths|delay=DLY,32399.00S",
    "SixtyMinutesRefused|DLY||>fields=0,60,0,00|!ok|!hundredths|delay=DLY,3600.00S",
    "SixtySecondsRefused|DLY||>fields=0,0,60,00|!ok|hundredths|delay=DLY,60.00S",
    "OddHundredthsCutDown|DLY||>fields=0,0,1,47|ok|hundredths|delay=DLY,1.45S",
    "WholeSecondWithoutHundredths|DLY||>fields=0,0,1,|ok|hundredths|delay=DLY,1.00S",
};

TEST(TimeDialogLogic, OpensDecidesOkAndHundredths)
{
    using L = CTimeDialogLogic;
    CheckLogic<L>(kTime, [](const QString& t, auto&) { return L::ForDelay(Split(t)); },
                  {{"fields", Each(L::FieldCount, &L::GetField, &L::SetField)},
                   {"hundredths", Get(&L::IsHundredthsEnabled)},
                   {"delay", {[](const L& l) { return l.DelayTokens({"DLY"}).join(u','); }, {}}}});
}

const CText kTimer[] = {
    "Hold|TIM,H,90.05S||kind=1|shown=0h 1m 30.05s|ok",
    "Toggle|TIM,T,1.50S||kind=2|shown=0h 0m 1.50s|ok",
    "OneShot|TIM1,N,3723.00S||kind=3|shown=1h 2m 3.00s|ok",
    "Retriggerable|TIM1,R,2.5||kind=4|shown=0h 0m 2.50s|ok",
    "OneShotKeywordWithHoldIsNoKind|TIM1,H,1.00S||kind=0|shown=0h 0m 1.00s|!ok",
    "TimeWithoutClosingS|TIM,H,3||kind=1|shown=0h 0m 3.00s|ok",
    "NoTimeTakesTheTimeDialogsOnTheGrid|TIM,H||shown=|!ok|text=000000.00|>text=001959.99|"
    "shown=0h 19m 59.95s|saved=TIM,H,1199.95S",
    "EachKindWritesItsKeywordAndLetter|TIM,X,1.50S||tokens=|>kind=1|saved=TIM,H,1.50S|>kind=2|"
    "saved=TIM,T,1.50S|>kind=3|saved=TIM1,N,1.50S|>kind=4|saved=TIM1,R,1.50S",
};

TEST(TimerDialogLogic, OpensWithKindAndTimeAndWritesThem)
{
    using L = CTimerDialogLogic;
    CheckLogic<L>(kTimer, Open<L>,
                  {{"kind", Access(&L::GetKind, &L::SetKind)},
                   {"shown", Get(&L::ShownTime)},
                   {"text", Access(&L::TimeDialogText, &L::SetTimeDialogText)}});
}

// The board has PD2 and PD3; "TOKENS@NAME" opens with a name the panel already has.
const CText kSwitch[] = {
    "KeywordAloneOpensHighWithoutPort|SW|PD2,PD3|name=|port=-1|level=0|saved=SW,H,,;",
    "FullLine|KEY,L,PD3,;start|PD2,PD3|name=start|port=1|level=1|saved=KEY,L,PD3,;start",
    "InitialNameWithoutCommentToken|DGI,H,PD2@old|PD2,PD3|name=old|port=0|saved=DGI,H,PD2,;old",
    "CommentTokenOverridesInitialName|DGI,H,PD2,;new@old|PD2,PD3|name=new|saved=DGI,H,PD2,;new",
    "UnknownPortSelectsNothing|DGO,H,PB9|PD2,PD3|port=-1|level=0|saved=DGO,H,,;",
    "UnknownLevelSelectsNothing|DGO,X,PD2|PD2,PD3|port=0|level=-1|saved=DGO,,PD2,;",
    "ChoicesAreWritten|LAMP,H,PD2,;a|PD2,PD3|>name=lamp 1|>port=1|>level=1|saved=LAMP,L,PD3,;lamp "
    "1",
};

TEST(SwitchDialogLogic, OpensAndWritesFourTokens)
{
    using L = CSwitchDialogLogic;
    const auto open = [](const QString& t, const CPortList& ports) {
        return L(Split(t.section(u'@', 0, 0)), ports, t.section(u'@', 1));
    };
    CheckLogic<L>(kSwitch, open,
                  {{"name", Access(&L::GetName, &L::SetName)},
                   {"port", Access(&L::GetPortIndex, &L::SetPortIndex)},
                   {"level", Access(&L::GetLevelIndex, &L::SetLevelIndex)}});
}

const CText kFlipFlop[] = {
    "RS|RSFF||type=1|saved=RSFF",
    "T|T_FF||type=2|saved=T_FF",
    "D|D_FF||type=3|saved=D_FF",
    "UntypedCannotBeConfirmed|FF||type=0|saved=",
    "ChosenTypeWritesItsKeyword|FF,;note||>type=2|saved=T_FF|>type=7|tokens=|!ok",
};

TEST(FlipFlopDialogLogic, OpensWithTheKeywordsTypeAndWritesTheChosenKeyword)
{
    using L = CFlipFlopDialogLogic;
    CheckLogic<L>(kFlipFlop, Open<L>, {{"type", Access(&L::GetType, &L::SetType)}});
}

// "checked" are 2000, 1000 and 500 Hz.
const CText kBuzzer[] = {
    "OnePortIsSelected|BUZZ,PB1,1000|PB1|port=0|checked=0,1,0|saved=BUZZ,PB1,1000",
    "SeveralPortsSelectNothing|BUZZ,PB1,2000,500|PB1,PB2|port=-1|checked=1,0,1|saved=",
    "NoFrequencyKeepsOkOff|BUZZ,PB1|PB1|port=0|checked=0,0,0|saved=",
    "ChoicesAreWrittenFromTheHighest|BUZZ,PB2,;old|PB1,PB2|>port=1|>checked=1,0,1|"
    "saved=BUZZ,PB2,2000,500",
};

TEST(BuzzerDialogLogic, OpensWithPortAndFrequenciesAndWritesThemFromTheHighest)
{
    using L = CBuzzerDialogLogic;
    CheckLogic<L>(kBuzzer, Open<L>,
                  {{"port", Access(&L::GetPortIndex, &L::SetPortIndex)},
                   {"checked", Each(L::FrequencyCount, &L::IsChecked, &L::SetChecked)}});
}

// "wrong" is the field named wrong.
const CText kCounter[] = {
    "SortedDownOnceEach|CNT||>type=1|>values=10,300,10,5|wrong=-1|saved=CNT,H,300,10,5",
    "Cyclic|CNT||>type=2|>values=7|saved=CNT,C,7",
    "LeadingZerosVanish|CNT||>type=1|>values=007, 12|saved=CNT,H,12,7",
    "GapsAreAllowed|CNT||>type=1|>values=,,,,,,,,,,,,,,32767|wrong=-1|saved=CNT,H,32767",
    "ZeroIsAValue|CNT||>type=1|>values=0|saved=CNT,H,0",
    "NotANumberNamesItsField|CNT||>type=1|>values=1,2,x|wrong=2|saved=",
    "NegativeRefused|CNT||>type=1|>values=-1|wrong=0|saved=",
    "AllEmpty|CNT||>type=1|wrong=-1|saved=",
    "NoType|CNT||>values=5|wrong=-1|saved=",
    "OpensWithTypeAndValuesSortedOnceEach|CNT,C,5,300,5,;name||type=2|values=300,5",
    "UnknownTypeIsNone|CNT,X,5||type=0",
};

TEST(CounterDialogLogic, DecidesOkAndWritesValuesDownOnceEach)
{
    using L = CCounterDialogLogic;
    CheckLogic<L>(kCounter, Open<L>,
                  {{"type", Access(&L::GetType, &L::SetType)},
                   {"wrong", Get(&L::WrongField)},
                   {"values", Each(L::ValueCount, &L::GetValue, &L::SetValue)}});
}

// "TOKENS@MODE" opens with the display's mode; "types" are the modes offered in list order.
const CText kSevenSeg[] = {
    "OneDigit|7SEG,;7SEG_S@3|PB0,PB1|types=2,3,1|mode=3|ok",
    "FourDigits|7SEG4,;7SEG4_D@5|PB0,PB1|types=5,6,4|mode=5|ok",
    "ModeOfTheOtherKeywordSelectsNothing|7SEG,;7SEG4_D@5|PB0,PB1|types=2,3,1|mode=0|!ok",
    "OtherKeywordHasNoTypes|7SEGX@1|PB0,PB1|types=|mode=0",
    "OnePortIsSelected|7SEG4@0|PB0|port=0|>mode=4|saved=7SEG4,;7SEG4_B",
    "PortTokenSelectsItsPort|7SEG,;7SEG_B,PB1@1|PB0,PB1|port=1",
    "NoPortTokenSelectsNothing|7SEG,;7SEG_B@1|PB0,PB1|port=-1",
};

TEST(SevenSegDialogLogic, OffersTheKeywordsTypesAndPort)
{
    using L = CSevenSegDialogLogic;
    const auto open = [](const QString& t, const CPortList& ports) {
        return L(Split(t.section(u'@', 0, 0)), ports, t.section(u'@', 1).toInt());
    };
    const auto types = [](const L& l) {
        QStringList modes;
        for (const auto& type : l.Types())
            modes << QString::number(type.Mode);
        return modes.join(u',');
    };
    CheckLogic<L>(kSevenSeg, open,
                  {{"mode", Access(&L::GetMode, &L::SetMode)},
                   {"port", Access(&L::GetPortIndex, &L::SetPortIndex)},
                   {"types", {types, {}}}});
}

// A serial bit's position or a jump's connection id; a jump opens on its reference.
const CText kNumber[] = {
    "BitKeptAsOpened|UART,3,L||text=3|saved=UART,3,L|maxlength=1",
    "BitDashMustBeReplaced|UART,-||text=-|saved=",
    "BitTypedOverTheDash|UART,-||>text=0|saved=UART,0,L",
    "BitWithoutTokenStartsEmpty|UART0||text=|>text=7|saved=UART0,7,L",
    "JumpIdZeroStartsEmpty|JPI,,L||text=|saved=|maxlength=2",
    "JumpTakesATypedId|JPI,,L||>text=42|saved=JPI,42,L",
    "JumpKeepsItsId|JPO,7,R||text=7|saved=JPO,7,R",
    "JumpNinetyNine|JPO,7,D||>text=99|saved=JPO,99,D",
    "JumpIdWrittenAsAPlainNumber|JPO,7,R||>text= 09|saved=JPO,9,R",
};

TEST(NumberDialogLogic, BitPositionAndConnectionId)
{
    using L = CNumberDialogLogic;
    const auto open = [](const QString& t, auto&) {
        const bool jump = t.startsWith(u'J');
        return L(jump ? L::Jump : L::SerialBit, Split(t), jump ? Split(t)[1].toInt() : -1);
    };
    CheckLogic<L>(
        kNumber, open,
        {{"text", Access(&L::GetText, &L::SetText)}, {"maxlength", Get(&L::GetMaxLength)}});
}

} // namespace
