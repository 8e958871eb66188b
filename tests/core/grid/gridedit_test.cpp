#include "gridtest.h"

namespace {

struct GridEditTest : testing::Test
{
    CGridMessenger messenger;
    CPanelGrid grid{messenger};
};

} // namespace

// --- DeleteRange ---------------------------------------------------------------------

TEST_F(GridEditTest, DeletingACompletePanelAsksOnceAndCancelKeepsAll)
{
    const struct
    {
        const char* Name;
        const char* First;
        EAnswer Answer;
        bool Asked;
        bool Deleted;
    } cases[] = {
        {"complete, OK", "LAMP\tH,P1", EAnswer::Ok, true, true},
        {"complete, Cancel", "LAMP\tH,P1", EAnswer::Cancel, true, false},
        {"incomplete only", "LAMP\tH", EAnswer::Cancel, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        ASSERT_TRUE(layout.Place(-2, 1, Cell(c.First)));
        ASSERT_TRUE(layout.Place(-2, 2, Cell(c.Asked ? "LAMP\tL,P2" : "LAMP\tL")));
        const QStringList before = Dump(layout);
        messenger.Answers = {c.Answer};
        EXPECT_EQ(layout.DeleteRange(-2, 1, -2, 2), c.Deleted);
        EXPECT_EQ(messenger.Texts,
                  c.Asked ? QStringList{Text(Ids::MsgDeletePanel)} : QStringList{});
        if (c.Asked) {
            EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::OkCancel});
        }
        if (!c.Deleted) {
            EXPECT_EQ(Dump(layout), before);
            continue;
        }
        EXPECT_EQ(LineAt(layout, -2, 1), "");
        EXPECT_EQ(LineAt(layout, -2, 2), "");
        EXPECT_EQ(layout.GetUseCount(LampType), 0);
        layout.Undo();
        EXPECT_EQ(Dump(layout), before);
    }
}

TEST_F(GridEditTest, DeleteRangeLeavesAPanelThatReachesOutOfIt)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.Place(2, 1, Cell("AND \tR")));
    messenger.Answers = {EAnswer::Ok};
    ASSERT_TRUE(grid.DeleteRange(1, 1, 2, 2));
    EXPECT_EQ(LineAt(grid, 1, 1), "CNT \tC,3,2,1");
    EXPECT_EQ(LineAt(grid, 2, 1), "");
    EXPECT_FALSE(grid.DeleteRange(5, 5, 6, 6)); // nothing to delete
}

// --- MoveRange -----------------------------------------------------------------------

