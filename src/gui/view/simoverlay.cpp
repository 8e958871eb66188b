#include "simoverlay.h"

#include "layoutgeometry.h"
#include "layoutview.h"
#include "panel.h"
#include "panelcell.h"
#include "panelgrid.h"
#include "simmap.h"
#include "simsignals.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSlider>
#include <QWidgetAction>

namespace {

int KeyOf(CGridPos pos)
{
    return pos.Column * 100 + pos.Row;
}

// The middle of a cell's side, or its centre for any other letter.
QPointF SidePoint(const QRect& cell, QChar side)
{
    const QPointF centre = QRectF(cell).center();
    switch (side.unicode()) {
    case 'L':
        return {qreal(cell.left()), centre.y()};
    case 'R':
        return {qreal(cell.right() + 1), centre.y()};
    case 'U':
        return {centre.x(), qreal(cell.top())};
    case 'D':
        return {centre.x(), qreal(cell.bottom() + 1)};
    }
    return centre;
}

const QColor kOn(0xe0, 0x30, 0x20);

// One digit of a seven-segment display in the box, bit 0 = segment a, bit 7 the point.
void PaintDigit(QPainter& painter, const QRectF& box, quint8 pattern)
{
    const qreal l = box.left() + 2, r = box.right() - 4, t = box.top() + 2, b = box.bottom() - 2,
                m = (t + b) / 2;
    const QLineF segments[] = {{l, t, r, t}, {r, t, r, m}, {r, m, r, b}, {l, b, r, b},
                               {l, m, l, b}, {l, t, l, m}, {l, m, r, m}};
    for (int segment = 0; segment < 7; ++segment) {
        const bool lit = pattern & (1 << segment);
        painter.setPen(QPen(lit ? QColor(0xff, 0x40, 0x30) : QColor(0x50, 0x20, 0x20), 2.5,
                            Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(segments[segment]);
    }
    if (pattern & 0x80)
        painter.drawEllipse(QPointF(box.right() - 1.5, b), 1.2, 1.2);
}
const QColor kLit(0xff, 0xc8, 0x20, 0xb0);

} // namespace

CSimOverlay::CSimOverlay(CLayoutView& view, const CPanelGrid& grid, const CSimSignals& signals,
                         const CSimMap& map, IPanelStateSource& source)
    : QWidget(view.viewport()), m_view(view), m_grid(grid), m_map(map), m_source(source)
{
    for (const CSimSignals::CSignal& signal : signals.All()) {
        const CGridPos pos = CSimMap::CellOf(signal.Cell);
        const CPanelCell* cell = pos.IsOnGrid() ? grid.GetCell(pos.Column, pos.Row) : nullptr;
        if (!cell || !cell->GetPanel())
            continue;
        const CPanel& panel = *cell->GetPanel();
        CPanelPin pin;
        pin.Pos = pos;
        pin.Pin = signal.Pin;
        pin.Channel = signal.Channel;
        pin.Input = signal.Input;
        pin.ActiveLow = panel.GetTokens().value(1).startsWith(u'L');
        pin.Toggle = panel.GetKind() != EPanelKind::Key;
        pin.Kind = panel.GetKind();
        m_pins.insert(KeyOf(pos), pin);
        // Inputs start released, at the level that is not their active one.
        if (pin.Input && pin.Channel < 0)
            source.SetInput(pin.Pin, pin.ActiveLow);
    }
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setGeometry(view.viewport()->rect());
    view.viewport()->installEventFilter(this);
    connect(view.horizontalScrollBar(), &QScrollBar::valueChanged, this,
            qOverload<>(&QWidget::update));
    connect(view.verticalScrollBar(), &QScrollBar::valueChanged, this,
            qOverload<>(&QWidget::update));
    show();
    Refresh();
}

bool CSimOverlay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view.viewport() && event->type() == QEvent::Resize)
        setGeometry(m_view.viewport()->rect());
    return QWidget::eventFilter(watched, event);
}

void CSimOverlay::Refresh()
{
    m_frame = m_source.Frame();
    update();
}

const CSimOverlay::CPanelPin* CSimOverlay::PinAt(QPoint point) const
{
    const CGridPos hit = m_view.HitTest(point);
    if (!hit.IsOnGrid())
        return nullptr;
    const CGridPos top = m_grid.TopOf(hit.Column, hit.Row);
    const auto found = m_pins.find(KeyOf(top));
    return found != m_pins.end() && found->Input ? &*found : nullptr;
}

void CSimOverlay::mousePressEvent(QMouseEvent* event)
{
    const CPanelPin* pin = PinAt(event->position().toPoint());
    if (!pin || event->button() != Qt::LeftButton)
        return;
    if (pin->Channel >= 0) {
        OfferSlider(const_cast<CPanelPin&>(*pin), event->globalPosition().toPoint());
    } else if (pin->Toggle) {
        const bool on = !m_switched.value(pin->Pin);
        m_switched.insert(pin->Pin, on);
        m_source.SetInput(pin->Pin, on != pin->ActiveLow);
    } else {
        m_pressed = pin->Pin;
        m_source.SetInput(pin->Pin, !pin->ActiveLow);
    }
    update();
}

void CSimOverlay::mouseReleaseEvent(QMouseEvent*)
{
    if (m_pressed < 0)
        return;
    for (const CPanelPin& pin : m_pins)
        if (pin.Pin == m_pressed)
            m_source.SetInput(pin.Pin, pin.ActiveLow);
    m_pressed = -1;
    update();
}

