#include "gridtest.h"

namespace {

struct GridClipboardTest : testing::Test
{
    CGridMessenger messenger;
    CPanelGrid grid{messenger};

    // A counter over rows 2-4 of column 1 and a gate at (2, 1).
    void PlaceBlock()
    {
        ASSERT_TRUE(grid.Place(1, 2, Cell("CNT \tC,3,2,1")));
        ASSERT_TRUE(grid.Place(2, 1, Cell("AND \tR")));
        grid.ClearJournal();
    }
};

} // namespace

TEST_F(GridClipboardTest, PasteRecreatesTheBlockAtItsOffsets)
{
    PlaceBlock();
    ASSERT_TRUE(grid.Copy(1, 1, 2, 4));
    EXPECT_EQ(grid.GetClipboard().GetWidth(), 2);
    EXPECT_EQ(grid.GetClipboard().GetHeight(), 4);
    ASSERT_TRUE(grid.Paste(5, 10));
    EXPECT_EQ(LineAt(grid, 5, 10), "");
    EXPECT_EQ(LineAt(grid, 5, 11), "CNT \tC,3,2,1");
    EXPECT_EQ(LineAt(grid, 5, 12), "+");
    EXPECT_EQ(LineAt(grid, 5, 13), "+");
    EXPECT_EQ(LineAt(grid, 6, 10), "AND \tR");
    EXPECT_EQ(grid.GetUseCount(CounterType), 2);
    EXPECT_EQ(grid.GetWeightedTotal(), 40);
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridClipboardTest, PastingTwicePlacesTwoIndependentCopies)
{
    auto named = Cell("AND \tR");
    named->GetPanel()->SetName("Gate");
    ASSERT_TRUE(grid.Place(1, 1, std::move(named)));
    ASSERT_TRUE(grid.Copy(1, 1, 1, 1));
    ASSERT_TRUE(grid.Paste(3, 3));
    ASSERT_TRUE(grid.Paste(4, 4));
    CPanel* first = grid.GetCell(3, 3)->GetPanel();
    CPanel* second = grid.GetCell(4, 4)->GetPanel();
    ASSERT_NE(first, second);
    EXPECT_EQ(first->GetName(), "Gate");
    first->SetName("Changed");
    EXPECT_EQ(second->GetName(), "Gate");
    EXPECT_EQ(grid.GetUseCount(AndType), 3);
    // The second paste committed the first: undo takes back the second only.
    grid.Undo();
    EXPECT_EQ(LineAt(grid, 4, 4), "");
    EXPECT_EQ(LineAt(grid, 3, 3), "AND \tR");
}

TEST_F(GridClipboardTest, CanPasteKeepsSideAndProcessBlocksApart)
{
    ASSERT_TRUE(grid.Place(-1, 1, Cell("UARI\tC,5,4")));
    ASSERT_TRUE(grid.Place(-2, 1, Cell("LAMP\tH,P1")));
    ASSERT_TRUE(grid.Place(1, 1, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(3, 2, Cell("AND \tR")));
    const struct
    {
        const char* Name;
        int C1, R1, C2, R2;
        int Column, Row;
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
        SCOPED_TRACE(c.Name);
        ASSERT_TRUE(grid.Copy(c.C1, c.R1, c.C2, c.R2));
        EXPECT_EQ(grid.CanPaste(c.Column, c.Row), c.CanPaste);
    }
    grid.ClearClipboard();
    EXPECT_FALSE(grid.CanPaste(1, 1));
    EXPECT_FALSE(grid.Paste(1, 1));
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridClipboardTest, PasteOutOfTheGridSaysSoAndChangesNothing)
{
    PlaceBlock();
    ASSERT_TRUE(grid.Copy(1, 1, 2, 4));
    const QStringList before = Dump(grid);
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
    } cases[] = {
        {"Yes replaces", EAnswer::Yes, true, "AND \tR", 4},
        {"No keeps the existing panel", EAnswer::No, true, "NOT \tR", 3},
        {"Cancel changes nothing", EAnswer::Cancel, false, "NOT \tR", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid layout(messenger);
        ASSERT_TRUE(layout.Place(1, 1, Cell("AND \tR")));
        ASSERT_TRUE(layout.Place(1, 2, Cell("AND \tR")));
        ASSERT_TRUE(layout.Copy(1, 1, 2, 2));
        ASSERT_TRUE(layout.Place(2, 1, Cell("NOT \tR")));
        messenger.Answers = {c.Answer};
        EXPECT_EQ(layout.Paste(2, 1), c.Pasted);
        EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgPasteOverPanels)});
        EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::YesNoCancel});
        EXPECT_EQ(LineAt(layout, 2, 1), c.AtTwoOne);
        EXPECT_EQ(LineAt(layout, 2, 2), c.Pasted ? "AND \tR" : "");
        EXPECT_EQ(layout.GetUseCount(AndType), c.Gates);
        if (!c.Pasted) {
            // Cancel did not commit the Place before it.
            layout.Undo();
            EXPECT_EQ(LineAt(layout, 2, 1), "");
        }
    }
}

