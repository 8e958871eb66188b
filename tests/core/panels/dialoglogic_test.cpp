// What each property dialog opens with, when it enables OK and the tokens it gives; and the
// rules every numeric and text field shares. Flags are 1 and 0.
#include "buzzerdialoglogic.h"
#include "core/panels/panelfacts.h"
#include "counterdialoglogic.h"
#include "flipflopdialoglogic.h"
#include "lcddialoglogic.h"
#include "numberdialoglogic.h"
#include "pulsedialoglogic.h"
#include "pwmdialoglogic.h"
#include "serialindialoglogic.h"
#include "serialoutdialoglogic.h"
#include "sevensegdialoglogic.h"
#include "stepmotordialoglogic.h"
#include "stepmotoroutdialoglogic.h"
#include "switchdialoglogic.h"
#include "timedialoglogic.h"
#include "timerdialoglogic.h"
#include "timetext.h"
#include "webindialoglogic.h"

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
                  {{"fields", {L::FieldCount, &L::GetField, &L::SetField}},
                   {"hundredths", &L::IsHundredthsEnabled},
                   {"delay", [](const L& l) { return l.DelayTokens({"DLY"}).join(u','); }}});
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
                  {{"kind", {&L::GetKind, &L::SetKind}},
                   {"shown", &L::ShownTime},
                   {"text", {&L::TimeDialogText, &L::SetTimeDialogText}}});
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
                  {{"name", {&L::GetName, &L::SetName}},
                   {"port", {&L::GetPortIndex, &L::SetPortIndex}},
                   {"level", {&L::GetLevelIndex, &L::SetLevelIndex}}});
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
    CheckLogic<L>(kFlipFlop, Open<L>, {{"type", {&L::GetType, &L::SetType}}});
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
                  {{"port", {&L::GetPortIndex, &L::SetPortIndex}},
                   {"checked", {L::FrequencyCount, &L::IsChecked, &L::SetChecked}}});
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
                  {{"type", {&L::GetType, &L::SetType}},
                   {"wrong", &L::WrongField},
                   {"values", {L::ValueCount, &L::GetValue, &L::SetValue}}});
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
                  {{"mode", {&L::GetMode, &L::SetMode}},
                   {"port", {&L::GetPortIndex, &L::SetPortIndex}},
                   {"types", types}});
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
    CheckLogic<L>(kNumber, open,
                  {{"text", {&L::GetText, &L::SetText}}, {"maxlength", &L::GetMaxLength}});
}

const CPortList kOnePort = Ports({"PB1(RxD6)"});

const CText kStepMotor[] = {
    "TwoPhaseTwenty|SMOT,2,20||mode=1|speed=1|saved=SMOT,2,20",
    "SlowestSpeed|SMOT,1,100||mode=0|speed=5|saved=SMOT,1,100",
    "SpeedOffTheListOpensWithNoSpeed|SMOT,1,25||mode=0|speed=-1|saved=|>speed=4|saved=SMOT,1,50",
    "UnknownModeOpensWithNoMode|SMOT,3,20||mode=-1|speed=1|saved=",
    "BareKeywordSelectsNothing|SMOT||mode=-1|speed=-1|saved=",
};

TEST(StepMotorDialogLogic, OpensOnTheListedSpeedsOnly)
{
    using L = CStepMotorDialogLogic;
    CheckLogic<L>(kStepMotor, Open<L>, {{"mode", &L::Mode}, {"speed", &L::Speed}});
}

// "speed" is the suggestion selected, "text" the speed typed.
const CText kStepMotorOut[] = {
    "SuggestionIsSelected|SMOTO,1,100|PB1|speed=2|saved=SMOTO,1,100",
    "OtherSpeedIsAddedAndSelected|SMOTO,2,250|PB1|speed=8|saved=SMOTO,2,250",
    "BelowTwentySelectsNothing|SMOTO,2,19|PB1|speed=-1|saved=",
    "TypedLowestSpeed|SMOTO,2|PB1|speed=-1|>text=20|saved=SMOTO,2,20",
    "TypedBelowLowest|SMOTO,2|PB1|>text=19|saved=",
    "TypedHighestKeepsItsBlanksOff|SMOTO,1|PB1|>text= 30000 |saved=SMOTO,1,30000",
    "TypedAsAPlainNumber|SMOTO,1|PB1|>text=0025|saved=SMOTO,1,25",
    "EmptyWithoutSuggestion|SMOTO,1|PB1|>text=|saved=",
    "UnknownMode|SMOTO,3,100|PB1|speed=2|saved=",
    "SeveralPortsNeedAChoice|SMOTO,1,100|PB1,PB2|saved=|>port=1|saved=SMOTO,1,100",
};

