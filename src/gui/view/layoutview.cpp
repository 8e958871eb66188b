#include "layoutview.h"

#include "layoutdocument.h"
#include "layoutfile.h"
#include "layoutgeometry.h"
#include "layoutpainter.h"
#include "panelchooser.h"
#include "panelgrid.h"
#include "panel.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHash>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

const std::array kZoomSteps = {0.5, 0.67, 0.8, 1.0, 1.25, 1.5, 2.0, 3.0};

bool OnGrid(CGridPos pos)
{
    return pos.Column != 0 && pos.Row != 0;
}

// A drag from a panel bar: the entry's area and definition line.
struct CDraggedEntry
{
    int Area = CPanel::AreaNone;
    QString Line;
};

bool ReadDraggedEntry(const QMimeData* data, CDraggedEntry& entry)
{
    const QString format = QString::fromLatin1(IPanelChooser::kMimeType);
    if (!data || !data->hasFormat(format))
        return false;
    const QString text = QString::fromUtf8(data->data(format));
    const qsizetype split = text.indexOf(u'\n');
    if (split < 0)
        return false;
    bool ok = false;
    entry.Area = text.left(split).toInt(&ok);
    entry.Line = text.mid(split + 1);
    return ok && !entry.Line.isEmpty();
}

int AreaOf(const CPanelCell& cell)
{
    return cell.GetPanel() ? cell.GetPanel()->GetArea() : CPanel::AreaNone;
}

} // namespace

CLayoutView::CLayoutView(CLayoutDocument& document, IPanelChooser& chooser, IPropertyEditor& editor,
                         QWidget* parent)
    : QAbstractScrollArea(parent), m_document(document), m_chooser(chooser), m_editor(editor)
{
    setFocusPolicy(Qt::StrongFocus);
    // Drops land on the viewport, in its coordinates like every mouse event.
    viewport()->setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    UpdateScrollBars();
    UpdateCursor();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &CLayoutView::TakeSystemClipboard);
    TakeSystemClipboard();
}

CLayoutView::~CLayoutView() = default;

CPanelGrid& CLayoutView::Grid()
{
    return m_document.Grid();
}

const CPanelGrid& CLayoutView::Grid() const
{
    return m_document.Grid();
}

// --- Geometry and scrolling -----------------------------------------------------------

QPoint CLayoutView::MapToLogical(QPoint point) const
{
    const QPoint scrolled =
        point + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    return {int(std::floor(scrolled.x() / m_zoom)), int(std::floor(scrolled.y() / m_zoom))};
}

QPoint CLayoutView::MapFromLogical(QPoint logical) const
{
    return QPoint(int(std::lround(logical.x() * m_zoom)), int(std::lround(logical.y() * m_zoom))) -
           QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

QRect CLayoutView::MapRectFromLogical(const QRect& logical) const
{
    if (logical.isNull())
        return QRect();
    return QRect(MapFromLogical(logical.topLeft()),
                 MapFromLogical(logical.topLeft() + QPoint(logical.width(), logical.height())))
        .adjusted(0, 0, -1, -1);
}

CGridPos CLayoutView::HitTest(QPoint point) const
{
    return CLayoutGeometry::HitTest(MapToLogical(point));
}

void CLayoutView::UpdateScrollBars()
{
    const QSize drawing = CLayoutGeometry::DrawingSize() * m_zoom;
    const QSize visible = viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(0, drawing.width() - visible.width()));
    horizontalScrollBar()->setPageStep(visible.width());
    horizontalScrollBar()->setSingleStep(int(CLayoutGeometry::kCell * m_zoom));
    verticalScrollBar()->setRange(0, std::max(0, drawing.height() - visible.height()));
    verticalScrollBar()->setPageStep(visible.height());
    verticalScrollBar()->setSingleStep(int(CLayoutGeometry::kCell * m_zoom));
}

void CLayoutView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBars();
}

void CLayoutView::scrollContentsBy(int, int)
{
    viewport()->update();
}

void CLayoutView::ScrollToSelection()
{
    const QRect shown = MapRectFromLogical(m_selection.Rect());
    if (shown.isNull())
        return;
    const int margin = int(kScrollMargin * m_zoom);
    // Vertically as the drawing always did; sideways too, for windows narrower than it.
    const auto scroll = [margin](QScrollBar* bar, int first, int last, int visible) {
        if (first < 0)
            bar->setValue(bar->value() + first - margin);
        else if (last >= visible)
            bar->setValue(bar->value() + last + 1 + margin - visible);
    };
    scroll(verticalScrollBar(), shown.top(), shown.bottom(), viewport()->height());
    scroll(horizontalScrollBar(), shown.left(), shown.right(), viewport()->width());
}

