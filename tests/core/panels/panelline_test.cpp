// The definition line and the operations every panel inherits.
#include "core/panels/panelfacts.h"
#include "panelvalues.h"

TEST(PanelLine, ReadFormSplitsTrimsAndDropsEmptyTokens)
{
    const std::pair<CText, QStringList> rows[] = {
        {"LAMP" TAB "H, P10 ," TAB ";main", {"LAMP", "H", "P10", ";main"}},
        {"CNT" TAB "H,,5", {"CNT", "H", "5"}},
        // the keyword ends at a blank, later tokens do not
        {"LCD 1,\"two words\"", {"LCD", "1", "\"two words\""}},
        {"KEY H P0", {"KEY", "H P0"}},
        {"  SW" TAB TAB "L", {"SW", "L"}},
        {",SW P0", {"SW", "P0"}},
        {"", {}},
        {" , " TAB, {}},
    };
    for (const auto& [line, tokens] : rows)
        EXPECT_EQ(CPanel::SplitLine(QString::fromUtf8(line)), tokens) << line;
    // The line ends at a NUL, as its keyword does.
    EXPECT_EQ(CPanel::SplitLine(QString::fromUtf16(u"JPO\0\t5,D", 8)), QStringList{"JPO"});
}

TEST(PanelLine, WrittenFormPadsTheKeywordAndPutsTheCommentLast)
{
    const std::pair<CText, CText> rows[] = {
        {"LAMP,H,P10,;main", "LAMP" TAB "H,P10" TAB TAB ";main"},
        {"KEY,H,P00,;start", "KEY " TAB "H,P00" TAB TAB ";start"},
        {"SW", "SW  "},
        {"7SEG,;7SEG_B", "7SEG" TAB TAB TAB ";7SEG_B"},
        // a comment in the middle ends the line
        {"CNT,H,;x,5", "CNT " TAB "H" TAB TAB ";x"},
        {"SMOTO,1,500", "SMOTO" TAB "1,500"},
        {"", ""},
    };
    for (const auto& [tokens, line] : rows)
        EXPECT_EQ(CPanel::JoinLine(Split(tokens)), QString::fromUtf8(line)) << tokens;
}

const CText kEveryPanel[] = {
    "LineKeepsTextAndComment|LAMP\tH, P10 ,\t;main||tokens=LAMP,H,P10,;main|comment=main|"
    "text=LAMP\tH, P10 ,\t;main|trailing=main|line=LAMP\tH,P10\t\t;main",
    "LaterLineWithoutCommentKeepsTheOneRead|LAMP\tH,P10\t;main||>line=LAMP\tL,P11|comment=main|"
    "trailing=",
    "PortIndexFollowsThePortToken|SW\tH,P1|P0,P1|port=1|!incomplete|>line=SW\tH,P7|port=-1|"
    "incomplete",
    "PortIndexStaysWhenTheTokenIsMissing|SW\tH,P0|P0,P1|>line=SW\tH|port=0|incomplete",
    "TooFewTokensIsIncomplete|SW\tH\t\t;name||incomplete",
    "WithoutPortListOnlyTheCountMatters|SW\tH,P9||!incomplete",
    "GateIsExemptFromTheCount|AND\tR||!incomplete",
    "ProcessPictureIsOneItem|DLY\t1.00S||pictures=10027|size=32x32",
    "SidePictureOfThreeRows|UARI\tC,200,17,5||pictures=10071,10072,10073|size=64x32",
    "SidePictureOfTwoRows|UARI\tC,200,17||pictures=10071,10073",
    "SidePictureOfOneRow|UARI\tC,200||pictures=10070",
    "SidePictureMiddleRowsRepeat|PULS\tH,P1,100,75,50,25,0||pictures=10080,10081,10081,10081,10082",
    "LampPictureIsOneSideRow|LAMP\tH,P1||pictures=10079|size=64x32",
};

TEST(PanelLine, EveryPanelKeepsTextCommentPortAndCompleteness)
{
    CheckPanels(kEveryPanel);
}

TEST(PanelLine, CopyFromTakesWhatTheLineDoesNotCarry)
{
    auto source = MakePanel("KEY" TAB "H,P1", {"P0", "P1"});
    source->SetName("Start");
    source->SetWeight(25);
    auto copy = MakePanel(source->GetLine());
    copy->CopyFrom(*source);
    EXPECT_EQ(copy->GetCaption(), "Start : PORT=P1  ACTIVE=H  ");
    EXPECT_EQ(copy->GetWeight(), 25);
    EXPECT_EQ(copy->GetPortList(), source->GetPortList());
    EXPECT_EQ(copy->GetLine(), source->GetLine());
}

TEST(PanelValues, ReadNumbersLenientlyAndSortDistinctValues)
{
    const std::pair<CText, int> ints[] = {{"8000MHz", 8000}, {"  -12x", -12},
                                          {"+7", 7},         {"abc", 0},
                                          {"", 0},           {"99999999999", INT_MAX}};
    for (const auto& [text, value] : ints)
        EXPECT_EQ(LeadingInt(text), value) << text;
    const std::pair<QStringList, CText> lists[] = {
        {{"10", "300", "10", "5"}, "300,10,5"},
        {{"5", "5", "0"}, "5,0"},
        {{"", " ", "1"}, "1"},
        {{}, ""},
    };
    for (const auto& [values, sorted] : lists)
        EXPECT_EQ(DescendingDistinct(values), Split(sorted)) << sorted;
    EXPECT_EQ(SecondsText(90, 5), "90.05");
}
