#include "gridtest.h"

#include <functional>

using GridTest = GridFixture;

// --- Addressing and placing ----------------------------------------------------------

TEST_F(GridTest, PositionsOutsideTheGridHoldNothing)
{
    PutAll(grid, "-1,40 LAMP\tH,P1; -2,40 LAMP\tH,P1; 1,40 LAMP\tH,P1; 16,40 LAMP\tH,P1");
    EXPECT_NE(grid.GetCell(-1, 40), grid.GetCell(1, 40)); // side columns are no process columns
    EXPECT_NE(grid.GetCell(-2, 40), grid.GetCell(16, 40));
    const CGridPos outside[] = {{17, 1}, {1, 41}, {0, 1}, {1, 0}, {-3, 1}, {-1, 41}};
    for (const CGridPos pos : outside) {
        EXPECT_EQ(grid.GetCell(pos.Column, pos.Row), nullptr) << pos.Column << "," << pos.Row;
        EXPECT_FALSE(grid.Place(pos.Column, pos.Row, Cell("LAMP\tH,P1")));
    }
    EXPECT_NE(grid.SetCell(17, 1, Cell("AND \tR")), nullptr); // handed straight back
    EXPECT_FALSE(grid.Place(1, 1, Cell("BOGUS\t1")));
    EXPECT_FALSE(grid.Insert(1, 1, Cell(QString())));
    // SetCell stores without counting.
    EXPECT_EQ(grid.SetCell(4, 4, Cell("AND \tR")), nullptr);
    EXPECT_EQ(grid.GetUseCount(AndType), 0);
    EXPECT_EQ(grid.SetCell(4, 4, nullptr)->GetPanel()->GetLine(), "AND \tR");
}

