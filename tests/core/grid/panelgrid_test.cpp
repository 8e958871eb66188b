#include "gridtest.h"

#include <functional>

namespace {

struct GridTest : testing::Test
{
    CGridMessenger messenger;
    CPanelGrid grid{messenger};
};

} // namespace

// --- Addressing --------------------------------------------------------------------

TEST_F(GridTest, DimensionsAreAskedForNotRepeated)
{
    EXPECT_EQ(CPanelGrid::GetColumnCount(), 16);
    EXPECT_EQ(CPanelGrid::GetRowCount(), 40);
    EXPECT_EQ(CPanelGrid::GetInputColumn(), -1);
    EXPECT_EQ(CPanelGrid::GetOutputColumn(), -2);
}

TEST_F(GridTest, GetCellOutsideTheGridIsNullAndTheLastRowsAreReachable)
{
    for (int c : {-1, -2, 1, 16}) {
        SCOPED_TRACE(c);
        ASSERT_TRUE(grid.Place(c, 40, Cell("LAMP\tH,P1")));
        ASSERT_NE(grid.GetCell(c, 40), nullptr);
        ASSERT_NE(grid.GetCell(c, 40)->GetPanel(), nullptr);
    }
    const struct
    {
        int Column, Row;
    } outside[] = {{17, 1}, {1, 41}, {0, 1}, {1, 0}, {-3, 1}, {-1, 41}, {-2, 0}, {16, -1}};
    for (const auto& pos : outside) {
        SCOPED_TRACE(QStringLiteral("%1,%2").arg(pos.Column).arg(pos.Row).toStdString());
        EXPECT_EQ(grid.GetCell(pos.Column, pos.Row), nullptr);
        EXPECT_FALSE(grid.Contains(pos.Column, pos.Row));
        EXPECT_FALSE(grid.Place(pos.Column, pos.Row, Cell("LAMP\tH,P1")));
    }
    // The side columns are not process columns 1 and 2.
    EXPECT_EQ(grid.GetCell(1, 40), grid.GetCell(1, 40));
    EXPECT_NE(grid.GetCell(-1, 40), grid.GetCell(1, 40));
    EXPECT_NE(grid.GetCell(-2, 40), grid.GetCell(16, 40));
}

TEST_F(GridTest, TopAndBottomOfAMultiRowPanelFromAnyOfItsRows)
{
    ASSERT_TRUE(grid.Place(3, 10, Cell("SMOT\t1,10")));
    ASSERT_EQ(grid.GetCell(3, 10)->GetHeight(), 4);
    for (int r = 10; r <= 13; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(grid.TopOf(3, r), (CGridPos{3, 10}));
    }
    EXPECT_EQ(grid.BottomOf(3, 10), (CGridPos{3, 13}));
    EXPECT_EQ(grid.BottomOf(3, 12), (CGridPos{3, 12})); // a continuation cell is one row
    EXPECT_EQ(grid.TopOf(3, 14), (CGridPos{3, 14}));
    EXPECT_EQ(grid.BottomOf(3, 9), (CGridPos{3, 9}));
}

TEST_F(GridTest, SetCellStoresWithoutCountingAndHandsBackThePrevious)
{
    auto none = grid.SetCell(4, 4, Cell("AND \tR"));
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(grid.GetUseCount(AndType), 0);
    EXPECT_EQ(grid.GetWeightedTotal(), 0);
    auto previous = grid.SetCell(4, 4, nullptr);
    ASSERT_NE(previous, nullptr);
    EXPECT_EQ(previous->GetPanel()->GetLine(), "AND \tR");
    EXPECT_EQ(grid.GetCell(4, 4), nullptr);
    // Outside the grid nothing is stored: the cell comes straight back.
    EXPECT_NE(grid.SetCell(17, 1, Cell("AND \tR")), nullptr);
}

// --- Place ---------------------------------------------------------------------------

