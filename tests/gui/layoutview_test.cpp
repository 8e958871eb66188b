#include "core/grid/gridtest.h"
#include "layoutdocument.h"
#include "layoutgeometry.h"
#include "layoutview.h"
#include "panelchooser.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Stands in for the panel bars: the chosen entry is a definition line, "" for none.
class CFakeChooser : public IPanelChooser
{
  public:
    std::unique_ptr<CPanelCell> TakeChosenCell() override
    {
        return Line.isEmpty() ? nullptr : Cell(Line);
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
    QPoint At(int c, int r) const { return view.MapFromLogical(CellRect(c, r).center()); }
    static QRect CellRect(int c, int r) { return CLayoutGeometry::CellRect(c, r); }

    void Place(const char* panels)
    {
        PutAll(grid, panels);
        grid.ClearJournal();
    }

    void Click(int c, int r) { QTest::mouseClick(Port(), Qt::LeftButton, {}, At(c, r)); }
    void Press(QPoint point) { QTest::mousePress(Port(), Qt::LeftButton, {}, point); }
    void Release(QPoint point) { QTest::mouseRelease(Port(), Qt::LeftButton, {}, point); }
    void Move(QPoint point) { QTest::mouseMove(Port(), point); }
    void DoubleClick(int c, int r)
    {
        Click(c, r);
        QTest::mouseDClick(Port(), Qt::LeftButton, {}, At(c, r));
        Release(At(c, r));
    }
    void Key(int key, Qt::KeyboardModifiers with = {})
    {
        QTest::keyClick(&view, Qt::Key(key), with);
    }

    // Press, a first step past the drag threshold, then on to the target.
    void StartDrag(QPoint from, QPoint to, Qt::KeyboardModifiers with = {})
    {
        QTest::mousePress(Port(), Qt::LeftButton, with, from);
        Move(from + QPoint(to.x() > from.x() ? 12 : -12, to.y() > from.y() ? 12 : -12));
        Move(to);
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers with = {})
    {
        StartDrag(from, to, with);
        QTest::mouseRelease(Port(), Qt::LeftButton, with, to);
    }
    void SelectBlock(int c1, int r1, int c2, int r2)
    {
        Drag(At(c1, r1), At(c2, r2), Qt::ControlModifier);
    }

    // A move with no button held goes through the platform's cursor, which ignores a move
    // to where it already is; stepping aside first makes every hover arrive.
    void Hover(QPoint point)
    {
        Move(QPoint(1, 1));
        Move(point);
    }

    // A drag from a panel bar, as its list starts it: the area, a line feed, the line. It
    // enters the view, moves to the point and drops there; answers whether the view took it.
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

    // "c1,r1-c2,r2", "" for none.
    QString Selection() const
    {
        if (view.GetSelection().IsEmpty())
            return QString();
        const CGridPos a = view.GetSelection().TopLeft(), b = view.GetSelection().BottomRight();
        return QStringLiteral("%1,%2-%3,%4").arg(a.Column).arg(a.Row).arg(b.Column).arg(b.Row);
    }

    // Whether the drag rectangle is drawn with its left edge on the cell: the edge is two
    // pixels in the text colour, which nothing else draws there.
    bool DragRectAt(int column, int row)
    {
        const QRect cell = CellRect(column, row);
        const QImage image = Port()->grab().toImage();
        const QPoint edge = view.MapFromLogical({cell.left() + 1, cell.center().y()});
        return image.pixelColor(edge) == view.palette().color(QPalette::Active, QPalette::Text);
    }

    Qt::CursorShape Cursor() { return Port()->cursor().shape(); }
    static QString Last(const QSignalSpy& spy)
    {
        return spy.isEmpty() ? "none" : spy.last().at(0).toString();
    }
};

} // namespace

