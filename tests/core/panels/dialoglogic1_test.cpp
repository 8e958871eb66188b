#include "buzzerdialoglogic.h"
#include "counterdialoglogic.h"
#include "flipflopdialoglogic.h"
#include "numberdialoglogic.h"
#include "core/panels/paneltest.h"
#include "sevensegdialoglogic.h"
#include "switchdialoglogic.h"
#include "timedialoglogic.h"
#include "timerdialoglogic.h"
#include "timetext.h"
#include "stringtable.h"

#include <gtest/gtest.h>

namespace {

QStringList Split(const char* tokens)
{
    return QString::fromUtf8(tokens).split(u'|');
}

CPortList Ports(const QStringList& names)
{
    CPortList ports;
    for (const QString& name : names)
        ports.Add({name, name, QString()});
    return ports;
}

// ---- The time text shared by the delay and the timer

struct TokenCase
{
    const char* Name;
    const char* Token;
    const char* Text;
};

class TimeTextFromToken : public testing::TestWithParam<TokenCase>
{
};

TEST_P(TimeTextFromToken, GivesTheDialogText)
{
    EXPECT_EQ(CTimeText::FromToken(GetParam().Token).Text(), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    Tokens, TimeTextFromToken,
    testing::Values(TokenCase{"MinuteAndAHalf", "90.45S", "000130.45"},
                    TokenCase{"OneDigitFractionIsTenths", "2.5", "000002.50"},
                    TokenCase{"LeadingZeroFraction", "2.05S", "000002.05"},
                    TokenCase{"ThirdDecimalIgnored", "1.479S", "000001.47"},
                    TokenCase{"NoDotIsWholeSeconds", "3", "000003.00"},
                    TokenCase{"Longest", "32399.00S", "085959.00"},
                    TokenCase{"NoNumberIsZero", "abc", "000000.00"},
                    TokenCase{"DotFirstIsZero", ".5S", "000000.00"}),
    [](const auto& info) { return std::string(info.param.Name); });

struct GridCase
{
    const char* Name;
    const char* Text;
    const char* Token;
};

class TimeTextToken : public testing::TestWithParam<GridCase>
{
};

TEST_P(TimeTextToken, KeepsTheTwentiethSecondGrid)
{
    EXPECT_EQ(CTimeText::FromText(GetParam().Text).Token(), GetParam().Token);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TimeTextToken,
    testing::Values(GridCase{"RoundsDownToFive", "000001.47", "1.45S"},
                    GridCase{"KeepsAMultipleOfFive", "000130.45", "90.45S"},
                    GridCase{"Shortest", "000000.05", "0.05S"},
                    GridCase{"Longest", "085959.00", "32399.00S"},
                    GridCase{"NinetyNineBecomesNinetyFive", "001959.99", "1199.95S"},
                    GridCase{"ThreeDigitFraction", "000001.470", "1.45S"},
                    GridCase{"NoFractionIsZero", "000130.", "0.00S"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(TimeText, ShowsHoursMinutesAndSeconds)
{
    EXPECT_EQ(CTimeText::FromToken("3723.05S").Shown(), "1h 2m 3.05s");
}

// ---- "Time Setting"

TEST(TimeDialogLogic, DelayTimeOpensAsHoursMinutesSecondsHundredths)
{
    const CTimeDialogLogic logic = CTimeDialogLogic::ForDelay(Split("DLY|90.45S"));
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hours), "0");
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Minutes), "1");
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Seconds), "30");
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hundredths), "45");
    EXPECT_TRUE(logic.IsOkEnabled());
    EXPECT_EQ(logic.DelayTokens(Split("DLY|90.45S")), Split("DLY|90.45S"));
}

TEST(TimeDialogLogic, DelayWithoutTimeOpensAtZeroAndCannotBeConfirmed)
{
    const CTimeDialogLogic logic = CTimeDialogLogic::ForDelay({"DLY"});
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hundredths), "00");
    EXPECT_FALSE(logic.IsOkEnabled());
    EXPECT_EQ(logic.DelayTokens({"DLY"}), Split("DLY|0.00S"));
}

