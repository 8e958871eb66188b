#include "layoutdocument.h"
#include "layoutgeometry.h"
#include "layoutview.h"
#include "panelchooser.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

// Stands in for the panel bars: the chosen entry is a definition line, "" for none.
class CFakeChooser : public IPanelChooser
{
  public:
    std::unique_ptr<CPanelCell> TakeChosenCell() override
    {
        return Line.isEmpty() ? nullptr : std::make_unique<CPanelCell>(Line);
    }
    bool HasChosen() const override { return !Line.isEmpty(); }
    int ChosenArea() const override
    {
        const CPanelCell cell(Line);
        return cell.GetPanel() ? cell.GetPanel()->GetArea() : int(CPanel::AreaNone);
    }
    void ClearChoice() override { Line.clear(); }
    void Refresh() override { ++Refreshes; }

    QString Line;
    int Refreshes = 0;
};

enum : int
{
    AndType = 10012,
};

// The line of the panel at a position, "+" for a continuation cell, "" when empty.
QString LineIn(const CPanelGrid& grid, int column, int row)
{
    const CPanelCell* cell = grid.GetCell(column, row);
    if (!cell)
        return QString();
    return cell->GetPanel() ? cell->GetPanel()->GetLine() : QStringLiteral("+");
}

struct LayoutViewTest : testing::Test
{
    CRecordingMessenger messenger;
    CLayoutDocument document{nullptr, messenger};
    CPanelGrid& grid = document.Grid();
    CFakeChooser chooser;
    CFakeEditor editor;
    CLayoutView view{document, chooser, editor};

    void SetUp() override
    {
        view.resize(760, 600);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    // Copies go to the system clipboard too; none is left for the next test.
    void TearDown() override { QApplication::clipboard()->clear(); }

    QWidget* Port() { return view.viewport(); }

    QPoint At(int column, int row) const
    {
        return view.MapFromLogical(CLayoutGeometry::CellRect(column, row).center());
    }

    void Place(int column, int row, const QString& line)
    {
        ASSERT_TRUE(grid.Place(column, row, std::make_unique<CPanelCell>(line)));
        grid.ClearJournal();
    }

    void Click(int column, int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(Port(), Qt::LeftButton, modifiers, At(column, row));
    }

    // Press, a first step past the drag threshold, then on to the target and release.
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(Port(), Qt::LeftButton, modifiers, from);
        const QPoint step =
            from + QPoint(to.x() > from.x() ? 12 : -12, to.y() > from.y() ? 12 : -12);
        QTest::mouseMove(Port(), step);
        QTest::mouseMove(Port(), to);
        QTest::mouseRelease(Port(), Qt::LeftButton, modifiers, to);
    }

    // A move with no button held goes through the platform's cursor, which ignores a move
    // to where it already is; stepping aside first makes every hover arrive.
    void Hover(QPoint point)
    {
        QTest::mouseMove(Port(), QPoint(1, 1));
        QTest::mouseMove(Port(), point);
    }