TEST(StepMotorOutDialogLogic, TakesASuggestedOrTypedSpeed)
{
    using L = CStepMotorOutDialogLogic;
    CheckLogic<L>(kStepMotorOut, Open<L>,
                  {{"speed", &L::Speed}, {"text", &L::SpeedText}, {"port", &L::Port}});
}

// Modes: 1 compare, 2 bit; "bits" is the index of the bit count.
const CText kSerialIn[] = {
    "CompareDescendingWithoutRepeats|UARI|PD0(RxD6)|>port=0|>mode=1|>values=5,200,5,17|"
    "saved=UARI,C,200,17,5",
    "EmptyFieldBesideValueIsAllowed|UARI|RxD6|>port=0|>mode=1|>values=,7|saved=UARI,C,7",
    "NoValueKeepsOkOff|UARI|RxD6|>port=0|>mode=1|saved=",
    "RxD0PortSavesUari0|UARI|PD0(RxD0)|>port=0|>mode=1|>values=1|saved=UARI0,C,1",
    "BothPinsSaveUari|UARI0|RxD0/RxD6|>port=0|>mode=1|>values=1|saved=UARI,C,1",
    "BitModeSavesTheCount|UARI|RxD6|>port=0|>mode=2|>bits=2|saved=UARI,B,3",
    "BitModeWithoutCount|UARI|RxD6|>port=0|>mode=2|saved=",
    "NoModeKeepsOkOff|UARI|RxD6|>port=0|>mode=0|>values=1|saved=",
    "NameIsTheLastToken|UARI,C,1,;Door|RxD6|>port=0|>values=9|saved=UARI,C,9,;Door",
    "OpensWithModeValuesPortAndName|UARI,CW,3,9,3,;Key|PB0,PD0(RxD6)|mode=1|port=1|name=Key|"
    "values=9,3",
    "Uari0LooksForRxD0|UARI0,B,4|PD0(RxD6),PD1(RxD0)|port=1|mode=2|bits=3",
    "UnknownModeAndPort|UARI,X,4|RxD2|mode=0|port=-1",
};

TEST(SerialInDialogLogic, OpensAndWritesItsModeValuesAndKeyword)
{
    using L = CSerialInDialogLogic;
    CheckLogic<L>(kSerialIn, Open<L>,
                  {{"port", &L::Port},
                   {"mode", &L::Mode},
                   {"values", &L::Values},
                   {"bits", &L::BitCount},
                   {"name", &L::Name}});
    EXPECT_EQ(CSerialOutDialogLogic(Ports({"TxD"})).Port, 0);
    EXPECT_EQ(CSerialOutDialogLogic(Ports({"TxD", "TxD0"})).Port, -1);
}

// Steps: 1 five, 2 three.
const CText kPulse[] = {
    "FiveSteps|PULS,H,PB2,100,75,50,25,0|PB1,PB2,PB3|port=1|steps=1|"
    "saved=PULS,H,PB2,100,75,50,25,0",
    "ThreeStepsWithName|PULS,H,PB3,100,50,0,;Fan|PB1,PB2,PB3|port=2|steps=2|"
    "saved=PULS,H,PB3,100,50,0,;Fan",
    "TwoLevelsCheckNeither|PULS,H,PB2,100,0|PB1,PB2,PB3|port=1|steps=0|saved=",
    "SinglePortIsSelected|PULS,H,PX,100,50,0|PB1|port=0|steps=2|saved=PULS,H,PB1,100,50,0",
    "PortNotInTheList|PULS,H,PX,100,50,0|PB1,PB2,PB3|port=-1|steps=2|saved=",
    "ChoicesAreWritten|PULS,H,PB2,100,75,50,25,0|PB1,PB2|>steps=2|>name=Lamp|"
    "saved=PULS,H,PB2,100,50,0,;Lamp",
};

TEST(PulseDialogLogic, OpensWithPortAndStepsAndWritesTheLevels)
{
    using L = CPulseDialogLogic;
    CheckLogic<L>(kPulse, Open<L>, {{"port", &L::Port}, {"steps", &L::Steps}, {"name", &L::Name}});
}

