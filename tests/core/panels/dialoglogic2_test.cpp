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

TEST(StepMotorDialogLogic, OpensOnTheListedSpeedsOnly)
{
    // name, tokens, mode, speed, saved
    const std::tuple<CText, CText, int, int, CText> rows[] = {
        {"TwoPhaseTwenty", "SMOT,2,20", 1, 1, "SMOT,2,20"},
        {"SlowestSpeed", "SMOT,1,100", 0, 5, "SMOT,1,100"},
        {"SpeedOffTheListOpensWithNoSpeed", "SMOT,1,25", 0, -1, ""},
        {"UnknownModeOpensWithNoMode", "SMOT,3,20", -1, 1, ""},
        {"BareKeywordSelectsNothing", "SMOT", -1, -1, ""},
    };
    for (const auto& [name, tokens, mode, speed, saved] : rows) {
        const CStepMotorDialogLogic logic(Split(tokens));
        EXPECT_EQ(logic.Mode, mode) << name;
        EXPECT_EQ(logic.Speed, speed) << name;
        EXPECT_EQ(Saved(logic), saved) << name;
    }
    CStepMotorDialogLogic logic(Split("SMOT,1,25"));
    logic.Speed = 4;
    EXPECT_EQ(Saved(logic), "SMOT,1,50");
}

TEST(StepMotorOutDialogLogic, TakesASuggestedOrTypedSpeed)
{
    // name, tokens, speed typed (nullptr: none), suggestion selected on opening, saved
    const std::tuple<CText, CText, CText, int, CText> rows[] = {
        {"SuggestionIsSelected", "SMOTO,1,100", nullptr, 2, "SMOTO,1,100"},
        {"OtherSpeedIsAddedAndSelected", "SMOTO,2,250", nullptr, 8, "SMOTO,2,250"},
        {"BelowTwentySelectsNothing", "SMOTO,2,19", nullptr, -1, ""},
        {"TypedLowestSpeed", "SMOTO,2", "20", -1, "SMOTO,2,20"},
        {"TypedBelowLowest", "SMOTO,2", "19", -1, ""},
        {"TypedHighestKeepsItsBlanksOff", "SMOTO,1", " 30000 ", -1, "SMOTO,1,30000"},
        {"EmptyWithoutSuggestion", "SMOTO,1", "", -1, ""},
        {"UnknownMode", "SMOTO,3,100", nullptr, 2, ""},
    };
    for (const auto& [name, tokens, typed, speed, saved] : rows) {
        CStepMotorOutDialogLogic logic(Split(tokens), Ports({"PB1"}));
        EXPECT_EQ(logic.Speed, speed) << name;
        if (typed) {
            logic.SpeedText = QString::fromUtf8(typed);
            logic.Speed = -1;
        }
        EXPECT_EQ(Saved(logic), saved) << name;
    }
    CStepMotorOutDialogLogic logic(Split("SMOTO,1,100"), Ports({"PB1", "PB2"}));
    EXPECT_EQ(Saved(logic), ""); // several ports need a choice
    logic.Port = 1;
    EXPECT_EQ(Saved(logic), "SMOTO,1,100");
}

