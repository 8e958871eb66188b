#include "gridtest.h"

namespace {

struct GridShiftTest : testing::Test
{
    CGridMessenger messenger;
    CPanelGrid grid{messenger};
};

} // namespace

TEST_F(GridShiftTest, EveryShiftMovesItsAreasByOneAndDropsTheLostEdge)
{
    const struct
    {
        const char* Name;
        bool (CPanelGrid::*Shift)();
        int Code;
        QStringList Expected;
    } cases[] = {
        {"down",
         &CPanelGrid::ShiftDown,
         CPanelGrid::OpShiftDown,
         {"-1,2 KEY \tH,P1", "-1,4 UARI\tC,5,4", "-1,5 +", "-2,2 LAMP\tH,P1", "1,3 CNT \tC,3,2,1",
          "1,4 +", "1,5 +", "1,11 7S_B\t0", "2,2 AND \tR", "16,6 SMOT\t1,10", "16,7 +", "16,8 +",
          "16,9 +"}},
        {"up",
         &CPanelGrid::ShiftUp,
         CPanelGrid::OpShiftUp,
         {"-1,2 UARI\tC,5,4", "-1,3 +", "-2,39 LAMP\tL,P2", "1,1 CNT \tC,3,2,1", "1,2 +", "1,3 +",
          "1,9 7S_B\t0", "5,39 JPI \t1,L", "16,4 SMOT\t1,10", "16,5 +", "16,6 +", "16,7 +"}},
        {"left",
         &CPanelGrid::ShiftLeft,
         CPanelGrid::OpShiftLeft,
         {"-1,1 KEY \tH,P1", "-1,3 UARI\tC,5,4", "-1,4 +", "-2,1 LAMP\tH,P1", "-2,40 LAMP\tL,P2",
          "1,1 AND \tR", "4,40 JPI \t1,L", "15,5 SMOT\t1,10", "15,6 +", "15,7 +", "15,8 +"}},
        {"right",
         &CPanelGrid::ShiftRight,
         CPanelGrid::OpShiftRight,
         {"-1,1 KEY \tH,P1", "-1,3 UARI\tC,5,4", "-1,4 +", "-2,1 LAMP\tH,P1", "-2,40 LAMP\tL,P2",
          "2,2 CNT \tC,3,2,1", "2,3 +", "2,4 +", "2,10 7S_B\t0", "3,1 AND \tR", "6,40 JPI \t1,L"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        FillSampleLayout(layout);
        ASSERT_TRUE((layout.*c.Shift)());
        QStringList cells = Dump(layout);
        cells.erase(std::remove_if(cells.begin(), cells.end(),
                                   [](const QString& s) {
                                       return s.startsWith("count") || s.startsWith("total");
                                   }),
                    cells.end());
        EXPECT_EQ(cells, c.Expected);
        EXPECT_EQ(layout.GetLastOperation(), c.Code);
    }
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridShiftTest, ShiftDownDropsAPanelInTheLastRowAndUndoBringsItBack)
{
    ASSERT_TRUE(grid.Place(-2, 40, Cell("LAMP\tH,P1")));
    ASSERT_TRUE(grid.Place(-2, 39, Cell("LAMP\tH,P2")));
    const QStringList before = Dump(grid);
    ASSERT_TRUE(grid.ShiftDown());
    EXPECT_EQ(LineAt(grid, -2, 40), "LAMP\tH,P2");
    EXPECT_EQ(grid.GetUseCount(LampType), 1);
    EXPECT_EQ(grid.GetWeightedTotal(), 10);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridShiftTest, VerticalShiftRefusesAMultiRowPanelOnTheLostEdge)
{
    const struct
    {
        const char* Name;
        int Column, Row;
        const char* Line;
        int Height;
        bool (CPanelGrid::*Shift)();
    } cases[] = {
        {"down, counter reaching row 40", 3, 38, "CNT \tC,3,2,1", 3, &CPanelGrid::ShiftDown},
        {"down, input panel reaching row 40", -1, 39, "UARI\tC,5,4", 2, &CPanelGrid::ShiftDown},
        {"up, counter starting in row 1", 3, 1, "CNT \tC,3,2,1", 3, &CPanelGrid::ShiftUp},
        {"up, two-row counter in row 1", 3, 1, "CNT \tC,3,2", 2, &CPanelGrid::ShiftUp},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        ASSERT_TRUE(layout.Place(c.Column, c.Row, Cell(c.Line)));
        ASSERT_EQ(layout.GetCell(c.Column, c.Row)->GetHeight(), c.Height);
        ASSERT_TRUE(layout.Place(5, 5, Cell("AND \tR")));
        const QStringList before = Dump(layout);
        EXPECT_FALSE((layout.*c.Shift)());
        EXPECT_EQ(Dump(layout), before);
        EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgCantShift)});
        // The refused shift did not commit the step before it.
        ASSERT_TRUE(layout.CanUndo());
        layout.Undo();
        EXPECT_EQ(LineAt(layout, 5, 5), "");
    }
}