TEST_F(GridTest, TallPanelMustEndWithinTheLastRow)
{
    const struct
    {
        const char* Line;
        int Row;
        bool Fits;
    } cases[] = {
        {"CNT \tC,3,2,1", 38, true}, {"CNT \tC,3,2,1", 39, false}, {"SMOT\t1,10", 37, true},
        {"SMOT\t1,10", 38, false},   {"LAMP\tH,P1", 40, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Line) + " at " + std::to_string(c.Row));
        CPanelGrid fresh(messenger);
        EXPECT_EQ(fresh.Place(1, c.Row, Cell(c.Line)), c.Fits);
        EXPECT_EQ(fresh.GetCell(1, c.Row) != nullptr, c.Fits);
        EXPECT_EQ(fresh.GetWeightedTotal(), c.Fits ? 10 : 0);
    }
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridTest, PlacedPanelCoversItsRowsWithContinuationCells)
{
    ASSERT_TRUE(grid.Place(-1, 5, Cell("UARI\tC,5,4")));
    EXPECT_EQ(LineAt(grid, -1, 5), "UARI\tC,5,4");
    EXPECT_EQ(LineAt(grid, -1, 6), "+");
    EXPECT_EQ(LineAt(grid, -1, 7), "");
    EXPECT_EQ(grid.GetUseCount(grid.GetCell(-1, 5)->GetTypeId()), 1);
}

TEST_F(GridTest, UseLimitRefusesSilently)
{
    const struct
    {
        const char* Name;
        QHash<int, int> Limits;
        int Placed;
    } cases[] = {
        {"limit 2", {{LampType, 2}}, 2},
        {"limit 0", {{LampType, 0}}, 0},
        {"-1 is no limit", {{LampType, -1}}, 5},
        {"no entry is no limit", {{CounterType, 1}}, 5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid fresh(messenger);
        fresh.SetUseLimits(c.Limits);
        int placed = 0;
        for (int r = 1; r <= 5; ++r)
            placed += fresh.Place(-2, r, Cell("LAMP\tH,P1")) ? 1 : 0;
        EXPECT_EQ(placed, c.Placed);
        EXPECT_EQ(fresh.GetUseCount(LampType), c.Placed);
        EXPECT_EQ(fresh.CanUse(LampType), c.Placed == 5);
    }
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(GridTest, UseLimitAlsoHoldsWhileLoadingAndFreesOnRemove)
{
    grid.SetUseLimits({{LampType, 2}});
    grid.SetLimitFlag(false);
    EXPECT_TRUE(grid.Place(-2, 1, Cell("LAMP\tH,P1")));
    EXPECT_TRUE(grid.Place(-2, 2, Cell("LAMP\tH,P2")));
    EXPECT_FALSE(grid.Place(-2, 3, Cell("LAMP\tH,P3")));
    grid.SetLimitFlag(true);
    ASSERT_TRUE(grid.Remove(-2, 1));
    EXPECT_TRUE(grid.CanUse(LampType));
    EXPECT_TRUE(grid.Place(-2, 3, Cell("LAMP\tH,P3")));
}

TEST_F(GridTest, CapacityMessageOnlyAboveOneThousand)
{
    const struct
    {
        int Weight;
        bool LimitFlag;
        bool Message;
    } cases[] = {
        {990, true, false},  // 1000: at capacity
        {991, true, true},   // 1001
        {991, false, false}, // while loading
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Weight);
        messenger.Reset();
        CPanelGrid fresh(messenger);
        fresh.SetLimitFlag(c.LimitFlag);
        auto heavy = Cell("AND \tR");
        heavy->GetPanel()->SetWeight(c.Weight);
        ASSERT_TRUE(fresh.Place(3, 3, std::move(heavy)));
        EXPECT_TRUE(messenger.Texts.isEmpty());
        // The panel stays placed even over the limit.
        EXPECT_TRUE(fresh.Place(-2, 1, Cell("LAMP\tH,P1")));
        EXPECT_EQ(fresh.GetWeightedTotal(), c.Weight + 10);
        EXPECT_EQ(messenger.Texts,
                  c.Message ? QStringList{Text(Ids::MsgOverLimit)} : QStringList{});
    }
}

TEST_F(GridTest, ReplacingACompletePanelAsksFirst)
{
    const struct
    {
        const char* Name;
        const char* Existing;
        EAnswer Answer;
        bool Asked;
        const char* Stays;
    } cases[] = {
        {"complete, OK replaces", "LAMP\tH,P1", EAnswer::Ok, true, "LAMP\tL,P9"},
        {"complete, Cancel keeps", "LAMP\tH,P1", EAnswer::Cancel, true, "LAMP\tH,P1"},
        {"incomplete is replaced unasked", "LAMP\tH", EAnswer::Cancel, false, "LAMP\tL,P9"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid fresh(messenger);
        ASSERT_TRUE(fresh.Place(-2, 4, Cell(c.Existing)));
        messenger.Answers = {c.Answer};
        const bool replaced = fresh.Place(-2, 4, Cell("LAMP\tL,P9"));
        EXPECT_EQ(replaced, QString(c.Stays) == "LAMP\tL,P9");
        EXPECT_EQ(LineAt(fresh, -2, 4), c.Stays);
        EXPECT_EQ(fresh.GetUseCount(LampType), 1);
        EXPECT_EQ(fresh.GetWeightedTotal(), 10);
        if (c.Asked) {
            EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgReplacePanel)});
            EXPECT_EQ(messenger.Buttons, QList<EButtons>{EButtons::OkCancel});
        } else {
            EXPECT_TRUE(messenger.Texts.isEmpty());
        }
    }
}