TEST(SerialInDialogLogic, WritesItsModeValuesAndKeyword)
{
    using L = CSerialInDialogLogic;
    // name, tokens, the one port, mode, values typed, bit count, saved
    const std::tuple<CText, CText, CText, L::EMode, CText, int, CText> rows[] = {
        {"CompareDescendingWithoutRepeats", "UARI", "PD0(RxD6)", L::Compare, "5,200,5,17", -1,
         "UARI,C,200,17,5"},
        {"EmptyFieldBesideValueIsAllowed", "UARI", "RxD6", L::Compare, ",7", -1, "UARI,C,7"},
        {"NoValueKeepsOkOff", "UARI", "RxD6", L::Compare, "", -1, ""},
        {"RxD0PortSavesUari0", "UARI", "PD0(RxD0)", L::Compare, "1", -1, "UARI0,C,1"},
        {"BothPinsSaveUari", "UARI0", "RxD0/RxD6", L::Compare, "1", -1, "UARI,C,1"},
        {"BitModeSavesTheCount", "UARI", "RxD6", L::Bit, "", 2, "UARI,B,3"},
        {"BitModeWithoutCount", "UARI", "RxD6", L::Bit, "", -1, ""},
        {"NoModeKeepsOkOff", "UARI", "RxD6", L::NoMode, "1", -1, ""},
        {"NameIsTheLastToken", "UARI,C,1,;Door", "RxD6", L::Compare, "9", -1, "UARI,C,9,;Door"},
    };
    for (const auto& [name, tokens, port, mode, values, bits, saved] : rows) {
        SCOPED_TRACE(name);
        L logic(Split(tokens), Ports({QString::fromUtf8(port)}));
        logic.Port = 0;
        logic.Mode = mode;
        for (int i = 0; i < L::kValueFields; ++i)
            logic.Values[i] = Split(values).value(i);
        logic.BitCount = bits;
        EXPECT_EQ(Saved(logic), saved);
    }
}

TEST(SerialInDialogLogic, OpensWithModeValuesPortAndName)
{
    using L = CSerialInDialogLogic;
    const L compare(Split("UARI,CW,3,9,3,;Key"), Ports({"PB0", "PD0(RxD6)"}));
    EXPECT_EQ(compare.Mode, L::Compare);
    EXPECT_EQ(compare.Port, 1);
    EXPECT_EQ(compare.Name, "Key");
    EXPECT_EQ(compare.Values.mid(0, 3), Split("9,3,"));
    EXPECT_EQ(compare.Values.size(), L::kValueFields);
    const L bits(Split("UARI0,B,4"), Ports({"PD0(RxD6)", "PD1(RxD0)"}));
    EXPECT_EQ(bits.Port, 1); // UARI0 looks for RxD0
    EXPECT_EQ(bits.Mode, L::Bit);
    EXPECT_EQ(bits.BitCount, 3);
    const L unknown(Split("UARI,X,4"), Ports({"RxD2"}));
    EXPECT_EQ(unknown.Mode, L::NoMode);
    EXPECT_EQ(unknown.Port, -1);
    EXPECT_EQ(CSerialOutDialogLogic(Ports({"TxD"})).Port, 0);
    EXPECT_EQ(CSerialOutDialogLogic(Ports({"TxD", "TxD0"})).Port, -1);
}

TEST(PulseDialogLogic, OpensWithPortAndStepsAndWritesTheLevels)
{
    using L = CPulseDialogLogic;
    // name, tokens, ports, port, steps, saved
    const std::tuple<CText, CText, CText, int, L::ESteps, CText> rows[] = {
        {"FiveSteps", "PULS,H,PB2,100,75,50,25,0", "PB1,PB2,PB3", 1, L::FiveSteps,
         "PULS,H,PB2,100,75,50,25,0"},
        {"ThreeStepsWithName", "PULS,H,PB3,100,50,0,;Fan", "PB1,PB2,PB3", 2, L::ThreeSteps,
         "PULS,H,PB3,100,50,0,;Fan"},
        {"TwoLevelsCheckNeither", "PULS,H,PB2,100,0", "PB1,PB2,PB3", 1, L::NoSteps, ""},
        {"SinglePortIsSelected", "PULS,H,PX,100,50,0", "PB1", 0, L::ThreeSteps,
         "PULS,H,PB1,100,50,0"},
        {"PortNotInTheList", "PULS,H,PX,100,50,0", "PB1,PB2,PB3", -1, L::ThreeSteps, ""},
    };
    for (const auto& [name, tokens, ports, port, steps, saved] : rows) {
        const L logic(Split(tokens), Ports(Split(ports)));
        EXPECT_EQ(logic.Port, port) << name;
        EXPECT_EQ(logic.Steps, steps) << name;
        EXPECT_EQ(Saved(logic), saved) << name;
    }
    L logic(Split("PULS,H,PB2,100,75,50,25,0"), Ports({"PB1", "PB2"}));
    logic.Steps = L::ThreeSteps;
    logic.Name = "Lamp";
    EXPECT_EQ(Saved(logic), "PULS,H,PB2,100,50,0,;Lamp");
}

