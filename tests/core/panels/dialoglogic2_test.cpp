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
#include "core/panels/paneltest.h"
#include "stringtable.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace {

CPortList Ports(const QStringList& names)
{
    CPortList list;
    for (const QString& name : names)
        list.Add({name, name, QString()});
    return list;
}

QStringList Split(const char* csv)
{
    return QString::fromUtf8(csv).split(u',');
}

// --- Stepping Mortor Setting -------------------------------------------------------------

struct StepMotorCase
{
    const char* Name;
    const char* Tokens;
    int Mode;
    int Speed;
    const char* Saved; // "" when OK stays disabled
};

class StepMotorDialog : public testing::TestWithParam<StepMotorCase>
{
};

TEST_P(StepMotorDialog, OpensAndSaves)
{
    const StepMotorCase& c = GetParam();
    const CStepMotorDialogLogic logic(Split(c.Tokens));
    EXPECT_EQ(logic.Mode, c.Mode);
    EXPECT_EQ(logic.Speed, c.Speed);
    EXPECT_EQ(logic.IsOkEnabled(), *c.Saved != 0);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StepMotorDialog,
    testing::Values(StepMotorCase{"TwoPhaseTwenty", "SMOT,2,20", 1, 1, "SMOT,2,20"},
                    StepMotorCase{"SlowestSpeed", "SMOT,1,100", 0, 5, "SMOT,1,100"},
                    StepMotorCase{"SpeedOffTheListOpensWithNoSpeed", "SMOT,1,25", 0, -1, ""},
                    StepMotorCase{"UnknownModeOpensWithNoMode", "SMOT,3,20", -1, 1, ""},
                    StepMotorCase{"BareKeywordSelectsNothing", "SMOT", -1, -1, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(StepMotorDialogChoice, ChoosingTheMissingSpeedEnablesOk)
{
    CStepMotorDialogLogic logic(Split("SMOT,1,25"));
    logic.Speed = 4;
    EXPECT_EQ(logic.Tokens(), Split("SMOT,1,50"));
}

// --- Stepping Motor Setting ----------------------------------------------------------------

struct StepMotorOutCase
{
    const char* Name;
    const char* Tokens;
    const char* Typed; // nullptr keeps the opened speed text
    int Speed;         // selected suggestion after opening
    const char* Saved;
};

class StepMotorOutDialog : public testing::TestWithParam<StepMotorOutCase>
{
};

TEST_P(StepMotorOutDialog, SpeedTextRules)
{
    const StepMotorOutCase& c = GetParam();
    CStepMotorOutDialogLogic logic(Split(c.Tokens), Ports({"PB1"}));
    EXPECT_EQ(logic.Speed, c.Speed);
    if (c.Typed) {
        logic.SpeedText = QString::fromUtf8(c.Typed);
        logic.Speed = -1;
    }
    EXPECT_EQ(logic.IsOkEnabled(), *c.Saved != 0);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StepMotorOutDialog,
    testing::Values(StepMotorOutCase{"SuggestionIsSelected", "SMOTO,1,100", nullptr, 2, "SMOTO,1,100"},
                    StepMotorOutCase{"OtherSpeedIsAddedAndSelected", "SMOTO,2,250", nullptr, 8,
                                     "SMOTO,2,250"},
                    StepMotorOutCase{"BelowTwentySelectsNothing", "SMOTO,2,19", nullptr, -1, ""},
                    StepMotorOutCase{"TypedLowestSpeed", "SMOTO,2", "20", -1, "SMOTO,2,20"},
                    StepMotorOutCase{"TypedBelowLowest", "SMOTO,2", "19", -1, ""},
                    StepMotorOutCase{"TypedHighestKeepsItsBlanksOff", "SMOTO,1", " 30000 ", -1,
                                     "SMOTO,1,30000"},
                    StepMotorOutCase{"TypedAboveHighest", "SMOTO,1", "30001", -1, ""},
                    StepMotorOutCase{"EmptyWithoutSuggestion", "SMOTO,1", "", -1, ""},
                    StepMotorOutCase{"UnknownMode", "SMOTO,3,100", nullptr, 2, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(StepMotorOutDialogPorts, SeveralPortsNeedAChoice)
{
    CStepMotorOutDialogLogic logic(Split("SMOTO,1,100"), Ports({"PB1", "PB2"}));
    EXPECT_EQ(logic.Port, -1);
    EXPECT_FALSE(logic.IsOkEnabled());
    logic.Port = 1;
    EXPECT_TRUE(logic.IsOkEnabled());
}

TEST(StepMotorOutDialogModes, ModeOneReadsOneTwoPhase)
{
    CStringTable::SetLanguage(ELanguage::English);
    EXPECT_EQ(CStepMotorOutDialogLogic::ModeTexts().value(0), "1-2 phase excitation");
    EXPECT_EQ(CStepMotorDialogLogic::ModeTexts().value(0), "1 phase excitation");
}

// --- UART Setting (receive) -------------------------------------------------------------

struct SerialInCase
{
    const char* Name;
    const char* Tokens;
    const char* Port;
    CSerialInDialogLogic::EMode Mode;
    const char* Values; // typed into the first fields
    int BitCount;
    int OutOfRange;
    const char* Saved;
};

class SerialInDialog : public testing::TestWithParam<SerialInCase>
{
};

TEST_P(SerialInDialog, Saves)
{
    const SerialInCase& c = GetParam();
    CSerialInDialogLogic logic(Split(c.Tokens), Ports({QString::fromUtf8(c.Port)}));
    logic.Port = 0;
    logic.Mode = c.Mode;
    if (*c.Values) {
        const QStringList typed = Split(c.Values);
        for (int i = 0; i < CSerialInDialogLogic::kValueFields; ++i)
            logic.Values[i] = typed.value(i);
    }
    logic.BitCount = c.BitCount;
    EXPECT_EQ(logic.WrongField(), c.OutOfRange);
    EXPECT_EQ(logic.IsOkEnabled(), *c.Saved != 0);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SerialInDialog,
    testing::Values(
        SerialInCase{"CompareDescendingWithoutRepeats", "UARI", "PD0(RxD6)", CSerialInDialogLogic::Compare,
                     "5,200,5,17", -1, -1, "UARI,C,200,17,5"},
        SerialInCase{"ValueAboveByteKeepsOkOff", "UARI", "RxD6", CSerialInDialogLogic::Compare, "5,300", -1,
                     1, ""},
        SerialInCase{"EmptyFieldBesideValueIsAllowed", "UARI", "RxD6", CSerialInDialogLogic::Compare,
                     ",7", -1, -1, "UARI,C,7"},
        SerialInCase{"NoValueKeepsOkOff", "UARI", "RxD6", CSerialInDialogLogic::Compare, "", -1, -1, ""},
        SerialInCase{"RxD0PortSavesUari0", "UARI", "PD0(RxD0)", CSerialInDialogLogic::Compare, "1", -1, -1,
                     "UARI0,C,1"},
        SerialInCase{"BothPinsSaveUari", "UARI0", "RxD0/RxD6", CSerialInDialogLogic::Compare, "1", -1, -1,
                     "UARI,C,1"},
        SerialInCase{"BitModeSavesTheCount", "UARI", "RxD6", CSerialInDialogLogic::Bit, "", 2, -1,
                     "UARI,B,3"},
        SerialInCase{"BitModeWithoutCount", "UARI", "RxD6", CSerialInDialogLogic::Bit, "", -1, -1, ""},
        SerialInCase{"NoModeKeepsOkOff", "UARI", "RxD6", CSerialInDialogLogic::NoMode, "1", -1, -1, ""},
        SerialInCase{"NameIsTheLastToken", "UARI,C,1,;Door", "RxD6", CSerialInDialogLogic::Compare, "9", -1,
                     -1, "UARI,C,9,;Door"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(SerialInDialogOpening, CompareLineFillsDescendingAndTakesTheName)
{
    const CSerialInDialogLogic logic(Split("UARI,CW,3,9,3,;Key"), Ports({"PB0", "PD0(RxD6)"}));
    EXPECT_EQ(logic.Mode, CSerialInDialogLogic::Compare);
    EXPECT_EQ(logic.Port, 1);
    EXPECT_EQ(logic.Name, "Key");
    EXPECT_EQ(logic.Values.mid(0, 3), Split("9,3,"));
    EXPECT_EQ(logic.Values.size(), CSerialInDialogLogic::kValueFields);
}

TEST(SerialInDialogOpening, Uari0LooksForRxD0)
{
    const CSerialInDialogLogic logic(Split("UARI0,B,4"), Ports({"PD0(RxD6)", "PD1(RxD0)"}));
    EXPECT_EQ(logic.Port, 1);
    EXPECT_EQ(logic.Mode, CSerialInDialogLogic::Bit);
    EXPECT_EQ(logic.BitCount, 3);
}

TEST(SerialInDialogOpening, UnknownModeChecksNothing)
{
    const CSerialInDialogLogic logic(Split("UARI,X,4"), Ports({"RxD2"}));
    EXPECT_EQ(logic.Mode, CSerialInDialogLogic::NoMode);
    EXPECT_EQ(logic.Port, -1);
}

TEST(SerialOutDialogOpening, OnlyASinglePortIsSelected)
{
    EXPECT_EQ(CSerialOutDialogLogic(Ports({"TxD"})).Port, 0);
    EXPECT_EQ(CSerialOutDialogLogic(Ports({"TxD", "TxD0"})).Port, -1);
}

// --- Pulse Setting ------------------------------------------------------------------------

struct PulseCase
{
    const char* Name;
    const char* Tokens;
    int PortCount;
    int Port;
    CPulseDialogLogic::ESteps Steps;
    const char* Saved;
};

class PulseDialog : public testing::TestWithParam<PulseCase>
{
};

TEST_P(PulseDialog, OpensAndSaves)
{
    const PulseCase& c = GetParam();
    const QStringList all{"PB1", "PB2", "PB3"};
    const CPulseDialogLogic logic(Split(c.Tokens), Ports(all.mid(0, c.PortCount)));
    EXPECT_EQ(logic.Port, c.Port);
    EXPECT_EQ(logic.Steps, c.Steps);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PulseDialog,
    testing::Values(
        PulseCase{"FiveSteps", "PULS,H,PB2,100,75,50,25,0", 3, 1, CPulseDialogLogic::FiveSteps,
                  "PULS,H,PB2,100,75,50,25,0"},
        PulseCase{"ThreeStepsWithName", "PULS,H,PB3,100,50,0,;Fan", 3, 2, CPulseDialogLogic::ThreeSteps,
                  "PULS,H,PB3,100,50,0,;Fan"},
        PulseCase{"TwoLevelsCheckNeither", "PULS,H,PB2,100,0", 3, 1, CPulseDialogLogic::NoSteps, ""},
        PulseCase{"SinglePortIsSelected", "PULS,H,PX,100,50,0", 1, 0, CPulseDialogLogic::ThreeSteps,
                  "PULS,H,PB1,100,50,0"},
        PulseCase{"PortNotInTheList", "PULS,H,PX,100,50,0", 3, -1, CPulseDialogLogic::ThreeSteps, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(PulseDialogChoice, SwitchingToThreeStepsWritesThreeLevels)
{
    CPulseDialogLogic logic(Split("PULS,H,PB2,100,75,50,25,0"), Ports({"PB1", "PB2"}));
    logic.Steps = CPulseDialogLogic::ThreeSteps;
    logic.Name = "Lamp";
    EXPECT_EQ(logic.Tokens(), Split("PULS,H,PB2,100,50,0,;Lamp"));
}

// --- PWM Setting --------------------------------------------------------------------------

struct PwmCase
{
    const char* Name;
    const char* Frequency;
    const char* Duties;
    int Low;
    int High;
    int OutOfRange;
    const char* Saved;
};

class PwmDialog : public testing::TestWithParam<PwmCase>
{
};

TEST_P(PwmDialog, Saves)
{
    const PwmCase& c = GetParam();
    CPwmDialogLogic logic({"PWM"}, Ports({"PB1"}), c.Low, c.High);
    logic.Frequency = QString::fromUtf8(c.Frequency);
    const QStringList typed = Split(c.Duties);
    for (int i = 0; i < CPwmDialogLogic::kDutyFields; ++i)
        logic.Duties[i] = typed.value(i);
    EXPECT_EQ(logic.WrongField(), c.OutOfRange);
    EXPECT_EQ(logic.IsOkEnabled(), *c.Saved != 0);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PwmDialog,
    testing::Values(PwmCase{"DutiesDescendingWithoutRepeats", "500", "50,100,50,0", 0, 0, -1,
                            "PWM,500Hz,100,50,0"},
                    PwmCase{"DutyAboveHundred", "500", "50,101", 0, 0, 1, ""},
                    PwmCase{"FrequencyBelowDefaultLowest", "9", "50", 0, 0, -1, ""},
                    PwmCase{"DefaultLowestFrequency", "10", "50", 0, 0, -1, "PWM,10Hz,50"},
                    PwmCase{"DefaultHighestFrequency", "81920", "0", 0, 0, -1, "PWM,81920Hz,0"},
                    PwmCase{"AboveDefaultHighest", "81921", "0", 0, 0, -1, ""},
                    PwmCase{"BoardLowestFrequency", "31", "25", 31, 62500, -1, "PWM,31Hz,25"},
                    PwmCase{"BelowBoardLowest", "30", "25", 31, 62500, -1, ""},
                    PwmCase{"AboveBoardHighest", "62501", "25", 31, 62500, -1, ""},
                    PwmCase{"EmptyFrequency", "", "25", 0, 0, -1, ""},
                    PwmCase{"NoDuty", "100", "", 0, 0, -1, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(PwmDialogOpening, SavedLineFillsFrequencyAndDuties)
{
    const CPwmDialogLogic logic(Split("PWM,1000Hz,80,20,80"), Ports({"PB1", "PB2"}));
    EXPECT_EQ(logic.Frequency, "1000");
    EXPECT_EQ(logic.Duties.mid(0, 3), Split("80,20,"));
    EXPECT_EQ(logic.Port, -1); // token 2 is a duty, not a port
    EXPECT_EQ(logic.LowFreq, CPwmDialogLogic::kDefaultLowFreq);
    EXPECT_EQ(logic.HighFreq, CPwmDialogLogic::kDefaultHighFreq);
}

// --- WEB-in Stting ------------------------------------------------------------------------

struct WebInCase
{
    const char* Name;
    const char* Tokens;
    int BitCount;
    const char* TypedName;
    const char* Saved;
};

class WebInDialog : public testing::TestWithParam<WebInCase>
{
};

TEST_P(WebInDialog, OpensAndSaves)
{
    const WebInCase& c = GetParam();
    CWebInDialogLogic logic(Split(c.Tokens));
    EXPECT_EQ(logic.BitCount, c.BitCount);
    if (c.TypedName)
        logic.Name = QString::fromUtf8(c.TypedName);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WebInDialog,
    testing::Values(WebInCase{"EmptyNameStoresLoneSemicolon", "WEBIN,8", 7, nullptr, "WEBIN,8,;"},
                    WebInCase{"NameIsKept", "WEBIN,10,;Gate", 9, nullptr, "WEBIN,10,;Gate"},
                    WebInCase{"ClearedName", "WEBIN,2,;Gate", 1, "", "WEBIN,2,;"},
                    WebInCase{"NoCountSelectsNothing", "WEBIN", -1, nullptr, ""},
                    WebInCase{"CountAboveTenSelectsNothing", "WEBIN,11", -1, nullptr, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

// --- LCD Setting --------------------------------------------------------------------------

struct LcdCase
{
    const char* Name;
    const char* Tokens;
    CLcdDialogLogic::EMode Opened;
    const char* OpenedText;
    CLcdDialogLogic::EMode Chosen;
    const char* Saved;
};

class LcdDialog : public testing::TestWithParam<LcdCase>
{
};

TEST_P(LcdDialog, OpensAndSaves)
{
    const LcdCase& c = GetParam();
    CLcdDialogLogic logic(Split(c.Tokens));
    EXPECT_EQ(logic.Mode, c.Opened);
    EXPECT_EQ(logic.Text, QString::fromUtf8(c.OpenedText));
    logic.Mode = c.Chosen;
    EXPECT_EQ(logic.IsTextEnabled(), c.Chosen != CLcdDialogLogic::Clear);
    EXPECT_EQ(logic.Tokens().join(u','), QString::fromUtf8(c.Saved));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LcdDialog,
    testing::Values(LcdCase{"ClearStoresTwoQuotes", "LCD,1,\"Hi\"", CLcdDialogLogic::Above, "Hi",
                            CLcdDialogLogic::Clear, "LCD,0,\"\""},
                    LcdCase{"BelowWrapsTheText", "LCD,1,\"Hi\"", CLcdDialogLogic::Above, "Hi",
                            CLcdDialogLogic::Below, "LCD,2,\"Hi\""},
                    LcdCase{"OwnQuotesStayInside", "LCD,2,\"\"a\"\"", CLcdDialogLogic::Below, "\"a\"",
                            CLcdDialogLogic::Below, "LCD,2,\"\"a\"\""},
                    LcdCase{"UnknownModeChecksNothing", "LCD,3,\"x\"", CLcdDialogLogic::NoMode, "x",
                            CLcdDialogLogic::NoMode, ""},
                    LcdCase{"ClearLineOpensEmptyAndNeedsText", "LCD,0,\"\"", CLcdDialogLogic::Clear, "",
                            CLcdDialogLogic::Above, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

// --- Rules every dialog shares -----------------------------------------------------------

// What a dialog does with one typed number: takes it, refuses it with OK disabled, or also
// selects the field for the user to type over.
enum EVerdict { Accepted, Refused, Selected };

template <class Logic>
EVerdict Verdict(const Logic& logic, bool selected)
{
    return logic.IsOkEnabled() ? Accepted : selected ? Selected : Refused;
}

using NumberField = std::function<EVerdict(const QString&)>;

NumberField TimeField(CTimeDialogLogic::EField field)
{
    return [field](const QString& text) {
        CTimeDialogLogic logic(QStringLiteral("000001.00"));
        logic.SetField(field, text);
        return Verdict(logic, logic.WrongField() == field);
    };
}

// Each numeric field of every dialog, typed into a dialog whose other fields are valid.
const std::map<std::string, NumberField>& NumberFields()
{
    static const CPortList one = Ports({"PB1(RxD6)"});
    static const std::map<std::string, NumberField> fields = {
        {"CounterValue",
         [](const QString& text) {
             CCounterDialogLogic logic(Split("CNT,H,5"));
             logic.SetValue(1, text);
             return Verdict(logic, logic.WrongField() == 1);
         }},
        {"SerialValue",
         [](const QString& text) {
             CSerialInDialogLogic logic(Split("UARI,C,5"), one);
             logic.Values[1] = text;
             return Verdict(logic, logic.WrongField() == 1);
         }},
        {"PwmDuty",
         [](const QString& text) {
             CPwmDialogLogic logic(Split("PWM,100Hz,50"), one);
             logic.Duties[1] = text;
             return Verdict(logic, logic.WrongField() == 1);
         }},
        {"PwmFrequency",
         [](const QString& text) {
             CPwmDialogLogic logic(Split("PWM,100Hz,50"), one);
             logic.Frequency = text;
             return Verdict(logic, logic.IsFrequencyWrong());
         }},
        {"MotorSpeed",
         [](const QString& text) {
             CStepMotorOutDialogLogic logic(Split("SMOTO,1"), one);
             logic.SpeedText = text;
             return Verdict(logic, logic.IsSpeedWrong());
         }},
        {"SerialBit",
         [](const QString& text) {
             CNumberDialogLogic logic(CNumberDialogLogic::SerialBit, Split("UART,3,L"), -1);
             logic.SetText(text);
             return Verdict(logic, logic.IsTextWrong());
         }},
        {"JumpId",
         [](const QString& text) {
             CNumberDialogLogic logic(CNumberDialogLogic::Jump, Split("JPI,7,L"), 7);
             logic.SetText(text);
             return Verdict(logic, logic.IsTextWrong());
         }},
        {"Hours", TimeField(CTimeDialogLogic::Hours)},
        {"Minutes", TimeField(CTimeDialogLogic::Minutes)},
        {"Seconds", TimeField(CTimeDialogLogic::Seconds)},
        {"Hundredths", TimeField(CTimeDialogLogic::Hundredths)},
    };
    return fields;
}

TEST(NumericFields, TakeOnlyNumbersInTheirRange)
{
    const struct
    {
        const char* Field;
        const char* Text;
        EVerdict Expected;
    } rows[] = {
        {"CounterValue", "32767", Accepted},  {"CounterValue", " 12 ", Accepted},
        {"CounterValue", "", Accepted},       {"CounterValue", "x", Selected},
        {"CounterValue", "-", Selected},      {"CounterValue", "1 2", Selected},
        {"CounterValue", "32768", Selected},  {"SerialValue", "255", Accepted},
        {"SerialValue", "x", Selected},       {"SerialValue", "-", Selected},
        {"SerialValue", "256", Selected},     {"PwmDuty", "100", Accepted},
        {"PwmDuty", "x", Selected},           {"PwmDuty", "-", Selected},
        {"PwmDuty", "101", Selected},         {"PwmFrequency", " 500 ", Accepted},
        {"PwmFrequency", "100x", Selected},   {"PwmFrequency", "81921", Selected},
        {"PwmFrequency", "9", Refused},       {"PwmFrequency", "", Refused},
        {"MotorSpeed", "25", Accepted},       {"MotorSpeed", "25x", Selected},
        {"MotorSpeed", "30001", Selected},    {"MotorSpeed", "2", Refused},
        {"SerialBit", "7", Accepted},         {"SerialBit", "x", Selected},
        {"SerialBit", "-", Selected},         {"SerialBit", "8", Selected},
        {"SerialBit", "", Refused},           {"JumpId", "99", Accepted},
        {"JumpId", "9x", Selected},           {"JumpId", "+9", Selected},
        {"JumpId", "100", Selected},          {"JumpId", "0", Refused},
        {"Hours", "8", Accepted},             {"Hours", "", Accepted},
        {"Hours", "x", Selected},             {"Hours", "12", Selected},
        {"Minutes", "59", Accepted},          {"Minutes", "5m", Selected},
        {"Minutes", "60", Selected},          {"Seconds", "-", Selected},
        {"Hundredths", "99", Accepted},       {"Hundredths", "x", Selected},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.Field) + " \"" + row.Text + "\"");
        EXPECT_EQ(NumberFields().at(row.Field)(QString::fromUtf8(row.Text)), row.Expected);
    }
}

TEST(NumericFields, AreWrittenAsPlainNumbers)
{
    CPwmDialogLogic pwm(Split("PWM,100Hz,50"), Ports({"PB1"}));
    pwm.Frequency = " 0500 ";
    pwm.Duties[0] = " 050";
    EXPECT_EQ(pwm.Tokens(), Split("PWM,500Hz,50"));
    CStepMotorOutDialogLogic motor(Split("SMOTO,1"), Ports({"PB1"}));
    motor.SpeedText = "0025";
    EXPECT_EQ(motor.Tokens(), Split("SMOTO,1,25"));
    CNumberDialogLogic jump(CNumberDialogLogic::Jump, Split("JPO,7,R"), 7);
    jump.SetText(" 09");
    EXPECT_EQ(jump.Tokens(), Split("JPO,9,R"));
}

// Every name and text a dialog takes: set through the dialog, written as a line, read back
// through the factory and the dialog again.
struct TextField
{
    const char* Name;
    bool Quoted; // the LCD's text is written between quotes, so its blanks are kept
    std::function<QStringList(const QString&)> Write; // the tokens, empty while OK is off
    std::function<QString(const CPanel&)> Read;
};

template <class Logic>
QStringList OkTokens(const Logic& logic)
{
    return logic.IsOkEnabled() ? logic.Tokens() : QStringList();
}

const QList<TextField>& TextFields()
{
    static const CPortList ports = Ports({"PB1(RxD6)"});
    const auto digital = [](const char* keyword) {
        return TextField{keyword, false,
                         [keyword](const QString& text) {
                             CSwitchDialogLogic logic(Split(keyword) + Split("H,PB1(RxD6)"), ports);
                             logic.SetName(text);
                             return OkTokens(logic);
                         },
                         [](const CPanel& panel) {
                             const QString comment = panel.GetLineComment();
                             return CSwitchDialogLogic(panel.GetTokens(), ports, comment).GetName();
                         }};
    };
    static const QList<TextField> fields = {
        digital("KEY"),
        digital("LAMP"),
        {"UARI", false,
         [](const QString& text) {
             CSerialInDialogLogic logic(Split("UARI,C,5"), ports);
             logic.Name = text;
             return OkTokens(logic);
         },
         [](const CPanel& panel) { return CSerialInDialogLogic(panel.GetTokens(), ports).Name; }},
        {"PULS", false,
         [](const QString& text) {
             CPulseDialogLogic logic(Split("PULS,H,PB1(RxD6),100,50,0"), ports);
             logic.Name = text;
             return OkTokens(logic);
         },
         [](const CPanel& panel) { return CPulseDialogLogic(panel.GetTokens(), ports).Name; }},
        {"WEBIN", false,
         [](const QString& text) {
             CWebInDialogLogic logic(Split("WEBIN,8"));
             logic.Name = text;
             return OkTokens(logic);
         },
         [](const CPanel& panel) { return CWebInDialogLogic(panel.GetTokens()).Name; }},
        {"LCD", true,
         [](const QString& text) {
             CLcdDialogLogic logic(Split("LCD,1,\"x\""));
             logic.Text = text;
             return OkTokens(logic);
         },
         [](const CPanel& panel) { return CLcdDialogLogic(panel.GetTokens()).Text; }},
    };
    return fields;
}

TEST(TextFields, ComeBackExactlyOrAreRefused)
{
    const struct
    {
        const char* Text;
        bool Name;   // accepted as a name
        bool Quoted; // accepted as the LCD's text
    } rows[] = {
        {"Hi there", true, true}, {"Hi, there", false, false}, {"a,b", false, false},
        {"a\tb", false, false},   {"a\r\nb", false, false},    {"a\nb", false, false},
        {"a;b", true, true},      {";a", true, true},          {" lead", true, true},
        {"trail ", false, true},  {"\"q\"", true, true},       {"\u540d\u524d", true, true},
    };
    for (const TextField& field : TextFields())
        for (const auto& row : rows) {
            const QString text = QString::fromUtf8(row.Text);
            SCOPED_TRACE(std::string(field.Name) + " \"" + row.Text + "\"");
            const QStringList tokens = field.Write(text);
            EXPECT_EQ(!tokens.isEmpty(), field.Quoted ? row.Quoted : row.Name);
            if (tokens.isEmpty())
                continue;
            const auto panel = MakePanel(CPanel::JoinLine(tokens), {"PB1(RxD6)"});
            ASSERT_TRUE(panel);
            EXPECT_EQ(field.Read(*panel), text);
        }
}

} // namespace