void CLayoutView::SetZoom(double zoom)
{
    if (zoom == m_zoom)
        return;
    // The point of the drawing in the middle of the window stays there.
    const QPoint middle(viewport()->width() / 2, viewport()->height() / 2);
    const QPointF centre = QPointF(MapToLogical(middle));
    m_zoom = zoom;
    UpdateScrollBars();
    horizontalScrollBar()->setValue(int(centre.x() * m_zoom) - middle.x());
    verticalScrollBar()->setValue(int(centre.y() * m_zoom) - middle.y());
    EraseDragRect();
    viewport()->update();
}

void CLayoutView::ZoomIn()
{
    const auto next = std::upper_bound(kZoomSteps.begin(), kZoomSteps.end(), m_zoom);
    if (next != kZoomSteps.end())
        SetZoom(*next);
}

void CLayoutView::ZoomOut()
{
    const auto next = std::lower_bound(kZoomSteps.begin(), kZoomSteps.end(), m_zoom);
    if (next != kZoomSteps.begin())
        SetZoom(*(next - 1));
}

void CLayoutView::ResetZoom()
{
    SetZoom(1.0);
}

// --- Drawing --------------------------------------------------------------------------

void CLayoutView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Mid));
    painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    painter.scale(m_zoom, m_zoom);
    const QRect exposed =
        QRect(MapToLogical(event->rect().topLeft()), MapToLogical(event->rect().bottomRight()))
            .adjusted(-1, -1, 1, 1);
    CLayoutPaintOptions options = CLayoutPaintOptions::ForScreen(palette());
    options.Selection = m_selection.Rect();
    options.Clip = exposed;
    CLayoutPainter::Paint(painter, Grid(), options);
    if (!m_dragRect.isNull()) {
        // In the text colour, so it never reads as the selection's highlight.
        painter.setPen(QPen(options.Text, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(m_dragRect).adjusted(1, 1, -1, -1));
    }
}

void CLayoutView::ShowDragRect(const QRect& logical)
{
    if (logical == m_dragRect)
        return;
    const QRect old = MapRectFromLogical(m_dragRect);
    m_dragRect = logical;
    viewport()->update(old.adjusted(-2, -2, 2, 2));
    viewport()->update(MapRectFromLogical(m_dragRect).adjusted(-2, -2, 2, 2));
}

// --- Selection ------------------------------------------------------------------------

void CLayoutView::SetSelection(int c1, int r1, int c2, int r2)
{
    const CLayoutSelection selection(c1, r1, c2, r2);
    const QRect old = MapRectFromLogical(m_selection.Rect());
    const bool changed = !(selection == m_selection);
    m_selection = selection;
    viewport()->update(old.adjusted(-2, -2, 2, 2));
    viewport()->update(MapRectFromLogical(m_selection.Rect()).adjusted(-2, -2, 2, 2));
    ScrollToSelection();
    Q_EMIT PositionText(m_selection.PositionText());
    if (changed)
        Q_EMIT SelectionChanged();
}

void CLayoutView::SelectPanelAt(CGridPos pos)
{
    if (!OnGrid(pos)) {
        ClearSelection();
        return;
    }
    const CGridPos top = Grid().TopOf(pos.Column, pos.Row);
    const CGridPos bottom = Grid().BottomOf(top.Column, top.Row);
    SetSelection(top.Column, top.Row, bottom.Column, bottom.Row);
}

bool CLayoutView::IsBlockOfPanels() const
{
    if (m_selection.IsEmpty())
        return false;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    const CGridPos top = Grid().TopOf(first.Column, first.Row);
    const CGridPos bottom = Grid().BottomOf(top.Column, top.Row);
    // One whole panel is moved by dragging it; only a larger block with panels needs arming.
    return !(top == first && bottom == last) &&
           Grid().CountPanels(first.Column, first.Row, last.Column, last.Row) > 0;
}

void CLayoutView::Reset()
{
    EnterState(EState::Idle);
    EraseDragRect();
    m_moveOrigin = {};
    ClearSelection();
    viewport()->update();
    EmitUsage();
    TakeSystemClipboard();
}

// --- The editing state machine --------------------------------------------------------

void CLayoutView::EnterState(EState state)
{
    m_state = state;
    UpdateCursor();
}