TEST(PwmDialogLogic, TakesFrequencyInTheBoardsRangeAndDutiesDescending)
{
    // name, frequency, duties, the board's lowest and highest (0: the defaults), saved
    const std::tuple<CText, CText, CText, int, int, CText> rows[] = {
        {"DutiesDescendingWithoutRepeats", "500", "50,100,50,0", 0, 0, "PWM,500Hz,100,50,0"},
        {"DefaultLowestFrequency", "10", "50", 0, 0, "PWM,10Hz,50"},
        {"DefaultHighestFrequency", "81920", "0", 0, 0, "PWM,81920Hz,0"},
        {"BoardLowestFrequency", "31", "25", 31, 62500, "PWM,31Hz,25"},
        {"BelowBoardLowest", "30", "25", 31, 62500, ""},
        {"AboveBoardHighest", "62501", "25", 31, 62500, ""},
        {"NoDuty", "100", "", 0, 0, ""},
    };
    for (const auto& [name, frequency, duties, low, high, saved] : rows) {
        CPwmDialogLogic logic({"PWM"}, Ports({"PB1"}), low, high);
        logic.Frequency = QString::fromUtf8(frequency);
        for (int i = 0; i < CPwmDialogLogic::kDutyFields; ++i)
            logic.Duties[i] = Split(duties).value(i);
        EXPECT_EQ(Saved(logic), saved) << name;
    }
    const CPwmDialogLogic opened(Split("PWM,1000Hz,80,20,80"), Ports({"PB1", "PB2"}));
    EXPECT_EQ(opened.Frequency, "1000");
    EXPECT_EQ(opened.Duties.mid(0, 3), Split("80,20,"));
    EXPECT_EQ(opened.Port, -1); // token 2 is a duty, not a port
    EXPECT_EQ(opened.LowFreq, CPwmDialogLogic::kDefaultLowFreq);
    EXPECT_EQ(opened.HighFreq, CPwmDialogLogic::kDefaultHighFreq);
}