void CSimOverlay::OfferSlider(CPanelPin& pin, QPoint globalPos)
{
    QMenu menu(this);
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, 1023);
    slider->setValue(pin.Reading);
    slider->setMinimumWidth(200);
    connect(slider, &QSlider::valueChanged, this, [this, &pin](int reading) {
        pin.Reading = reading;
        m_source.SetReading(pin.Channel, reading);
    });
    auto* action = new QWidgetAction(&menu);
    action->setDefaultWidget(slider);
    menu.addAction(action);
    menu.exec(globalPos);
}

void CSimOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(m_view.MapFromLogical(QPoint(0, 0)));
    painter.scale(m_view.GetZoom(), m_view.GetZoom());
    QFont font = painter.font();
    font.setPixelSize(10);
    painter.setFont(font);

    // Nets that are on, as strokes from each cell's middle to its sides.
    painter.setPen(QPen(kOn, 4, Qt::SolidLine, Qt::RoundCap));
    const QList<CSimMap::CEntry>& entries = m_map.Entries();
    for (int i = 0; i < entries.size() && i < int(m_frame.Values.size()); ++i) {
        const CSimMap::CEntry& entry = entries[i];
        const QRect cell = CLayoutGeometry::CellRect(entry.Cell.Column, entry.Cell.Row);
        if (entry.Item.size() == 1 && m_frame.Values[std::size_t(i)] != 0)
            painter.drawLine(QRectF(cell).center(), SidePoint(cell, entry.Item[0]));
    }
    // Values a person reads: elapsed times, counts, positions.
    for (int i = 0; i < entries.size() && i < int(m_frame.Values.size()); ++i) {
        const CSimMap::CEntry& entry = entries[i];
        if (entry.Item.size() == 1)
            continue;
        const QRect cell = CLayoutGeometry::CellRect(entry.Cell.Column, entry.Cell.Row);
        const QString text = QString::number(m_frame.Values[std::size_t(i)]);
        const QRect box(cell.left(), cell.bottom() - 11, cell.width(), 12);
        painter.fillRect(box, QColor(0xff, 0xff, 0xe0, 0xe0));
        painter.setPen(Qt::black);
        painter.drawText(box, Qt::AlignCenter, text);
    }
    // Lamps lit and inputs on: a glow over the panel's picture.
    for (const CPanelPin& pin : m_pins) {
        if (pin.Pin < 0 || pin.Pin >= int(m_frame.Pins.size()) || pin.Channel >= 0)
            continue;
        const bool active = m_frame.Pins[std::size_t(pin.Pin)] != pin.ActiveLow;
        const QRect rect = CLayoutGeometry::CellRect(pin.Pos.Column, pin.Pos.Row);
        painter.setPen(QPen(active ? kOn : QColor(0x60, 0x60, 0x60), 1));
        painter.setBrush(active ? kLit : QColor(0xff, 0xff, 0xff, 0x30));
        painter.drawEllipse(QRectF(rect.right() - 13, rect.top() + 3, 10, 10));
        if (active && !pin.Input)
            painter.fillRect(rect.adjusted(1, 1, -1, -1), QColor(0xff, 0xd0, 0x40, 0x50));
        // A PWM output's duty and a buzzer's tone, measured over the frame's window.
        const auto at = std::size_t(pin.Pin);
        QString measured;
        if (pin.Kind == EPanelKind::Pwm && at < m_frame.Duty.size())
            measured = QString::number(qRound(m_frame.Duty[at] * 100)) + QStringLiteral(" %");
        else if (pin.Kind == EPanelKind::Buzzer && at < m_frame.Hz.size())
            measured = QString::number(qRound(m_frame.Hz[at])) + QStringLiteral(" Hz");
        if (!measured.isEmpty()) {
            const QRect box(rect.left() + 2, rect.bottom() - 11, rect.width() - 4, 12);
            painter.fillRect(box, QColor(0xff, 0xff, 0xe0, 0xe0));
            painter.setPen(Qt::black);
            painter.drawText(box, Qt::AlignCenter, measured);
        }
    }
    // The displays over their panels: the seven-segment digits as the pins show them, the
    // character display's two lines.
    for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
        const CPanelCell* cell = m_grid.GetCell(CPanelGrid::GetOutputColumn(), row);
        const EPanelKind kind =
            cell && cell->GetPanel() ? cell->GetPanel()->GetKind() : EPanelKind::None;
        const QRect rect = CLayoutGeometry::CellRect(CPanelGrid::GetOutputColumn(), row);
        if (IsSevenSegDisplay(kind)) {
            const int digits = kind == EPanelKind::SevenSeg4 ? 4 : 1;
            QRectF box(rect.right() - 14 * digits - 4, rect.top() + 2, 14 * digits + 4, 26);
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(0x20, 0x10, 0x10));
            painter.drawRoundedRect(box, 3, 3);
            for (int digit = 0; digit < digits; ++digit)
                PaintDigit(painter, QRectF(box.left() + 3 + 14 * digit, box.top() + 2, 14, 22),
                           digits == 1 ? m_frame.Segments : m_frame.Digits[digit]);
            continue;
        }
        if (kind != EPanelKind::Lcd)
            continue;
        QRect box(rect.left() - 8 * 16 + rect.width(), rect.top(), 8 * 16 + 8, 30);
        box.moveRight(rect.right());
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x30, 0x60, 0x30));
        painter.drawRoundedRect(box, 3, 3);
        QFont mono(QStringLiteral("monospace"));
        mono.setStyleHint(QFont::Monospace);
        mono.setPixelSize(11);
        painter.setFont(mono);
        painter.setPen(QColor(0xc0, 0xff, 0xc0));
        for (int line = 0; line < 2; ++line)
            painter.drawText(box.adjusted(4, 2 + line * 13, -4, 0), Qt::AlignLeft | Qt::AlignTop,
                             QString::fromLatin1(m_frame.Lcd[line].c_str()));
        painter.setFont(font);
    }
}