TEST_F(GridShiftTest, ShiftUpMovesAMultiRowPanelIntoRowOne)
{
    ASSERT_TRUE(grid.Place(4, 2, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.ShiftUp());
    EXPECT_EQ(grid.TopOf(4, 3), (CGridPos{4, 1}));
    EXPECT_EQ(LineAt(grid, 4, 4), "");
}

TEST_F(GridShiftTest, ShiftRightDropsColumnSixteenWithoutAQuestion)
{
    ASSERT_TRUE(grid.Place(16, 1, Cell("SMOT\t1,10")));
    ASSERT_TRUE(grid.Place(16, 30, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(15, 30, Cell("AND \tD")));
    const QStringList before = Dump(grid);
    ASSERT_TRUE(grid.ShiftRight());
    EXPECT_TRUE(messenger.Texts.isEmpty());
    for (int r = 1; r <= 4; ++r)
        EXPECT_EQ(LineAt(grid, 16, r), "") << r;
    EXPECT_EQ(LineAt(grid, 16, 30), "AND \tD");
    EXPECT_EQ(grid.GetUseCount(AndType), 0);
    EXPECT_EQ(grid.GetWeightedTotal(), 10);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridShiftTest, SecondShiftCommitsTheFirst)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(16, 1, Cell("AND \tD")));
    ASSERT_TRUE(grid.ShiftRight());
    const QStringList afterFirst = Dump(grid);
    ASSERT_TRUE(grid.ShiftRight());
    grid.Undo();
    EXPECT_EQ(Dump(grid), afterFirst);
    EXPECT_EQ(LineAt(grid, 2, 1), "AND \tR");
}

TEST_F(GridShiftTest, MoveBlockHandlesOverlapAndKeepsCountsAlone)
{
    ASSERT_TRUE(grid.Place(3, 3, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(3, 4, Cell("AND \tD")));
    ASSERT_TRUE(grid.Place(4, 3, Cell("CNT \tC,3,2")));
    const int total = grid.GetWeightedTotal();
    ASSERT_TRUE(grid.MoveBlock(3, 3, 4, 4, 4, 4));
    EXPECT_EQ(LineAt(grid, 4, 4), "AND \tR");
    EXPECT_EQ(LineAt(grid, 4, 5), "AND \tD");
    EXPECT_EQ(LineAt(grid, 5, 4), "CNT \tC,3,2");
    EXPECT_EQ(LineAt(grid, 5, 5), "+");
    EXPECT_EQ(LineAt(grid, 3, 3), "");
    EXPECT_EQ(LineAt(grid, 4, 3), "");
    EXPECT_EQ(grid.GetWeightedTotal(), total);
    // A target leaving the grid moves nothing.
    const QStringList before = Dump(grid);
    EXPECT_FALSE(grid.MoveBlock(4, 4, 5, 5, 16, 4));
    EXPECT_FALSE(grid.MoveBlock(4, 4, 5, 5, 4, 40));
    EXPECT_EQ(Dump(grid), before);
}
