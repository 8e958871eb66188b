#include "gridtest.h"

using GridClipboardTest = GridFixture;

namespace {

// A counter over rows 2-4 of column 1 and a gate at (2, 1).
const char* const kBlock = "1,2 CNT \tC,3,2,1; 2,1 AND \tR";

} // namespace

// Paste geometry: the block is where the copied panels lie, not where the selection was.
TEST_F(GridClipboardTest, PasteRecreatesTheCopiedPanelsAtTheirOffsets)
{
    const struct
    {
        const char *Name, *Panels;
        int C1, R1, C2, R2, Width, Height, Column, Row;
        const char* Pasted;
    } cases[] = {
        {"counter and gate", kBlock, 1, 1, 2, 4, 2, 4, 5, 10,
         "5,11 CNT \tC,3,2,1; 5,12 +; 5,13 +; 6,10 AND \tR"},
        {"empty top rows and left column", "2,5 AND \tR; 3,6 NOT \tR", 1, 1, 3, 6, 2, 2, 8, 10,
         "8,10 AND \tR; 9,11 NOT \tR"},
        {"fits above the last row", "2,5 AND \tR; 3,6 NOT \tR", 1, 1, 3, 6, 2, 2, 1, 39,
         "1,39 AND \tR; 2,40 NOT \tR"},
        {"top rows covered by a tall panel from above", "1,2 CNT \tC,3,2,1; 2,4 NOT \tR", 1, 3, 2,
         4, 1, 1, 8, 8, "8,8 NOT \tR"},
        {"a tall panel counts to its bottom", "3,3 CNT \tC,3,2,1", 1, 1, 4, 9, 1, 3, 5, 38,
         "5,38 CNT \tC,3,2,1; 5,39 +; 5,40 +"},
        {"side column", "-1,1 UARI\tC,5,4; -1,3 KEY \tH,P1", -1, 1, -1, 8, 1, 3, -1, 38,
         "-1,38 UARI\tC,5,4; -1,39 +; -1,40 KEY \tH,P1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset({EAnswer::Ok}); // a protruding panel is left out
        CPanelGrid layout(messenger);
        PutAll(layout, c.Panels);
        ASSERT_TRUE(layout.Copy(c.C1, c.R1, c.C2, c.R2));
        EXPECT_EQ(layout.GetClipboard().GetWidth(), c.Width);
        EXPECT_EQ(layout.GetClipboard().GetHeight(), c.Height);
        layout.ClearAll();
        ASSERT_TRUE(layout.CanPaste(c.Column, c.Row));
        ASSERT_TRUE(layout.Paste(c.Column, c.Row));
        EXPECT_EQ(Cells(layout), c.Pasted);
        EXPECT_EQ(layout.GetWeightedTotal(), 10 * QString(c.Pasted).count(u'\t'));
    }
}

TEST_F(GridClipboardTest, EachPasteIsAnIndependentCopyAndItsOwnStep)
{
    auto named = Cell("NOT \tR");
    named->GetPanel()->SetName("Gate");
    ASSERT_TRUE(grid.Place(3, 1, std::move(named)));
    ASSERT_TRUE(grid.Cut(3, 1, 3, 1));
    const QString afterCut = Dump(grid);
    ASSERT_TRUE(grid.Paste(3, 3));
    grid.Undo();
    EXPECT_EQ(Dump(grid), afterCut);
    ASSERT_TRUE(grid.Paste(3, 3));
    const QString afterFirst = Dump(grid);
    ASSERT_TRUE(grid.Paste(4, 4));
    CPanel* first = grid.GetCell(3, 3)->GetPanel();
    CPanel* second = grid.GetCell(4, 4)->GetPanel();
    ASSERT_NE(first, second);
    first->SetName("Changed");
    EXPECT_EQ(second->GetName(), "Gate");
    grid.Undo(); // the second paste committed the first
    EXPECT_EQ(Dump(grid), afterFirst);
}

TEST_F(GridClipboardTest, CanPasteKeepsSideAndProcessBlocksApart)
{
    PutAll(grid, "-1,1 UARI\tC,5,4; -2,1 LAMP\tH,P1; 1,1 AND \tR; 3,2 AND \tR");
    const struct
    {
        const char* Name;
        int C1, R1, C2, R2, Column, Row;
        bool CanPaste;
    } cases[] = {
        {"input into input", -1, 1, -1, 2, -1, 39, true},
        {"input past the last row", -1, 1, -1, 2, -1, 40, false},
        {"input into output", -1, 1, -1, 2, -2, 5, false},
        {"input into process", -1, 1, -1, 2, 1, 5, false},
        {"output into output", -2, 1, -2, 1, -2, 40, true},
        {"output into input", -2, 1, -2, 1, -1, 5, false},
        {"process into process", 1, 1, 3, 2, 14, 39, true},
        {"process past column 16", 1, 1, 3, 2, 15, 1, false},
        {"process past row 40", 1, 1, 3, 2, 1, 40, false},
        {"process into input", 1, 1, 1, 1, -1, 1, false},
        {"process into output", 1, 1, 1, 1, -2, 1, false},
        {"onto column 0", 1, 1, 1, 1, 0, 1, false},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(grid.Copy(c.C1, c.R1, c.C2, c.R2)) << c.Name;
        EXPECT_EQ(grid.CanPaste(c.Column, c.Row), c.CanPaste) << c.Name;
    }
    // Not one block, or a block without panels, copies nothing.
    EXPECT_FALSE(grid.Copy(-1, 1, 1, 3));
    EXPECT_FALSE(grid.Copy(2, 1, 1, 3));
    EXPECT_FALSE(grid.Copy(1, 5, 1, 4));
    EXPECT_FALSE(grid.Copy(5, 5, 7, 7));
    EXPECT_FALSE(grid.CanPaste(1, 1));
    EXPECT_FALSE(grid.Paste(1, 1));
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridClipboardTest, PasteOutOfTheGridSaysSoAndChangesNothing)
{
    PutAll(grid, kBlock);
    ASSERT_TRUE(grid.Copy(1, 1, 2, 4));
    const QString before = Dump(grid);
    EXPECT_FALSE(grid.Paste(16, 1));
    EXPECT_FALSE(grid.Paste(1, 38));
    EXPECT_FALSE(grid.Paste(-1, 1));
    EXPECT_EQ(Dump(grid), before);
    EXPECT_EQ(messenger.Texts, QStringList(3, Text(Ids::MsgPasteOutOfArea)));
}

TEST_F(GridClipboardTest, PasteOverPanelsAsksYesNoCancel)
{
    const struct
    {
        const char* Name;
        EAnswer Answer;
        bool Pasted;
        const char* AtTwoOne; // where a NOT already stands
        int Gates;
    } cases[] = {{"Yes replaces", EAnswer::Yes, true, "AND \tR", 4},
                 {"No keeps the existing panel", EAnswer::No, true, "NOT \tR", 3},
                 {"Cancel changes nothing", EAnswer::Cancel, false, "NOT \tR", 2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        PutAll(layout, "1,1 AND \tR; 1,2 AND \tR");
        ASSERT_TRUE(layout.Copy(1, 1, 2, 2));
        ASSERT_TRUE(layout.Place(2, 1, Cell("NOT \tR")));
        messenger.Reset({c.Answer});
        EXPECT_EQ(layout.Paste(2, 1), c.Pasted);
        EXPECT_EQ(messenger.Texts, Said(Ids::MsgPasteOverPanels));
        EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::YesNoCancel});
        EXPECT_EQ(LineAt(layout, 2, 1), c.AtTwoOne);
        EXPECT_EQ(LineAt(layout, 2, 2), c.Pasted ? "AND \tR" : "");
        EXPECT_EQ(layout.GetUseCount(AndType), c.Gates);
        if (!c.Pasted) {
            layout.Undo(); // Cancel did not commit the Place before it
            EXPECT_EQ(LineAt(layout, 2, 1), "");
        }
    }
}