    void Key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&view, Qt::Key(key), modifiers);
    }

    // A drag from a panel bar that enters the view, moves to the point and drops there, as
    // the bar's list starts it: the area, a line feed, the line. Answers whether the view
    // took the drag at the point.
    bool DropFromBar(QPoint point, int area, const QString& line)
    {
        QMimeData data;
        data.setData(QString::fromLatin1(IPanelChooser::kMimeType),
                     (QString::number(area) + u'\n' + line).toUtf8());
        QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(Port(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(Port(), &move);
        QDropEvent drop(QPointF(point), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(Port(), &drop);
        return move.isAccepted();
    }

    void SelectBlock(int c1, int r1, int c2, int r2)
    {
        Drag(At(c1, r1), At(c2, r2), Qt::ControlModifier);
    }

    QString Line(int column, int row) const { return LineIn(grid, column, row); }

    // Whether the drag rectangle is drawn with its left edge on the cell: the edge is two
    // pixels in the text colour, which nothing else draws there.
    bool DragRectAt(int column, int row)
    {
        const QRect cell = CLayoutGeometry::CellRect(column, row);
        const QImage image = Port()->grab().toImage();
        const QPoint edge = view.MapFromLogical({cell.left() + 1, cell.center().y()});
        return image.pixelColor(edge) == view.palette().color(QPalette::Active, QPalette::Text);
    }

    CGridPos First() const { return view.GetSelection().TopLeft(); }
    CGridPos Last() const { return view.GetSelection().BottomRight(); }
};

} // namespace

// Readable failures for positions; beside CGridPos so that the test library finds it.
static void PrintTo(const CGridPos& pos, std::ostream* os)
{
    *os << '(' << pos.Column << ", " << pos.Row << ')';
}

// --- Placing --------------------------------------------------------------------------

TEST_F(LayoutViewTest, ClickPlacesTheChosenEntryAndSelectsIt)
{
    QSignalSpy modified(&view, &CLayoutView::Modified);
    QSignalSpy usage(&view, &CLayoutView::UsageChanged);
    chooser.Line = "AND \tR";
    Click(3, 4);
    EXPECT_EQ(Line(3, 4), "AND \tR");
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(modified.count(), 1);
    ASSERT_FALSE(usage.isEmpty());
    EXPECT_EQ(usage.last().at(0).toInt(), 1); // weight 10 of 1000, rounded up
    EXPECT_EQ(First(), (CGridPos{3, 4}));
    EXPECT_EQ(Last(), (CGridPos{3, 4}));
    EXPECT_EQ(chooser.Line, "AND \tR"); // still chosen: no use limit
    EXPECT_GT(chooser.Refreshes, 0);
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
}

TEST_F(LayoutViewTest, ClickRefusesAnEntryOfAnotherAreaAndAnUsedUpTypeLosesTheChoice)
{
    chooser.Line = "KEY \tH,P1";
    Click(3, 4);
    EXPECT_EQ(Line(3, 4), "");
    EXPECT_FALSE(document.IsModified());

    grid.SetUseLimits({{AndType, 1}});
    chooser.Line = "AND \tR";
    Click(3, 4);
    EXPECT_EQ(Line(3, 4), "AND \tR");
    EXPECT_TRUE(chooser.Line.isEmpty());
}

TEST_F(LayoutViewTest, APressWithAChosenEntryShowsThePlacingCursor)
{
    chooser.Line = "AND \tR";
    QTest::mousePress(Port(), Qt::LeftButton, {}, At(2, 2));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::PlacingByClick);
    EXPECT_EQ(Port()->cursor().shape(), Qt::DragCopyCursor);
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(2, 2));
    chooser.Line.clear();
    QTest::mousePress(Port(), Qt::LeftButton, {}, At(2, 2));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Selecting);
    EXPECT_EQ(Port()->cursor().shape(), Qt::CrossCursor);
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(2, 2));
    EXPECT_EQ(Port()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(LayoutViewTest, DropFromTheBarPlacesOnlyWhereTheAreaFits)
{
    const struct
    {
        const char* Name;
        int Area;
        const char* Line;
        CGridPos Target;
        bool Placed;
    } cases[] = {
        {"process panel on a process cell", CPanel::AreaProcess, "AND \tR", {4, 6}, true},
        {"input panel on a process cell", CPanel::AreaInput, "KEY \tH,P1", {4, 6}, false},
        {"input panel on the input column", CPanel::AreaInput, "KEY \tH,P1", {-1, 2}, true},
        {"output panel on the input column", CPanel::AreaOutput, "LAMP\tH,P1", {-1, 2}, false},
        {"process panel on the output column", CPanel::AreaProcess, "AND \tR", {-2, 2}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        document.SetModified(false);
        chooser.Line = c.Line;
        // The refusal shows while dragging, before anything is dropped.
        EXPECT_EQ(DropFromBar(At(c.Target.Column, c.Target.Row), c.Area, c.Line), c.Placed);
        EXPECT_EQ(Line(c.Target.Column, c.Target.Row), c.Placed ? c.Line : "");
        EXPECT_EQ(grid.GetWeightedTotal(), c.Placed ? 10 : 0);
        EXPECT_EQ(document.IsModified(), c.Placed);
        EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    }
}

TEST_F(LayoutViewTest, ADropWithoutAChoiceTakesTheDraggedLine)
{
    DropFromBar(At(-2, 9), CPanel::AreaOutput, "LAMP\tL,P2");
    EXPECT_EQ(Line(-2, 9), "LAMP\tL,P2");
}

// --- Selecting ------------------------------------------------------------------------

TEST_F(LayoutViewTest, AClickSelectsTheWholePanelUnderIt)
{
    Place(2, 5, "CNT \tC,3,2,1");
    Click(2, 6);
    EXPECT_EQ(First(), (CGridPos{2, 5}));
    EXPECT_EQ(Last(), (CGridPos{2, 7}));
    EXPECT_FALSE(document.IsModified());
}

TEST_F(LayoutViewTest, ThePositionPaneShowsWhereTheSelectionIs)
{
    QSignalSpy position(&view, &CLayoutView::PositionText);
    const struct
    {
        QPoint Point;
        const char* Text;
    } cases[] = {
        {At(-1, 5), "  IN ,  5 "},
        {At(-2, 3), "  OUT,  3 "},
        {At(12, 7), "  12 ,  7 "},
        {view.MapFromLogical({5, 5}), "  -- , -- "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Text);
        position.clear();
        QTest::mouseClick(Port(), Qt::LeftButton, {}, c.Point);
        ASSERT_FALSE(position.isEmpty());
        EXPECT_EQ(position.last().at(0).toString(), c.Text);
    }
}

TEST_F(LayoutViewTest, ASelectionNeverSpansASideColumnAndAnythingElse)
{
    const struct
    {
        int C1, R1, C2, R2;
        CGridPos First, Last;
    } cases[] = {
        {-1, 5, 3, 7, {-1, 5}, {-1, 7}},
        {-2, 5, 3, 7, {-2, 5}, {-2, 7}},
        {3, 5, -2, 7, {3, 5}, {16, 7}},
        {3, 5, -1, 7, {1, 5}, {3, 7}},
    };
    for (const auto& c : cases) {
        view.SetSelection(c.C1, c.R1, c.C2, c.R2);
        EXPECT_EQ(First(), c.First);
        EXPECT_EQ(Last(), c.Last);
    }
}

TEST_F(LayoutViewTest, ASelectionOutOfSightIsScrolledInWithFiftyPixelsToSpare)
{
    QScrollBar* bar = view.verticalScrollBar();
    const int visible = Port()->height();
    EXPECT_EQ(bar->maximum(), CLayoutGeometry::DrawingSize().height() - visible);
    view.SetSelection(3, 25);
    EXPECT_EQ(bar->value(), CLayoutGeometry::CellRect(3, 25).bottom() + 1 + 50 - visible);
    view.SetSelection(3, 2);
    EXPECT_EQ(bar->value(), CLayoutGeometry::CellRect(3, 2).top() - 50);
    // Already in sight: no scrolling.
    view.SetSelection(3, 4);
    EXPECT_EQ(bar->value(), CLayoutGeometry::CellRect(3, 2).top() - 50);
}

TEST_F(LayoutViewTest, ADragFromAnEmptyCellSelectsARectangle)
{
    Drag(At(4, 3), At(6, 5));
    EXPECT_EQ(First(), (CGridPos{4, 3}));
    EXPECT_EQ(Last(), (CGridPos{6, 5}));
}

TEST_F(LayoutViewTest, ACtrlDragFromAPanelSelectsARectangleInsteadOfMovingIt)
{
    Place(4, 3, "AND \tR");
    Drag(At(4, 3), At(6, 5), Qt::ControlModifier);
    EXPECT_EQ(First(), (CGridPos{4, 3}));
    EXPECT_EQ(Last(), (CGridPos{6, 5}));
    EXPECT_EQ(Line(4, 3), "AND \tR");
}

// --- Moving ---------------------------------------------------------------------------

TEST_F(LayoutViewTest, DraggingAPanelMovesItAndItsSelection)
{
    Place(3, 3, "CNT \tC,3,2");
    QSignalSpy modified(&view, &CLayoutView::Modified);
    QTest::mousePress(Port(), Qt::LeftButton, {}, At(3, 3));
    QTest::mouseMove(Port(), At(3, 3) + QPoint(12, 12));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Moving);
    EXPECT_EQ(Port()->cursor().shape(), Qt::SizeAllCursor);
    QTest::mouseMove(Port(), At(6, 8));
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(6, 8));
    EXPECT_EQ(Line(3, 3), "");
    EXPECT_EQ(Line(6, 8), "CNT \tC,3,2");
    EXPECT_EQ(Line(6, 9), "+");
    EXPECT_EQ(First(), (CGridPos{6, 8}));
    EXPECT_EQ(Last(), (CGridPos{6, 9}));
    EXPECT_EQ(modified.count(), 1);
    ASSERT_TRUE(view.CanUndo());
    view.Undo();
    EXPECT_EQ(Line(3, 3), "CNT \tC,3,2");
    EXPECT_EQ(Line(6, 8), "");
}

