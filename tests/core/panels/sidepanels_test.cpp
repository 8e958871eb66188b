// Panels of the input and output columns: buzzer, seven-segment LED, serial receive and
// send, pulse, PWM, network in and out, LCD and the motor driver.
#include "core/panels/paneltest.h"

namespace {

struct CStrip
{
    int BitmapId;
    QString Port;
    QString Comment;
    bool operator==(const CStrip&) const = default;
};

void PrintTo(const CStrip& s, std::ostream* os)
{
    *os << s.BitmapId << " '" << s.Port.toStdString() << "' '" << s.Comment.toStdString() << "'";
}

QList<CStrip> Strips(CPanel& panel)
{
    CPanelImage image;
    EXPECT_TRUE(panel.MakeImage(image));
    QList<CStrip> strips;
    for (const CPanelImageItem& item : image.Items)
        strips.append({item.BitmapId, item.PortText, item.Comment});
    return strips;
}

} // namespace

TEST(Buzzer, OneRowAFrequency)
{
    auto buzzer = MakePanel("BUZZ\tPB1,2000,500", {"PB1"});
    EXPECT_EQ(buzzer->GetItemCount(), 2);
    EXPECT_EQ(buzzer->GetCaption(), " : PORT=PB1  FREQ=2000Hz/500Hz  ");
    EXPECT_EQ(Strips(*buzzer), (QList<CStrip>{{10080, "", "2000Hz"}, {10082, "", "500Hz"}}));
    EXPECT_FALSE(buzzer->IsIncomplete());
    // The port is not checked against the list.
    EXPECT_FALSE(MakePanel("BUZZ\tPX,500", {"PB1"})->IsIncomplete());
}

TEST(Buzzer, PortAloneIsOneUnlabelledIncompleteRow)
{
    auto buzzer = MakePanel("BUZZ\tPB1");
    EXPECT_EQ(buzzer->GetItemCount(), 1);
    EXPECT_TRUE(buzzer->IsIncomplete());
    EXPECT_EQ(Strips(*buzzer), (QList<CStrip>{{10079, "", ""}}));
    EXPECT_EQ(buzzer->GetCaption(), " : PORT=PB1  ");
    EXPECT_EQ(MakePanel("BUZZ\tPB1,1000\t\t;b")->GetItemCount(), 1);
    EXPECT_EQ(MakePanel("BUZZ\tPB1,1000\t\t;b")->GetComment(1), "");
}

TEST(Buzzer, DialogOkCountsTheFrequencies)
{
    CFakeEditor editor;
    editor.Tokens = {"BUZZ", "PB1", "2000", "1000", "500"};
    auto buzzer = MakePanel("BUZZ\tPB1,500");
    ASSERT_TRUE(buzzer->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::Buzzer);
    EXPECT_EQ(buzzer->GetItemCount(), 3);
    EXPECT_EQ(buzzer->GetCaption(), " : PORT=PB1  FREQ=2000Hz/1000Hz/500Hz  ");
}

TEST(SevenSeg, ModeFromTheTypeTokenOnly)
{
    const struct
    {
        const char* Line;
        int Mode;
        const char* Label;
    } rows[] = {
        {"7SEG\t;7SEG_B", 1, "Bit"},     {"7SEG\t;7SEG_D", 2, "Digit"},
        {"7SEG\t;7SEG_S", 3, "Segment"}, {"7SEG4\t;7SEG4_B", 4, "Bit"},
        {"7SEG4\t;7SEG4_D", 5, "Digit"}, {"7SEG4\t;7SEG4_S", 6, "Segment"},
        {"7SEG\t;7SEG4_D", 5, "Digit"},  {"7SEG\t;7seg_b", 0, ""},
        {"7SEG", 0, ""},
    };
    for (const auto& row : rows) {
        auto display = MakePanel(row.Line);
        EXPECT_EQ(display->GetMode(), row.Mode) << row.Line;
        EXPECT_EQ(display->GetPortName(2), row.Label) << row.Line;
        EXPECT_EQ(display->IsIncomplete(), row.Mode == 0) << row.Line;
    }
    EXPECT_EQ(MakePanel("7SEG")->GetCaption(), " : ");
    EXPECT_EQ(MakePanel("7SEG4\t;7SEG4_B")->GetCaption(), " : TYPE=Bit  ");
    EXPECT_EQ(MakePanel("7SEG4\t;7SEG4_B")->GetLine(), "7SEG4\t\t\t;7SEG4_B");
}

