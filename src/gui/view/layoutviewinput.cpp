// The view's input: the editing state machine driven by mouse, keys and drops.
#include "layoutview.h"

#include "layoutgeometry.h"
#include "panel.h"
#include "panelchooser.h"
#include "panelgrid.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHash>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace {

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
    if (!hit.IsOnGrid())
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
    if (hit.IsOnGrid()) {
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
        if (hit.IsOnGrid() && !m_selection.IsEmpty())
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
            hit.IsOnGrid() && (fromSide ? hit.Column == m_moveOrigin.Column : hit.Column > 0);
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
    if (!viewport()->rect().contains(point) || !hit.IsOnGrid()) {
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
    if (!hit.IsOnGrid())
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
