// What the time, timer, switch, flip-flop, buzzer, counter, seven-segment and one-number
// dialogs open with, when they enable OK and the tokens they give.
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

TEST(TimeText, ReadsTokensAndKeepsTheTwentiethSecondGrid)
{
    const struct
    {
        const char* Name;
        const char* Token;
        const char* Text;
    } read[] = {
        {"MinuteAndAHalf", "90.45S", "000130.45"},    {"OneDigitFractionIsTenths", "2.5", "000002.50"},
        {"LeadingZeroFraction", "2.05S", "000002.05"}, {"ThirdDecimalIgnored", "1.479S", "000001.47"},
        {"NoDotIsWholeSeconds", "3", "000003.00"},    {"Longest", "32399.00S", "085959.00"},
        {"NoNumberIsZero", "abc", "000000.00"},       {"DotFirstIsZero", ".5S", "000000.00"},
    }, written[] = {
        {"RoundsDownToFive", "1.45S", "000001.47"},     {"KeepsAMultipleOfFive", "90.45S", "000130.45"},
        {"Shortest", "0.05S", "000000.05"},             {"Longest", "32399.00S", "085959.00"},
        {"NinetyNineBecomesNinetyFive", "1199.95S", "001959.99"},
        {"ThreeDigitFraction", "1.45S", "000001.470"}, {"NoFractionIsZero", "0.00S", "000130."},
    };
    for (const auto& row : read)
        EXPECT_EQ(CTimeText::FromToken(row.Token).Text(), row.Text) << row.Name;
    for (const auto& row : written)
        EXPECT_EQ(CTimeText::FromText(row.Text).Token(), row.Token) << row.Name;
    EXPECT_EQ(CTimeText::FromToken("3723.05S").Shown(), "1h 2m 3.05s");
}

TEST(TimeDialogLogic, DelayOpensAsHoursMinutesSecondsHundredths)
{
    const CTimeDialogLogic logic = CTimeDialogLogic::ForDelay(Split("DLY,90.45S"));
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hours), "0");
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Minutes), "1");
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Seconds), "30");
    EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hundredths), "45");
    EXPECT_TRUE(logic.IsOkEnabled());
    EXPECT_EQ(logic.DelayTokens(Split("DLY,90.45S")), Split("DLY,90.45S"));
    // Without a time it opens at zero and cannot be confirmed.
    const CTimeDialogLogic none = CTimeDialogLogic::ForDelay({"DLY"});
    EXPECT_EQ(none.GetField(CTimeDialogLogic::Hundredths), "00");
    EXPECT_FALSE(none.IsOkEnabled());
    EXPECT_EQ(none.DelayTokens({"DLY"}), Split("DLY,0.00S"));
}

TEST(TimeDialogLogic, DecidesOkAndHundredths)
{
    const struct
    {
        const char* Name;
        const char* Fields; // hours,minutes,seconds,hundredths
        bool Ok;
        bool HundredthsEnabled;
        const char* Token; // the delay's time after OK
    } rows[] = {
        {"FourHundredthsTooShort", "0,0,0,04", false, true, "0.00S"},
        {"FiveHundredthsShortest", "0,0,0,05", true, true, "0.05S"},
        {"EmptyFieldsCountAsZero", ",,,", false, true, "0.00S"},
        {"TwentyMinutesDropsHundredths", "0,20,0,45", true, false, "1200.00S"},
        {"NineteenMinutesKeepsHundredths", "0,19,59,99", true, true, "1199.95S"},
        {"OneHourDropsHundredths", "1,0,0,50", true, false, "3600.00S"},
        {"NineHoursTooLong", "9,0,0,00", false, false, "32400.00S"},
        {"LongestAccepted", "8,59,59,00", true, false, "32399.00S"},
        {"SixtyMinutesRefused", "0,60,0,00", false, false, "3600.00S"},
        {"SixtySecondsRefused", "0,0,60,00", false, true, "60.00S"},
        {"OddHundredthsCutDown", "0,0,1,47", true, true, "1.45S"},
        {"WholeSecondWithoutHundredths", "0,0,1,", true, true, "1.00S"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        CTimeDialogLogic logic{QString()};
        const QStringList fields = Split(row.Fields);
        for (int f = 0; f < CTimeDialogLogic::FieldCount; ++f)
            logic.SetField(CTimeDialogLogic::EField(f), fields[f]);
        EXPECT_EQ(logic.IsOkEnabled(), row.Ok);
        EXPECT_EQ(logic.IsHundredthsEnabled(), row.HundredthsEnabled);
        if (!row.HundredthsEnabled) {
            EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hundredths), "00");
        }
        EXPECT_EQ(logic.DelayTokens({"DLY"})[1], row.Token);
    }
}