struct TimeCase
{
    const char* Name;
    const char* Fields; // hours|minutes|seconds|hundredths
    bool Ok;
    bool HundredthsEnabled;
    const char* Token; // the delay's token 1 after OK
};

class TimeDialogRules : public testing::TestWithParam<TimeCase>
{
};

TEST_P(TimeDialogRules, DecideOkAndHundredths)
{
    const TimeCase& c = GetParam();
    CTimeDialogLogic logic{QString()};
    const QStringList fields = Split(c.Fields);
    for (int f = 0; f < CTimeDialogLogic::FieldCount; ++f)
        logic.SetField(CTimeDialogLogic::EField(f), fields[f]);
    EXPECT_EQ(logic.IsOkEnabled(), c.Ok);
    EXPECT_EQ(logic.IsHundredthsEnabled(), c.HundredthsEnabled);
    if (!c.HundredthsEnabled) {
        EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hundredths), "00");
    }
    EXPECT_EQ(logic.DelayTokens({"DLY"})[1], c.Token);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, TimeDialogRules,
    testing::Values(TimeCase{"FourHundredthsTooShort", "0|0|0|04", false, true, "0.00S"},
                    TimeCase{"FiveHundredthsShortest", "0|0|0|05", true, true, "0.05S"},
                    TimeCase{"EmptyFieldsCountAsZero", "|||", false, true, "0.00S"},
                    TimeCase{"TwentyMinutesDropsHundredths", "0|20|0|45", true, false, "1200.00S"},
                    TimeCase{"NineteenMinutesKeepsHundredths", "0|19|59|99", true, true, "1199.95S"},
                    TimeCase{"OneHourDropsHundredths", "1|0|0|50", true, false, "3600.00S"},
                    TimeCase{"NineHoursTooLong", "9|0|0|00", false, false, "32400.00S"},
                    TimeCase{"LongestAccepted", "8|59|59|00", true, false, "32399.00S"},
                    TimeCase{"SixtyMinutesRefused", "0|60|0|00", false, false, "3600.00S"},
                    TimeCase{"SixtySecondsRefused", "0|0|60|00", false, true, "60.00S"},
                    TimeCase{"OddHundredthsCutDown", "0|0|1|47", true, true, "1.45S"},
                    TimeCase{"WholeSecondWithoutHundredths", "0|0|1|", true, true, "1.00S"}),
    [](const auto& info) { return std::string(info.param.Name); });

// ---- "Timer Setting"

struct TimerOpenCase
{
    const char* Name;
    const char* Tokens;
    int Kind;
    const char* Shown;
};

class TimerDialogOpens : public testing::TestWithParam<TimerOpenCase>
{
};