void CLayoutView::UpdateCursor()
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    switch (m_state) {
    case EState::Idle:
    case EState::PressedOutside:
        // While a bar entry is chosen, a click places it.
        shape = m_chooser.HasChosen() ? Qt::DragCopyCursor : Qt::ArrowCursor;
        break;
    case EState::Selecting:
        shape = Qt::CrossCursor;
        break;
    case EState::DraggingFromBar:
    case EState::Moving:
        shape = Qt::SizeAllCursor;
        break;
    case EState::PlacingByClick:
        shape = Qt::DragCopyCursor;
        break;
    case EState::ArmedForMove:
        shape = Qt::OpenHandCursor;
        break;
    }
    viewport()->setCursor(shape);
}

void CLayoutView::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    const CGridPos hit = HitTest(point);
    if (event->button() == Qt::RightButton) {
        // The edit menu works on the selection, so a click beside it selects first.
        if (!m_selection.Contains(hit))
            SelectPanelAt(hit);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPoint = point;
    EraseDragRect();
    // Ctrl starts a new rectangle even over an armed selection.
    if (m_state == EState::ArmedForMove && !(event->modifiers() & Qt::ControlModifier)) {
        m_moveOrigin = m_selection.TopLeft();
        m_movingFromArmed = true;
        EnterState(EState::Moving);
        ShowDragRect(m_selection.Rect());
        return;
    }
    SelectPanelAt(hit);
    m_movingFromArmed = false;
    m_moveOrigin = {};
    m_ctrlRectangle = event->modifiers() & Qt::ControlModifier;
    if (!OnGrid(hit))
        EnterState(EState::PressedOutside);
    else if (m_ctrlRectangle)
        EnterState(EState::Selecting);
    else if (m_chooser.HasChosen())
        EnterState(EState::PlacingByClick);
    else
        EnterState(EState::Selecting);
}

void CLayoutView::mouseMoveEvent(QMouseEvent* event)
{
    const CGridPos hit = HitTest(event->position().toPoint());
    const CPanelCell* cell = nullptr;
    if (OnGrid(hit)) {
        const CGridPos top = Grid().TopOf(hit.Column, hit.Row);
        cell = Grid().GetCell(top);
    }
    Q_EMIT StatusText(cell && cell->GetPanel() ? cell->GetPanel()->GetCaption() : QString());

    if (m_state == EState::ArmedForMove)
        EnterState(EState::Idle);
    if (!(event->buttons() & Qt::LeftButton)) {
        ArmOverSelection(hit);
        return;
    }
    ContinueDrag(event, hit);
}

void CLayoutView::ArmOverSelection(CGridPos hit)
{
    // With a bar entry chosen a click places it, so nothing is armed then.
    if (m_state == EState::Idle && !m_chooser.HasChosen() && m_selection.Contains(hit) &&
        IsBlockOfPanels())
        EnterState(EState::ArmedForMove);
    else
        UpdateCursor();
}

void CLayoutView::ContinueDrag(QMouseEvent* event, CGridPos hit)
{
    const QPoint travel = event->position().toPoint() - m_pressPoint;
    if (std::abs(travel.x()) < kDragThreshold && std::abs(travel.y()) < kDragThreshold)
        return;
    switch (m_state) {
    case EState::Selecting:
        // A rectangle begun with Ctrl stays one when Ctrl is let go during the drag.
        if (!m_ctrlRectangle && !(event->modifiers() & Qt::ControlModifier)) {
            const CGridPos anchor = m_selection.Anchor();
            const CPanelCell* cell = Grid().GetCell(anchor);
            if (cell && cell->GetPanel()) {
                m_moveOrigin = m_selection.TopLeft();
                EnterState(EState::Moving);
                ShowDragRect(m_selection.Rect());
                return;
            }
        }
        if (OnGrid(hit) && !m_selection.IsEmpty())
            SetSelection(m_selection.Anchor().Column, m_selection.Anchor().Row, hit.Column,
                         hit.Row);
        return;
    case EState::PlacingByClick:
        if (!(hit == m_selection.Anchor()))
            ClearSelection();
        return;
    case EState::Idle:
        if (m_chooser.HasChosen())
            EnterState(EState::DraggingFromBar);
        return;
    case EState::DraggingFromBar:
        ShowDragRect(FitsArea(m_chooser.ChosenArea(), hit)
                         ? CLayoutGeometry::CellRect(hit.Column, hit.Row)
                         : QRect());
        return;
    case EState::Moving: {
        // A process block is never shown over a side column, a side block only over its own.
        const bool fromSide = m_moveOrigin.Column < 0;
        const bool shown =
            OnGrid(hit) && (fromSide ? hit.Column == m_moveOrigin.Column : hit.Column > 0);
        if (!shown) {
            EraseDragRect();
            return;
        }
        const QRect target = CLayoutGeometry::CellRect(hit.Column, hit.Row);
        ShowDragRect(QRect(target.topLeft(), m_selection.Rect().size()));
        return;
    }
    case EState::PressedOutside:
    case EState::ArmedForMove:
        return;
    }
}