TEST_F(LayoutViewTest, AMoveOfLessThanTenPixelsIntoTheNextCellMovesNothing)
{
    Place(3, 3, "AND \tR");
    const QRect cell = CLayoutGeometry::CellRect(3, 3);
    const QPoint press = view.MapFromLogical({cell.right() - 1, cell.center().y()});
    const QPoint release = press + QPoint(9, 9); // in column 4
    ASSERT_EQ(view.HitTest(release).Column, 4);
    QTest::mousePress(Port(), Qt::LeftButton, {}, press);
    QTest::mouseMove(Port(), release);
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Selecting);
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, release);
    EXPECT_EQ(Line(3, 3), "AND \tR");
    EXPECT_EQ(Line(4, 3), "");

    // A drag that went further but comes back near the press point is no move either.
    QTest::mousePress(Port(), Qt::LeftButton, {}, press);
    QTest::mouseMove(Port(), press + QPoint(20, 0));
    ASSERT_EQ(view.GetState(), CLayoutView::EState::Moving);
    QTest::mouseMove(Port(), release);
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, release);
    EXPECT_EQ(Line(3, 3), "AND \tR");
    EXPECT_EQ(Line(4, 3), "");
    EXPECT_FALSE(document.IsModified());
}

TEST_F(LayoutViewTest, AMoveIsShownWhereItWouldLandButNotOverTheOtherArea)
{
    Place(3, 3, "AND \tR");
    Place(-1, 3, "KEY \tH,P1");
    ASSERT_FALSE(DragRectAt(6, 8));
    QTest::mousePress(Port(), Qt::LeftButton, {}, At(3, 3));
    QTest::mouseMove(Port(), At(3, 3) + QPoint(12, 12));
    QTest::mouseMove(Port(), At(6, 8));
    EXPECT_TRUE(DragRectAt(6, 8));
    QTest::mouseMove(Port(), At(-2, 8));
    EXPECT_FALSE(DragRectAt(-2, 8));
    EXPECT_FALSE(DragRectAt(6, 8));
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(-2, 8));
    EXPECT_EQ(Line(3, 3), "AND \tR");

    // A side panel is shown only in its own column.
    QTest::mousePress(Port(), Qt::LeftButton, {}, At(-1, 3));
    QTest::mouseMove(Port(), At(-1, 3) + QPoint(12, 12));
    QTest::mouseMove(Port(), At(-1, 9));
    EXPECT_TRUE(DragRectAt(-1, 9));
    QTest::mouseMove(Port(), At(4, 9));
    EXPECT_FALSE(DragRectAt(4, 9));
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(4, 9));
    EXPECT_FALSE(DragRectAt(4, 9));
    EXPECT_EQ(Line(-1, 3), "KEY \tH,P1");
    EXPECT_FALSE(document.IsModified());
}