TEST_P(TimerDialogOpens, WithKindAndTime)
{
    const CTimerDialogLogic logic(Split(GetParam().Tokens));
    EXPECT_EQ(logic.GetKind(), GetParam().Kind);
    EXPECT_EQ(logic.ShownTime(), GetParam().Shown);
    EXPECT_EQ(logic.IsOkEnabled(), GetParam().Kind != 0 && *GetParam().Shown != 0);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, TimerDialogOpens,
    testing::Values(TimerOpenCase{"Hold", "TIM|H|90.05S", 1, "0h 1m 30.05s"},
                    TimerOpenCase{"Toggle", "TIM|T|1.50S", 2, "0h 0m 1.50s"},
                    TimerOpenCase{"OneShot", "TIM1|N|3723.00S", 3, "1h 2m 3.00s"},
                    TimerOpenCase{"Retriggerable", "TIM1|R|2.5", 4, "0h 0m 2.50s"},
                    TimerOpenCase{"OneShotKeywordWithHoldIsNoKind", "TIM1|H|1.00S", 0, "0h 0m 1.00s"},
                    TimerOpenCase{"TimeWithoutClosingS", "TIM|H|3", 1, "0h 0m 3.00s"},
                    TimerOpenCase{"NoTime", "TIM|H", 1, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(TimerDialogLogic, NestedTimeIsStoredOnTheGrid)
{
    CTimerDialogLogic logic(Split("TIM|H"));
    EXPECT_EQ(logic.TimeDialogText(), "000000.00");
    CTimeDialogLogic time(logic.TimeDialogText());
    time.SetField(CTimeDialogLogic::Minutes, "19");
    time.SetField(CTimeDialogLogic::Seconds, "59");
    time.SetField(CTimeDialogLogic::Hundredths, "99");
    logic.SetTimeDialogText(time.Text());
    EXPECT_EQ(logic.ShownTime(), "0h 19m 59.95s");
    logic.SetKind(3);
    EXPECT_EQ(logic.Tokens(), Split("TIM1|N|1199.95S"));
}

TEST(TimerDialogLogic, EachKindWritesItsKeywordAndLetter)
{
    const char* expected[] = {"TIM|H|1.50S", "TIM|T|1.50S", "TIM1|N|1.50S", "TIM1|R|1.50S"};
    CTimerDialogLogic logic(Split("TIM|X|1.50S"));
    EXPECT_TRUE(logic.Tokens().isEmpty());
    for (int kind = 1; kind <= 4; ++kind) {
        logic.SetKind(kind);
        EXPECT_EQ(logic.Tokens(), Split(expected[kind - 1])) << kind;
    }
    EXPECT_EQ(CStringTable::Get(CTimerDialogLogic::Kinds()[0].TextId), "HOLD ");
    EXPECT_EQ(CStringTable::Get(CTimerDialogLogic::Kinds()[3].TextId), "ONE-SHOT(Retriggarable)");
}

// ---- "Switch Setting"

struct SwitchCase
{
    const char* Name;
    const char* Tokens;
    const char* InitialName;
    const char* ShownName;
    int Port;
    int Level;
    const char* Written; // after OK without change
};

class SwitchDialogOpens : public testing::TestWithParam<SwitchCase>
{
};

TEST_P(SwitchDialogOpens, AndWritesFourTokens)
{
    const SwitchCase& c = GetParam();
    const CPortList ports = Ports({"PD2", "PD3"});
    const CSwitchDialogLogic logic(Split(c.Tokens), ports, c.InitialName);
    EXPECT_EQ(logic.GetName(), c.ShownName);
    EXPECT_EQ(logic.GetPortIndex(), c.Port);
    EXPECT_EQ(logic.GetLevelIndex(), c.Level);
    EXPECT_EQ(logic.Tokens(), Split(c.Written));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, SwitchDialogOpens,
    testing::Values(
        SwitchCase{"KeywordAloneOpensHighWithoutPort", "SW", "", "", -1, 0, "SW|H||;"},
        SwitchCase{"FullLine", "KEY|L|PD3|;start", "", "start", 1, 1, "KEY|L|PD3|;start"},
        SwitchCase{"InitialNameWithoutCommentToken", "DGI|H|PD2", "old", "old", 0, 0, "DGI|H|PD2|;old"},
        SwitchCase{"CommentTokenOverridesInitialName", "DGI|H|PD2|;new", "old", "new", 0, 0,
                   "DGI|H|PD2|;new"},
        SwitchCase{"UnknownPortSelectsNothing", "DGO|H|PB9", "", "", -1, 0, "DGO|H||;"},
        SwitchCase{"UnknownLevelSelectsNothing", "DGO|X|PD2", "", "", 0, -1, "DGO||PD2|;"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(SwitchDialogLogic, ChangesReachTheTokens)
{
    const CPortList ports = Ports({"PD2", "PD3"});
    CSwitchDialogLogic logic(Split("LAMP|H|PD2|;a"), ports);
    logic.SetName("lamp 1");
    logic.SetPortIndex(1);
    logic.SetLevelIndex(1);
    EXPECT_EQ(logic.Tokens(), Split("LAMP|L|PD3|;lamp 1"));
}

// ---- "Flipflop Setting"

struct FlipFlopCase
{
    const char* Name;
    const char* Keyword;
    int Type;
};

class FlipFlopDialogOpens : public testing::TestWithParam<FlipFlopCase>
{
};

TEST_P(FlipFlopDialogOpens, WithTheKeywordsType)
{
    const CFlipFlopDialogLogic logic({GetParam().Keyword});
    EXPECT_EQ(logic.GetType(), GetParam().Type);
    EXPECT_EQ(logic.IsOkEnabled(), GetParam().Type != 0);
}

INSTANTIATE_TEST_SUITE_P(Keywords, FlipFlopDialogOpens,
                         testing::Values(FlipFlopCase{"Rs", "RSFF", 1}, FlipFlopCase{"T", "T_FF", 2},
                                         FlipFlopCase{"D", "D_FF", 3},
                                         FlipFlopCase{"UntypedSelectsNothing", "FF", 0}),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST(FlipFlopDialogLogic, ListOrderAndChosenKeyword)
{
    QStringList texts;
    for (const auto& type : CFlipFlopDialogLogic::Types())
        texts.append(CStringTable::Get(type.TextId));
    EXPECT_EQ(texts, Split("RS-FF|D-FF|T-FF"));
    CFlipFlopDialogLogic logic(Split("FF|;note"));
    logic.SetType(2);
    EXPECT_EQ(logic.Tokens(), QStringList{"T_FF"});
    logic.SetType(7);
    EXPECT_FALSE(logic.IsOkEnabled());
    EXPECT_TRUE(logic.Tokens().isEmpty());
}

// ---- "Buzzer Setting"

struct BuzzerCase
{
    const char* Name;
    const char* Tokens;
    const char* Ports;
    int Port;
    bool Checked[3];
    bool Ok;
};

class BuzzerDialogOpens : public testing::TestWithParam<BuzzerCase>
{
};

TEST_P(BuzzerDialogOpens, WithPortAndFrequencies)
{
    const BuzzerCase& c = GetParam();
    const CPortList ports = Ports(Split(c.Ports));
    const CBuzzerDialogLogic logic(Split(c.Tokens), ports);
    EXPECT_EQ(logic.GetPortIndex(), c.Port);
    for (int f = 0; f < CBuzzerDialogLogic::FrequencyCount; ++f)
        EXPECT_EQ(logic.IsChecked(CBuzzerDialogLogic::EFrequency(f)), c.Checked[f]) << f;
    EXPECT_EQ(logic.IsOkEnabled(), c.Ok);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BuzzerDialogOpens,
    testing::Values(BuzzerCase{"OnePortIsSelected", "BUZZ|PB1|1000", "PB1", 0, {false, true, false}, true},
                    BuzzerCase{"SeveralPortsSelectNothing", "BUZZ|PB1|2000|500", "PB1|PB2", -1,
                               {true, false, true}, false},
                    BuzzerCase{"NoFrequencyKeepsOkOff", "BUZZ|PB1", "PB1", 0, {false, false, false}, false}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(BuzzerDialogLogic, WritesFrequenciesFromTheHighest)
{
    const CPortList ports = Ports({"PB1", "PB2"});
    CBuzzerDialogLogic logic(Split("BUZZ|PB2|;old"), ports);
    logic.SetPortIndex(1);
    logic.SetChecked(CBuzzerDialogLogic::Freq500, true);
    logic.SetChecked(CBuzzerDialogLogic::Freq2000, true);
    EXPECT_TRUE(logic.IsOkEnabled());
    EXPECT_EQ(logic.Tokens(), Split("BUZZ|PB2|2000|500"));
}

// ---- "Counter Setting"

struct CounterCase
{
    const char* Name;
    int Type;
    const char* Values; // fifteen fields at most, "|" between them
    bool Ok;
    int Bad;
    const char* Tokens; // empty when OK stays disabled
};

class CounterDialogRules : public testing::TestWithParam<CounterCase>
{
};

TEST_P(CounterDialogRules, DecideOkAndTokens)
{
    const CounterCase& c = GetParam();
    CCounterDialogLogic logic({"CNT"});
    logic.SetType(c.Type);
    const QStringList values = Split(c.Values);
    for (int i = 0; i < values.size(); ++i)
        logic.SetValue(i, values[i]);
    EXPECT_EQ(logic.IsOkEnabled(), c.Ok);
    EXPECT_EQ(logic.WrongField(), c.Bad);
    if (c.Ok) {
        EXPECT_EQ(logic.Tokens(), Split(c.Tokens));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, CounterDialogRules,
    testing::Values(
        CounterCase{"SortedDownOnceEach", 1, "10|300|10|5", true, -1, "CNT|H|300|10|5"},
        CounterCase{"Cyclic", 2, "7", true, -1, "CNT|C|7"},
        CounterCase{"LeadingZerosVanish", 1, "007| 12", true, -1, "CNT|H|12|7"},
        CounterCase{"GapsAreAllowed", 1, "||||||||||||||32767", true, -1, "CNT|H|32767"},
        CounterCase{"ZeroIsAValue", 1, "0", true, -1, "CNT|H|0"},
        CounterCase{"TooLargeNamesItsField", 1, "10|40000|5", false, 1, ""},
        CounterCase{"NotANumberNamesItsField", 1, "1|2|x", false, 2, ""},
        CounterCase{"NegativeRefused", 1, "-1", false, 0, ""},
        CounterCase{"AllEmpty", 1, "", false, -1, ""},
        CounterCase{"NoType", 0, "5", false, -1, ""}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(CounterDialogLogic, OpensWithTypeAndSortedDistinctValues)
{
    const CCounterDialogLogic logic(Split("CNT|C|5|300|5|;name"));
    EXPECT_EQ(logic.GetType(), 2);
    EXPECT_EQ(logic.GetValue(0), "300");
    EXPECT_EQ(logic.GetValue(1), "5");
    EXPECT_EQ(logic.GetValue(2), "");
    EXPECT_EQ(CCounterDialogLogic(Split("CNT|X|5")).GetType(), 0);
}

TEST(CounterDialogLogic, PanelTakesThreeItems)
{
    auto panel = MakePanel("CNT\tH,1");
    CCounterDialogLogic logic(panel->GetTokens());
    const char* values[] = {"10", "300", "10", "5"};
    for (int i = 0; i < 4; ++i)
        logic.SetValue(i, values[i]);
    panel->AcceptProperties(logic.Tokens(), -1);
    EXPECT_EQ(panel->GetItemCount(), 3);
    EXPECT_EQ(panel->GetLine(), "CNT \tH,300,10,5");
}

// ---- "7Segment-LED Setting"

struct SevenSegCase
{
    const char* Name;
    const char* Tokens;
    int Mode;
    const char* Texts;
    int OpenMode;
};

class SevenSegDialogOpens : public testing::TestWithParam<SevenSegCase>
{
};

TEST_P(SevenSegDialogOpens, WithTheKeywordsTypes)
{
    const SevenSegCase& c = GetParam();
    const CPortList ports = Ports({"PB0", "PB1"});
    const CSevenSegDialogLogic logic(Split(c.Tokens), ports, c.Mode);
    QStringList texts, modes;
    for (const auto& type : logic.Types()) {
        texts.append(CStringTable::Get(type.TextId));
        modes.append(QString::number(type.Mode));
    }
    EXPECT_EQ(texts.join(u'|') + u' ' + modes.join(u'|'), c.Texts);
    EXPECT_EQ(logic.GetMode(), c.OpenMode);
    EXPECT_EQ(logic.IsOkEnabled(), c.OpenMode != 0);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, SevenSegDialogOpens,
    testing::Values(SevenSegCase{"OneDigit", "7SEG|;7SEG_S", 3, "DIGIT|SEGMENT|BIT 2|3|1", 3},
                    SevenSegCase{"FourDigits", "7SEG4|;7SEG4_D", 5, "DIGIT|SEGMENT|BIT 5|6|4", 5},
                    SevenSegCase{"ModeOfTheOtherKeywordSelectsNothing", "7SEG|;7SEG4_D", 5,
                                 "DIGIT|SEGMENT|BIT 2|3|1", 0},
                    SevenSegCase{"OtherKeywordHasNoTypes", "7SEGX", 1, " ", 0}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(SevenSegDialogLogic, FourDigitBitAndPortChoice)
{
    const CPortList one = Ports({"PB0"});
    CSevenSegDialogLogic logic({"7SEG4"}, one, 0);
    EXPECT_EQ(logic.GetPortIndex(), 0);
    logic.SetMode(4);
    EXPECT_EQ(logic.Tokens(), Split("7SEG4|;7SEG4_B"));
    const CPortList two = Ports({"PB0", "PB1"});
    EXPECT_EQ(CSevenSegDialogLogic(Split("7SEG|;7SEG_B|PB1"), two, 1).GetPortIndex(), 1);
    EXPECT_EQ(CSevenSegDialogLogic(Split("7SEG|;7SEG_B"), two, 1).GetPortIndex(), -1);
}

// ---- The one-field "Setting": bit position and connection id

struct NumberCase
{
    const char* Name;
    CNumberDialogLogic::EKind Kind;
    const char* Tokens;
    int Reference;
    const char* Opened;
    bool OkOpened;
    const char* Typed;
    bool OkTyped;
    const char* Written;
};

class NumberDialogRules : public testing::TestWithParam<NumberCase>
{
};

TEST_P(NumberDialogRules, DecideOkAndTokens)
{
    const NumberCase& c = GetParam();
    CNumberDialogLogic logic(c.Kind, Split(c.Tokens), c.Reference);
    EXPECT_EQ(logic.GetText(), c.Opened);
    EXPECT_EQ(logic.IsOkEnabled(), c.OkOpened);
    if (c.Typed)
        logic.SetText(c.Typed);
    EXPECT_EQ(logic.IsOkEnabled(), c.OkTyped);
    if (c.OkTyped) {
        EXPECT_EQ(logic.Tokens(), Split(c.Written));
    }
}

using K = CNumberDialogLogic;
INSTANTIATE_TEST_SUITE_P(
    Fields, NumberDialogRules,
    testing::Values(
        NumberCase{"BitKeptAsOpened", K::SerialBit, "UART|3|L", -1, "3", true, nullptr, true, "UART|3|L"},
        NumberCase{"BitDashMustBeReplaced", K::SerialBit, "UART|-", -1, "-", false, "0", true,
                   "UART|0|L"},
        NumberCase{"BitWithoutTokenStartsEmpty", K::SerialBit, "UART0", -1, "", false, "7", true, "UART0|7|L"},
        NumberCase{"BitEightRefused", K::SerialBit, "UART|1|L", -1, "1", true, "8", false, ""},
        NumberCase{"BitEmptiedRefused", K::SerialBit, "UART|1|L", -1, "1", true, "", false, ""},
        NumberCase{"JumpIdZeroStartsEmpty", K::Jump, "JPI||L", 0, "", false, "42", true, "JPI|42|L"},
        NumberCase{"JumpKeepsItsId", K::Jump, "JPO|7|R", 7, "7", true, nullptr, true, "JPO|7|R"},
        NumberCase{"JumpZeroRefused", K::Jump, "JPO|7|R", 7, "7", true, "0", false, ""},
        NumberCase{"JumpHundredRefused", K::Jump, "JPO|7|R", 7, "7", true, "100", false, ""},
        NumberCase{"JumpNinetyNine", K::Jump, "JPO|7|D", 7, "7", true, "99", true, "JPO|99|D"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(NumberDialogLogic, TextsAndLengthsOfTheTwoUses)
{
    const CNumberDialogLogic bit(K::SerialBit, {"UART"}, -1);
    const CNumberDialogLogic jump(K::Jump, {"JPI"}, -1);
    EXPECT_EQ(CStringTable::Get(bit.GetNoteId()), "(Available 0...7)");
    EXPECT_EQ(CStringTable::Get(jump.GetLabelId()), "Connection ID:");
    EXPECT_EQ(CStringTable::Get(jump.GetNoteId()), "(Available 1 to 99)");
    EXPECT_EQ(bit.GetMaxLength(), 1);
    EXPECT_EQ(jump.GetMaxLength(), 2);
}

} // namespace
