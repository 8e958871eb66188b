#include "gridtest.h"

using GridEditTest = GridFixture;

TEST_F(GridEditTest, DeletingACompletePanelAsksOnceAndCancelKeepsAll)
{
    const struct
    {
        const char *Name, *Panels;
        EAnswer Answer;
        bool Asked, Deleted;
    } cases[] = {
        {"complete, Cancel", "-2,1 LAMP\tH,P1; -2,2 LAMP\tL,P2", EAnswer::Cancel, true, false},
        {"incomplete only", "-2,1 LAMP\tH; -2,2 LAMP\tL", EAnswer::Cancel, false, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        PutAll(layout, c.Panels);
        const QString before = Dump(layout);
        messenger.Reset({c.Answer});
        EXPECT_EQ(layout.DeleteRange(-2, 1, -2, 2), c.Deleted);
        EXPECT_EQ(messenger.Texts, Said(c.Asked ? Ids::MsgDeletePanel : 0));
        EXPECT_EQ(messenger.Buttons,
                  c.Asked ? QList<EButtons>{EButtons::OkCancel} : QList<EButtons>{});
        EXPECT_EQ(Dump(layout), c.Deleted ? "total=0" : before);
    }
    // A panel reaching out of the range stays; a range without panels deletes nothing.
    messenger.Reset();
    PutAll(grid, "1,1 CNT \tC,3,2,1; 2,1 AND \tR");
    ASSERT_TRUE(grid.DeleteRange(1, 1, 2, 2));
    EXPECT_EQ(Cells(grid), "1,1 CNT \tC,3,2,1; 1,2 +; 1,3 +");
    EXPECT_FALSE(grid.DeleteRange(5, 5, 6, 6));
}

// A move that cannot be pasted undoes its cut; either way the clipboard is left alone.
TEST_F(GridEditTest, MoveTakesThePanelsByTheSelectionsOffsetOrNothing)
{
    const QStringList over = Said(Ids::MsgPasteOverPanels);
    const QList<EAnswer> none, cancel = {EAnswer::Cancel}, no = {EAnswer::No};
    const QStringList silent;
    const char* const blocked = "3,1 CNT \tC,3,2,1; 4,1 AND \tR; 8,3 NOT \tR";
    const struct
    {
        const char *Name, *Panels;
        int C1, R1, C2, R2, Column, Row;
        const char* After; // nullptr: refused
        QList<EAnswer> Answers;
        QStringList Texts;
    } cases[] = {
        {"a block", "1,1 CNT \tC,3,2,1; 2,2 AND \tR", 1, 1, 2, 3, 4, 20,
         "4,20 CNT \tC,3,2,1; 4,21 +; 4,22 +; 5,21 AND \tR", none, silent},
        {"onto its own rows", "3,1 CNT \tC,3,2,1", 3, 1, 3, 3, 3, 2,
         "3,2 CNT \tC,3,2,1; 3,3 +; 3,4 +", none, silent},
        {"empty edges", "3,5 AND \tR", 2, 2, 4, 6, 8, 30, "9,33 AND \tR", none, silent},
        {"past the last row", blocked, 3, 1, 3, 3, 3, 39, nullptr, none, silent},
        {"onto a panel, Cancel", blocked, 3, 1, 3, 3, 8, 1, nullptr, cancel, over},
        {"tall panel blocked, No", blocked, 3, 1, 3, 3, 8, 1, nullptr, no,
         over + Said(Ids::MsgNotAllPasted)},
        {"protruding selection, Cancel", blocked, 3, 1, 4, 2, 10, 10, nullptr, cancel,
         Said(Ids::MsgProtrudedPanel)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        PutAll(layout, QStringLiteral("-2,9 LAMP\tH,P1; ") + c.Panels);
        ASSERT_TRUE(layout.Copy(-2, 9, -2, 9));
        layout.ClearJournal();
        const QString before = Dump(layout);
        messenger.Reset(c.Answers);
        EXPECT_EQ(layout.MoveRange(c.C1, c.R1, c.C2, c.R2, c.Column, c.Row), c.After != nullptr);
        EXPECT_EQ(messenger.Texts, c.Texts);
        EXPECT_EQ(layout.GetClipboard().GetOrigin(), (CGridPos{-2, 9}));
        if (c.After) {
            EXPECT_EQ(Cells(layout), "-2,9 LAMP\tH,P1; " + QString(c.After));
            EXPECT_EQ(layout.GetLastOperation(), CPanelGrid::OpMove);
            layout.Undo();
        } else {
            EXPECT_FALSE(layout.CanUndo());
        }
        EXPECT_EQ(Dump(layout), before);
    }
}

TEST_F(GridEditTest, ReplaceRefusesACopyTallerThanTheRoomBelow)
{
    const struct
    {
        const char* Name;
        int Row;
        const char* Replacement;
        bool Fits;
    } cases[] = {
        {"same height", 5, "CNT \tH,9", true},
        {"two rows up to the next panel", 5, "CNT \tH,9,8", true},
        {"three rows onto the next panel", 5, "CNT \tH,9,8,7", false},
        {"from a continuation row down to the last row", 38, "CNT \tC,3,2,1,0", true},
        {"past the last row", 38, "CNT \tC,3,2,1,0,9", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        PutAll(layout, "2,5 CNT \tC,3; 2,7 AND \tR; 2,37 CNT \tC,3,2");
        const QString before = Dump(layout);
        messenger.Reset();
        EXPECT_EQ(layout.ReplaceCell(2, c.Row, Cell(c.Replacement)), c.Fits);
        EXPECT_EQ(messenger.Texts, Said(c.Fits ? 0 : Ids::MsgCantChangeSize));
        if (!c.Fits) {
            EXPECT_EQ(Dump(layout), before);
            continue;
        }
        EXPECT_EQ(LineAt(layout, 2, c.Row == 5 ? 5 : 37), c.Replacement);
        EXPECT_EQ(layout.GetUseCount(CounterType), 2);
        EXPECT_EQ(layout.GetLastOperation(), CPanelGrid::OpReplace);
        layout.Undo();
        EXPECT_EQ(Dump(layout), before);
    }
    EXPECT_FALSE(grid.ReplaceCell(5, 5, Cell("CNT \tC,3"))); // nothing there
}

TEST_F(GridEditTest, AnEditedPanelIsRedrawnAndUndoable)
{
    PutAll(grid, "2,5 CNT \tC,3; 2,8 AND \tR");
    const QString before = Dump(grid);
    CFakeEditor editor;
    editor.Tokens = {"CNT", "H", "9", "8"};
    ASSERT_TRUE(grid.EditCell(2, 5, editor));
    EXPECT_EQ(Cells(grid), "2,5 CNT \tH,9,8; 2,6 +; 2,8 AND \tR");
    // The picture is drawn from the edited panel, one item a row.
    EXPECT_EQ(grid.GetCell(2, 5)->GetImage().Items.size(), 2);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}