TEST_F(GridEditTest, MoveTakesTheBlockToTheTargetAndLeavesTheClipboardAlone)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.Place(2, 2, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(9, 9, Cell("NOT \tR")));
    ASSERT_TRUE(grid.Copy(9, 9, 9, 9));
    const QStringList before = Dump(grid);
    ASSERT_TRUE(grid.MoveRange(1, 1, 2, 3, 4, 20));
    EXPECT_EQ(LineAt(grid, 1, 1), "");
    EXPECT_EQ(LineAt(grid, 2, 2), "");
    EXPECT_EQ(LineAt(grid, 4, 20), "CNT \tC,3,2,1");
    EXPECT_EQ(LineAt(grid, 4, 22), "+");
    EXPECT_EQ(LineAt(grid, 5, 21), "AND \tR");
    EXPECT_EQ(grid.GetUseCount(CounterType), 1);
    EXPECT_EQ(grid.GetLastOperation(), CPanelGrid::OpMove);
    EXPECT_EQ(grid.GetClipboard().GetOrigin(), (CGridPos{9, 9}));
    EXPECT_TRUE(messenger.Texts.isEmpty());
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridEditTest, MoveOntoItsOwnRowsWorks)
{
    ASSERT_TRUE(grid.Place(3, 1, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.MoveRange(3, 1, 3, 3, 3, 2));
    EXPECT_EQ(LineAt(grid, 3, 1), "");
    EXPECT_EQ(LineAt(grid, 3, 2), "CNT \tC,3,2,1");
    EXPECT_EQ(grid.BottomOf(3, 2), (CGridPos{3, 4}));
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridEditTest, MoveOfASelectionWithEmptyEdgesMovesThePanelsByItsOffset)
{
    ASSERT_TRUE(grid.Place(3, 5, Cell("AND \tR")));
    ASSERT_TRUE(grid.MoveRange(2, 2, 4, 6, 8, 30));
    EXPECT_EQ(LineAt(grid, 9, 33), "AND \tR");
    EXPECT_EQ(grid.CountPanels(1, 1, 16, 40), 1);
}

TEST_F(GridEditTest, MoveThatCannotBePastedUndoesTheCut)
{
    const struct
    {
        const char* Name;
        int Column, Row;
        QList<EAnswer> Answers;
        QStringList Texts;
    } cases[] = {
        {"past the last row", 3, 39, {}, {}},
        {"into a side column", -1, 1, {}, {}},
        {"onto a panel, Cancel", 8, 1, {EAnswer::Cancel}, {Text(Ids::MsgPasteOverPanels)}},
        {"tall panel blocked, No",
         8,
         1,
         {EAnswer::No},
         {Text(Ids::MsgPasteOverPanels), Text(Ids::MsgNotAllPasted)}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        ASSERT_TRUE(layout.Place(3, 1, Cell("CNT \tC,3,2,1")));
        ASSERT_TRUE(layout.Place(8, 3, Cell("NOT \tR")));
        layout.ClearJournal();
        const QStringList before = Dump(layout);
        messenger.Answers = c.Answers;
        EXPECT_FALSE(layout.MoveRange(3, 1, 3, 3, c.Column, c.Row));
        EXPECT_EQ(Dump(layout), before);
        EXPECT_EQ(messenger.Texts, c.Texts);
        EXPECT_FALSE(layout.CanUndo());
    }
}

TEST_F(GridEditTest, MoveOfAProtrudingSelectionAnsweredCancelRestoresEverything)
{
    ASSERT_TRUE(grid.Place(3, 1, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.Place(4, 1, Cell("AND \tR")));
    const QStringList before = Dump(grid);
    messenger.Answers = {EAnswer::Cancel};
    EXPECT_FALSE(grid.MoveRange(3, 1, 4, 2, 10, 10));
    EXPECT_EQ(Dump(grid), before);
}

// --- ReplaceCell and EditCell --------------------------------------------------------

TEST_F(GridEditTest, ReplaceRefusesACopyTallerThanTheRoomBelow)
{
    const struct
    {
        const char* Name;
        const char* Replacement;
        bool Fits;
    } cases[] = {
        {"same height", "CNT \tH,9", true},
        {"two rows up to the next panel", "CNT \tH,9,8", true},
        {"three rows onto the next panel", "CNT \tH,9,8,7", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        ASSERT_TRUE(layout.Place(2, 5, Cell("CNT \tC,3")));
        ASSERT_TRUE(layout.Place(2, 7, Cell("AND \tR")));
        const QStringList before = Dump(layout);
        EXPECT_EQ(layout.ReplaceCell(2, 5, Cell(c.Replacement)), c.Fits);
        if (!c.Fits) {
            EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgCantChangeSize)});
            EXPECT_EQ(Dump(layout), before);
            continue;
        }
        EXPECT_TRUE(messenger.Texts.isEmpty());
        EXPECT_EQ(LineAt(layout, 2, 5), c.Replacement);
        EXPECT_EQ(layout.GetUseCount(CounterType), 1);
        EXPECT_EQ(layout.GetLastOperation(), CPanelGrid::OpReplace);
        layout.Undo();
        EXPECT_EQ(Dump(layout), before);
    }
}

TEST_F(GridEditTest, ReplaceFromAContinuationRowReachesTheGridEnd)
{
    ASSERT_TRUE(grid.Place(1, 37, Cell("CNT \tC,3,2")));
    EXPECT_TRUE(grid.ReplaceCell(1, 38, Cell("CNT \tC,3,2,1,0")));
    EXPECT_EQ(grid.BottomOf(1, 37), (CGridPos{1, 40}));
    EXPECT_FALSE(grid.ReplaceCell(1, 37, Cell("CNT \tC,3,2,1,0,9")));
    EXPECT_FALSE(grid.ReplaceCell(5, 5, Cell("CNT \tC,3"))); // nothing there
}

TEST_F(GridEditTest, ReplacingTheDisplayRefreshesTheDecoders)
{
    ASSERT_TRUE(grid.Place(-2, 1, Cell("7SEG\t;7SEG_B")));
    grid.RefreshDecoders();
    ASSERT_TRUE(grid.Place(1, 1, Cell("7S_D\t0")));
    ASSERT_EQ(grid.GetCell(1, 1)->GetPanel()->GetMode(), 1);
    ASSERT_TRUE(grid.ReplaceCell(-2, 1, Cell("7SEG\t;7SEG_S")));
    EXPECT_EQ(grid.GetDecoderVariant(), 3);
    EXPECT_EQ(grid.GetCell(1, 1)->GetPanel()->GetMode(), 3);
}

TEST_F(GridEditTest, EditingAOneRowPanelIntoTwoRowsAboveAnotherPanelFails)
{
    ASSERT_TRUE(grid.Place(2, 5, Cell("CNT \tC,3")));
    ASSERT_TRUE(grid.Place(2, 6, Cell("AND \tR")));
    const QStringList before = Dump(grid);
    CFakeEditor editor;
    editor.Tokens = {"CNT", "C", "3", "2"};
    EXPECT_FALSE(grid.EditCell(2, 5, editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::Counter);
    EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgCantChangeSize)});
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridEditTest, EditCellReplacesOnOkAndKeepsAllOnCancel)
{
    ASSERT_TRUE(grid.Place(2, 5, Cell("CNT \tC,3")));
    const QStringList before = Dump(grid);
    CFakeEditor editor;
    editor.Ok = false;
    EXPECT_FALSE(grid.EditCell(2, 5, editor));
    EXPECT_EQ(Dump(grid), before);

    editor.Ok = true;
    editor.Tokens = {"CNT", "H", "9", "8"};
    ASSERT_TRUE(grid.EditCell(2, 5, editor));
    EXPECT_EQ(LineAt(grid, 2, 5), "CNT \tH,9,8");
    EXPECT_EQ(LineAt(grid, 2, 6), "+");
    // The picture is drawn from the edited panel, one item a row.
    EXPECT_EQ(grid.GetCell(2, 5)->GetImage().Items.size(), 2);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}