TEST_F(GridTest, TallPanelOverACompletePanelAtLeastAsTallAsksFirst)
{
    const struct
    {
        const char* Name;
        const char* Existing;
        EAnswer Answer;
        const char* Stays;
    } cases[] = {
        {"taller, OK replaces", "SMOT\t1,10", EAnswer::Ok, "CNT \tC,3,2,1"},
        {"as tall, OK replaces", "CNT \tH,9,8,7", EAnswer::Ok, "CNT \tC,3,2,1"},
        {"as tall, Cancel keeps", "CNT \tH,9,8,7", EAnswer::Cancel, "CNT \tH,9,8,7"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        messenger.Reset();
        CPanelGrid fresh(messenger);
        ASSERT_TRUE(fresh.Place(2, 1, Cell(c.Existing)));
        messenger.Answers = {c.Answer};
        EXPECT_EQ(fresh.Place(2, 1, Cell("CNT \tC,3,2,1")), c.Answer == EAnswer::Ok);
        EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgReplacePanel)});
        EXPECT_EQ(LineAt(fresh, 2, 1), c.Stays);
        EXPECT_EQ(fresh.CountPanels(2, 1, 2, 40), 1);
    }
}

TEST_F(GridTest, PlacingOnAContinuationReplacesTheWholePanelAbove)
{
    ASSERT_TRUE(grid.Place(1, 2, Cell("CNT \tC,3,2,1")));
    ASSERT_TRUE(grid.Place(1, 3, Cell("AND \tR")));
    EXPECT_EQ(LineAt(grid, 1, 2), "");
    EXPECT_EQ(LineAt(grid, 1, 3), "AND \tR");
    EXPECT_EQ(LineAt(grid, 1, 4), "");
    EXPECT_EQ(grid.GetUseCount(CounterType), 0);
    EXPECT_EQ(grid.GetWeightedTotal(), 10);
}