TEST_F(LayoutViewTest, AProcessPanelDroppedOnASideColumnStays)
{
    Place(3, 3, "AND \tR");
    Drag(At(3, 3), At(-2, 6));
    EXPECT_EQ(Line(3, 3), "AND \tR");
    EXPECT_EQ(Line(-2, 6), "");
    EXPECT_FALSE(document.IsModified());
}

TEST_F(LayoutViewTest, DraggingAPanelOutOfTheWindowDeletesItAfterTheQuestion)
{
    Place(-2, 3, "LAMP\tH,P1");
    const QPoint outside(Port()->width() + 40, At(-2, 3).y());

    messenger.Answers = {EAnswer::Cancel};
    Drag(At(-2, 3), outside);
    EXPECT_EQ(messenger.Texts, QStringList{CStringTable::Get(Ids::MsgDeletePanel)});
    EXPECT_EQ(Line(-2, 3), "LAMP\tH,P1");
    EXPECT_FALSE(document.IsModified());

    messenger.Texts.clear();
    messenger.Answers = {EAnswer::Ok};
    Drag(At(-2, 3), outside);
    EXPECT_EQ(messenger.Texts, QStringList{CStringTable::Get(Ids::MsgDeletePanel)});
    EXPECT_EQ(Line(-2, 3), "");
    EXPECT_EQ(grid.GetWeightedTotal(), 0);
    EXPECT_TRUE(document.IsModified());
}