void CLayoutView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    const CGridPos hit = HitTest(point);
    switch (m_state) {
    case EState::DraggingFromBar:
    case EState::PlacingByClick:
        PlaceAt(hit, m_chooser.TakeChosenCell());
        break;
    case EState::Moving:
        FinishMove(point, hit);
        break;
    default:
        break;
    }
    FinishPress();
}

void CLayoutView::FinishMove(QPoint point, CGridPos hit)
{
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    if (!viewport()->rect().contains(point) || !OnGrid(hit)) {
        // Dragged out of the window: the panels go, after the grid's question.
        if (Grid().DeleteRange(first.Column, first.Row, last.Column, last.Row))
            Changed();
        viewport()->update();
        return;
    }
    const QPoint travel = point - m_pressPoint;
    if (std::abs(travel.x()) < kDragThreshold && std::abs(travel.y()) < kDragThreshold) {
        // An armed press that did not drag was a click into the selection.
        if (m_movingFromArmed)
            SelectPanelAt(hit);
        return;
    }
    if (hit == m_moveOrigin)
        return;
    if (!Grid().MoveRange(first.Column, first.Row, last.Column, last.Row, hit.Column, hit.Row))
        return;
    const CLayoutSelection moved =
        m_selection.Offset(hit.Column - m_moveOrigin.Column, hit.Row - m_moveOrigin.Row);
    SetSelection(moved.Anchor().Column, moved.Anchor().Row, moved.End().Column, moved.End().Row);
    Changed();
}

void CLayoutView::FinishPress()
{
    m_chooser.Refresh();
    EmitUsage();
    EraseDragRect();
    m_moveOrigin = {};
    m_movingFromArmed = false;
    if (!m_selection.IsEmpty() && !m_selection.HasEnd()) {
        const CGridPos anchor = m_selection.Anchor();
        const CGridPos bottom = Grid().BottomOf(anchor.Column, anchor.Row);
        SetSelection(anchor.Column, anchor.Row, bottom.Column, bottom.Row);
    }
    EnterState(EState::Idle);
}

bool CLayoutView::FitsArea(int area, CGridPos pos)
{
    if (pos.Row < 1)
        return false;
    switch (area) {
    case CPanel::AreaProcess:
        return pos.Column >= 1;
    case CPanel::AreaInput:
        return pos.Column == CPanelGrid::GetInputColumn();
    case CPanel::AreaOutput:
        return pos.Column == CPanelGrid::GetOutputColumn();
    default:
        return false;
    }
}

bool CLayoutView::PlaceAt(CGridPos pos, std::unique_ptr<CPanelCell> cell)
{
    if (!cell || !FitsArea(AreaOf(*cell), pos))
        return false;
    const int type = cell->GetTypeId();
    if (!Grid().Place(pos.Column, pos.Row, std::move(cell)))
        return false;
    if (!Grid().CanUse(type))
        m_chooser.ClearChoice();
    // The placed cell alone; the end follows when the press finishes.
    SetSelection(pos.Column, pos.Row);
    Changed();
    return true;
}

void CLayoutView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const CGridPos hit = HitTest(event->position().toPoint());
    SelectPanelAt(hit);
    if (!OnGrid(hit))
        return;
    EditSelection();
}

void CLayoutView::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT ContextMenuRequested(event->globalPos());
    event->accept();
}

void CLayoutView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0)
        ZoomIn();
    else if (event->angleDelta().y() < 0)
        ZoomOut();
    event->accept();
}

// --- Keys -----------------------------------------------------------------------------