TEST_F(LayoutViewTest, ClickPlacesTheChosenEntryOfItsAreaAndAUsedUpTypeLosesTheChoice)
{
    QSignalSpy modified(&view, &CLayoutView::Modified);
    QSignalSpy usage(&view, &CLayoutView::UsageChanged);
    chooser.Line = "KEY \tH,P1";
    Click(3, 4);
    EXPECT_EQ(Cells(grid), "");
    auto light = Cell("NOT \tR"); // 1 and the gate's 10 are 2 % of 1000, rounded up
    light->GetPanel()->SetWeight(1);
    ASSERT_TRUE(grid.Place(9, 9, std::move(light)));
    chooser.Line = "AND \tR";
    Press(At(3, 4));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::PlacingByClick);
    EXPECT_EQ(Cursor(), Qt::DragCopyCursor);
    Release(At(3, 4));
    EXPECT_EQ(Cells(grid), "3,4 AND \tR; 9,9 NOT \tR");
    EXPECT_EQ(modified.count(), 1);
    EXPECT_EQ(Last(usage), "2");
    EXPECT_EQ(Selection(), "3,4-3,4");
    EXPECT_EQ(chooser.Line, "AND \tR"); // still chosen: no use limit
    EXPECT_GT(chooser.Refreshes, 0);
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);

    grid.SetUseLimits({{AndType, 2}});
    Click(5, 4);
    EXPECT_EQ(LineAt(grid, 5, 4), "AND \tR");
    EXPECT_TRUE(chooser.Line.isEmpty());
    Press(At(2, 2));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Selecting);
    EXPECT_EQ(Cursor(), Qt::CrossCursor);
    Release(At(2, 2));
    EXPECT_EQ(Cursor(), Qt::ArrowCursor);
}

