// What the motor, serial, pulse, PWM, network and LCD dialogs open with, when they enable
// OK and the tokens they give; and the rules every numeric and text field shares.
#include "core/panels/panelfacts.h"
#include "counterdialoglogic.h"
#include "lcddialoglogic.h"
#include "numberdialoglogic.h"
#include "pulsedialoglogic.h"
#include "pwmdialoglogic.h"
#include "serialindialoglogic.h"
#include "serialoutdialoglogic.h"
#include "stepmotordialoglogic.h"
#include "stepmotoroutdialoglogic.h"
#include "switchdialoglogic.h"
#include "timedialoglogic.h"
#include "webindialoglogic.h"

namespace {

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
    CheckLogic<L>(kStepMotor, Open<L>, {{"mode", Member(&L::Mode)}, {"speed", Member(&L::Speed)}});
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
                  {{"speed", Member(&L::Speed)},
                   {"text", Member(&L::SpeedText)},
                   {"port", Member(&L::Port)}});
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
                  {{"port", Member(&L::Port)},
                   {"mode", Member(&L::Mode)},
                   {"values", Member(&L::Values)},
                   {"bits", Member(&L::BitCount)},
                   {"name", Member(&L::Name)}});
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
    CheckLogic<L>(
        kPulse, Open<L>,
        {{"port", Member(&L::Port)}, {"steps", Member(&L::Steps)}, {"name", Member(&L::Name)}});
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
                  {{"frequency", Member(&L::Frequency)},
                   {"duties", Member(&L::Duties)},
                   {"port", Member(&L::Port)},
                   {"low", Member(&L::LowFreq)},
                   {"high", Member(&L::HighFreq)}});
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
    CheckLogic<L>(kWebIn, Open<L>, {{"bits", Member(&L::BitCount)}, {"name", Member(&L::Name)}});
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
                  {{"mode", Member(&L::Mode)},
                   {"text", Member(&L::Text)},
                   {"textenabled", Get(&L::IsTextEnabled)}});
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
template <class Logic> QString RoundTrip(const char* tokens, const QString& text)
{
    const auto open = [](const QStringList& line) {
        if constexpr (std::is_constructible_v<Logic, QStringList, CPortList>)
            return Logic(line, kOnePort);
        else
            return Logic(line);
    };
    const auto field = [](auto& logic) -> QString& {
        if constexpr (std::is_same_v<Logic, CLcdDialogLogic>)
            return logic.Text;
        else
            return logic.Name;
    };
    Logic logic = open(Split(tokens));
    if constexpr (std::is_same_v<Logic, CSwitchDialogLogic>)
        logic.SetName(text);
    else
        field(logic) = text;
    if (!logic.IsOkEnabled())
        return QStringLiteral("refused");
    Logic read = open(MakePanel(CPanel::JoinLine(logic.Tokens()), {"PB1(RxD6)"})->GetTokens());
    if constexpr (std::is_same_v<Logic, CSwitchDialogLogic>)
        return read.GetName();
    else
        return field(read);
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
        EXPECT_EQ(RoundTrip<CSwitchDialogLogic>("KEY,H,PB1(RxD6)", text), named) << typed;
        EXPECT_EQ(RoundTrip<CSwitchDialogLogic>("LAMP,H,PB1(RxD6)", text), named) << typed;
        EXPECT_EQ(RoundTrip<CSerialInDialogLogic>("UARI,C,5", text), named) << typed;
        EXPECT_EQ(RoundTrip<CPulseDialogLogic>("PULS,H,PB1(RxD6),100,50,0", text), named) << typed;
        EXPECT_EQ(RoundTrip<CWebInDialogLogic>("WEBIN,8", text), named) << typed;
        EXPECT_EQ(RoundTrip<CLcdDialogLogic>("LCD,1,\"x\"", text), quoted ? text : "refused")
            << typed;
    }
}

} // namespace