// "low" and "high" are the board's frequency range.
const CText kPwm[] = {
    "DutiesDescendingWithoutRepeats|PWM|PB1|>frequency=500|>duties=50,100,50,0|"
    "saved=PWM,500Hz,100,50,0",
    "DefaultLowestFrequency|PWM|PB1|>frequency=10|>duties=50|saved=PWM,10Hz,50",
    "DefaultHighestFrequency|PWM|PB1|>frequency=81920|>duties=0|saved=PWM,81920Hz,0",
    "BoardLowestFrequency|PWM|PB1|>low=31|>high=62500|>frequency=31|>duties=25|saved=PWM,31Hz,25",
    "BelowBoardLowest|PWM|PB1|>low=31|>high=62500|>frequency=30|>duties=25|saved=",
    "AboveBoardHighest|PWM|PB1|>low=31|>high=62500|>frequency=62501|>duties=25|saved=",
    "NoDuty|PWM|PB1|>frequency=100|saved=",
    "WrittenAsPlainNumbers|PWM,100Hz,50|PB1|>frequency= 0500 |>duties= 050|saved=PWM,500Hz,50",
    "OpensWithFrequencyAndDutiesAndNoPort|PWM,1000Hz,80,20,80|PB1,PB2|frequency=1000|"
    "duties=80,20|port=-1|low=10|high=81920",
};

TEST(PwmDialogLogic, TakesFrequencyInTheBoardsRangeAndDutiesDescending)
{
    using L = CPwmDialogLogic;
    CheckLogic<L>(kPwm, Open<L>,
                  {{"frequency", &L::Frequency},
                   {"duties", &L::Duties},
                   {"port", &L::Port},
                   {"low", &L::LowFreq},
                   {"high", &L::HighFreq}});
}

const CText kWebIn[] = {
    "EmptyNameStoresLoneSemicolon|WEBIN,8||bits=7|saved=WEBIN,8,;",
    "NameIsKept|WEBIN,10,;Gate||bits=9|saved=WEBIN,10,;Gate",
    "ClearedName|WEBIN,2,;Gate||bits=1|>name=|saved=WEBIN,2,;",
    "NoCountSelectsNothing|WEBIN||bits=-1|saved=",
    "CountAboveTenSelectsNothing|WEBIN,11||bits=-1|saved=",
};

TEST(WebInDialogLogic, OpensWithBitCountAndName)
{
    using L = CWebInDialogLogic;
    CheckLogic<L>(kWebIn, Open<L>, {{"bits", &L::BitCount}, {"name", &L::Name}});
}

// Modes: 1 upper line, 2 lower line, 3 clear.
const CText kLcd[] = {
    "ClearStoresTwoQuotes|LCD,1,\"Hi\"||mode=1|text=Hi|>mode=3|!textenabled|saved=LCD,0,\"\"",
    "BelowWrapsTheText|LCD,1,\"Hi\"||>mode=2|textenabled|saved=LCD,2,\"Hi\"",
    "OwnQuotesStayInside|LCD,2,\"\"a\"\"||mode=2|text=\"a\"|saved=LCD,2,\"\"a\"\"",
    "UnknownModeChecksNothing|LCD,3,\"x\"||mode=0|text=x|textenabled|saved=",
    "ClearLineOpensEmptyAndNeedsText|LCD,0,\"\"||mode=3|text=|>mode=1|saved=",
};

TEST(LcdDialogLogic, OpensWithModeAndTextAndWritesThem)
{
    using L = CLcdDialogLogic;
    CheckLogic<L>(kLcd, Open<L>,
                  {{"mode", &L::Mode}, {"text", &L::Text}, {"textenabled", &L::IsTextEnabled}});
}

// What each numeric field of every dialog does with a number typed into it while the
// dialog's other fields are valid: takes it, refuses it with OK disabled, or also selects
// the field for the user to type over.
std::map<QString, QString> Verdicts(const QString& text)
{
    const auto verdict = [](const auto& logic, bool selected) {
        return QString(logic.IsOkEnabled() ? "taken" : selected ? "selected" : "refused");
    };
    CCounterDialogLogic counter(Split("CNT,H,5"));
    counter.SetValue(1, text);
    CSerialInDialogLogic serial(Split("UARI,C,5"), kOnePort);
    serial.Values[1] = text;
    CPwmDialogLogic duty(Split("PWM,100Hz,50"), kOnePort), frequency = duty;
    duty.Duties[1] = text;
    frequency.Frequency = text;
    CStepMotorOutDialogLogic motor(Split("SMOTO,1"), kOnePort);
    motor.SpeedText = text;
    CNumberDialogLogic bit(CNumberDialogLogic::SerialBit, Split("UART,3,L"), -1);
    bit.SetText(text);
    CNumberDialogLogic jump(CNumberDialogLogic::Jump, Split("JPI,7,L"), 7);
    jump.SetText(text);
    std::map<QString, QString> verdicts = {
        {"CounterValue", verdict(counter, counter.WrongField() == 1)},
        {"SerialValue", verdict(serial, serial.WrongField() == 1)},
        {"PwmDuty", verdict(duty, duty.WrongField() == 1)},
        {"PwmFrequency", verdict(frequency, frequency.IsFrequencyWrong())},
        {"MotorSpeed", verdict(motor, motor.IsSpeedWrong())},
        {"SerialBit", verdict(bit, bit.IsTextWrong())},
        {"JumpId", verdict(jump, jump.IsTextWrong())},
    };
    const char* times[] = {"Hours", "Minutes", "Seconds", "Hundredths"};
    for (int f = 0; f < CTimeDialogLogic::FieldCount; ++f) {
        CTimeDialogLogic time(QStringLiteral("000001.00"));
        time.SetField(CTimeDialogLogic::EField(f), text);
        verdicts[times[f]] = verdict(time, time.WrongField() == f);
    }
    return verdicts;
}