TEST_F(LayoutViewTest, DropFromTheBarPlacesOnlyWhereTheAreaFits)
{
    const int in = CPanel::AreaInput, out = CPanel::AreaOutput, process = CPanel::AreaProcess;
    const struct
    {
        const char* Name;
        int Area;
        const char* Line;
        int Column, Row;
        bool Chosen;
        const char* Placed;
    } cases[] = {
        {"process panel on a process cell", process, "AND \tR", 4, 6, true, "4,6 AND \tR"},
        {"input panel on a process cell", in, "KEY \tH,P1", 4, 6, true, ""},
        {"input panel on the input column", in, "KEY \tH,P1", -1, 2, true, "-1,2 KEY \tH,P1"},
        {"output panel on the input column", out, "LAMP\tH,P1", -1, 2, true, ""},
        {"process panel on the output column", process, "AND \tR", -2, 2, true, ""},
        {"without a choice, the dragged line", out, "LAMP\tL,P2", -2, 9, false, "-2,9 LAMP\tL,P2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        grid.ClearAll();
        document.SetModified(false);
        chooser.Line = c.Chosen ? c.Line : "";
        // The refusal shows while dragging, before anything is dropped.
        EXPECT_EQ(DropFromBar(At(c.Column, c.Row), c.Area, c.Line), *c.Placed != 0);
        EXPECT_EQ(Cells(grid), c.Placed);
        EXPECT_EQ(document.IsModified(), *c.Placed != 0);
        EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    }
}

TEST_F(LayoutViewTest, ThePositionPaneShowsWhatAClickSelectedAndEscapeDropsIt)
{
    Place("2,5 CNT \tC,3,2,1");
    QSignalSpy position(&view, &CLayoutView::PositionText);
    const struct
    {
        QPoint Point;
        const char* Text;
        const char* Selection;
    } cases[] = {
        {At(-1, 5), "  IN ,  5 ", "-1,5--1,5"},
        {At(-2, 3), "  OUT,  3 ", "-2,3--2,3"},
        {At(12, 7), "  12 ,  7 ", "12,7-12,7"},
        {At(2, 6), "   2 ,  5 ", "2,5-2,7"}, // the whole panel under it
        {view.MapFromLogical({5, 5}), "  -- , -- ", ""},
    };
    for (const auto& c : cases) {
        position.clear();
        QTest::mouseClick(Port(), Qt::LeftButton, {}, c.Point);
        EXPECT_EQ(Last(position), c.Text);
        EXPECT_EQ(Selection(), c.Selection);
    }
    Click(12, 7);
    chooser.Line = "XOR \tR";
    Key(Qt::Key_Escape);
    EXPECT_TRUE(chooser.Line.isEmpty());
    EXPECT_EQ(Last(position), "  -- , -- ");
    EXPECT_EQ(Selection(), "");
    EXPECT_FALSE(document.IsModified());
}

TEST_F(LayoutViewTest, ASelectionNeverSpansASideColumnAndOthersAndIsScrolledIntoSight)
{
    const struct
    {
        int C1, R1, C2, R2;
        const char* Selection;
    } cases[] = {{-1, 5, 3, 7, "-1,5--1,7"},
                 {-2, 5, 3, 7, "-2,5--2,7"},
                 {3, 5, -2, 7, "3,5-16,7"},
                 {3, 5, -1, 7, "1,5-3,7"}};
    for (const auto& c : cases) {
        view.SetSelection(c.C1, c.R1, c.C2, c.R2);
        EXPECT_EQ(Selection(), c.Selection);
    }
    // A drag from an empty cell selects a rectangle.
    Drag(At(5, 3), At(7, 5));
    EXPECT_EQ(Selection(), "5,3-7,5");
    // A selection out of sight is scrolled in with fifty pixels to spare.
    QScrollBar* bar = view.verticalScrollBar();
    const int visible = Port()->height();
    EXPECT_EQ(bar->maximum(), CLayoutGeometry::DrawingSize().height() - visible);
    view.SetSelection(3, 25);
    EXPECT_EQ(bar->value(), CellRect(3, 25).bottom() + 1 + 50 - visible);
    const int top = CellRect(3, 2).top() - 50;
    view.SetSelection(3, 2);
    EXPECT_EQ(bar->value(), top);
    view.SetSelection(3, 4); // already in sight
    EXPECT_EQ(bar->value(), top);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(bar->value(), top + visible);
}

TEST_F(LayoutViewTest, APanelMovesPastTenPixelsWithinItsAreaAndOutOfTheWindowIsDeleted)
{
    Place("3,3 CNT \tC,3,2; -1,3 KEY \tH,P1; -2,3 LAMP\tH,P1");
    const QString before = Cells(grid);
    const QRect cell = CellRect(3, 3);
    const QPoint press = view.MapFromLogical({cell.right() - 1, cell.center().y()});
    const QPoint near = press + QPoint(9, 9); // in column 4
    ASSERT_EQ(view.HitTest(near).Column, 4);
    Press(press);
    Move(near);
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Selecting);
    Release(near);
    // A drag that went further but comes back near the press point is no move either.
    Press(press);
    Move(press + QPoint(20, 0));
    ASSERT_EQ(view.GetState(), CLayoutView::EState::Moving);
    Move(near);
    Release(near);

    ASSERT_FALSE(DragRectAt(6, 8));
    StartDrag(At(3, 3), At(6, 8));
    EXPECT_TRUE(DragRectAt(6, 8));
    Move(At(-2, 8));
    EXPECT_FALSE(DragRectAt(-2, 8));
    EXPECT_FALSE(DragRectAt(6, 8));
    Release(At(-2, 8));
    // A side panel is shown only in its own column.
    StartDrag(At(-1, 3), At(-1, 9));
    EXPECT_TRUE(DragRectAt(-1, 9));
    Move(At(4, 9));
    EXPECT_FALSE(DragRectAt(4, 9));
    Release(At(4, 9));
    EXPECT_FALSE(DragRectAt(4, 9));
    EXPECT_EQ(Cells(grid), before);
    EXPECT_FALSE(document.IsModified());
    // A real move takes the selection along.
    QSignalSpy modified(&view, &CLayoutView::Modified);
    StartDrag(At(3, 3), At(6, 8));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Moving);
    EXPECT_EQ(Cursor(), Qt::SizeAllCursor);
    Release(At(6, 8));
    EXPECT_EQ(Cells(grid), "-1,3 KEY \tH,P1; -2,3 LAMP\tH,P1; 6,8 CNT \tC,3,2; 6,9 +");
    EXPECT_EQ(Selection(), "6,8-6,9");
    EXPECT_EQ(modified.count(), 1);
    for (const EAnswer answer : {EAnswer::Cancel, EAnswer::Ok}) {
        document.SetModified(false);
        messenger.Texts.clear();
        messenger.Answers = {answer};
        Drag(At(-2, 3), QPoint(Port()->width() + 40, At(-2, 3).y()));
        EXPECT_EQ(messenger.Texts, Said(Ids::MsgDeletePanel));
        EXPECT_EQ(LineAt(grid, -2, 3), answer == EAnswer::Ok ? "" : "LAMP\tH,P1");
        EXPECT_EQ(document.IsModified(), answer == EAnswer::Ok);
    }
}