TEST(SerialIn, CompareModeHasARowAValue)
{
    auto rx = MakePanel("UARI\tC,200,17,5\t\t;rx", {"PD0(RxD6)"});
    EXPECT_EQ(rx->GetMode(), 1);
    EXPECT_EQ(rx->GetItemCount(), 3);
    EXPECT_EQ(rx->GetCaption(), " : PORT=PD0(RxD6)  TYPE=Compare  ");
    EXPECT_EQ(Strips(*rx),
              (QList<CStrip>{{10071, "200", "rx"}, {10072, "17", ""}, {10073, "5", ""}}));
    EXPECT_EQ(rx->GetPortName(3), "");
}

TEST(SerialIn, BitModeRowsReadFromBit7Down)
{
    auto rx = MakePanel("UARI0\tB,3");
    EXPECT_EQ(rx->GetMode(), 3);
    EXPECT_EQ(rx->GetItemCount(), 3);
    EXPECT_EQ(rx->GetPortName(0), "bit7");
    EXPECT_EQ(rx->GetPortName(2), "bit5");
    EXPECT_EQ(rx->GetPortName(3), "");
    EXPECT_EQ(rx->GetCaption(), " : TYPE=Bit  ");
}

TEST(SerialIn, UnknownModeOrShortLine)
{
    auto cw = MakePanel("UARI\tCW,5,6");
    EXPECT_EQ(cw->GetMode(), 0);
    EXPECT_EQ(cw->GetItemCount(), 1);
    EXPECT_EQ(cw->GetPortName(0), "");
    EXPECT_EQ(MakePanel("UARI\tC")->GetPortName(0), "");
    EXPECT_TRUE(MakePanel("UARI\tC")->IsIncomplete());
}

TEST(SerialIn, DialogOkSetsTheRowCountWithoutMinimum)
{
    CFakeEditor editor;
    editor.Tokens = {"UARI", "B", "8", ";rx"};
    auto rx = MakePanel("UARI\tC,1");
    ASSERT_TRUE(rx->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::SerialIn);
    EXPECT_EQ(rx->GetItemCount(), 8);
    editor.Tokens = {"UARI", "C", "200", "17", "5"};
    rx->EditProperties(editor);
    EXPECT_EQ(rx->GetItemCount(), 3);
}

TEST(SerialOut, ShowsItsPortOnly)
{
    auto tx = MakePanel("UARO", {"PD1(TxD)", "PD5"});
    EXPECT_EQ(tx->GetPortText(), "PD1(TxD)");
    EXPECT_EQ(tx->GetCaption(), " : PORT=PD1(TxD)  ");
    EXPECT_EQ(tx->GetPortName(0), "");
    EXPECT_FALSE(tx->IsIncomplete());
    EXPECT_EQ(MakePanel("UARO")->GetCaption(), " : ");
}

TEST(Pulse, LevelsAreRowsOfPercent)
{
    auto pulse = MakePanel("PULS\tH,PB2,100,75,50,25,0\t\t;motor", {"PB2"});
    EXPECT_EQ(pulse->GetItemCount(), 5);
    EXPECT_EQ(pulse->GetCaption(), " : PORT=PB2  ");
    EXPECT_EQ(pulse->GetComment(0), "100%");
    EXPECT_EQ(pulse->GetComment(4), "0%");
    EXPECT_EQ(pulse->GetComment(5), "");
    EXPECT_EQ(pulse->GetPortName(0), "motor");
    EXPECT_FALSE(pulse->IsIncomplete());
    EXPECT_EQ(MakePanel("PULS\tH,PB2")->GetItemCount(), 1);
    EXPECT_TRUE(MakePanel("PULS\tH,PB2")->IsIncomplete());
}

TEST(Pulse, DialogOkTakesTokensAndPort)
{
    CFakeEditor editor;
    editor.Tokens = {"PULS", "H", "PB2", "100", "50", "0"};
    editor.PortIndex = 1;
    auto pulse = MakePanel("PULS\tH,PB2,100,75,50,25,0", {"PB1", "PB2"});
    ASSERT_TRUE(pulse->EditProperties(editor));
    EXPECT_EQ(pulse->GetItemCount(), 3);
    EXPECT_EQ(pulse->GetPortIndex(), 1);
}