TEST(TimerDialogLogic, OpensWithKindAndTime)
{
    const struct
    {
        const char* Name;
        const char* Tokens;
        int Kind;
        const char* Shown;
    } rows[] = {
        {"Hold", "TIM,H,90.05S", 1, "0h 1m 30.05s"},
        {"Toggle", "TIM,T,1.50S", 2, "0h 0m 1.50s"},
        {"OneShot", "TIM1,N,3723.00S", 3, "1h 2m 3.00s"},
        {"Retriggerable", "TIM1,R,2.5", 4, "0h 0m 2.50s"},
        {"OneShotKeywordWithHoldIsNoKind", "TIM1,H,1.00S", 0, "0h 0m 1.00s"},
        {"TimeWithoutClosingS", "TIM,H,3", 1, "0h 0m 3.00s"},
        {"NoTime", "TIM,H", 1, ""},
    };
    for (const auto& row : rows) {
        const CTimerDialogLogic logic(Split(row.Tokens));
        EXPECT_EQ(logic.GetKind(), row.Kind) << row.Name;
        EXPECT_EQ(logic.ShownTime(), row.Shown) << row.Name;
        EXPECT_EQ(logic.IsOkEnabled(), row.Kind != 0 && *row.Shown != 0) << row.Name;
    }
}

TEST(TimerDialogLogic, EachKindWritesItsKeywordAndLetterAndTheTimeOnTheGrid)
{
    CTimerDialogLogic logic(Split("TIM,X,1.50S"));
    EXPECT_TRUE(logic.Tokens().isEmpty());
    const char* expected[] = {"TIM,H,1.50S", "TIM,T,1.50S", "TIM1,N,1.50S", "TIM1,R,1.50S"};
    for (int kind = 1; kind <= 4; ++kind) {
        logic.SetKind(kind);
        EXPECT_EQ(logic.Tokens(), Split(expected[kind - 1])) << kind;
    }
    CTimerDialogLogic untimed(Split("TIM,H"));
    EXPECT_EQ(untimed.TimeDialogText(), "000000.00");
    untimed.SetTimeDialogText("001959.99");
    EXPECT_EQ(untimed.ShownTime(), "0h 19m 59.95s");
    EXPECT_EQ(Saved(untimed), "TIM,H,1199.95S");
}

TEST(SwitchDialogLogic, OpensAndWritesFourTokens)
{
    const struct
    {
        const char* Name;
        const char* Tokens;
        const char* InitialName;
        const char* ShownName;
        int Port;
        int Level;
        const char* Written; // after OK without change
    } rows[] = {
        {"KeywordAloneOpensHighWithoutPort", "SW", "", "", -1, 0, "SW,H,,;"},
        {"FullLine", "KEY,L,PD3,;start", "", "start", 1, 1, "KEY,L,PD3,;start"},
        {"InitialNameWithoutCommentToken", "DGI,H,PD2", "old", "old", 0, 0, "DGI,H,PD2,;old"},
        {"CommentTokenOverridesInitialName", "DGI,H,PD2,;new", "old", "new", 0, 0,
         "DGI,H,PD2,;new"},
        {"UnknownPortSelectsNothing", "DGO,H,PB9", "", "", -1, 0, "DGO,H,,;"},
        {"UnknownLevelSelectsNothing", "DGO,X,PD2", "", "", 0, -1, "DGO,,PD2,;"},
    };
    const CPortList ports = Ports({"PD2", "PD3"});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const CSwitchDialogLogic logic(Split(row.Tokens), ports, row.InitialName);
        EXPECT_EQ(logic.GetName(), row.ShownName);
        EXPECT_EQ(logic.GetPortIndex(), row.Port);
        EXPECT_EQ(logic.GetLevelIndex(), row.Level);
        EXPECT_EQ(Saved(logic), row.Written);
    }
    CSwitchDialogLogic logic(Split("LAMP,H,PD2,;a"), ports);
    logic.SetName("lamp 1");
    logic.SetPortIndex(1);
    logic.SetLevelIndex(1);
    EXPECT_EQ(Saved(logic), "LAMP,L,PD3,;lamp 1");
}