TEST_F(GridTest, TallPanelIsRefusedWhereItsLowerRowsMeetAnotherPanel)
{
    ASSERT_TRUE(grid.Place(1, 5, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(1, 4, Cell("AND \tD")));
    const QStringList before = Dump(grid);
    EXPECT_FALSE(grid.Place(1, 3, Cell("CNT \tC,3,2,1")));
    EXPECT_FALSE(grid.Place(1, 4, Cell("CNT \tC,3,2,1")));
    EXPECT_EQ(Dump(grid), before);
    // Over a panel of its own height or taller it replaces that one only.
    ASSERT_TRUE(grid.Place(2, 1, Cell("SMOT\t1,10")));
    EXPECT_TRUE(grid.Place(2, 1, Cell("CNT \tC,3,2,1")));
    EXPECT_EQ(LineAt(grid, 2, 4), "");
}

TEST_F(GridTest, CellWithoutAPanelIsNotPlaced)
{
    EXPECT_FALSE(grid.Place(1, 1, Cell("BOGUS\t1")));
    EXPECT_FALSE(grid.Place(1, 1, nullptr));
    EXPECT_FALSE(grid.Insert(1, 1, Cell(QString())));
    EXPECT_EQ(grid.GetCell(1, 1), nullptr);
}

// --- Journal and undo ----------------------------------------------------------------

TEST_F(GridTest, UndoAfterEveryJournaledOperationRestoresTheGridExactly)
{
    const struct
    {
        const char* Name;
        QList<EAnswer> Answers;
        std::function<bool(CPanelGrid&)> Operation;
    } cases[] = {
        {"Place on empty", {}, [](CPanelGrid& g) { return g.Place(4, 4, Cell("AND \tR")); }},
        {"Place replacing",
         {EAnswer::Ok},
         [](CPanelGrid& g) { return g.Place(1, 3, Cell("AND \tR")); }},
        {"Insert", {}, [](CPanelGrid& g) { return g.Insert(-1, 20, Cell("UARI\tC,5,4")); }},
        {"Remove", {}, [](CPanelGrid& g) { return g.Remove(16, 7); }},
        {"ShiftDown", {}, [](CPanelGrid& g) { return g.ShiftDown(); }},
        {"ShiftUp", {}, [](CPanelGrid& g) { return g.ShiftUp(); }},
        {"ShiftLeft", {}, [](CPanelGrid& g) { return g.ShiftLeft(); }},
        {"ShiftRight", {}, [](CPanelGrid& g) { return g.ShiftRight(); }},
        {"Cut", {}, [](CPanelGrid& g) { return g.Cut(1, 1, 2, 4); }},
        {"Paste replacing",
         {EAnswer::Yes},
         [](CPanelGrid& g) { return g.Copy(1, 1, 2, 4) && g.Paste(1, 3); }},
        {"Paste keeping",
         {EAnswer::No},
         [](CPanelGrid& g) { return g.Copy(16, 5, 16, 8) && g.Paste(15, 4); }},
        {"DeleteRange", {EAnswer::Ok}, [](CPanelGrid& g) { return g.DeleteRange(1, 1, 16, 40); }},
        {"MoveRange", {}, [](CPanelGrid& g) { return g.MoveRange(1, 1, 2, 4, 6, 20); }},
        {"ReplaceCell", {}, [](CPanelGrid& g) { return g.ReplaceCell(1, 3, Cell("CNT \tH,7,6")); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CPanelGrid layout(messenger);
        FillSampleLayout(layout);
        const QStringList before = Dump(layout);
        messenger.Reset();
        messenger.Answers = c.Answers;
        ASSERT_TRUE(c.Operation(layout));
        ASSERT_NE(Dump(layout), before);
        ASSERT_TRUE(layout.CanUndo());
        EXPECT_TRUE(layout.Undo());
        EXPECT_EQ(Dump(layout), before);
        EXPECT_FALSE(layout.CanUndo());
        EXPECT_EQ(layout.GetLastOperation(), CPanelGrid::OpNone);
    }
}

TEST_F(GridTest, OnlyTheLastStepIsUndone)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("AND \tR")));
    const QStringList afterFirst = Dump(grid);
    ASSERT_TRUE(grid.Place(1, 2, Cell("AND \tD")));
    grid.Undo();
    EXPECT_EQ(Dump(grid), afterFirst);
    // An undo cannot itself be undone, nor reach the step before.
    grid.Undo();
    EXPECT_EQ(Dump(grid), afterFirst);
}

