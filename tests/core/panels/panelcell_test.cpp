#include "panelcell.h"
#include "core/panels/paneltest.h"

TEST(PanelCell, EmptyCellIsAContinuationWithBitmap60000)
{
    const CPanelCell cell(QString{});
    EXPECT_EQ(cell.GetPanel(), nullptr);
    EXPECT_EQ(cell.GetBitmapId(), 60000);
    EXPECT_EQ(cell.GetTypeId(), 60000);
    EXPECT_EQ(cell.GetImageIndex(), -1);
    EXPECT_EQ(cell.GetHeight(), 1);
    EXPECT_FALSE(cell.IsInput() || cell.IsOutput() || cell.IsProcess());
    EXPECT_EQ(cell.GetName(), "");
}

TEST(PanelCell, UnknownKeywordGivesAnEmptyCell)
{
    const CPanelCell cell("BOGUS\t1,2");
    EXPECT_EQ(cell.GetPanel(), nullptr);
    EXPECT_EQ(cell.GetBitmapId(), 60000);
}

TEST(PanelCell, BlankLineLeavesThePanelAsItWas)
{
    CPanelCell cell("CNT\tH,5");
    const CPanel* panel = cell.GetPanel();
    cell.CreatePanel(" \t ");
    EXPECT_EQ(cell.GetPanel(), panel);
    cell.CreatePanel("NOPE");
    EXPECT_EQ(cell.GetPanel(), nullptr);
}

TEST(PanelCell, MadeCellsDrawTheirPictureAndKnowTheirArea)
{
    const CPanelCell counter("CNT\tC,300,10,5");
    EXPECT_EQ(counter.GetImageIndex(), 0);
    EXPECT_EQ(counter.GetImage().Items.size(), 3);
    EXPECT_EQ(counter.GetHeight(), 3);
    EXPECT_TRUE(counter.IsProcess());
    EXPECT_TRUE(CPanelCell("SMOTO\t1,500").IsOutput());
    EXPECT_EQ(CPanelCell("SMOTO\t1,500").GetHeight(), 2);
    EXPECT_TRUE(CPanelCell("KEY\tH,P1").IsInput());
}

TEST(PanelCell, CopyGoesThroughTheLineAndKeepsNameWeightAndPorts)
{
    CPanelCell source("KEY\tH,P1\t\t;go");
    source.GetPanel()->PortList().Add({"1", "P1", "D1"});
    source.GetPanel()->SetLine("KEY\tH,P1\t\t;go");
    source.GetPanel()->SetName("Start");
    source.GetPanel()->SetWeight(30);
    source.MakeImage();

    const CPanelCell copy(source);
    ASSERT_NE(copy.GetPanel(), nullptr);
    EXPECT_NE(copy.GetPanel(), source.GetPanel());
    EXPECT_EQ(copy.GetPanel()->GetLine(), source.GetPanel()->GetLine());
    EXPECT_EQ(copy.GetName(), "Start : PORT=P1(D1)  ACTIVE=H  ");
    EXPECT_EQ(copy.GetPanel()->GetWeight(), 30);
    EXPECT_EQ(copy.GetTypeId(), 10074);
    EXPECT_EQ(copy.GetImage().Items, source.GetImage().Items);
}

TEST(PanelCell, CopyOfAContinuationCellIsEmpty)
{
    const CPanelCell empty(QString{});
    const CPanelCell copy(empty);
    EXPECT_EQ(copy.GetPanel(), nullptr);
    EXPECT_EQ(copy.GetBitmapId(), 60000);
}
