#include "gridtest.h"

using GridShiftTest = GridFixture;

// Vertical shifts move the side columns too, horizontal ones the process area only; what
// crosses the lost edge is dropped without a question, but a multi-row panel there refuses
// the shift and leaves the step before it undoable.
TEST_F(GridShiftTest, EveryShiftMovesItsAreasByOneAndDropsTheLostEdge)
{
    const auto down = &CPanelGrid::ShiftDown, up = &CPanelGrid::ShiftUp;
    const struct
    {
        const char* Name;
        bool (CPanelGrid::*Shift)();
        const char* Panels;   // nullptr: the sample layout
        const char* Expected; // nullptr: refused
        int Total, Code;
    } cases[] = {
        {"down", down, nullptr,
         "-1,2 KEY \tH,P1; -1,4 UARI\tC,5,4; -1,5 +; -2,2 LAMP\tH,P1; 1,3 CNT \tC,3,2,1; 1,4 +; "
         "1,5 +; 1,11 7S_B\t0; 2,2 AND \tR; 16,6 SMOT\t1,10; 16,7 +; 16,8 +; 16,9 +",
         70, CPanelGrid::OpShiftDown},
        {"up", up, nullptr,
         "-1,2 UARI\tC,5,4; -1,3 +; -2,39 LAMP\tL,P2; 1,1 CNT \tC,3,2,1; 1,2 +; 1,3 +; "
         "1,9 7S_B\t0; 5,39 JPI \t1,L; 16,4 SMOT\t1,10; 16,5 +; 16,6 +; 16,7 +",
         50, CPanelGrid::OpShiftUp},
        {"left", &CPanelGrid::ShiftLeft, nullptr,
         "-1,1 KEY \tH,P1; -1,3 UARI\tC,5,4; -1,4 +; -2,1 LAMP\tH,P1; -2,40 LAMP\tL,P2; "
         "1,1 AND \tR; 4,40 JPI \t1,L; 15,5 SMOT\t1,10; 15,6 +; 15,7 +; 15,8 +",
         60, CPanelGrid::OpShiftLeft},
        {"right", &CPanelGrid::ShiftRight, nullptr,
         "-1,1 KEY \tH,P1; -1,3 UARI\tC,5,4; -1,4 +; -2,1 LAMP\tH,P1; -2,40 LAMP\tL,P2; "
         "2,2 CNT \tC,3,2,1; 2,3 +; 2,4 +; 2,10 7S_B\t0; 3,1 AND \tR; 6,40 JPI \t1,L",
         70, CPanelGrid::OpShiftRight},
        {"down, counter reaching row 40", down, "3,38 CNT \tC,3,2,1", nullptr, 0, 0},
        {"down, input panel reaching row 40", down, "-1,39 UARI\tC,5,4", nullptr, 0, 0},
        {"up, counter starting in row 1", up, "3,1 CNT \tC,3,2,1", nullptr, 0, 0},
        {"up, two-row counter in row 1", up, "3,1 CNT \tC,3,2", nullptr, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        if (c.Panels)
            PutAll(layout, QString(c.Panels) + "; 5,5 AND \tR");
        else
            FillSampleLayout(layout);
        const QString before = Dump(layout);
        EXPECT_EQ((layout.*c.Shift)(), c.Expected != nullptr);
        if (c.Expected) {
            EXPECT_EQ(Cells(layout), c.Expected);
            EXPECT_EQ(layout.GetWeightedTotal(), c.Total);
            EXPECT_EQ(layout.GetLastOperation(), c.Code);
            EXPECT_TRUE(messenger.Texts.isEmpty());
            continue;
        }
        EXPECT_EQ(Dump(layout), before);
        EXPECT_EQ(messenger.Texts, Said(Ids::MsgCantShift));
        ASSERT_TRUE(layout.CanUndo());
        layout.Undo();
        EXPECT_EQ(LineAt(layout, 5, 5), "");
    }
}