TEST_F(GridTest, ClearJournalMakesTheStepFinal)
{
    ASSERT_TRUE(grid.Place(-2, 1, Cell("LAMP\tH,P1")));
    ASSERT_TRUE(grid.Remove(-2, 1));
    grid.ClearJournal();
    EXPECT_FALSE(grid.CanUndo());
    grid.Undo();
    EXPECT_EQ(grid.GetCell(-2, 1), nullptr);
    EXPECT_EQ(grid.GetUseCount(LampType), 0);
}

TEST_F(GridTest, ClearAllEmptiesCellsCountsAndJournal)
{
    FillSampleLayout(grid);
    ASSERT_TRUE(grid.Place(7, 7, Cell("AND \tR")));
    grid.ClearAll();
    EXPECT_EQ(Dump(grid), QStringList{"total = 0"});
    EXPECT_EQ(grid.GetUseCount(LampType), 0);
    EXPECT_FALSE(grid.CanUndo());
    EXPECT_TRUE(grid.Place(-2, 1, Cell("LAMP\tH,P1")));
}

// --- Decoders ------------------------------------------------------------------------

TEST_F(GridTest, FindByTypeSearchesSideColumnsThenProcessColumnByColumn)
{
    EXPECT_EQ(grid.FindByType(10012), nullptr);
    ASSERT_TRUE(grid.Place(2, 1, Cell("AND \tR")));
    ASSERT_TRUE(grid.Place(1, 30, Cell("AND \tR\t\t;second")));
    EXPECT_EQ(grid.FindByType(10012), grid.GetCell(1, 30));
    ASSERT_TRUE(grid.Place(-2, 40, Cell("AND \tR\t\t;output")));
    EXPECT_EQ(grid.FindByType(10012), grid.GetCell(-2, 40));
    ASSERT_TRUE(grid.Place(-1, 40, Cell("AND \tR\t\t;input")));
    EXPECT_EQ(grid.FindByType(10012), grid.GetCell(-1, 40));
}

TEST_F(GridTest, DecodersFollowTheFirstSevenSegmentDisplay)
{
    // 265 is refreshed but not given the variant when inserted.
    const struct
    {
        const char* Line;
        int OnInsert;
    } decoders[] = {
        {"7S_\t0", 2},  {"7S4_\t0", 2},  {"7S_B\t0", 2},  {"7S_D\t0", 2},
        {"7S_S\t0", 2}, {"7S4_B\t0", 2}, {"7S4_D\t0", 2}, {"7S4_S\t0", 0},
    };
    ASSERT_TRUE(grid.Place(-2, 3, Cell("7SEG\t;7SEG_D")));
    ASSERT_TRUE(grid.Place(-2, 9, Cell("7SEG\t;7SEG_B")));
    EXPECT_EQ(grid.GetDecoderVariant(), 0);
    grid.RefreshDecoders();
    EXPECT_EQ(grid.GetDecoderVariant(), 2);
    int column = 1;
    for (const auto& d : decoders) {
        SCOPED_TRACE(d.Line);
        ASSERT_TRUE(grid.Place(column, 1, Cell(d.Line)));
        EXPECT_EQ(grid.GetCell(column, 1)->GetPanel()->GetVariant(), d.OnInsert);
        ++column;
    }
    // The first display is changed to bit and the layout refreshed.
    ASSERT_TRUE(grid.Place(-2, 3, Cell("7SEG\t;7SEG_B")));
    grid.RefreshDecoders();
    EXPECT_EQ(grid.GetDecoderVariant(), 1);
    for (int c = 1; c < column; ++c)
        EXPECT_EQ(grid.GetCell(c, 1)->GetPanel()->GetMode(), 1) << c;
}

TEST_F(GridTest, DecoderWithAVariantOfItsOwnKeepsIt)
{
    ASSERT_TRUE(grid.Place(-2, 1, Cell("7SEG\t;7SEG_S")));
    grid.RefreshDecoders();
    auto decoder = Cell("7S_D\t3");
    decoder->GetPanel()->SetVariant(5);
    ASSERT_TRUE(grid.Place(1, 1, std::move(decoder)));
    EXPECT_EQ(grid.GetCell(1, 1)->GetPanel()->GetVariant(), 5);
}

