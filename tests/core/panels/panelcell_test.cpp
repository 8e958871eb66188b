#include "core/panels/paneltest.h"
#include "panelcell.h"

TEST(PanelCell, EmptyOrUnknownLineIsAContinuationCell)
{
    for (const char* line : {"", "BOGUS\t1,2"}) {
        const CPanelCell cell(line);
        EXPECT_EQ(cell.GetPanel(), nullptr) << line;
        EXPECT_EQ(cell.GetBitmapId(), 60000) << line;
        EXPECT_EQ(cell.GetTypeId(), 60000) << line;
        EXPECT_EQ(cell.GetImageIndex(), -1) << line;
        EXPECT_EQ(cell.GetHeight(), 1) << line;
        EXPECT_FALSE(cell.IsInput() || cell.IsOutput() || cell.IsProcess()) << line;
        EXPECT_EQ(cell.GetName(), "") << line;
        EXPECT_EQ(CPanelCell(cell).GetPanel(), nullptr) << line;
    }
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