TEST_F(GridTest, UseLimitRefusesSilentlyAlsoWhileLoadingAndFreesOnRemove)
{
    const struct
    {
        const char* Name;
        int Type, Limit, Placed;
        bool LimitFlag;
    } cases[] = {{"limit 2", LampType, 2, 2, true},
                 {"limit 2 loading", LampType, 2, 2, false},
                 {"-1 is no limit", LampType, -1, 5, true},
                 {"no entry is no limit", CounterType, 1, 5, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid fresh(messenger);
        fresh.SetUseLimits({{c.Type, c.Limit}});
        fresh.SetLimitFlag(c.LimitFlag);
        int placed = 0;
        for (int r = 1; r <= 5; ++r)
            placed += fresh.Place(-2, r, Cell("LAMP\tH,P1")) ? 1 : 0;
        EXPECT_EQ(placed, c.Placed);
        EXPECT_EQ(fresh.GetUseCount(LampType), c.Placed);
        EXPECT_EQ(fresh.CanUse(LampType), c.Placed == 5);
        if (c.Placed > 0 && c.Placed < 5) {
            ASSERT_TRUE(fresh.Remove(-2, 1));
            EXPECT_TRUE(fresh.Place(-2, 5, Cell("LAMP\tH,P1")));
        }
    }
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

// Only the panel at the target is replaced, asking first when it is complete; a taller panel
// whose lower rows would meet another panel or leave the grid is refused.
TEST_F(GridTest, PlacingOverPanels)
{
    const struct
    {
        const char *Name, *Existing, *New;
        EAnswer Answer;
        bool Asked, Placed;
        const char* After;
    } cases[] = {
        {"complete, OK replaces", "-2,4 LAMP\tH,P1", "-2,4 LAMP\tL,P9", EAnswer::Ok, true, true,
         "-2,4 LAMP\tL,P9 #10083=1 total=10"},
        {"complete, Cancel keeps", "-2,4 LAMP\tH,P1", "-2,4 LAMP\tL,P9", EAnswer::Cancel, true,
         false, "-2,4 LAMP\tH,P1 #10083=1 total=10"},
        {"incomplete is replaced unasked", "-2,4 LAMP\tH", "-2,4 LAMP\tL,P9", EAnswer::Cancel,
         false, true, "-2,4 LAMP\tL,P9 #10083=1 total=10"},
        {"tall over a taller complete panel asks first", "2,1 SMOT\t1,10", "2,1 CNT \tC,3,2,1",
         EAnswer::Ok, true, true, "2,1 CNT \tC,3,2,1; 2,2 +; 2,3 + #10026=1 total=10"},
        {"on a continuation replaces the whole panel above", "1,2 CNT \tC,3,2,1", "1,3 AND \tR",
         EAnswer::Ok, true, true, "1,3 AND \tR #10012=1 total=10"},
        {"tall panel meeting a panel below", "1,5 AND \tR", "1,3 CNT \tC,3,2,1", EAnswer::Ok, false,
         false, "1,5 AND \tR #10012=1 total=10"},
        {"tall panel replacing one meeting a panel below", "1,4 AND \tD; 1,5 AND \tR",
         "1,4 CNT \tC,3,2,1", EAnswer::Ok, false, false,
         "1,4 AND \tD; 1,5 AND \tR #10012=1 #10013=1 total=20"},
        {"tall panel ending in the last row", "", "1,38 CNT \tC,3,2,1", EAnswer::Ok, false, true,
         "1,38 CNT \tC,3,2,1; 1,39 +; 1,40 + #10026=1 total=10"},
        {"tall panel past the last row", "", "1,39 CNT \tC,3,2,1", EAnswer::Ok, false, false,
         "total=0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid fresh(messenger);
        PutAll(fresh, c.Existing);
        messenger.Reset({c.Answer});
        EXPECT_EQ(Put(fresh, c.New), c.Placed);
        EXPECT_EQ(Dump(fresh), c.After);
        EXPECT_EQ(messenger.Texts, Said(c.Asked ? Ids::MsgReplacePanel : 0));
        EXPECT_EQ(messenger.Buttons,
                  c.Asked ? QList<EButtons>{EButtons::OkCancel} : QList<EButtons>{});
    }
}

// --- Journal and undo ----------------------------------------------------------------

TEST_F(GridTest, UndoAfterEveryJournaledOperationRestoresTheGridExactly)
{
    using Op = std::function<bool(CPanelGrid&)>;
    const struct
    {
        const char* Name;
        QList<EAnswer> Answers;
        Op Operation;
    } cases[] = {
        {"Place on empty", {}, [](CPanelGrid& g) { return g.Place(4, 4, Cell("AND \tR")); }},
        {"Place replacing", {}, [](CPanelGrid& g) { return g.Place(1, 3, Cell("AND \tR")); }},
        {"Paste replacing", {}, [](CPanelGrid& g) { return g.Copy(1, 1, 2, 4) && g.Paste(1, 3); }},
        {"Paste keeping",
         {EAnswer::No},
         [](CPanelGrid& g) { return g.Copy(16, 5, 16, 8) && g.Paste(15, 4); }},
        {"DeleteRange", {}, [](CPanelGrid& g) { return g.DeleteRange(1, 1, 16, 40); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        FillSampleLayout(layout);
        const QString before = Dump(layout);
        messenger.Reset(c.Answers);
        ASSERT_TRUE(c.Operation(layout));
        ASSERT_NE(Dump(layout), before);
        EXPECT_TRUE(layout.Undo());
        EXPECT_EQ(Dump(layout), before);
        EXPECT_FALSE(layout.CanUndo());
        EXPECT_EQ(layout.GetLastOperation(), CPanelGrid::OpNone);
    }
}

TEST_F(GridTest, OnlyTheLastStepIsUndoneAndClearingMakesEverythingFinal)
{
    PutAll(grid, "1,1 AND \tR; 16,1 AND \tD");
    ASSERT_TRUE(grid.ShiftRight());
    const QString afterFirst = Dump(grid);
    ASSERT_TRUE(grid.ShiftRight());
    grid.Undo();
    EXPECT_EQ(Dump(grid), afterFirst);
    grid.Undo(); // an undo cannot itself be undone, nor reach the step before
    EXPECT_EQ(Dump(grid), afterFirst);

    FillSampleLayout(grid);
    ASSERT_TRUE(grid.Place(7, 7, Cell("AND \tR")));
    grid.ClearAll();
    EXPECT_EQ(Dump(grid), "total=0");
    EXPECT_FALSE(grid.CanUndo());
}

// --- Decoders and rotating -----------------------------------------------------------

TEST_F(GridTest, FindDisplaySearchesSideColumnsThenProcessColumnByColumn)
{
    const std::pair<CGridPos, const char*> order[] = {
        {{2, 1}, "7SEG4"}, {{1, 30}, "7SEG"}, {{-2, 40}, "7SEG"}, {{-1, 40}, "7SEG4"}};
    for (const auto& [pos, line] : order) {
        ASSERT_TRUE(grid.Place(pos.Column, pos.Row, Cell(line)));
        EXPECT_EQ(grid.FindDisplay(), grid.GetCell(pos)) << pos.Column;
    }
}

TEST_F(GridTest, DecodersFollowTheFirstSevenSegmentDisplay)
{
    PutAll(grid, "-2,3 7SEG\t;7SEG_D; -2,9 7SEG\t;7SEG_B");
    EXPECT_EQ(grid.GetDecoderVariant(), 0);
    grid.RefreshDecoders();
    EXPECT_EQ(grid.GetDecoderVariant(), 2);
    // Inserted decoders take the variant; 7S4_S is refreshed but not given it when inserted.
    const char* const decoders[] = {"7S_\t0",  "7S4_\t0",  "7S_B\t0",  "7S_D\t0",
                                    "7S_S\t0", "7S4_B\t0", "7S4_D\t0", "7S4_S\t0"};
    int column = 0;
    for (const char* line : decoders) {
        ASSERT_TRUE(grid.Place(++column, 1, Cell(line)));
        EXPECT_EQ(grid.GetCell(column, 1)->GetPanel()->GetVariant(), column < 8 ? 2 : 0) << line;
    }
    auto own = Cell("7S_D\t3"); // a decoder with a variant of its own keeps it
    own->GetPanel()->SetVariant(5);
    ASSERT_TRUE(grid.Place(1, 5, std::move(own)));
    EXPECT_EQ(grid.GetCell(1, 5)->GetPanel()->GetVariant(), 5);

    // Replacing the display refreshes them too.
    ASSERT_TRUE(grid.ReplaceCell(-2, 3, Cell("7SEG\t;7SEG_S")));
    EXPECT_EQ(grid.GetDecoderVariant(), 3);
    for (int c = 1; c <= column; ++c)
        EXPECT_EQ(grid.GetCell(c, 1)->GetPanel()->GetMode(), 3) << c;
    // Without a display they fall back to variant 0.
    ASSERT_TRUE(grid.Remove(-2, 3));
    ASSERT_TRUE(grid.Remove(-2, 9));
    grid.RefreshDecoders();
    EXPECT_EQ(grid.GetDecoderVariant(), 0);
    EXPECT_EQ(grid.GetCell(1, 1)->GetPanel()->GetMode(), 0);
}

TEST_F(GridTest, RotateTurnsGatesOnlyAndIsNotUndoable)
{
    PutAll(grid, "3,3 AND \tR; 5,3 CNT \tC,3,2");
    EXPECT_FALSE(grid.Rotate(5, 3));
    EXPECT_FALSE(grid.Rotate(5, 4)); // a continuation
    EXPECT_FALSE(grid.Rotate(3, 4)); // nothing
    ASSERT_TRUE(grid.Rotate(3, 3));
    EXPECT_EQ(LineAt(grid, 3, 3), "AND \tD");
    EXPECT_FALSE(grid.CanUndo());
    const CPanelCell* cell = grid.GetCell(3, 3);
    EXPECT_EQ(cell->GetBitmapId(), 10013);
    ASSERT_FALSE(cell->GetImage().Items.isEmpty());
    EXPECT_EQ(cell->GetImage().Items[0].BitmapId, 10013);
    EXPECT_EQ(grid.GetUseCount(AndType), 1); // counted as the type it was made as
    ASSERT_TRUE(grid.Rotate(3, 3));
    EXPECT_EQ(LineAt(grid, 3, 3), "AND \tR");
}

// --- Fill ----------------------------------------------------------------------------

TEST_F(GridTest, FillRepeatsIntoEmptyCellsUpToAPanelOrTheEdge)
{
    const struct
    {
        const char* Source;
        char16_t Direction;
        int Column, Row, Limit, Filled;
        bool Fills;
    } cases[] = {
        {"AND \tR", u'U', 5, 5, -1, 4, true},
        {"AND \tR", u'L', 5, 5, -1, 2, true}, // up to the NOT at (2, 5)
        {"AND \tR", u'R', 14, 5, -1, 2, true},
        {"AND \tR", u'L', 1, 5, -1, 0, true},
        {"AND \tR", u'R', 1, 9, -1, 15, true}, // from process column 1
        {"AND \tR", u'D', -1, 37, -1, 3, true},
        {"AND \tR", u'L', -1, 5, -1, 0, true}, // only the process area repeats sideways
        {"AND \tR", u'R', -2, 5, -1, 0, true},
        {"AND \tR", u'X', 5, 5, -1, 0, true},
        {"AND \tR", u'D', 1, 1, 3, 2, true}, // stops when the type is used up
        {"CNT \tC,3,2", u'D', 1, 1, -1, 0, false},
        {"", u'D', 3, 3, -1, 0, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << char(c.Direction) << " from " << c.Column << "," << c.Row);
        CPanelGrid fresh(messenger);
        fresh.SetUseLimits({{AndType, c.Limit}, {CounterType, c.Limit}});
        PutAll(fresh, "2,5 NOT \tR");
        if (*c.Source) {
            ASSERT_TRUE(fresh.Place(c.Column, c.Row, Cell(c.Source)));
        }
        const QString before = Cells(fresh);
        EXPECT_EQ(fresh.Fill(c.Column, c.Row, c.Direction), c.Fills);
        const int dc = c.Direction == u'L' ? -1 : c.Direction == u'R' ? 1 : 0;
        const int dr = c.Direction == u'U' ? -1 : c.Direction == u'D' ? 1 : 0;
        for (int k = 1; k <= c.Filled; ++k)
            EXPECT_EQ(LineAt(fresh, c.Column + k * dc, c.Row + k * dr), c.Source) << k;
        if (c.Filled == 0) {
            EXPECT_EQ(Cells(fresh), before);
        }
        EXPECT_EQ(fresh.GetUseCount(AndType), (*c.Source == 'A') + c.Filled);
    }
}

TEST_F(GridTest, FillCopiesTheSourceWarnsOnceOverCapacityAndUndoTakesBackTheLastCopy)
{
    auto source = Cell("AND \tR");
    source->GetPanel()->SetName("Gate");
    source->GetPanel()->SetWeight(400);
    ASSERT_TRUE(grid.Place(1, 37, std::move(source)));
    ASSERT_TRUE(grid.Fill(1, 37, u'D'));
    for (int r = 38; r <= 40; ++r) {
        const CPanel* copy = grid.GetCell(1, r)->GetPanel();
        EXPECT_NE(copy, grid.GetCell(1, 37)->GetPanel());
        EXPECT_EQ(copy->GetName(), "Gate");
    }
    EXPECT_EQ(grid.GetWeightedTotal(), 1600);
    EXPECT_EQ(messenger.Texts, Said(Ids::MsgOverLimit));
    grid.Undo();
    EXPECT_EQ(LineAt(grid, 1, 40), "");
    EXPECT_EQ(LineAt(grid, 1, 39), "AND \tR");
    EXPECT_EQ(grid.GetWeightedTotal(), 1200);
    // A single placing warns too, unless the limits are off.
    grid.SetLimitFlag(false);
    ASSERT_TRUE(grid.Place(2, 1, Cell("AND \tR")));
    grid.SetLimitFlag(true);
    ASSERT_TRUE(grid.Place(2, 2, Cell("AND \tR")));
    EXPECT_EQ(messenger.Texts, Said(Ids::MsgOverLimit) + Said(Ids::MsgOverLimit));
}