TEST_F(GridClipboardTest, PasteKeepingPanelsUndoesAllWhenATallPanelIsBlocked)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(2, 2, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.Copy(1, 1, 2, 4));
    ASSERT_TRUE(grid.Place(8, 4, Cell("NOT \tR")));
    const QStringList before = Dump(grid);
    messenger.Answers = {EAnswer::No};
    // The gate lands at (7, 2) first; the counter's rows 3-5 of column 8 then meet the NOT.
    EXPECT_FALSE(grid.Paste(7, 2));
    EXPECT_EQ(messenger.Texts,
              (QStringList{Text(Ids::MsgPasteOverPanels), Text(Ids::MsgNotAllPasted)}));
    EXPECT_EQ(Dump(grid), before);
    EXPECT_FALSE(grid.CanUndo());
}

TEST_F(GridClipboardTest, PasteOverTheUseLimitUndoesAll)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(1, 2, Cell("AND \tR")));
    ASSERT_TRUE(grid.Copy(1, 1, 1, 2));
    grid.SetUseLimits({{AndType, 3}});
    const QStringList before = Dump(grid);
    EXPECT_FALSE(grid.Paste(5, 5));
    EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgPasteOverLimit)});
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridClipboardTest, ProtrudingPanelIsLeftOutOnOkAndNothingIsCopiedOnCancel)
{
    PlaceBlock();
    // Rows 1-3 cut through the counter (rows 2-4).
    messenger.Answers = {EAnswer::Ok};
    ASSERT_TRUE(grid.Copy(1, 1, 2, 3));
    EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgProtrudedPanel)});
    EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::OkCancel});
    // The block is the gate alone.
    ASSERT_TRUE(grid.Paste(5, 20));
    EXPECT_EQ(LineAt(grid, 5, 20), "AND \tR");
    EXPECT_EQ(grid.CountPanels(5, 20, 6, 22), 1);

    messenger.Reset();
    messenger.Answers = {EAnswer::Cancel};
    EXPECT_FALSE(grid.Copy(1, 3, 2, 4)); // the counter's top lies above
    EXPECT_TRUE(grid.GetClipboard().IsEmpty());
    EXPECT_FALSE(grid.CanPaste(10, 10));
}