TEST_F(GridClipboardTest, APasteThatCannotFinishUndoesAll)
{
    const struct
    {
        const char *Name, *Panels;
        int C2, R2;
        const char* Blocker;
        int Limit, Column, Row;
        QStringList Texts;
    } cases[] = {
        // The gate lands at (7, 2) first; the counter's rows 3-5 of column 8 then meet the NOT.
        {"a tall panel blocked", "1,1 AND \tR; 2,2 CNT \tC,3,2,1", 2, 4, "8,4 NOT \tR", -1, 7, 2,
         Said(Ids::MsgPasteOverPanels) + Said(Ids::MsgNotAllPasted)},
        {"over the use limit", "1,1 AND \tR; 1,2 AND \tR", 1, 2, "9,9 NOT \tR", 3, 5, 5,
         Said(Ids::MsgPasteOverLimit)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        PutAll(layout, c.Panels);
        ASSERT_TRUE(layout.Copy(1, 1, c.C2, c.R2));
        PutAll(layout, c.Blocker);
        layout.SetUseLimits({{AndType, c.Limit}});
        layout.ClearJournal();
        const QString before = Dump(layout);
        messenger.Reset({EAnswer::No});
        EXPECT_FALSE(layout.Paste(c.Column, c.Row));
        EXPECT_EQ(messenger.Texts, c.Texts);
        EXPECT_EQ(Dump(layout), before);
        EXPECT_FALSE(layout.CanUndo());
    }
}

TEST_F(GridClipboardTest, ProtrudingPanelIsLeftOutOnOkAndNothingIsCopiedOnCancel)
{
    PutAll(grid, kBlock);
    messenger.Reset({EAnswer::Ok});
    ASSERT_TRUE(grid.Copy(1, 1, 2, 3)); // rows 1-3 cut through the counter (rows 2-4)
    EXPECT_EQ(messenger.Texts, Said(Ids::MsgProtrudedPanel));
    EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::OkCancel});
    EXPECT_EQ(grid.GetClipboard().ToPlainText(), "AND \tR\n");

    messenger.Reset({EAnswer::Cancel});
    EXPECT_FALSE(grid.Copy(1, 3, 2, 4)); // the counter's top lies above
    EXPECT_TRUE(grid.GetClipboard().IsEmpty());
}

