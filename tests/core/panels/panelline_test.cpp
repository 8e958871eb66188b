// The definition line and the operations every panel inherits.
#include "core/panels/paneltest.h"
#include "panelvalues.h"

TEST(PanelLine, ReadFormSplitsTrimsAndDropsEmptyTokens)
{
    struct
    {
        const char* Line;
        QStringList Tokens;
    } const rows[] = {
        {"LAMP" TAB "H, P10 ," TAB ";main", {"LAMP", "H", "P10", ";main"}},
        {"CNT" TAB "H,,5", {"CNT", "H", "5"}},
        // the keyword ends at a blank, later tokens do not
        {"LCD 1,\"two words\"", {"LCD", "1", "\"two words\""}},
        {"KEY H P0", {"KEY", "H P0"}},
        {"  SW" TAB TAB "L", {"SW", "L"}},
        {",SW P0", {"SW", "P0"}},
        {"DLY", {"DLY"}},
        {"", {}},
        {" , " TAB, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CPanel::SplitLine(QString::fromUtf8(row.Line)), row.Tokens) << row.Line;
    // The line ends at a NUL, as its keyword does.
    EXPECT_EQ(CPanel::SplitLine(QString::fromUtf16(u"JPO\0\t5,D", 8)), QStringList{"JPO"});
}

TEST(PanelLine, WrittenFormPadsTheKeywordAndPutsTheCommentLast)
{
    struct
    {
        QStringList Tokens;
        const char* Line;
    } const rows[] = {
        {{"LAMP", "H", "P10", ";main"}, "LAMP" TAB "H,P10" TAB TAB ";main"},
        {{"KEY", "H", "P00", ";start"}, "KEY " TAB "H,P00" TAB TAB ";start"},
        {{"SW"}, "SW  "},
        {{"7SEG", ";7SEG_B"}, "7SEG" TAB TAB TAB ";7SEG_B"},
        // a comment in the middle ends the line
        {{"CNT", "H", ";x", "5"}, "CNT " TAB "H" TAB TAB ";x"},
        {{"SMOTO", "1", "500"}, "SMOTO" TAB "1,500"},
        {{}, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CPanel::JoinLine(row.Tokens), QString::fromUtf8(row.Line));
}

TEST(PanelLine, SetLineKeepsTextCommentAndCaption)
{
    auto lamp = MakePanel("LAMP" TAB "H, P10 ," TAB ";main");
    EXPECT_EQ(lamp->GetTokens(), (QStringList{"LAMP", "H", "P10", ";main"}));
    EXPECT_EQ(lamp->GetLineComment(), "main");
    EXPECT_EQ(lamp->GetText(), "LAMP" TAB "H, P10 ," TAB ";main");
    EXPECT_EQ(lamp->GetLine(), "LAMP" TAB "H,P10" TAB TAB ";main");
    EXPECT_EQ(lamp->GetTrailingComment(), "main");

    // A later line without a comment keeps the comment read before.
    lamp->SetLine("LAMP" TAB "L,P11");
    EXPECT_EQ(lamp->GetLineComment(), "main");
    EXPECT_EQ(lamp->GetTrailingComment(), "");
}

TEST(PanelLine, PortIndexFollowsThePortTokenAndStaysWhenTheTokenIsMissing)
{
    auto sw = MakePanel("SW" TAB "H,P1", {"P0", "P1"});
    EXPECT_EQ(sw->GetPortIndex(), 1);
    EXPECT_FALSE(sw->IsIncomplete());
    sw->SetLine("SW" TAB "H,P7");
    EXPECT_EQ(sw->GetPortIndex(), -1);
    EXPECT_TRUE(sw->IsIncomplete());
    sw->SetLine("SW" TAB "H,P0");
    sw->SetLine("SW" TAB "H");
    EXPECT_EQ(sw->GetPortIndex(), 0);
    EXPECT_TRUE(sw->IsIncomplete()); // too few tokens, whatever the index
}

TEST(PanelLine, IncompletenessCountsTokensBeforeThePort)
{
    // No port list: only the token count matters.
    EXPECT_TRUE(MakePanel("SW" TAB "H" TAB TAB ";name")->IsIncomplete());
    EXPECT_FALSE(MakePanel("SW" TAB "H,P9")->IsIncomplete());
    // A wire and a gate are exempt from the check.
    EXPECT_FALSE(MakePanel("AND" TAB "R")->IsIncomplete());
}

TEST(PanelLine, CopyFromTakesWhatTheLineDoesNotCarry)
{
    auto source = MakePanel("KEY" TAB "H,P1", {"P0", "P1"});
    source->SetName("Start");
    source->SetWeight(25);
    auto copy = MakePanel(source->GetLine());
    copy->CopyFrom(*source);
    EXPECT_EQ(copy->GetName(), "Start");
    EXPECT_EQ(copy->GetCaption(), "Start : PORT=P1  ACTIVE=H  ");
    EXPECT_EQ(copy->GetWeight(), 25);
    EXPECT_EQ(copy->GetPortList(), source->GetPortList());
    EXPECT_EQ(copy->GetLine(), source->GetLine());
}

TEST(PanelLine, ProcessPictureIsOne32PixelItem)
{
    auto delay = MakePanel("DLY" TAB "1.00S");
    CPanelImage image;
    ASSERT_TRUE(delay->MakeImage(image));
    EXPECT_EQ(delay->GetImageSize(), QSize(32, 32));
    ASSERT_EQ(image.Items.size(), 1);
    EXPECT_EQ(image.Items[0].BitmapId, 10027);
}

TEST(PanelLine, SidePicturesAreStripsWithDistinctTopAndBottom)
{
    struct
    {
        const char* Line;
        QList<int> Strips;
    } const rows[] = {
        {"UARI" TAB "C,200,17,5", {10071, 10072, 10073}},
        {"UARI" TAB "C,200,17", {10071, 10073}},
        {"UARI" TAB "C,200", {10070}},
        {"PULS" TAB "H,P1,100,75,50,25,0", {10080, 10081, 10081, 10081, 10082}},
        {"LAMP" TAB "H,P1", {10079}},
    };
    for (const auto& row : rows) {
        auto panel = MakePanel(row.Line);
        CPanelImage image;
        ASSERT_TRUE(panel->MakeImage(image)) << row.Line;
        QList<int> strips;
        for (const CPanelImageItem& item : image.Items)
            strips << item.BitmapId;
        EXPECT_EQ(strips, row.Strips) << row.Line;
        EXPECT_EQ(image.Width, 64);
        EXPECT_EQ(image.Height, 32);
    }
}

TEST(PanelValues, LeadingIntReadsLeniently)
{
    EXPECT_EQ(LeadingInt("8000MHz"), 8000);
    EXPECT_EQ(LeadingInt("  -12x"), -12);
    EXPECT_EQ(LeadingInt("+7"), 7);
    EXPECT_EQ(LeadingInt("abc"), 0);
    EXPECT_EQ(LeadingInt(""), 0);
    EXPECT_EQ(LeadingInt("99999999999"), INT_MAX);
}

TEST(PanelValues, DescendingDistinctDropsRepeatsAndBlanks)
{
    EXPECT_EQ(DescendingDistinct({"10", "300", "10", "5"}), (QStringList{"300", "10", "5"}));
    EXPECT_EQ(DescendingDistinct({"5", "5", "0"}), (QStringList{"5", "0"}));
    EXPECT_EQ(DescendingDistinct({"", " ", "1"}), (QStringList{"1"}));
    EXPECT_EQ(DescendingDistinct({}), QStringList());
    EXPECT_EQ(SecondsText(90, 5), "90.05");
}
