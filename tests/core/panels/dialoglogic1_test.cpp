// What the time, timer, switch, flip-flop, buzzer, counter, seven-segment and one-number
// dialogs open with, when they enable OK and the tokens they give.
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

TEST(TimeText, ReadsTokensAndKeepsTheTwentiethSecondGrid)
{
    // name, token, the time dialog's text
    const std::tuple<CText, CText, CText> read[] =
        {
            {"MinuteAndAHalf", "90.45S", "000130.45"},
            {"OneDigitFractionIsTenths", "2.5", "000002.50"},
            {"LeadingZeroFraction", "2.05S", "000002.05"},
            {"ThirdDecimalIgnored", "1.479S", "000001.47"},
            {"NoDotIsWholeSeconds", "3", "000003.00"},
            {"Longest", "32399.00S", "085959.00"},
            {"NoNumberIsZero", "abc", "000000.00"},
            {"DotFirstIsZero", ".5S", "000000.00"},
        },
                                          written[] = {
                                              {"RoundsDownToFive", "1.45S", "000001.47"},
                                              {"KeepsAMultipleOfFive", "90.45S", "000130.45"},
                                              {"Shortest", "0.05S", "000000.05"},
                                              {"Longest", "32399.00S", "085959.00"},
                                              {"NinetyNineBecomesNinetyFive", "1199.95S",
                                               "001959.99"},
                                              {"ThreeDigitFraction", "1.45S", "000001.470"},
                                              {"NoFractionIsZero", "0.00S", "000130."},
                                          };
    for (const auto& [name, token, text] : read)
        EXPECT_EQ(CTimeText::FromToken(token).Text(), text) << name;
    for (const auto& [name, token, text] : written)
        EXPECT_EQ(CTimeText::FromText(text).Token(), token) << name;
    EXPECT_EQ(CTimeText::FromToken("3723.05S").Shown(), "1h 2m 3.05s");
}