TEST_F(GridClipboardTest, TheBlockIsWhereTheCopiedPanelsLieNotWhereTheSelectionWas)
{
    struct CPut
    {
        int Column, Row;
        const char* Line;
    };
    const struct
    {
        const char* Name;
        QList<CPut> Panels;
        int C1, R1, C2, R2;
        int Width, Height;
        CGridPos Target;
        QList<CPut> Pasted;
    } cases[] = {
        {"empty top rows and left column", {{2, 5, "AND \tR"}, {3, 6, "NOT \tR"}}, 1, 1, 3, 6, 2, 2,
         {8, 10}, {{8, 10, "AND \tR"}, {9, 11, "NOT \tR"}}},
        {"fits above the last row", {{2, 5, "AND \tR"}, {3, 6, "NOT \tR"}}, 1, 1, 3, 6, 2, 2,
         {1, 39}, {{1, 39, "AND \tR"}, {2, 40, "NOT \tR"}}},
        {"top rows covered by a tall panel from above",
         {{1, 2, "CNT \tC,3,2,1"}, {2, 4, "NOT \tR"}}, 1, 3, 2, 4, 1, 1,
         {8, 8}, {{8, 8, "NOT \tR"}}},
        {"a tall panel counts to its bottom", {{3, 3, "CNT \tC,3,2,1"}}, 1, 1, 4, 9, 1, 3,
         {5, 38}, {{5, 38, "CNT \tC,3,2,1"}, {5, 40, "+"}}},
        {"side column", {{-1, 7, "KEY \tH,P1"}}, -1, 1, -1, 8, 1, 1, {-1, 40},
         {{-1, 40, "KEY \tH,P1"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        messenger.Answers = {EAnswer::Ok}; // a protruding panel is left out
        CPanelGrid layout(messenger);
        for (const CPut& put : c.Panels)
            ASSERT_TRUE(layout.Place(put.Column, put.Row, Cell(put.Line)));
        ASSERT_TRUE(layout.Copy(c.C1, c.R1, c.C2, c.R2));
        EXPECT_EQ(layout.GetClipboard().GetWidth(), c.Width);
        EXPECT_EQ(layout.GetClipboard().GetHeight(), c.Height);
        layout.ClearAll();
        ASSERT_TRUE(layout.CanPaste(c.Target.Column, c.Target.Row));
        ASSERT_TRUE(layout.Paste(c.Target.Column, c.Target.Row));
        for (const CPut& put : c.Pasted)
            EXPECT_EQ(LineAt(layout, put.Column, put.Row), put.Line) << put.Column << "," << put.Row;
        // Nothing else was pasted.
        const auto panels = std::count_if(c.Pasted.begin(), c.Pasted.end(),
                                          [](const CPut& put) { return QString(put.Line) != "+"; });
        EXPECT_EQ(layout.CountPanels(1, 1, 16, 40) + layout.CountPanels(-1, 1, -1, 40), panels);
    }
}

TEST_F(GridClipboardTest, ABlockWithoutPanelsCopiesNothing)
{
    ASSERT_TRUE(grid.Place(5, 5, Cell("AND \tR")));
    ASSERT_TRUE(grid.Copy(5, 5, 5, 5));
    EXPECT_FALSE(grid.Copy(1, 1, 3, 3));
    EXPECT_FALSE(grid.CanPaste(1, 1));
}

TEST_F(GridClipboardTest, TheClipboardTravelsAsTextToAnotherLayout)
{
    PlaceBlock();
    ASSERT_TRUE(grid.Place(3, 3, Cell("NOT \tR\t\t;inverter")));
    ASSERT_TRUE(grid.Copy(1, 1, 3, 4));
    const QString text = grid.GetClipboard().ToText();
    EXPECT_EQ(grid.GetClipboard().ToPlainText(), "CNT \tC,3,2,1\nAND \tR\nNOT \tR\t\t;inverter\n");

    const auto make = [](const QString& line) { return std::make_unique<CPanelCell>(line); };
    CPanelGrid other(messenger);
    ASSERT_TRUE(other.Clipboard().FromText(text, make));
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
    PlaceBlock();
    ASSERT_TRUE(grid.Place(2, 3, Cell("NOT \tR")));
    grid.ClearJournal();
    const QStringList before = Dump(grid);
    messenger.Answers = {EAnswer::Cancel};
    ASSERT_TRUE(grid.Cut(1, 1, 2, 3));
    EXPECT_EQ(LineAt(grid, 2, 1), "");
    EXPECT_EQ(LineAt(grid, 2, 3), "");
    EXPECT_EQ(LineAt(grid, 1, 2), "CNT \tC,3,2,1"); // protrudes below row 3, stays
    EXPECT_TRUE(grid.GetClipboard().IsEmpty());
    EXPECT_EQ(grid.GetLastOperation(), CPanelGrid::OpCut);
    grid.Undo();
    EXPECT_EQ(Dump(grid), before);
}

TEST_F(GridClipboardTest, CutThenPasteIsTwoSteps)
{
    PlaceBlock();
    ASSERT_TRUE(grid.Cut(1, 1, 2, 4));
    const QStringList afterCut = Dump(grid);
    ASSERT_TRUE(grid.Paste(10, 1));
    grid.Undo();
    EXPECT_EQ(Dump(grid), afterCut);
    EXPECT_TRUE(grid.CanPaste(10, 1));
}

TEST_F(GridClipboardTest, SideColumnBlockCopiesAndPastesWithinItsColumn)
{
    ASSERT_TRUE(grid.Place(-1, 1, Cell("UARI\tC,5,4")));
    ASSERT_TRUE(grid.Place(-1, 3, Cell("KEY \tH,P1")));
    ASSERT_TRUE(grid.Copy(-1, 1, -1, 3));
    ASSERT_TRUE(grid.Paste(-1, 38));
    EXPECT_EQ(LineAt(grid, -1, 38), "UARI\tC,5,4");
    EXPECT_EQ(LineAt(grid, -1, 39), "+");
    EXPECT_EQ(LineAt(grid, -1, 40), "KEY \tH,P1");
    EXPECT_FALSE(grid.Copy(-1, 1, 1, 3)); // not one block
    EXPECT_FALSE(grid.Copy(2, 1, 1, 3));
    EXPECT_FALSE(grid.Copy(1, 5, 1, 4));
}

TEST_F(GridClipboardTest, CountPanelsCountsTopCellsOnly)
{
    PlaceBlock();
    const struct
    {
        int C1, R1, C2, R2;
        int Count;
    } cases[] = {
        {1, 1, 2, 4, 2}, {1, 3, 1, 4, 0}, {1, 2, 1, 2, 1}, {3, 1, 16, 40, 0}, {1, 1, 16, 40, 2},
    };
    for (const auto& c : cases)
        EXPECT_EQ(grid.CountPanels(c.C1, c.R1, c.C2, c.R2), c.Count)
            << c.C1 << "," << c.R1 << "-" << c.C2 << "," << c.R2;
}