TEST_F(LayoutViewTest, ABlockSelectionArmsUnderTheMouseAndMovesAsAWhole)
{
    Place("4,3 AND \tR; 5,4 XOR \tR");
    SelectBlock(11, 11, 12, 12); // an empty block has nothing to move
    Hover(At(11, 11));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    EXPECT_EQ(Cursor(), Qt::ArrowCursor);
    SelectBlock(4, 3, 5, 4);
    Hover(At(5, 4));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::ArmedForMove);
    EXPECT_EQ(Cursor(), Qt::OpenHandCursor);
    Drag(At(5, 4), At(8, 10)); // the block's first cell goes where the mouse was let go
    EXPECT_EQ(Cells(grid), "8,10 AND \tR; 9,11 XOR \tR");
    EXPECT_EQ(Selection(), "8,10-9,11");

    // With a bar entry chosen a click places, so nothing is armed.
    chooser.Line = "NOT \tR";
    Hover(At(8, 10));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    EXPECT_EQ(Cursor(), Qt::DragCopyCursor);
    chooser.Line.clear();
    // Ctrl over an armed block starts a new rectangle.
    Hover(At(8, 10));
    ASSERT_EQ(view.GetState(), CLayoutView::EState::ArmedForMove);
    SelectBlock(8, 10, 10, 12);
    EXPECT_EQ(Selection(), "8,10-10,12");
    // Off the selection the mouse does not arm; a click inside an armed block picks one panel.
    Hover(At(2, 2));
    EXPECT_EQ(view.GetState(), CLayoutView::EState::Idle);
    Hover(At(9, 11));
    ASSERT_EQ(view.GetState(), CLayoutView::EState::ArmedForMove);
    Click(9, 11);
    EXPECT_EQ(Selection(), "9,11-9,11");
    // The right button selects outside the selection only.
    SelectBlock(8, 10, 9, 11);
    QTest::mouseClick(Port(), Qt::RightButton, {}, At(9, 11));
    EXPECT_EQ(Selection(), "8,10-9,11");
    QTest::mouseClick(Port(), Qt::RightButton, {}, At(3, 3));
    EXPECT_EQ(Selection(), "3,3-3,3");
    EXPECT_EQ(Cells(grid), "8,10 AND \tR; 9,11 XOR \tR");
}

TEST_F(LayoutViewTest, DoubleClickEditsAPanelUnlessItWouldGrowAndHoverShowsItsCaption)
{
    Place("2,5 CNT \tC,3; 2,7 AND \tR");
    editor.Tokens = {"CNT", "C", "3", "2"};
    DoubleClick(2, 5);
    EXPECT_EQ(editor.Asked, EPanelDialog::Counter);
    EXPECT_EQ(Cells(grid), "2,5 CNT \tC,3,2; 2,6 +; 2,7 AND \tR");
    EXPECT_EQ(Selection(), "2,5-2,6");
    EXPECT_TRUE(document.IsModified());
    editor.Tokens = {"CNT", "C", "3", "2", "1"};
    DoubleClick(2, 5);
    EXPECT_EQ(messenger.Texts, QStringList{"Unable to change size."});
    EXPECT_EQ(Cells(grid), "2,5 CNT \tC,3,2; 2,6 +; 2,7 AND \tR");
    // The message pane shows the caption of the panel under the mouse, on any of its rows.
    QSignalSpy status(&view, &CLayoutView::StatusText);
    Hover(At(2, 6));
    EXPECT_EQ(Last(status), grid.GetCell(2, 5)->GetPanel()->GetCaption());
    EXPECT_FALSE(Last(status).isEmpty());
    Hover(At(9, 9));
    EXPECT_EQ(Last(status), "");
}