void CLayoutView::keyPressEvent(QKeyEvent* event)
{
    EraseDragRect();
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    const bool alt = event->modifiers() & Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Escape:
        m_chooser.ClearChoice();
        ClearSelection();
        EnterState(EState::Idle);
        break;
    case Qt::Key_PageUp:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt) {
            static const QHash<int, QChar> directions = {{Qt::Key_Left, u'L'},
                                                         {Qt::Key_Right, u'R'},
                                                         {Qt::Key_Up, u'U'},
                                                         {Qt::Key_Down, u'D'}};
            FillInDirection(directions.value(event->key()));
        } else {
            MoveKey(event->key(), ctrl);
        }
        break;
    case Qt::Key_Delete:
        Delete();
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
        EmitUsage();
        return;
    }
    event->accept();
    EmitUsage();
}

void CLayoutView::MoveKey(int key, bool ctrl)
{
    if (m_selection.IsEmpty())
        return;
    const int input = CPanelGrid::GetInputColumn(), output = CPanelGrid::GetOutputColumn();
    const int last = CPanelGrid::GetColumnCount(), rows = CPanelGrid::GetRowCount();
    int column = m_selection.Anchor().Column;
    int row = m_selection.Anchor().Row;
    switch (key) {
    case Qt::Key_Left:
        if (ctrl)
            column = input;
        else if (column == output)
            column = last;
        else if (column == 1)
            column = input;
        else if (column > 1)
            --column;
        break;
    case Qt::Key_Right:
        if (ctrl)
            column = output;
        else if (column == input)
            column = 1;
        else if (column == last)
            column = output;
        else if (column >= 1)
            ++column;
        break;
    case Qt::Key_Up:
        if (ctrl)
            row = 1;
        else if (row == 1)
            return;
        else
            --row;
        break;
    case Qt::Key_Down:
        if (ctrl) {
            row = rows;
        } else {
            row = Grid().BottomOf(column, row).Row + 1;
            if (row > rows)
                return;
        }
        break;
    }
    SelectPanelAt({column, row});
}

// --- Drops from the panel bars --------------------------------------------------------

void CLayoutView::dragEnterEvent(QDragEnterEvent* event)
{
    CDraggedEntry entry;
    if (!ReadDraggedEntry(event->mimeData(), entry)) {
        event->ignore();
        return;
    }
    EnterState(EState::DraggingFromBar);
    event->acceptProposedAction();
}

void CLayoutView::dragMoveEvent(QDragMoveEvent* event)
{
    CDraggedEntry entry;
    const CGridPos hit = HitTest(event->position().toPoint());
    if (!ReadDraggedEntry(event->mimeData(), entry) || !FitsArea(entry.Area, hit)) {
        EraseDragRect();
        event->ignore();
        return;
    }
    ShowDragRect(CLayoutGeometry::CellRect(hit.Column, hit.Row));
    event->acceptProposedAction();
}

void CLayoutView::dragLeaveEvent(QDragLeaveEvent* event)
{
    EraseDragRect();
    EnterState(EState::Idle);
    event->accept();
}

void CLayoutView::dropEvent(QDropEvent* event)
{
    CDraggedEntry entry;
    const CGridPos hit = HitTest(event->position().toPoint());
    if (ReadDraggedEntry(event->mimeData(), entry) && FitsArea(entry.Area, hit)) {
        // The bar chose the entry it drags; its copy has the board's ports and weight,
        // which the line alone does not carry.
        std::unique_ptr<CPanelCell> cell;
        if (m_chooser.HasChosen() && m_chooser.ChosenArea() == entry.Area)
            cell = m_chooser.TakeChosenCell();
        if (!cell || !cell->GetPanel() || cell->GetPanel()->GetLine() != entry.Line)
            cell = std::make_unique<CPanelCell>(entry.Line);
        if (PlaceAt(hit, std::move(cell)))
            event->acceptProposedAction();
        else
            event->ignore();
    } else {
        event->ignore();
    }
    FinishPress();
}

// --- Commands -------------------------------------------------------------------------

void CLayoutView::Changed()
{
    m_document.SetModified(true);
    viewport()->update();
    Q_EMIT Modified();
    EmitUsage();
}

void CLayoutView::EmitUsage()
{
    Q_EMIT UsageChanged((Grid().GetWeightedTotal() + 9) / 10);
}

bool CLayoutView::CanUndo() const
{
    return Grid().CanUndo();
}

void CLayoutView::Undo()
{
    if (!Grid().Undo())
        return;
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::Cut()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    if (!Grid().Cut(first.Column, first.Row, last.Column, last.Row))
        return;
    PublishClipboard();
    Q_EMIT ClipboardChanged();
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::Copy()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    Grid().Copy(first.Column, first.Row, last.Column, last.Row);
    PublishClipboard();
    Q_EMIT ClipboardChanged();
}

