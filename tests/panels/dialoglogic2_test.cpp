#include "panels/lcddialoglogic.h"
#include "panels/pulsedialoglogic.h"
#include "panels/pwmdialoglogic.h"
#include "panels/serialindialoglogic.h"
#include "panels/serialoutdialoglogic.h"
#include "panels/stepmotordialoglogic.h"
#include "panels/stepmotoroutdialoglogic.h"
#include "panels/webindialoglogic.h"
#include "panels/paneltest.h"
#include "res/stringtable.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(logic.OutOfRangeField(), c.OutOfRange);
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
    EXPECT_EQ(logic.OutOfRangeField(), c.OutOfRange);
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

} // namespace