TEST_F(LayoutViewTest, ABlockSelectionArmsUnderTheMouseAndMovesAsAWhole)
{
    Place(4, 3, "AND \tR");
    Place(5, 4, "XOR \tR");
    // An empty block has nothing to move.
    SelectBlock(11, 11, 12, 12);
    Hover(At(11, 11));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    EXPECT_EQ(Port()->cursor().shape(), Qt::ArrowCursor);
    SelectBlock(4, 3, 5, 4);
    Hover(At(5, 4));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::ArmedForMove);
    EXPECT_EQ(Port()->cursor().shape(), Qt::OpenHandCursor);
    Drag(At(5, 4), At(8, 10));
    // The block's first cell goes where the mouse was let go.
    EXPECT_EQ(Line(8, 10), "AND \tR");
    EXPECT_EQ(Line(9, 11), "XOR \tR");
    EXPECT_EQ(Line(4, 3), "");
    EXPECT_EQ(First(), (CGridPos{8, 10}));
    EXPECT_EQ(Last(), (CGridPos{9, 11}));

    // With a bar entry chosen a click places, so nothing is armed.
    chooser.Line = "NOT \tR";
    Hover(At(8, 10));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    EXPECT_EQ(Port()->cursor().shape(), Qt::DragCopyCursor);
    chooser.Line.clear();

    // Ctrl over an armed block starts a new rectangle.
    Hover(At(8, 10));
    ASSERT_EQ(view.GetState(), CLayoutView::EState::ArmedForMove);
    SelectBlock(8, 10, 10, 12);
    EXPECT_EQ(Line(8, 10), "AND \tR");
    EXPECT_EQ(First(), (CGridPos{8, 10}));
    EXPECT_EQ(Last(), (CGridPos{10, 12}));

    // Off the selection the mouse does not arm; a click inside an armed block picks one panel.
    Hover(At(2, 2));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    Hover(At(9, 11));
    ASSERT_EQ(view.GetState(), CLayoutView::EState::ArmedForMove);
    Click(9, 11);
    EXPECT_EQ(First(), (CGridPos{9, 11}));
    EXPECT_EQ(Last(), (CGridPos{9, 11}));
}

// --- Double-click ---------------------------------------------------------------------

TEST_F(LayoutViewTest, DoubleClickEditsThePanelAndSelectsItsNewSize)
{
    Place(2, 5, "CNT \tC,3");
    editor.Tokens = {"CNT", "C", "3", "2"};
    QTest::mouseClick(Port(), Qt::LeftButton, {}, At(2, 5));
    QTest::mouseDClick(Port(), Qt::LeftButton, {}, At(2, 5));
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(2, 5));
    EXPECT_EQ(editor.Asked, EPanelDialog::Counter);
    EXPECT_EQ(Line(2, 5), "CNT \tC,3,2");
    EXPECT_EQ(Line(2, 6), "+");
    EXPECT_EQ(Last(), (CGridPos{2, 6}));
    EXPECT_TRUE(document.IsModified());
}

TEST_F(LayoutViewTest, DoubleClickGrowingAPanelIntoAnotherIsRefused)
{
    Place(2, 5, "CNT \tC,3");
    Place(2, 6, "AND \tR");
    editor.Tokens = {"CNT", "C", "3", "2"};
    QTest::mouseClick(Port(), Qt::LeftButton, {}, At(2, 5));
    QTest::mouseDClick(Port(), Qt::LeftButton, {}, At(2, 5));
    QTest::mouseRelease(Port(), Qt::LeftButton, {}, At(2, 5));
    EXPECT_EQ(messenger.Texts, QStringList{"Unable to change size."});
    EXPECT_EQ(Line(2, 5), "CNT \tC,3");
    EXPECT_EQ(Line(2, 6), "AND \tR");
    EXPECT_FALSE(document.IsModified());
}

// --- Keys -----------------------------------------------------------------------------

