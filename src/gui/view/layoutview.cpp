// The view itself: geometry, zoom, painting and the selection.
#include "layoutview.h"

#include "layoutdocument.h"
#include "layoutgeometry.h"
#include "layoutpainter.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

const std::array kZoomSteps = {0.5, 0.67, 0.8, 1.0, 1.25, 1.5, 2.0, 3.0};

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
    if (!pos.IsOnGrid()) {
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
