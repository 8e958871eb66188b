// Switch, lamp and analog input panels.
#include "core/panels/paneltest.h"

TEST(SwitchLamp, BitmapFollowsTheKeywordRead)
{
    const struct
    {
        const char* Line;
        int BitmapId;
    } rows[] = {{"KEY\tH,P1", 10074}, {"SW\tH,P1", 10075},   {"DGI\tH,P1", 10076},
                {"LAMP\tH,P1", 10083}, {"DGO\tH,P1", 10084}};
    for (const auto& row : rows)
        EXPECT_EQ(MakePanel(row.Line)->GetBitmapId(), row.BitmapId) << row.Line;

    auto panel = MakePanel("KEY\tH,P1");
    panel->SetLine("SW\tH,P1");
    EXPECT_EQ(panel->GetBitmapId(), 10075);
}

TEST(SwitchLamp, CaptionShowsDisplayPortAndActiveLevel)
{
    CPortList ports;
    auto sw = CPanelFactory::Create("SW");
    sw->PortList().Add({"1", "PD2", "D2"});
    sw->PortList().Add({"2", "PD3", ""});
    sw->SetName("Go");
    sw->SetLine("SW\tL,PD2");
    EXPECT_EQ(sw->GetCaption(), "Go : PORT=PD2(D2)  ACTIVE=L  ");
    sw->SetLine("SW\tL,PD3");
    EXPECT_EQ(sw->GetCaption(), "Go : PORT=PD3  ACTIVE=L  ");
    sw->SetLine("SW");
    EXPECT_EQ(sw->GetCaption(), "Go : ");
    sw->SetLine("SW\tH");
    EXPECT_EQ(sw->GetCaption(), "Go : ACTIVE=H  ");
}

TEST(SwitchLamp, SwitchShowsItsNameAsCommentLampAsPort)
{
    auto sw = MakePanel("KEY\tH,P1\t\t;start");
    EXPECT_EQ(sw->GetComment(0), "start");
    EXPECT_EQ(sw->GetComment(1), "");
    EXPECT_EQ(sw->GetPortName(0), "");
    EXPECT_EQ(sw->GetPortText(), "P1");

    auto lamp = MakePanel("LAMP\tH,P1\t\t;run");
    EXPECT_EQ(lamp->GetPortName(0), "run");
    EXPECT_EQ(lamp->GetPortName(1), "");
    EXPECT_EQ(lamp->GetComment(0), "");

    CPanelImage image;
    lamp->SetName("Lamp");
    lamp->MakeImage(image);
    ASSERT_EQ(image.Items.size(), 1);
    EXPECT_EQ(image.Items[0], (CPanelImageItem{10079, "Lamp", "run", ""}));
}

TEST(SwitchLamp, DialogOkResolvesThePortAndOnlyTheSwitchTakesTheNameAtOnce)
{
    CFakeEditor editor;
    editor.Tokens = {"SW", "H", "P1", ";new"};
    auto sw = MakePanel("SW", {"P0", "P1"});
    EXPECT_TRUE(sw->IsIncomplete());
    ASSERT_TRUE(sw->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::Switch);
    EXPECT_EQ(sw->GetLine(), "SW  \tH,P1\t\t;new");
    EXPECT_EQ(sw->GetPortIndex(), 1);
    EXPECT_FALSE(sw->IsIncomplete());
    EXPECT_EQ(sw->GetLineComment(), "new");

    editor.Tokens = {"LAMP", "L", "P0", ";new"};
    auto lamp = MakePanel("LAMP\tH,P1\t\t;old", {"P0", "P1"});
    ASSERT_TRUE(lamp->EditProperties(editor));
    EXPECT_EQ(lamp->GetLine(), "LAMP\tL,P0\t\t;new");
    EXPECT_EQ(lamp->GetPortIndex(), 0);
    EXPECT_EQ(lamp->GetLineComment(), "old"); // until the line is read again
    lamp->SetLine(lamp->GetLine());
    EXPECT_EQ(lamp->GetLineComment(), "new");
}

TEST(SwitchLamp, CancelChangesNothing)
{
    CFakeEditor editor;
    editor.Ok = false;
    editor.Tokens = {"SW", "L", "P0"};
    auto sw = MakePanel("SW\tH,P1", {"P0", "P1"});
    EXPECT_FALSE(sw->EditProperties(editor));
    EXPECT_EQ(sw->GetLine(), "SW  \tH,P1");
}

TEST(Analog, KeepsItsLineAndBaseBehaviour)
{
    auto ani = MakePanel("ANI\tH,A0,x,y\t\t;temp", {"A0"});
    EXPECT_EQ(ani->GetBitmapId(), 10077);
    EXPECT_EQ(ani->GetSides(), "R");
    EXPECT_EQ(ani->GetItemCount(), 2); // five tokens less the three fixed ones
    EXPECT_EQ(ani->GetPortName(0), "A0");
    EXPECT_EQ(ani->GetComment(0), "temp");
    EXPECT_FALSE(ani->IsIncomplete());
    EXPECT_TRUE(MakePanel("ANI\tH,A0", {"A0"})->IsIncomplete());
    EXPECT_TRUE(MakePanel("ANI\tH,A9,x", {"A0"})->IsIncomplete());
    EXPECT_EQ(MakePanel("ANI\tH,A0,x,y,z")->GetItemCount(), 3);
    EXPECT_EQ(MakePanel("ANI\tH")->GetItemCount(), 1);
    EXPECT_EQ(ani->GetLine(), "ANI \tH,A0,x,y\t\t;temp");
}