TEST(TimeDialogLogic, DelayOpensAsHoursMinutesSecondsHundredths)
{
    const CTimeDialogLogic logic = CTimeDialogLogic::ForDelay(Split("DLY,90.45S"));
    QStringList fields;
    for (int f = 0; f < CTimeDialogLogic::FieldCount; ++f)
        fields << logic.GetField(CTimeDialogLogic::EField(f));
    EXPECT_EQ(fields, Split("0,1,30,45"));
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
    // name, hours/minutes/seconds/hundredths, OK, hundredths enabled, the delay's time
    const std::tuple<CText, CText, bool, bool, CText> rows[] = {
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
    for (const auto& [name, fields, ok, hundredths, token] : rows) {
        SCOPED_TRACE(name);
        CTimeDialogLogic logic{QString()};
        for (int f = 0; f < CTimeDialogLogic::FieldCount; ++f)
            logic.SetField(CTimeDialogLogic::EField(f), Split(fields)[f]);
        EXPECT_EQ(logic.IsOkEnabled(), ok);
        EXPECT_EQ(logic.IsHundredthsEnabled(), hundredths);
        if (!hundredths) {
            EXPECT_EQ(logic.GetField(CTimeDialogLogic::Hundredths), "00");
        }
        EXPECT_EQ(logic.DelayTokens({"DLY"})[1], token);
    }
}

TEST(TimerDialogLogic, OpensWithKindAndTime)
{
    // name, tokens, kind, time shown
    const std::tuple<CText, CText, int, CText> rows[] = {
        {"Hold", "TIM,H,90.05S", 1, "0h 1m 30.05s"},
        {"Toggle", "TIM,T,1.50S", 2, "0h 0m 1.50s"},
        {"OneShot", "TIM1,N,3723.00S", 3, "1h 2m 3.00s"},
        {"Retriggerable", "TIM1,R,2.5", 4, "0h 0m 2.50s"},
        {"OneShotKeywordWithHoldIsNoKind", "TIM1,H,1.00S", 0, "0h 0m 1.00s"},
        {"TimeWithoutClosingS", "TIM,H,3", 1, "0h 0m 3.00s"},
        {"NoTime", "TIM,H", 1, ""},
    };
    for (const auto& [name, tokens, kind, shown] : rows) {
        const CTimerDialogLogic logic(Split(tokens));
        EXPECT_EQ(logic.GetKind(), kind) << name;
        EXPECT_EQ(logic.ShownTime(), shown) << name;
        EXPECT_EQ(logic.IsOkEnabled(), kind != 0 && *shown != 0) << name;
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
    // name, tokens, initial name, name shown, port, level, written after OK
    const std::tuple<CText, CText, CText, CText, int, int, CText> rows[] = {
        {"KeywordAloneOpensHighWithoutPort", "SW", "", "", -1, 0, "SW,H,,;"},
        {"FullLine", "KEY,L,PD3,;start", "", "start", 1, 1, "KEY,L,PD3,;start"},
        {"InitialNameWithoutCommentToken", "DGI,H,PD2", "old", "old", 0, 0, "DGI,H,PD2,;old"},
        {"CommentTokenOverridesInitialName", "DGI,H,PD2,;new", "old", "new", 0, 0,
         "DGI,H,PD2,;new"},
        {"UnknownPortSelectsNothing", "DGO,H,PB9", "", "", -1, 0, "DGO,H,,;"},
        {"UnknownLevelSelectsNothing", "DGO,X,PD2", "", "", 0, -1, "DGO,,PD2,;"},
    };
    const CPortList ports = Ports({"PD2", "PD3"});
    for (const auto& [name, tokens, initial, shown, port, level, written] : rows) {
        SCOPED_TRACE(name);
        const CSwitchDialogLogic logic(Split(tokens), ports, initial);
        EXPECT_EQ(logic.GetName(), shown);
        EXPECT_EQ(logic.GetPortIndex(), port);
        EXPECT_EQ(logic.GetLevelIndex(), level);
        EXPECT_EQ(Saved(logic), written);
    }
    CSwitchDialogLogic logic(Split("LAMP,H,PD2,;a"), ports);
    logic.SetName("lamp 1");
    logic.SetPortIndex(1);
    logic.SetLevelIndex(1);
    EXPECT_EQ(Saved(logic), "LAMP,L,PD3,;lamp 1");
}

TEST(FlipFlopDialogLogic, OpensWithTheKeywordsTypeAndWritesTheChosenKeyword)
{
    const std::pair<CText, int> rows[] = {{"RSFF", 1}, {"T_FF", 2}, {"D_FF", 3}, {"FF", 0}};
    for (const auto& [keyword, type] : rows) {
        const CFlipFlopDialogLogic logic({keyword});
        EXPECT_EQ(logic.GetType(), type) << keyword;
        EXPECT_EQ(Saved(logic), type ? keyword : "") << keyword;
    }
    CFlipFlopDialogLogic logic(Split("FF,;note"));
    logic.SetType(2);
    EXPECT_EQ(Saved(logic), "T_FF");
    logic.SetType(7);
    EXPECT_TRUE(logic.Tokens().isEmpty());
    EXPECT_FALSE(logic.IsOkEnabled());
}

TEST(BuzzerDialogLogic, OpensWithPortAndFrequenciesAndWritesThemFromTheHighest)
{
    // name, tokens, ports, port, 2000/1000/500 Hz checked, saved
    const std::tuple<CText, CText, CText, int, CText, CText> rows[] = {
        {"OnePortIsSelected", "BUZZ,PB1,1000", "PB1", 0, "010", "BUZZ,PB1,1000"},
        {"SeveralPortsSelectNothing", "BUZZ,PB1,2000,500", "PB1,PB2", -1, "101", ""},
        {"NoFrequencyKeepsOkOff", "BUZZ,PB1", "PB1", 0, "000", ""},
    };
    for (const auto& [name, tokens, portNames, port, checked, saved] : rows) {
        SCOPED_TRACE(name);
        const CPortList ports = Ports(Split(portNames));
        const CBuzzerDialogLogic logic(Split(tokens), ports);
        EXPECT_EQ(logic.GetPortIndex(), port);
        QString shown;
        for (int f = 0; f < CBuzzerDialogLogic::FrequencyCount; ++f)
            shown += logic.IsChecked(CBuzzerDialogLogic::EFrequency(f)) ? u'1' : u'0';
        EXPECT_EQ(shown, checked);
        EXPECT_EQ(Saved(logic), saved);
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
    // name, type, the fifteen fields at most, field named wrong, saved
    const std::tuple<CText, int, CText, int, CText> rows[] = {
        {"SortedDownOnceEach", 1, "10,300,10,5", -1, "CNT,H,300,10,5"},
        {"Cyclic", 2, "7", -1, "CNT,C,7"},
        {"LeadingZerosVanish", 1, "007, 12", -1, "CNT,H,12,7"},
        {"GapsAreAllowed", 1, ",,,,,,,,,,,,,,32767", -1, "CNT,H,32767"},
        {"ZeroIsAValue", 1, "0", -1, "CNT,H,0"},
        {"NotANumberNamesItsField", 1, "1,2,x", 2, ""},
        {"NegativeRefused", 1, "-1", 0, ""},
        {"AllEmpty", 1, "", -1, ""},
        {"NoType", 0, "5", -1, ""},
    };
    for (const auto& [name, type, values, wrong, saved] : rows) {
        SCOPED_TRACE(name);
        CCounterDialogLogic logic({"CNT"});
        logic.SetType(type);
        for (int i = 0; i < Split(values).size(); ++i)
            logic.SetValue(i, Split(values)[i]);
        EXPECT_EQ(logic.WrongField(), wrong);
        EXPECT_EQ(Saved(logic), saved);
    }
    const CCounterDialogLogic opened(Split("CNT,C,5,300,5,;name"));
    EXPECT_EQ(opened.GetType(), 2);
    EXPECT_EQ(opened.GetValue(0) + u',' + opened.GetValue(1) + u',' + opened.GetValue(2), "300,5,");
    EXPECT_EQ(CCounterDialogLogic(Split("CNT,X,5")).GetType(), 0);
}

TEST(SevenSegDialogLogic, OffersTheKeywordsTypesAndPort)
{
    // name, tokens, the display's mode, the modes offered in list order, mode selected
    const std::tuple<CText, CText, int, CText, int> rows[] = {
        {"OneDigit", "7SEG,;7SEG_S", 3, "2,3,1", 3},
        {"FourDigits", "7SEG4,;7SEG4_D", 5, "5,6,4", 5},
        {"ModeOfTheOtherKeywordSelectsNothing", "7SEG,;7SEG4_D", 5, "2,3,1", 0},
        {"OtherKeywordHasNoTypes", "7SEGX", 1, "", 0},
    };
    const CPortList two = Ports({"PB0", "PB1"});
    for (const auto& [name, tokens, mode, offered, selected] : rows) {
        SCOPED_TRACE(name);
        const CSevenSegDialogLogic logic(Split(tokens), two, mode);
        QStringList modes;
        for (const auto& type : logic.Types())
            modes.append(QString::number(type.Mode));
        EXPECT_EQ(modes, Split(offered));
        EXPECT_EQ(logic.GetMode(), selected);
        EXPECT_EQ(logic.IsOkEnabled(), selected != 0);
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
    // name, kind, tokens, reference, text opened, text typed (nullptr: none), saved
    const std::tuple<CText, K::EKind, CText, int, CText, CText, CText> rows[] = {
        {"BitKeptAsOpened", K::SerialBit, "UART,3,L", -1, "3", nullptr, "UART,3,L"},
        {"BitDashMustBeReplaced", K::SerialBit, "UART,-", -1, "-", nullptr, ""},
        {"BitTypedOverTheDash", K::SerialBit, "UART,-", -1, "-", "0", "UART,0,L"},
        {"BitWithoutTokenStartsEmpty", K::SerialBit, "UART0", -1, "", "7", "UART0,7,L"},
        {"JumpIdZeroStartsEmpty", K::Jump, "JPI,,L", 0, "", nullptr, ""},
        {"JumpTakesATypedId", K::Jump, "JPI,,L", 0, "", "42", "JPI,42,L"},
        {"JumpKeepsItsId", K::Jump, "JPO,7,R", 7, "7", nullptr, "JPO,7,R"},
        {"JumpNinetyNine", K::Jump, "JPO,7,D", 7, "7", "99", "JPO,99,D"},
    };
    for (const auto& [name, kind, tokens, reference, opened, typed, saved] : rows) {
        SCOPED_TRACE(name);
        CNumberDialogLogic logic(kind, Split(tokens), reference);
        EXPECT_EQ(logic.GetText(), opened);
        if (typed)
            logic.SetText(typed);
        EXPECT_EQ(Saved(logic), saved);
    }
    EXPECT_EQ(K(K::SerialBit, {"UART"}, -1).GetMaxLength(), 1);
    EXPECT_EQ(K(K::Jump, {"JPI"}, -1).GetMaxLength(), 2);
}