TEST(WebInAndLcdDialogLogic, OpenAndSave)
{
    // name, tokens, bit count, name typed (nullptr: none), saved
    const std::tuple<CText, CText, int, CText, CText> webRows[] = {
        {"EmptyNameStoresLoneSemicolon", "WEBIN,8", 7, nullptr, "WEBIN,8,;"},
        {"NameIsKept", "WEBIN,10,;Gate", 9, nullptr, "WEBIN,10,;Gate"},
        {"ClearedName", "WEBIN,2,;Gate", 1, "", "WEBIN,2,;"},
        {"NoCountSelectsNothing", "WEBIN", -1, nullptr, ""},
        {"CountAboveTenSelectsNothing", "WEBIN,11", -1, nullptr, ""},
    };
    for (const auto& [name, tokens, bits, typed, saved] : webRows) {
        CWebInDialogLogic logic(Split(tokens));
        EXPECT_EQ(logic.BitCount, bits) << name;
        if (typed)
            logic.Name = QString::fromUtf8(typed);
        EXPECT_EQ(Saved(logic), saved) << name;
    }
    using L = CLcdDialogLogic;
    // name, tokens, mode and text opened, mode chosen, saved
    const std::tuple<CText, CText, L::EMode, CText, L::EMode, CText> lcdRows[] = {
        {"ClearStoresTwoQuotes", "LCD,1,\"Hi\"", L::Above, "Hi", L::Clear, "LCD,0,\"\""},
        {"BelowWrapsTheText", "LCD,1,\"Hi\"", L::Above, "Hi", L::Below, "LCD,2,\"Hi\""},
        {"OwnQuotesStayInside", "LCD,2,\"\"a\"\"", L::Below, "\"a\"", L::Below, "LCD,2,\"\"a\"\""},
        {"UnknownModeChecksNothing", "LCD,3,\"x\"", L::NoMode, "x", L::NoMode, ""},
        {"ClearLineOpensEmptyAndNeedsText", "LCD,0,\"\"", L::Clear, "", L::Above, ""},
    };
    for (const auto& [name, tokens, opened, text, chosen, saved] : lcdRows) {
        SCOPED_TRACE(name);
        L logic(Split(tokens));
        EXPECT_EQ(logic.Mode, opened);
        EXPECT_EQ(logic.Text, QString::fromUtf8(text));
        logic.Mode = chosen;
        EXPECT_EQ(logic.IsTextEnabled(), chosen != L::Clear);
        EXPECT_EQ(Saved(logic), saved);
    }
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
    const std::tuple<CText, CText, CText> rows[] = {
        {"CounterValue", "32767", "taken"},
        {"CounterValue", " 12 ", "taken"},
        {"CounterValue", "", "taken"},
        {"CounterValue", "x", "selected"},
        {"CounterValue", "-", "selected"},
        {"CounterValue", "1 2", "selected"},
        {"CounterValue", "32768", "selected"},
        {"SerialValue", "255", "taken"},
        {"SerialValue", "x", "selected"},
        {"SerialValue", "-", "selected"},
        {"SerialValue", "256", "selected"},
        {"PwmDuty", "100", "taken"},
        {"PwmDuty", "x", "selected"},
        {"PwmDuty", "-", "selected"},
        {"PwmDuty", "101", "selected"},
        {"PwmFrequency", " 500 ", "taken"},
        {"PwmFrequency", "100x", "selected"},
        {"PwmFrequency", "81921", "selected"},
        {"PwmFrequency", "9", "refused"},
        {"PwmFrequency", "", "refused"},
        {"MotorSpeed", "25", "taken"},
        {"MotorSpeed", "25x", "selected"},
        {"MotorSpeed", "30001", "selected"},
        {"MotorSpeed", "2", "refused"},
        {"SerialBit", "7", "taken"},
        {"SerialBit", "x", "selected"},
        {"SerialBit", "-", "selected"},
        {"SerialBit", "8", "selected"},
        {"SerialBit", "", "refused"},
        {"JumpId", "99", "taken"},
        {"JumpId", "9x", "selected"},
        {"JumpId", "+9", "selected"},
        {"JumpId", "100", "selected"},
        {"JumpId", "0", "refused"},
        {"Hours", "8", "taken"},
        {"Hours", "", "taken"},
        {"Hours", "x", "selected"},
        {"Hours", "12", "selected"},
        {"Minutes", "59", "taken"},
        {"Minutes", "5m", "selected"},
        {"Minutes", "60", "selected"},
        {"Seconds", "-", "selected"},
        {"Hundredths", "99", "taken"},
        {"Hundredths", "x", "selected"},
    };
    for (const auto& [field, text, verdict] : rows)
        EXPECT_EQ(Verdicts(QString::fromUtf8(text)).at(field), verdict)
            << field << " \"" << text << '"';
}

TEST(NumericFields, AreWrittenAsPlainNumbers)
{
    CPwmDialogLogic pwm(Split("PWM,100Hz,50"), Ports({"PB1"}));
    pwm.Frequency = " 0500 ";
    pwm.Duties[0] = " 050";
    EXPECT_EQ(Saved(pwm), "PWM,500Hz,50");
    CStepMotorOutDialogLogic motor(Split("SMOTO,1"), Ports({"PB1"}));
    motor.SpeedText = "0025";
    EXPECT_EQ(Saved(motor), "SMOTO,1,25");
    CNumberDialogLogic jump(CNumberDialogLogic::Jump, Split("JPO,7,R"), 7);
    jump.SetText(" 09");
    EXPECT_EQ(Saved(jump), "JPO,9,R");
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