TEST_F(LayoutViewTest, ArrowsWalkAcrossTheAreasStepOverATallPanelAndCtrlJumpsToTheEnds)
{
    Place("4,5 CNT \tC,3,2,1");
    const auto ctrl = Qt::ControlModifier;
    const int left = Qt::Key_Left, right = Qt::Key_Right, up = Qt::Key_Up, down = Qt::Key_Down;
    const struct
    {
        int Column, Row, Key;
        Qt::KeyboardModifiers Modifiers;
        const char* Text;
    } cases[] = {
        {16, 7, right, {}, "  OUT,  7 "},   {16, 7, left, ctrl, "  IN ,  7 "},
        {-1, 7, right, ctrl, "  OUT,  7 "}, {-2, 7, left, {}, "  16 ,  7 "},
        {1, 7, left, {}, "  IN ,  7 "},     {-1, 7, right, {}, "   1 ,  7 "},
        {-1, 7, left, {}, "  IN ,  7 "},    {-2, 7, right, {}, "  OUT,  7 "},
        {5, 1, up, {}, "   5 ,  1 "},       {5, 3, down, ctrl, "   5 , 40 "},
        {5, 30, up, ctrl, "   5 ,  1 "},    {4, 4, down, {}, "   4 ,  5 "},
        {4, 5, down, {}, "   4 ,  8 "},     {4, 8, up, {}, "   4 ,  5 "},
    };
    QSignalSpy position(&view, &CLayoutView::PositionText);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.Column << "," << c.Row << " key " << c.Key);
        view.SetSelection(c.Column, c.Row);
        Key(c.Key, c.Modifiers);
        EXPECT_EQ(Last(position), c.Text);
    }
}

TEST_F(LayoutViewTest, DeleteFillAndRotateWorkOnTheSelection)
{
    Place("-1,2 KEY \tH,P1; -1,3 KEY \tL,P2; 5,35 AND \tR; 5,38 NOT \tR; 4,3 CNT \tC,3");
    view.SetSelection(-1, 2, -1, 3);
    messenger.Answers = {EAnswer::Cancel, EAnswer::Ok};
    Key(Qt::Key_Delete);
    EXPECT_FALSE(document.IsModified());
    Key(Qt::Key_Delete);
    EXPECT_EQ(messenger.Texts.size(), 2);
    EXPECT_EQ(Cells(grid), "4,3 CNT \tC,3; 5,35 AND \tR; 5,38 NOT \tR");
    EXPECT_TRUE(document.IsModified());

    document.SetModified(false);
    Click(5, 35);
    Key(Qt::Key_Down, Qt::AltModifier); // fills up to the next panel
    EXPECT_EQ(Cells(grid), "4,3 CNT \tC,3; 5,35 AND \tR; 5,36 AND \tR; 5,37 AND \tR; 5,38 NOT \tR");
    EXPECT_TRUE(document.IsModified());
    document.SetModified(false);
    Key(Qt::Key_Down, Qt::AltModifier); // nothing left to fill: no change
    EXPECT_FALSE(document.IsModified());

    Click(4, 3);
    EXPECT_FALSE(view.CanRotate());
    Click(5, 36);
    ASSERT_TRUE(view.CanRotate());
    view.Rotate();
    EXPECT_EQ(LineAt(grid, 5, 36), "AND \tD");
    EXPECT_TRUE(document.IsModified());
}

TEST_F(LayoutViewTest, EveryShiftRefreshesThePanelBarsAndIsUndoneByUndo)
{
    for (void (CLayoutView::*shift)() : {&CLayoutView::ShiftAllUp, &CLayoutView::ShiftAllDown,
                                         &CLayoutView::ShiftAllLeft, &CLayoutView::ShiftAllRight}) {
        grid.ClearAll();
        Place("3,3 AND \tR; -1,40 KEY \tH,P1");
        document.SetModified(false);
        chooser.Refreshes = 0;
        (view.*shift)();
        EXPECT_EQ(chooser.Refreshes, 1);
        EXPECT_EQ(grid.CountPanels(2, 2, 4, 4), 1);
        EXPECT_EQ(LineAt(grid, 3, 3), "");
        EXPECT_TRUE(document.IsModified());
        ASSERT_TRUE(view.CanUndo());
        view.Undo();
        EXPECT_EQ(Cells(grid), "-1,40 KEY \tH,P1; 3,3 AND \tR");
        EXPECT_FALSE(view.CanUndo());
    }
}