TEST_F(LayoutViewTest, ArrowsWalkAcrossTheAreasAndCtrlJumpsToTheSideColumns)
{
    const struct
    {
        const char* Name;
        CGridPos From;
        int Key;
        Qt::KeyboardModifiers Modifiers;
        CGridPos To;
        const char* Text;
    } cases[] = {
        {"Right from column 16", {16, 7}, Qt::Key_Right, {}, {-2, 7}, "  OUT,  7 "},
        {"Ctrl+Left from column 16",
         {16, 7},
         Qt::Key_Left,
         Qt::ControlModifier,
         {-1, 7},
         "  IN ,  7 "},
        {"Ctrl+Right from the input column",
         {-1, 7},
         Qt::Key_Right,
         Qt::ControlModifier,
         {-2, 7},
         "  OUT,  7 "},
        {"Left from the output column", {-2, 7}, Qt::Key_Left, {}, {16, 7}, "  16 ,  7 "},
        {"Left from column 1", {1, 7}, Qt::Key_Left, {}, {-1, 7}, "  IN ,  7 "},
        {"Right from the input column", {-1, 7}, Qt::Key_Right, {}, {1, 7}, "   1 ,  7 "},
        {"Left in the input column", {-1, 7}, Qt::Key_Left, {}, {-1, 7}, "  IN ,  7 "},
        {"Right in the output column", {-2, 7}, Qt::Key_Right, {}, {-2, 7}, "  OUT,  7 "},
        {"Up in row 1", {5, 1}, Qt::Key_Up, {}, {5, 1}, "   5 ,  1 "},
        {"Ctrl+Down", {5, 3}, Qt::Key_Down, Qt::ControlModifier, {5, 40}, "   5 , 40 "},
        {"Ctrl+Up", {5, 30}, Qt::Key_Up, Qt::ControlModifier, {5, 1}, "   5 ,  1 "},
    };
    QSignalSpy position(&view, &CLayoutView::PositionText);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        view.SetSelection(c.From.Column, c.From.Row);
        position.clear();
        Key(c.Key, c.Modifiers);
        EXPECT_EQ(First(), c.To);
        if (!(c.To == c.From)) {
            ASSERT_FALSE(position.isEmpty());
            EXPECT_EQ(position.last().at(0).toString(), c.Text);
        }
    }
}

TEST_F(LayoutViewTest, UpAndDownStepOverATallPanel)
{
    Place(4, 5, "CNT \tC,3,2,1");
    view.SetSelection(4, 4);
    Key(Qt::Key_Down);
    EXPECT_EQ(First(), (CGridPos{4, 5}));
    EXPECT_EQ(Last(), (CGridPos{4, 7}));
    Key(Qt::Key_Down);
    EXPECT_EQ(First(), (CGridPos{4, 8}));
    Key(Qt::Key_Up);
    EXPECT_EQ(First(), (CGridPos{4, 5}));
    EXPECT_EQ(Last(), (CGridPos{4, 7}));
    view.SetSelection(4, 40);
    Key(Qt::Key_Down);
    EXPECT_EQ(First(), (CGridPos{4, 40}));
}

TEST_F(LayoutViewTest, EscapeDropsTheChoiceAndTheSelection)
{
    Place(3, 3, "AND \tR");
    Click(3, 3);
    chooser.Line = "XOR \tR";
    QSignalSpy position(&view, &CLayoutView::PositionText);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(chooser.Line.isEmpty());
    EXPECT_TRUE(view.GetSelection().IsEmpty());
    ASSERT_FALSE(position.isEmpty());
    EXPECT_EQ(position.last().at(0).toString(), "  -- , -- ");
}

TEST_F(LayoutViewTest, DeleteKeyRemovesTheSelectedPanelsAfterTheQuestion)
{
    Place(-1, 2, "KEY \tH,P1");
    Place(-1, 3, "KEY \tL,P2");
    view.SetSelection(-1, 2, -1, 3);
    messenger.Answers = {EAnswer::Cancel};
    Key(Qt::Key_Delete);
    EXPECT_EQ(Line(-1, 2), "KEY \tH,P1");
    EXPECT_FALSE(document.IsModified());
    messenger.Answers = {EAnswer::Ok};
    Key(Qt::Key_Delete);
    EXPECT_EQ(Line(-1, 2), "");
    EXPECT_EQ(Line(-1, 3), "");
    EXPECT_EQ(messenger.Texts.size(), 2);
    EXPECT_TRUE(document.IsModified());
}

TEST_F(LayoutViewTest, AltDownFillsTheEmptyCellsBelowUpToTheNextPanel)
{
    Place(5, 35, "AND \tR");
    Place(5, 38, "NOT \tR");
    Click(5, 35);
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Line(5, 36), "AND \tR");
    EXPECT_EQ(Line(5, 37), "AND \tR");
    EXPECT_EQ(Line(5, 38), "NOT \tR");
    EXPECT_EQ(Line(5, 39), "");
    EXPECT_TRUE(document.IsModified());
    // Nothing left to fill: no change.
    document.SetModified(false);
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_FALSE(document.IsModified());
}