TEST_F(GridTest, WithoutADisplayTheDecodersFallBackToVariantZero)
{
    ASSERT_TRUE(grid.Place(-2, 1, Cell("7SEG\t;7SEG_S")));
    grid.RefreshDecoders();
    ASSERT_TRUE(grid.Place(1, 1, Cell("7S4_S\t0")));
    grid.RefreshDecoders();
    ASSERT_EQ(grid.GetCell(1, 1)->GetPanel()->GetMode(), 3);
    ASSERT_TRUE(grid.Remove(-2, 1));
    grid.RefreshDecoders();
    EXPECT_EQ(grid.GetDecoderVariant(), 0);
    EXPECT_EQ(grid.GetCell(1, 1)->GetPanel()->GetMode(), 0);
}

// --- Rotate --------------------------------------------------------------------------

TEST_F(GridTest, RotateTurnsGatesAndJumpsAndRedrawsThem)
{
    const struct
    {
        const char* Line;
        int Turned;
        const char* TurnedLine;
    } cases[] = {
        {"AND \tR", 10013, "AND \tD"},
        {"JPI \t1,L", 10033, "JPI \t1,U"},
        {"JPO \t1,R", 10036, "JPO \t1,D"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Line);
        CPanelGrid fresh(messenger);
        ASSERT_TRUE(fresh.Place(3, 3, Cell(c.Line)));
        const int typeId = fresh.GetCell(3, 3)->GetTypeId();
        ASSERT_TRUE(fresh.Rotate(3, 3));
        const CPanelCell* cell = fresh.GetCell(3, 3);
        EXPECT_EQ(cell->GetBitmapId(), c.Turned);
        EXPECT_EQ(cell->GetPanel()->GetLine(), c.TurnedLine);
        ASSERT_FALSE(cell->GetImage().Items.isEmpty());
        EXPECT_EQ(cell->GetImage().Items[0].BitmapId, c.Turned);
        // The use count stays with the type the panel was made as.
        EXPECT_EQ(fresh.GetUseCount(typeId), 1);
        ASSERT_TRUE(fresh.Rotate(3, 3));
        EXPECT_EQ(fresh.GetCell(3, 3)->GetPanel()->GetLine(), c.Line);
    }
}

TEST_F(GridTest, RotateRefusesWhatCannotTurnAndIsNotUndoable)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("CNT \tC,3,2")));
    EXPECT_FALSE(grid.Rotate(1, 1)); // counter
    EXPECT_FALSE(grid.Rotate(1, 2)); // its continuation
    EXPECT_FALSE(grid.Rotate(5, 5)); // empty
    EXPECT_EQ(LineAt(grid, 1, 1), "CNT \tC,3,2");
    ASSERT_TRUE(grid.Place(2, 2, Cell("AND \tR")));
    ASSERT_TRUE(grid.Rotate(2, 2));
    EXPECT_FALSE(grid.CanUndo());
    grid.Undo();
    EXPECT_EQ(LineAt(grid, 2, 2), "AND \tD");
}

// --- Fill ----------------------------------------------------------------------------