TEST(Pwm, FrequencyAndDutyRows)
{
    auto pwm = MakePanel("PWM\t1000Hz,100,50,0", {"PB1", "PB2"});
    EXPECT_EQ(pwm->GetItemCount(), 3);
    EXPECT_EQ(pwm->GetPortName(0), "1000Hz");
    EXPECT_EQ(pwm->GetPortName(1), "");
    EXPECT_EQ(pwm->GetComment(1), "50%");
    EXPECT_EQ(pwm->GetPortText(), "PB1");
    EXPECT_EQ(pwm->GetCaption(), " : ");
    EXPECT_FALSE(pwm->IsIncomplete());
}

TEST(Pwm, NoDutyValuesLeavesNoRowsAfterTheDialog)
{
    CFakeEditor editor;
    editor.Tokens = {"PWM", "500Hz"};
    editor.PortIndex = 0;
    auto pwm = MakePanel("PWM\t1000Hz,100");
    ASSERT_TRUE(pwm->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::Pwm);
    EXPECT_EQ(pwm->GetItemCount(), 0);
    EXPECT_EQ(pwm->GetPortIndex(), 0);
    EXPECT_TRUE(pwm->IsIncomplete());
}

TEST(WebIn, RowsNamedFromTheTopBit)
{
    auto web = MakePanel("WEBIN\t10\t\t;net");
    web->SetName("WEB1");
    EXPECT_EQ(web->GetItemCount(), 10);
    EXPECT_EQ(web->GetPortName(0), "WEB.9");
    EXPECT_EQ(web->GetPortName(9), "WEB.0");
    EXPECT_EQ(web->GetPortName(10), "");
    EXPECT_EQ(web->GetComment(0), "net");
    EXPECT_EQ(web->GetCaption(), "WEB1 : 10bit");
    EXPECT_EQ(MakePanel("WEBIN")->GetItemCount(), 1);
    EXPECT_TRUE(MakePanel("WEBIN")->IsIncomplete());

    CFakeEditor editor;
    editor.Tokens = {"WEBIN", "2", ";"};
    ASSERT_TRUE(web->EditProperties(editor));
    EXPECT_EQ(web->GetItemCount(), 2);
    EXPECT_EQ(web->GetComment(0), "");
}

TEST(WebOut, NeverIncomplete)
{
    auto web = MakePanel("WEBOUT");
    EXPECT_FALSE(web->IsIncomplete());
    EXPECT_EQ(web->GetBitmapId(), 10092);
    web->SetName("W");
    EXPECT_EQ(web->GetCaption(), "W : ");
    CFakeEditor editor;
    EXPECT_FALSE(web->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::None);
}

TEST(Lcd, CaptionAndDisplayedText)
{
    auto lcd = MakePanel("LCD\t1,\"Hello\"");
    lcd->SetName("L1");
    EXPECT_EQ(lcd->GetCaption(), "L1: Line=1, \"Hello\"");
    EXPECT_EQ(lcd->GetComment(0), "Hello");
    EXPECT_EQ(MakePanel("LCD\t0,\"\"")->GetCaption(), ": Clear");
    EXPECT_FALSE(MakePanel("LCD\t0,\"\"")->IsIncomplete());
    EXPECT_EQ(MakePanel("LCD\t3,\"x\"")->GetCaption(), ": ");
    // Only one quote at each end is storage.
    EXPECT_EQ(MakePanel("LCD\t2,\"\"a\"\"")->GetComment(0), "\"a\"");
    EXPECT_EQ(MakePanel("LCD\t2")->GetComment(0), "");
}

TEST(StepMotorOut, TwoRowsEnableAndDir)
{
    auto driver = MakePanel("SMOTO\t1,500", {"PD4"});
    EXPECT_EQ(driver->GetItemCount(), 2);
    EXPECT_EQ(Strips(*driver), (QList<CStrip>{{10080, "", "Enable"}, {10082, "", "Dir"}}));
    EXPECT_EQ(driver->GetCaption(), " : 1-2 phase excitation, 500ms/step, PORT=PD4");
    EXPECT_EQ(MakePanel("SMOTO\t2,20")->GetCaption(), " : 2 phase excitation, 20ms/step");
    EXPECT_EQ(MakePanel("SMOTO\t2,20,x,y,z")->GetItemCount(), 2);
}

TEST(RowCounts, HugeBitCountsFromAMalformedLineAreBoundedRegression)
{
    // A bit count of millions once made a panel of millions of rows and picture items.
    EXPECT_EQ(MakePanel("UARI\tB,99999999")->GetItemCount(), CPanel::kTooManyRows);
    EXPECT_EQ(MakePanel("WEBIN\t2147483647")->GetItemCount(), CPanel::kTooManyRows);
    EXPECT_EQ(MakePanel("UARI\tB,99999999")->GetPortName(41), "");
}