TEST(FlipFlopDialogLogic, OpensWithTheKeywordsTypeAndWritesTheChosenKeyword)
{
    const struct
    {
        const char* Keyword;
        int Type;
    } rows[] = {{"RSFF", 1}, {"T_FF", 2}, {"D_FF", 3}, {"FF", 0}};
    for (const auto& row : rows) {
        const CFlipFlopDialogLogic logic({row.Keyword});
        EXPECT_EQ(logic.GetType(), row.Type) << row.Keyword;
        EXPECT_EQ(Saved(logic), row.Type ? row.Keyword : "") << row.Keyword;
    }
    CFlipFlopDialogLogic logic(Split("FF,;note"));
    logic.SetType(2);
    EXPECT_EQ(Saved(logic), "T_FF");
    logic.SetType(7);
    EXPECT_EQ(Saved(logic), "");
    EXPECT_TRUE(logic.Tokens().isEmpty());
}

TEST(BuzzerDialogLogic, OpensWithPortAndFrequenciesAndWritesThemFromTheHighest)
{
    const struct
    {
        const char* Name;
        const char* Tokens;
        const char* Ports;
        int Port;
        bool Checked[3];
        const char* Saved;
    } rows[] = {
        {"OnePortIsSelected", "BUZZ,PB1,1000", "PB1", 0, {false, true, false}, "BUZZ,PB1,1000"},
        {"SeveralPortsSelectNothing", "BUZZ,PB1,2000,500", "PB1,PB2", -1, {true, false, true}, ""},
        {"NoFrequencyKeepsOkOff", "BUZZ,PB1", "PB1", 0, {false, false, false}, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const CPortList ports = Ports(Split(row.Ports));
        const CBuzzerDialogLogic logic(Split(row.Tokens), ports);
        EXPECT_EQ(logic.GetPortIndex(), row.Port);
        for (int f = 0; f < CBuzzerDialogLogic::FrequencyCount; ++f)
            EXPECT_EQ(logic.IsChecked(CBuzzerDialogLogic::EFrequency(f)), row.Checked[f]) << f;
        EXPECT_EQ(Saved(logic), row.Saved);
    }
    const CPortList ports = Ports({"PB1", "PB2"});
    CBuzzerDialogLogic logic(Split("BUZZ,PB2,;old"), ports);
    logic.SetPortIndex(1);
    logic.SetChecked(CBuzzerDialogLogic::Freq500, true);
    logic.SetChecked(CBuzzerDialogLogic::Freq2000, true);
    EXPECT_EQ(Saved(logic), "BUZZ,PB2,2000,500");
}

TEST(CounterDialogLogic, DecidesOkAndWritesValuesDownOnceEach)
{
    const struct
    {
        const char* Name;
        int Type;
        const char* Values; // fifteen fields at most
        int Wrong;
        const char* Saved;
    } rows[] = {
        {"SortedDownOnceEach", 1, "10,300,10,5", -1, "CNT,H,300,10,5"},
        {"Cyclic", 2, "7", -1, "CNT,C,7"},
        {"LeadingZerosVanish", 1, "007, 12", -1, "CNT,H,12,7"},
        {"GapsAreAllowed", 1, ",,,,,,,,,,,,,,32767", -1, "CNT,H,32767"},
        {"ZeroIsAValue", 1, "0", -1, "CNT,H,0"},
        {"TooLargeNamesItsField", 1, "10,40000,5", 1, ""},
        {"NotANumberNamesItsField", 1, "1,2,x", 2, ""},
        {"NegativeRefused", 1, "-1", 0, ""},
        {"AllEmpty", 1, "", -1, ""},
        {"NoType", 0, "5", -1, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        CCounterDialogLogic logic({"CNT"});
        logic.SetType(row.Type);
        const QStringList values = Split(row.Values);
        for (int i = 0; i < values.size(); ++i)
            logic.SetValue(i, values[i]);
        EXPECT_EQ(logic.WrongField(), row.Wrong);
        EXPECT_EQ(Saved(logic), row.Saved);
    }
    const CCounterDialogLogic opened(Split("CNT,C,5,300,5,;name"));
    EXPECT_EQ(opened.GetType(), 2);
    EXPECT_EQ(opened.GetValue(0), "300");
    EXPECT_EQ(opened.GetValue(1), "5");
    EXPECT_EQ(opened.GetValue(2), "");
    EXPECT_EQ(CCounterDialogLogic(Split("CNT,X,5")).GetType(), 0);
}

TEST(SevenSegDialogLogic, OffersTheKeywordsTypesAndPort)
{
    const struct
    {
        const char* Name;
        const char* Tokens;
        int Mode;
        const char* Modes; // the modes offered, in list order
        int OpenMode;
    } rows[] = {
        {"OneDigit", "7SEG,;7SEG_S", 3, "2,3,1", 3},
        {"FourDigits", "7SEG4,;7SEG4_D", 5, "5,6,4", 5},
        {"ModeOfTheOtherKeywordSelectsNothing", "7SEG,;7SEG4_D", 5, "2,3,1", 0},
        {"OtherKeywordHasNoTypes", "7SEGX", 1, "", 0},
    };
    const CPortList two = Ports({"PB0", "PB1"});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const CSevenSegDialogLogic logic(Split(row.Tokens), two, row.Mode);
        QStringList modes;
        for (const auto& type : logic.Types())
            modes.append(QString::number(type.Mode));
        EXPECT_EQ(modes, Split(row.Modes));
        EXPECT_EQ(logic.GetMode(), row.OpenMode);
        EXPECT_EQ(logic.IsOkEnabled(), row.OpenMode != 0);
    }
    const CPortList one = Ports({"PB0"});
    CSevenSegDialogLogic logic({"7SEG4"}, one, 0);
    EXPECT_EQ(logic.GetPortIndex(), 0);
    logic.SetMode(4);
    EXPECT_EQ(Saved(logic), "7SEG4,;7SEG4_B");
    EXPECT_EQ(CSevenSegDialogLogic(Split("7SEG,;7SEG_B,PB1"), two, 1).GetPortIndex(), 1);
    EXPECT_EQ(CSevenSegDialogLogic(Split("7SEG,;7SEG_B"), two, 1).GetPortIndex(), -1);
}

TEST(NumberDialogLogic, BitPositionAndConnectionId)
{
    using K = CNumberDialogLogic;
    const struct
    {
        const char* Name;
        K::EKind Kind;
        const char* Tokens;
        int Reference;
        const char* Opened;
        const char* Typed; // nullptr keeps the opened text
        const char* Saved;
    } rows[] = {
        {"BitKeptAsOpened", K::SerialBit, "UART,3,L", -1, "3", nullptr, "UART,3,L"},
        {"BitDashMustBeReplaced", K::SerialBit, "UART,-", -1, "-", nullptr, ""},
        {"BitTypedOverTheDash", K::SerialBit, "UART,-", -1, "-", "0", "UART,0,L"},
        {"BitWithoutTokenStartsEmpty", K::SerialBit, "UART0", -1, "", "7", "UART0,7,L"},
        {"BitEightRefused", K::SerialBit, "UART,1,L", -1, "1", "8", ""},
        {"BitEmptiedRefused", K::SerialBit, "UART,1,L", -1, "1", "", ""},
        {"JumpIdZeroStartsEmpty", K::Jump, "JPI,,L", 0, "", nullptr, ""},
        {"JumpTakesATypedId", K::Jump, "JPI,,L", 0, "", "42", "JPI,42,L"},
        {"JumpKeepsItsId", K::Jump, "JPO,7,R", 7, "7", nullptr, "JPO,7,R"},
        {"JumpZeroRefused", K::Jump, "JPO,7,R", 7, "7", "0", ""},
        {"JumpHundredRefused", K::Jump, "JPO,7,R", 7, "7", "100", ""},
        {"JumpNinetyNine", K::Jump, "JPO,7,D", 7, "7", "99", "JPO,99,D"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        CNumberDialogLogic logic(row.Kind, Split(row.Tokens), row.Reference);
        EXPECT_EQ(logic.GetText(), row.Opened);
        if (row.Typed)
            logic.SetText(row.Typed);
        EXPECT_EQ(Saved(logic), row.Saved);
    }
    EXPECT_EQ(K(K::SerialBit, {"UART"}, -1).GetMaxLength(), 1);
    EXPECT_EQ(K(K::Jump, {"JPI"}, -1).GetMaxLength(), 2);
}