TEST_F(GridClipboardTest, TheClipboardTravelsAsTextToAnotherLayout)
{
    PutAll(grid, kBlock);
    ASSERT_TRUE(grid.Place(3, 3, Cell("NOT \tR\t\t;inverter")));
    ASSERT_TRUE(grid.Copy(1, 1, 3, 4));
    EXPECT_EQ(grid.GetClipboard().ToPlainText(), "CNT \tC,3,2,1\nAND \tR\nNOT \tR\t\t;inverter\n");

    const auto make = [](const QString& line) { return Cell(line); };
    CPanelGrid other(messenger);
    ASSERT_TRUE(other.Clipboard().FromText(grid.GetClipboard().ToText(), make));
    ASSERT_TRUE(other.Paste(11, 20));
    grid.ClearAll();
    ASSERT_TRUE(grid.Paste(11, 20));
    EXPECT_EQ(Dump(other), Dump(grid));

    // A side-column block stays one.
    ASSERT_TRUE(grid.Place(-2, 1, Cell("LAMP\tH,P1")));
    ASSERT_TRUE(grid.Copy(-2, 1, -2, 1));
    ASSERT_TRUE(other.Clipboard().FromText(grid.GetClipboard().ToText(), make));
    EXPECT_TRUE(other.CanPaste(-2, 40));
    EXPECT_FALSE(other.CanPaste(-1, 40));
    EXPECT_FALSE(other.CanPaste(1, 1));

    for (const char* foreign : {"", "AND \tR\n", "P\nx,y:AND\tR\n", "P\n0,0:BOGUS\n"}) {
        EXPECT_FALSE(other.Clipboard().FromText(QString::fromUtf8(foreign), make)) << foreign;
        EXPECT_TRUE(other.GetClipboard().IsEmpty());
    }
}

TEST_F(GridClipboardTest, CutAnsweredCancelStillRemovesWhatLiesInsideAndUndoRestores)
{
    PutAll(grid, kBlock);
    ASSERT_TRUE(grid.Place(2, 3, Cell("NOT \tR")));
    grid.ClearJournal();
    const QString before = Dump(grid);
    messenger.Reset({EAnswer::Cancel});
    ASSERT_TRUE(grid.Cut(1, 1, 2, 3));
    EXPECT_EQ(Cells(grid), "1,2 CNT \tC,3,2,1; 1,3 +; 1,4 +"); // protrudes below row 3, stays
    EXPECT_TRUE(grid.GetClipboard().IsEmpty());
    EXPECT_EQ(grid.GetLastOperation(), CPanelGrid::OpCut);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridClipboardTest, CountPanelsCountsTopCellsOnly)
{
    PutAll(grid, kBlock);
    EXPECT_EQ(grid.CountPanels(1, 1, 2, 4), 2);
    EXPECT_EQ(grid.CountPanels(1, 3, 1, 4), 0);
    EXPECT_EQ(grid.CountPanels(1, 2, 1, 2), 1);
    EXPECT_EQ(grid.CountPanels(3, 1, 16, 40), 0);
}
