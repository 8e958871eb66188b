#include "gridtest.h"

using GridShiftTest = GridFixture;

// Vertical shifts move the side columns too, horizontal ones the process area only; what
// crosses the lost edge is dropped without a question.
TEST_F(GridShiftTest, EveryShiftMovesItsAreasByOneAndDropsTheLostEdge)
{
    const struct
    {
        const char* Name;
        bool (CPanelGrid::*Shift)();
        int Code;
        const char* Expected;
        int Total;
    } cases[] = {
        {"down", &CPanelGrid::ShiftDown, CPanelGrid::OpShiftDown,
         "-1,2 KEY \tH,P1; -1,4 UARI\tC,5,4; -1,5 +; -2,2 LAMP\tH,P1; 1,3 CNT \tC,3,2,1; 1,4 +; "
         "1,5 +; 1,11 7S_B\t0; 2,2 AND \tR; 16,6 SMOT\t1,10; 16,7 +; 16,8 +; 16,9 +",
         70},
        {"up", &CPanelGrid::ShiftUp, CPanelGrid::OpShiftUp,
         "-1,2 UARI\tC,5,4; -1,3 +; -2,39 LAMP\tL,P2; 1,1 CNT \tC,3,2,1; 1,2 +; 1,3 +; "
         "1,9 7S_B\t0; 5,39 JPI \t1,L; 16,4 SMOT\t1,10; 16,5 +; 16,6 +; 16,7 +",
         50},
        {"left", &CPanelGrid::ShiftLeft, CPanelGrid::OpShiftLeft,
         "-1,1 KEY \tH,P1; -1,3 UARI\tC,5,4; -1,4 +; -2,1 LAMP\tH,P1; -2,40 LAMP\tL,P2; "
         "1,1 AND \tR; 4,40 JPI \t1,L; 15,5 SMOT\t1,10; 15,6 +; 15,7 +; 15,8 +",
         60},
        {"right", &CPanelGrid::ShiftRight, CPanelGrid::OpShiftRight,
         "-1,1 KEY \tH,P1; -1,3 UARI\tC,5,4; -1,4 +; -2,1 LAMP\tH,P1; -2,40 LAMP\tL,P2; "
         "2,2 CNT \tC,3,2,1; 2,3 +; 2,4 +; 2,10 7S_B\t0; 3,1 AND \tR; 6,40 JPI \t1,L",
         70},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        FillSampleLayout(layout);
        ASSERT_TRUE((layout.*c.Shift)());
        EXPECT_EQ(Cells(layout), c.Expected);
        EXPECT_EQ(layout.GetWeightedTotal(), c.Total);
        EXPECT_EQ(layout.GetLastOperation(), c.Code);
    }
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridShiftTest, VerticalShiftRefusesAMultiRowPanelOnTheLostEdge)
{
    const struct
    {
        const char *Name, *Panel;
        bool (CPanelGrid::*Shift)();
    } cases[] = {{"down, counter reaching row 40", "3,38 CNT \tC,3,2,1", &CPanelGrid::ShiftDown},
                 {"down, input panel reaching row 40", "-1,39 UARI\tC,5,4", &CPanelGrid::ShiftDown},
                 {"up, counter starting in row 1", "3,1 CNT \tC,3,2,1", &CPanelGrid::ShiftUp},
                 {"up, two-row counter in row 1", "3,1 CNT \tC,3,2", &CPanelGrid::ShiftUp}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        PutAll(layout, QString(c.Panel) + "; 5,5 AND \tR");
        const QString before = Dump(layout);
        EXPECT_FALSE((layout.*c.Shift)());
        EXPECT_EQ(Dump(layout), before);
        EXPECT_EQ(messenger.Texts, Said(Ids::MsgCantShift));
        // The refused shift did not commit the step before it.
        ASSERT_TRUE(layout.CanUndo());
        layout.Undo();
        EXPECT_EQ(LineAt(layout, 5, 5), "");
    }
}