TEST_F(LayoutViewTest, PasteFitsItsBlockAsksOverPanelsAndReachesAnotherLayout)
{
    Place("-1,2 KEY \tH,P1; 3,3 AND \tR\t\t;gate; 4,4 NOT \tR");
    Click(-1, 2);
    view.Cut();
    EXPECT_EQ(LineAt(grid, -1, 2), "");
    EXPECT_TRUE(document.IsModified());
    view.SetSelection(3, 3);
    EXPECT_FALSE(view.CanPaste());
    view.ClearSelection();
    EXPECT_FALSE(view.CanPaste());
    view.SetSelection(-1, 40);
    ASSERT_TRUE(view.CanPaste());
    view.Paste();
    EXPECT_EQ(LineAt(grid, -1, 40), "KEY \tH,P1");
    for (const EAnswer answer : {EAnswer::Cancel, EAnswer::Yes}) {
        document.SetModified(false);
        messenger.Texts.clear();
        messenger.Answers = {answer};
        view.Paste();
        EXPECT_EQ(messenger.Texts, Said(Ids::MsgPasteOverPanels));
        EXPECT_EQ(document.IsModified(), answer == EAnswer::Yes);
    }

    view.SetSelection(2, 2); // back in sight
    SelectBlock(2, 2, 4, 4);
    view.Copy();
    EXPECT_EQ(QApplication::clipboard()->text(), "AND \tR\t\t;gate\nNOT \tR\n");
    // Another layout, as another window or another Quillon has it.
    CLayoutDocument other{nullptr, messenger};
    CLayoutView otherView{other, chooser, editor};
    otherView.SetSelection(10, 20);
    otherView.Paste();
    EXPECT_EQ(Cells(other.Grid()), "10,20 AND \tR\t\t;gate; 11,21 NOT \tR");
    EXPECT_TRUE(other.IsModified());
    // Opening a layout keeps what was copied.
    QTemporaryDir dir;
    ASSERT_TRUE(other.SaveAs(dir.filePath("other.loc")));
    ASSERT_TRUE(document.Open(dir.filePath("other.loc")));
    view.Reset();
    view.SetSelection(1, 30);
    ASSERT_TRUE(view.CanPaste());
    view.Paste();
    EXPECT_EQ(LineAt(grid, 1, 30), "AND \tR\t\t;gate");
}

TEST_F(LayoutViewTest, ZoomScalesTheDrawingButKeepsItsCells)
{
    view.ZoomOut();
    EXPECT_LT(view.GetZoom(), 1.0);
    view.ResetZoom();
    QWheelEvent wheel(QPointF(100, 100), QPointF(Port()->mapToGlobal(QPoint(100, 100))), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Port(), &wheel);
    EXPECT_GT(view.GetZoom(), 1.0);
    view.ResetZoom();
    // At twice the size, scrolled to the top left, cell (1, 1) covers 188..251 x 60..123.
    while (view.GetZoom() < 2.0)
        view.ZoomIn();
    ASSERT_EQ(view.GetZoom(), 2.0);
    view.horizontalScrollBar()->setValue(0);
    view.verticalScrollBar()->setValue(0);
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 2 * 1340 - Port()->height());
    chooser.Line = "AND \tR";
    QTest::mouseClick(Port(), Qt::LeftButton, {}, QPoint(190, 62));
    EXPECT_EQ(Cells(grid), "1,1 AND \tR");
    chooser.Line.clear();
    QTest::mouseClick(Port(), Qt::LeftButton, {}, QPoint(250, 122));
    EXPECT_EQ(Selection(), "1,1-1,1");
    QTest::mouseClick(Port(), Qt::LeftButton, {}, QPoint(253, 125));
    EXPECT_EQ(Selection(), "2,2-2,2");
}