TEST(NumericFields, TakeOnlyNumbersInTheirRange)
{
    // field, texts taken, texts refused and selected, texts refused alone ("|" between texts)
    const std::tuple<CText, CText, CText, CText> rows[] = {
        {"CounterValue", "32767| 12 |", "x|-|1 2|32768", nullptr},
        {"SerialValue", "255", "x|-|256", nullptr},
        {"PwmDuty", "100", "x|-|101", nullptr},
        {"PwmFrequency", " 500 ", "100x|81921", "9|"},
        {"MotorSpeed", "25", "25x|30001", "2"},
        {"SerialBit", "7", "x|-|8", ""},
        {"JumpId", "99", "9x|+9|100", "0"},
        {"Hours", "8|", "x|12", nullptr},
        {"Minutes", "59", "5m|60", nullptr},
        {"Seconds", nullptr, "-", nullptr},
        {"Hundredths", "99", "x", nullptr},
    };
    for (const auto& [field, taken, selected, refused] : rows)
        for (const auto& [texts, verdict] :
             {std::pair{taken, "taken"}, {selected, "selected"}, {refused, "refused"}})
            for (const QString& text : texts ? QString(texts).split(u'|') : QStringList())
                EXPECT_EQ(Verdicts(text).at(field), verdict)
                    << field << " \"" << text.toStdString() << '"';
}

// A name or text typed into a dialog, written as a line and read back through the factory
// and the dialog again: what comes back, or "refused" while OK is off.
template <class L> QString RoundTrip(const char* tokens, const QString& text, CField<L> field)
{
    L logic = Open<L>(tokens, kOnePort);
    field.Set(logic, text);
    if (!logic.IsOkEnabled())
        return QStringLiteral("refused");
    const auto panel = MakePanel(CPanel::JoinLine(logic.Tokens()), {"PB1(RxD6)"});
    return field.Get(Open<L>(panel->GetTokens().join(u','), kOnePort));
}

TEST(TextFields, ComeBackExactlyOrAreRefused)
{
    // text, accepted as a name, accepted as the LCD's text (between quotes: blanks are kept)
    const std::tuple<CText, bool, bool> rows[] = {
        {"Hi there", true, true}, {"Hi, there", false, false}, {"a,b", false, false},
        {"a\tb", false, false},   {"a\r\nb", false, false},    {"a\nb", false, false},
        {"a;b", true, true},      {";a", true, true},          {" lead", true, true},
        {"trail ", false, true},  {"\"q\"", true, true},       {"\u540d\u524d", true, true},
    };
    for (const auto& [typed, name, quoted] : rows) {
        const QString text = QString::fromUtf8(typed);
        const QString named = name ? text : QStringLiteral("refused");
        SCOPED_TRACE(typed);
        using S = CSwitchDialogLogic;
        EXPECT_EQ(RoundTrip<S>("KEY,H,PB1(RxD6)", text, {&S::GetName, &S::SetName}), named);
        EXPECT_EQ(RoundTrip<S>("LAMP,H,PB1(RxD6)", text, {&S::GetName, &S::SetName}), named);
        EXPECT_EQ(RoundTrip<CSerialInDialogLogic>("UARI,C,5", text, &CSerialInDialogLogic::Name),
                  named);
        EXPECT_EQ(RoundTrip<CPulseDialogLogic>("PULS,H,PB1(RxD6),100,50,0", text,
                                               &CPulseDialogLogic::Name),
                  named);
        EXPECT_EQ(RoundTrip<CWebInDialogLogic>("WEBIN,8", text, &CWebInDialogLogic::Name), named);
        EXPECT_EQ(RoundTrip<CLcdDialogLogic>("LCD,1,\"x\"", text, &CLcdDialogLogic::Text),
                  quoted ? text : "refused");
    }
}

} // namespace