void CLayoutView::PublishClipboard()
{
    const CGridClipboard& clipboard = Grid().GetClipboard();
    if (clipboard.IsEmpty())
        return;
    m_publishedClipboard = clipboard.ToText();
    auto* data = new QMimeData;
    data->setText(clipboard.ToPlainText());
    data->setData(QString::fromLatin1(kPanelsMimeType), m_publishedClipboard.toUtf8());
    QGuiApplication::clipboard()->setMimeData(data);
}

void CLayoutView::TakeSystemClipboard()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    const QString format = QString::fromLatin1(kPanelsMimeType);
    if (!data || !data->hasFormat(format))
        return;
    const QString text = QString::fromUtf8(data->data(format));
    if (text == m_publishedClipboard)
        return;
    // The panels are made as loading makes them, with this board's ports, names and weights.
    const CLayoutFile file(m_document.Board(), m_document.Messenger());
    Grid().Clipboard().FromText(text, [&file](const QString& line) { return file.MakeCell(line); });
    m_publishedClipboard = text;
    Q_EMIT ClipboardChanged();
}

bool CLayoutView::CanPaste() const
{
    if (m_selection.IsEmpty())
        return false;
    const CGridPos first = m_selection.TopLeft();
    return Grid().CanPaste(first.Column, first.Row);
}

void CLayoutView::Paste()
{
    if (m_selection.IsEmpty())
        return;
    // Not every system tells of every change to its clipboard.
    TakeSystemClipboard();
    const CGridPos first = m_selection.TopLeft();
    if (!Grid().Paste(first.Column, first.Row))
        return;
    // The pasted block becomes the selection, ready to be moved as a whole.
    const CGridClipboard& clipboard = Grid().GetClipboard();
    const int lastColumn =
        first.Column < 0 ? first.Column : first.Column + clipboard.GetWidth() - 1;
    SetSelection(first.Column, first.Row, lastColumn, first.Row + clipboard.GetHeight() - 1);
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::Delete()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    if (Grid().DeleteRange(first.Column, first.Row, last.Column, last.Row)) {
        m_chooser.Refresh();
        Changed();
    }
    viewport()->update();
}

bool CLayoutView::CanRotate() const
{
    if (m_selection.IsEmpty())
        return false;
    const CPanelCell* cell = Grid().GetCell(m_selection.TopLeft());
    return cell && cell->GetPanel() && cell->GetPanel()->GetFlag() != 0;
}

void CLayoutView::Rotate()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft();
    if (Grid().Rotate(first.Column, first.Row))
        Changed();
}

// Every shift may drop a use-limited panel off the grid's edge, which frees its entry.
void CLayoutView::ShiftAllUp()
{
    if (Grid().ShiftUp()) {
        m_chooser.Refresh();
        Changed();
    }
}

void CLayoutView::ShiftAllDown()
{
    if (Grid().ShiftDown()) {
        m_chooser.Refresh();
        Changed();
    }
}

void CLayoutView::ShiftAllLeft()
{
    if (Grid().ShiftLeft()) {
        m_chooser.Refresh();
        Changed();
    }
}

void CLayoutView::ShiftAllRight()
{
    if (Grid().ShiftRight()) {
        m_chooser.Refresh();
        Changed();
    }
}

bool CLayoutView::CanFill() const
{
    if (m_selection.IsEmpty())
        return false;
    const CPanelCell* cell = Grid().GetCell(m_selection.TopLeft());
    return cell && cell->GetPanel() && cell->GetHeight() == 1;
}

void CLayoutView::FillInDirection(QChar direction)
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft();
    if (!Grid().Fill(first.Column, first.Row, direction))
        return;
    // Fill succeeds even when no position was free; each copy placed is undoable.
    if (!Grid().CanUndo())
        return;
    m_chooser.Refresh();
    Changed();
}

bool CLayoutView::CanEditSelection() const
{
    if (m_selection.IsEmpty())
        return false;
    const CGridPos first = m_selection.TopLeft();
    const CPanelCell* cell = Grid().GetCell(Grid().TopOf(first.Column, first.Row));
    return cell && cell->GetPanel();
}

void CLayoutView::EditSelection()
{
    if (!CanEditSelection())
        return;
    const CGridPos first = m_selection.TopLeft();
    const CGridPos top = Grid().TopOf(first.Column, first.Row);
    if (!Grid().EditCell(top.Column, top.Row, m_editor))
        return;
    // The dialog may have changed the panel's height.
    SelectPanelAt(top);
    m_chooser.Refresh();
    Changed();
}
