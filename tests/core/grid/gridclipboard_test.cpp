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

TEST_F(GridClipboardTest, EachPasteIsAnIndependentCopy)
{
    ASSERT_TRUE(Put(grid, "3,1 NOT \tR @Gate"));
    ASSERT_TRUE(grid.Cut(3, 1, 3, 1));
    ASSERT_TRUE(grid.Paste(3, 3));
    ASSERT_TRUE(grid.Paste(4, 4));
    CPanel* first = grid.GetCell(3, 3)->GetPanel();
    ASSERT_NE(first, grid.GetCell(4, 4)->GetPanel());
    first->SetName("Changed");
    EXPECT_EQ(grid.GetCell(4, 4)->GetPanel()->GetName(), "Gate");
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
        {"output into output", -2, 1, -2, 1, -2, 40, true},
        {"process into process", 1, 1, 3, 2, 14, 39, true},
        {"process past column 16", 1, 1, 3, 2, 15, 1, false},
        {"process past row 40", 1, 1, 3, 2, 1, 40, false},
        {"process into input", 1, 1, 1, 1, -1, 1, false},
        {"onto column 0", 1, 1, 1, 1, 0, 1, false},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(grid.Copy(c.C1, c.R1, c.C2, c.R2)) << c.Name;
        EXPECT_EQ(grid.CanPaste(c.Column, c.Row), c.CanPaste) << c.Name;
    }
    // Pasting where it cannot says so and changes nothing.
    const QString before = Dump(grid);
    EXPECT_FALSE(grid.Paste(-1, 1));
    EXPECT_EQ(Dump(grid), before);
    EXPECT_EQ(messenger.Texts, Said(Ids::MsgPasteOutOfArea));
    // Not one block, or a block without panels, copies nothing.
    EXPECT_FALSE(grid.Copy(-1, 1, 1, 3));
    EXPECT_FALSE(grid.Copy(2, 1, 1, 3));
    EXPECT_FALSE(grid.Copy(1, 5, 1, 4));
    EXPECT_FALSE(grid.Copy(5, 5, 7, 7));
    EXPECT_FALSE(grid.CanPaste(1, 1));
    EXPECT_FALSE(grid.Paste(1, 1));
    EXPECT_EQ(messenger.Texts.size(), 1);
}

// A paste over panels asks Yes, No or Cancel; one that cannot finish undoes all it did. Only
// Cancel leaves the step before it undoable: a paste that began leaves no step at all.
TEST_F(GridClipboardTest, PasteOverPanelsAsksAndAPasteThatCannotFinishUndoesAll)
{
    const QStringList over = Said(Ids::MsgPasteOverPanels);
    const char* const gates = "1,1 AND \tR; 1,2 AND \tR";
    const struct
    {
        const char *Name, *Panels;
        int C2, R2;
        const char* Blocker;
        int Limit, Column, Row;
        EAnswer Answer;
        QStringList Texts;
        const char* After; // nullptr: nothing changed
    } cases[] = {
        {"Yes replaces", gates, 2, 2, "2,1 NOT \tR", -1, 2, 1, EAnswer::Yes, over,
         "1,1 AND \tR; 1,2 AND \tR; 2,1 AND \tR; 2,2 AND \tR #10012=4 total=40"},
        {"No keeps the existing panel", gates, 2, 2, "2,1 NOT \tR", -1, 2, 1, EAnswer::No, over,
         "1,1 AND \tR; 1,2 AND \tR; 2,1 NOT \tR; 2,2 AND \tR #10010=1 #10012=3 total=40"},
        {"Cancel changes nothing", gates, 2, 2, "2,1 NOT \tR", -1, 2, 1, EAnswer::Cancel, over,
         nullptr},
        // The gate lands at (7, 2) first; the counter's rows 3-5 of column 8 then meet the NOT.
        {"a tall panel blocked", "1,1 AND \tR; 2,2 CNT \tC,3,2,1", 2, 4, "8,4 NOT \tR", -1, 7, 2,
         EAnswer::No, over + Said(Ids::MsgNotAllPasted), nullptr},
        {"over the use limit", gates, 1, 2, "9,9 NOT \tR", 3, 5, 5, EAnswer::No,
         Said(Ids::MsgPasteOverLimit), nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        PutAll(layout, c.Panels);
        ASSERT_TRUE(layout.Copy(1, 1, c.C2, c.R2));
        layout.SetUseLimits({{AndType, c.Limit}});
        const QString unblocked = Cells(layout);
        PutAll(layout, c.Blocker);
        const QString before = Dump(layout);
        messenger.Reset({c.Answer});
        EXPECT_EQ(layout.Paste(c.Column, c.Row), c.After != nullptr);
        EXPECT_EQ(messenger.Texts, c.Texts);
        if (c.Texts.first() == over.first()) {
            EXPECT_EQ(messenger.Buttons.first(), EButtons::YesNoCancel);
        }
        if (c.After) {
            EXPECT_EQ(Dump(layout), c.After);
            continue;
        }
        EXPECT_EQ(Dump(layout), before);
        ASSERT_EQ(layout.CanUndo(), c.Answer == EAnswer::Cancel);
        layout.Undo();
        EXPECT_EQ(Cells(layout) == unblocked, c.Answer == EAnswer::Cancel);
    }
}

// A panel reaching out of the selection is left out on Ok; on Cancel a copy copies nothing,
// while a cut still removes what lies inside, as one step.
TEST_F(GridClipboardTest, ProtrudingPanelIsLeftOutOnOkAndNothingIsCopiedOnCancel)
{
    PutAll(grid, kBlock);
    EXPECT_EQ(grid.CountPanels(1, 1, 2, 4), 2);
    EXPECT_EQ(grid.CountPanels(1, 3, 1, 4), 0); // the counter's top lies above
    messenger.Reset({EAnswer::Ok});
    ASSERT_TRUE(grid.Copy(1, 1, 2, 3)); // rows 1-3 cut through the counter (rows 2-4)
    EXPECT_EQ(messenger.Texts, Said(Ids::MsgProtrudedPanel));
    EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::OkCancel});
    EXPECT_EQ(grid.GetClipboard().ToPlainText(), "AND \tR\n");

    ASSERT_TRUE(grid.Place(2, 3, Cell("NOT \tR")));
    grid.ClearJournal();
    const QString before = Dump(grid);
    messenger.Reset({EAnswer::Cancel, EAnswer::Cancel});
    ASSERT_TRUE(grid.Cut(1, 1, 2, 3));
    EXPECT_EQ(Cells(grid), "1,2 CNT \tC,3,2,1; 1,3 +; 1,4 +");
    EXPECT_TRUE(grid.GetClipboard().IsEmpty());
    EXPECT_EQ(grid.GetLastOperation(), CPanelGrid::OpCut);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
    ASSERT_TRUE(grid.Copy(2, 1, 2, 1));
    EXPECT_FALSE(grid.Copy(1, 3, 2, 4));
    EXPECT_TRUE(grid.GetClipboard().IsEmpty());
}

TEST_F(GridClipboardTest, ASideBlockAsTextPastesOnlyThereAndForeignTextIsRefused)
{
    const auto make = [](const QString& line) { return Cell(line); };
    CPanelGrid other(messenger);
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