TEST_F(GridTest, FillRepeatsIntoEmptyCellsUpToAPanelOrTheEdge)
{
    const struct
    {
        QChar Direction;
        int Column, Row; // the source
        QList<CGridPos> Filled;
    } cases[] = {
        {u'D', 5, 5, {{5, 6}, {5, 7}}},
        {u'U', 5, 5, {{5, 4}, {5, 3}, {5, 2}, {5, 1}}},
        {u'L', 5, 5, {{4, 5}, {3, 5}}},
        {u'R', 14, 5, {{15, 5}, {16, 5}}},
        {u'L', 1, 5, {}}, // nothing left of the first process column
        {u'R', 1, 9, {{2, 9}, {3, 9}, {4, 9}, {5, 9}, {6, 9}, {7, 9}, {8, 9}, {9, 9}, {10, 9}, {11, 9},
                      {12, 9}, {13, 9}, {14, 9}, {15, 9}, {16, 9}}},
        {u'D', -1, 37, {{-1, 38}, {-1, 39}, {-1, 40}}},
        {u'L', -1, 5, {}}, // only the process area repeats sideways
        {u'R', -2, 5, {}},
        {u'X', 5, 5, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1 from %2,%3")
                         .arg(c.Direction)
                         .arg(c.Column)
                         .arg(c.Row)
                         .toStdString());
        CPanelGrid fresh(messenger);
        ASSERT_TRUE(fresh.Place(5, 8, Cell("NOT \tR")));
        ASSERT_TRUE(fresh.Place(2, 5, Cell("NOT \tR")));
        ASSERT_TRUE(fresh.Place(c.Column, c.Row, Cell("AND \tR")));
        const int before = fresh.GetUseCount(AndType);
        EXPECT_TRUE(fresh.Fill(c.Column, c.Row, c.Direction));
        for (const CGridPos& pos : c.Filled)
            EXPECT_EQ(LineAt(fresh, pos.Column, pos.Row), "AND \tR")
                << pos.Column << "," << pos.Row;
        EXPECT_EQ(fresh.GetUseCount(AndType), before + c.Filled.size());
    }
}

TEST_F(GridTest, FillRefusesEmptyAndMultiRowSources)
{
    ASSERT_TRUE(grid.Place(1, 1, Cell("CNT \tC,3,2")));
    EXPECT_FALSE(grid.Fill(3, 3, u'D'));
    EXPECT_FALSE(grid.Fill(1, 1, u'R'));
    EXPECT_FALSE(grid.Fill(1, 2, u'R')); // continuation cell
    EXPECT_EQ(grid.GetUseCount(CounterType), 1);
    EXPECT_EQ(LineAt(grid, 2, 1), "");
}

TEST_F(GridTest, FillStopsPlacingWhenTheTypeIsUsedUp)
{
    grid.SetUseLimits({{AndType, 3}});
    ASSERT_TRUE(grid.Place(1, 1, Cell("AND \tR")));
    EXPECT_TRUE(grid.Fill(1, 1, u'D'));
    EXPECT_EQ(grid.GetUseCount(AndType), 3);
    EXPECT_EQ(LineAt(grid, 1, 3), "AND \tR");
    EXPECT_EQ(LineAt(grid, 1, 4), "");
    EXPECT_EQ(LineAt(grid, 1, 40), "");
}

TEST_F(GridTest, FillCopiesTheSourceAndUndoTakesBackTheLastCopyOnly)
{
    auto source = Cell("AND \tR");
    source->GetPanel()->SetName("Gate");
    source->GetPanel()->SetWeight(7);
    ASSERT_TRUE(grid.Place(1, 37, std::move(source)));
    ASSERT_TRUE(grid.Fill(1, 37, u'D'));
    for (int r = 38; r <= 40; ++r) {
        const CPanel* copy = grid.GetCell(1, r)->GetPanel();
        EXPECT_NE(copy, grid.GetCell(1, 37)->GetPanel());
        EXPECT_EQ(copy->GetName(), "Gate");
        EXPECT_EQ(copy->GetWeight(), 7);
    }
    EXPECT_EQ(grid.GetWeightedTotal(), 28);
    grid.Undo();
    EXPECT_EQ(LineAt(grid, 1, 40), "");
    EXPECT_EQ(LineAt(grid, 1, 39), "AND \tR");
    EXPECT_EQ(grid.GetWeightedTotal(), 21);
}

TEST_F(GridTest, FillOverCapacityWarnsOnceAfterwards)
{
    auto source = Cell("AND \tR");
    source->GetPanel()->SetWeight(400);
    ASSERT_TRUE(grid.Place(1, 37, std::move(source)));
    ASSERT_TRUE(grid.Fill(1, 37, u'D'));
    EXPECT_EQ(grid.GetWeightedTotal(), 1600);
    EXPECT_EQ(messenger.Texts, QStringList{Text(Ids::MsgOverLimit)});
}