TEST_F(LayoutViewTest, PageDownScrollsByAPage)
{
    Key(Qt::Key_PageDown);
    EXPECT_EQ(view.verticalScrollBar()->value(), Port()->height());
    Key(Qt::Key_PageUp);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

// --- Commands -------------------------------------------------------------------------

TEST_F(LayoutViewTest, RotateTurnsTheSelectedGate)
{
    Place(3, 3, "AND \tR");
    Place(4, 3, "CNT \tC,3");
    Click(4, 3);
    EXPECT_FALSE(view.CanRotate());
    Click(3, 3);
    ASSERT_TRUE(view.CanRotate());
    view.Rotate();
    EXPECT_EQ(Line(3, 3), "AND \tD");
    EXPECT_TRUE(document.IsModified());
}

TEST_F(LayoutViewTest, AShiftIsUndoneByUndo)
{
    Place(3, 3, "AND \tR");
    Place(-1, 40, "KEY \tH,P1");
    QSignalSpy modified(&view, &CLayoutView::Modified);
    view.ShiftAllDown();
    EXPECT_EQ(Line(3, 4), "AND \tR");
    EXPECT_EQ(Line(-1, 40), "");
    EXPECT_EQ(modified.count(), 1);
    ASSERT_TRUE(view.CanUndo());
    view.Undo();
    EXPECT_EQ(Line(3, 3), "AND \tR");
    EXPECT_EQ(Line(3, 4), "");
    EXPECT_EQ(Line(-1, 40), "KEY \tH,P1");
    EXPECT_FALSE(view.CanUndo());
}

TEST_F(LayoutViewTest, EveryShiftRefreshesThePanelBars)
{
    const struct
    {
        const char* Name;
        void (CLayoutView::*Shift)();
    } cases[] = {
        {"up", &CLayoutView::ShiftAllUp},
        {"down", &CLayoutView::ShiftAllDown},
        {"left", &CLayoutView::ShiftAllLeft},
        {"right", &CLayoutView::ShiftAllRight},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        Place(3, 3, "AND \tR");
        chooser.Refreshes = 0;
        (view.*c.Shift)();
        EXPECT_EQ(chooser.Refreshes, 1);
    }
}

TEST_F(LayoutViewTest, CopiedPanelsPasteIntoAnotherLayoutAndAsTextAnywhere)
{
    Place(3, 3, "AND \tR\t\t;gate");
    Place(4, 4, "NOT \tR");
    SelectBlock(2, 2, 4, 4);
    view.Copy();
    EXPECT_EQ(QApplication::clipboard()->text(), "AND \tR\t\t;gate\nNOT \tR\n");

    // Another layout, as another window or another Quillon has it.
    CLayoutDocument other{nullptr, messenger};
    CLayoutView otherView{other, chooser, editor};
    otherView.SetSelection(10, 20);
    ASSERT_TRUE(otherView.CanPaste());
    otherView.Paste();
    EXPECT_EQ(LineIn(other.Grid(), 10, 20), "AND \tR\t\t;gate");
    EXPECT_EQ(LineIn(other.Grid(), 11, 21), "NOT \tR");
    EXPECT_TRUE(other.IsModified());

    // Opening a layout keeps what was copied.
    QTemporaryDir dir;
    const QString path = dir.filePath("other.loc");
    ASSERT_TRUE(other.SaveAs(path));
    ASSERT_TRUE(document.Open(path));
    view.Reset();
    view.SetSelection(1, 30);
    ASSERT_TRUE(view.CanPaste());
    view.Paste();
    EXPECT_EQ(Line(1, 30), "AND \tR\t\t;gate");
}

TEST_F(LayoutViewTest, PasteOverPanelsAsksYesNoOrCancel)
{
    const struct
    {
        const char* Name;
        EAnswer Answer;
        const char* Top;
        const char* Below;
    } cases[] = {
        {"Yes replaces", EAnswer::Yes, "AND \tR", "XOR \tR"},
        {"No keeps what is there", EAnswer::No, "NOT \tR", "XOR \tR"},
        {"Cancel pastes nothing", EAnswer::Cancel, "NOT \tR", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        Place(2, 2, "AND \tR");
        Place(2, 3, "XOR \tR");
        Place(6, 2, "NOT \tR");
        SelectBlock(2, 2, 2, 3);
        view.Copy();
        Click(6, 2);
        ASSERT_TRUE(view.CanPaste());
        document.SetModified(false);
        messenger.Texts.clear();
        messenger.Answers = {c.Answer};
        view.Paste();
        EXPECT_EQ(messenger.Texts, QStringList{CStringTable::Get(Ids::MsgPasteOverPanels)});
        EXPECT_EQ(Line(6, 2), c.Top);
        EXPECT_EQ(Line(6, 3), c.Below);
        EXPECT_EQ(document.IsModified(), c.Answer != EAnswer::Cancel);
    }
}

TEST_F(LayoutViewTest, PasteIsEnabledOnlyWhereTheBlockFits)
{
    Place(-1, 2, "KEY \tH,P1");
    Click(-1, 2);
    view.Copy();
    view.SetSelection(3, 3);
    EXPECT_FALSE(view.CanPaste());
    view.SetSelection(-1, 40);
    EXPECT_TRUE(view.CanPaste());
    view.ClearSelection();
    EXPECT_FALSE(view.CanPaste());
}

TEST_F(LayoutViewTest, CutTakesTheSelectionAndPasteBringsItBack)
{
    Place(3, 3, "AND \tR");
    Click(3, 3);
    view.Cut();
    EXPECT_EQ(Line(3, 3), "");
    EXPECT_TRUE(document.IsModified());
    view.SetSelection(7, 9);
    view.Paste();
    EXPECT_EQ(Line(7, 9), "AND \tR");
}

// --- Status, zoom, right button -------------------------------------------------------

TEST_F(LayoutViewTest, TheMessagePaneShowsTheCaptionUnderTheMouse)
{
    Place(4, 5, "CNT \tC,3,2,1");
    QSignalSpy status(&view, &CLayoutView::StatusText);
    Hover(At(4, 7));
    ASSERT_FALSE(status.isEmpty());
    EXPECT_EQ(status.last().at(0).toString(), grid.GetCell(4, 5)->GetPanel()->GetCaption());
    EXPECT_FALSE(status.last().at(0).toString().isEmpty());
    Hover(At(9, 9));
    EXPECT_EQ(status.last().at(0).toString(), "");
}

TEST_F(LayoutViewTest, ZoomScalesTheDrawingButKeepsItsCells)
{
    view.ZoomIn();
    EXPECT_GT(view.GetZoom(), 1.0);
    view.ResetZoom();
    ASSERT_EQ(view.GetZoom(), 1.0);
    QWheelEvent wheel(QPointF(100, 100), QPointF(Port()->mapToGlobal(QPoint(100, 100))), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Port(), &wheel);
    EXPECT_GT(view.GetZoom(), 1.0);
    view.ResetZoom();
    view.ZoomOut();
    EXPECT_LT(view.GetZoom(), 1.0);

    // At twice the size, scrolled to the top left, cell (1, 1) covers 188..251 x 60..123.
    while (view.GetZoom() < 2.0)
        view.ZoomIn();
    ASSERT_EQ(view.GetZoom(), 2.0);
    view.horizontalScrollBar()->setValue(0);
    view.verticalScrollBar()->setValue(0);
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 2 * 1340 - Port()->height());
    chooser.Line = "AND \tR";
    QTest::mouseClick(Port(), Qt::LeftButton, {}, QPoint(190, 62));
    EXPECT_EQ(Line(1, 1), "AND \tR");
    chooser.Line.clear();
    QTest::mouseClick(Port(), Qt::LeftButton, {}, QPoint(250, 122));
    EXPECT_EQ(First(), (CGridPos{1, 1}));
    QTest::mouseClick(Port(), Qt::LeftButton, {}, QPoint(253, 125));
    EXPECT_EQ(First(), (CGridPos{2, 2}));
}

TEST_F(LayoutViewTest, TheRightButtonSelectsOutsideTheSelectionOnly)
{
    Place(3, 3, "AND \tR");
    Place(4, 4, "XOR \tR");
    SelectBlock(3, 3, 4, 4);
    QTest::mouseClick(Port(), Qt::RightButton, {}, At(4, 4));
    EXPECT_EQ(First(), (CGridPos{3, 3}));
    EXPECT_EQ(Last(), (CGridPos{4, 4}));
    QTest::mouseClick(Port(), Qt::RightButton, {}, At(8, 8));
    EXPECT_EQ(First(), (CGridPos{8, 8}));
    EXPECT_FALSE(document.IsModified());
}
