// The logic gates and constant sources, drawn facing right; the downward kinds are the same
// drawing mirrored about the diagonal, so their pins come from above and leave below.
#include "picturecanvas.h"
#include "picturefamilies.h"

#include "panelimage.h"

#include <QPainter>
#include <QTransform>

namespace {

enum class EGate
{
    And,
    Or,
    Xor,
    Not
};

// Swaps x and y: a right-facing drawing becomes a downward-facing one.
const QTransform kDiagonal(0, 1, 1, 0, 0, 0);

QPainterPath Oriented(const QPainterPath& path, bool down)
{
    return down ? kDiagonal.map(path) : path;
}

QPainterPath Polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    for (const QPointF& point : points)
        path.elementCount() == 0 ? path.moveTo(point) : path.lineTo(point);
    return path;
}

QPainterPath OrBody(qreal back)
{
    QPainterPath body;
    body.moveTo(back, 8.5);
    body.quadTo(back + 4, 16, back, 23.5);
    body.lineTo(back + 4, 23.5);
    body.quadTo(back + 12, 23.5, back + 16, 16);
    body.quadTo(back + 12, 8.5, back + 4, 8.5);
    body.closeSubpath();
    return body;
}

void DrawGate(CPictureCanvas& canvas, EGate gate, bool down)
{
    if (gate == EGate::Not) {
        canvas.Signal(Oriented(Polyline({{0, 16}, {10, 16}}), down));
        canvas.Signal(Oriented(Polyline({{26, 16}, {32, 16}}), down));
        QPainterPath body = Polyline({{9.5, 8.5}, {21, 16}, {9.5, 23.5}});
        body.closeSubpath();
        canvas.Shape(Oriented(body, down), CPictureCanvas::LogicFill());
        QPainterPath bubble;
        bubble.addEllipse(QPointF(23.5, 16), 2.5, 2.5);
        canvas.Shape(Oriented(bubble, down), CPictureCanvas::LogicFill());
        return;
    }
    // Two inputs: the side input bends to the lower back pin, the one from above is led
    // round to the upper back pin, so the lines never cross.
    canvas.Signal(Oriented(Polyline({{0, 16}, {6, 16}, {6, 20}, {13, 20}}), down));
    canvas.Signal(Oriented(Polyline({{16, 0}, {16, 4}, {8, 4}, {8, 12}, {13, 12}}), down));
    qreal front = 25;
    QPainterPath body;
    switch (gate) {
    case EGate::And:
        body.moveTo(11.5, 8.5);
        body.lineTo(17.5, 8.5);
        body.arcTo(QRectF(10, 8.5, 15, 15), 90, -180);
        body.lineTo(11.5, 23.5);
        body.closeSubpath();
        break;
    case EGate::Or:
        body = OrBody(10);
        front = 26;
        break;
    default:
        body = OrBody(12);
        front = 28;
        break;
    }
    canvas.Signal(Oriented(Polyline({{front, 16}, {32, 16}}), down));
    canvas.Shape(Oriented(body, down), CPictureCanvas::LogicFill());
    if (gate == EGate::Xor) {
        QPainterPath extra;
        extra.moveTo(9, 8.5);
        extra.quadTo(13, 16, 9, 23.5);
        canvas.Shape(Oriented(extra, down), Qt::transparent);
    }
}

void DrawConstant(CPictureCanvas& canvas, bool on, bool down)
{
    const QRectF box = down ? QRectF(6, 2, 20, 19) : QRectF(2, 6, 20, 20);
    canvas.Pin(down ? 'D' : 'R', down ? 11 : 10);
    canvas.Box(box, on ? CPictureCanvas::LogicFill() : QColor(0xe4, 0xe4, 0xe4));
    canvas.Text(box, on ? QStringLiteral("ON") : QStringLiteral("OFF"), 8, Qt::AlignCenter, true);
}

template <EGate Kind, bool Down> void Gate(CPictureCanvas& canvas, const CPanelImageItem&)
{
    DrawGate(canvas, Kind, Down);
}

template <bool On, bool Down> void Constant(CPictureCanvas& canvas, const CPanelImageItem&)
{
    DrawConstant(canvas, On, Down);
}

const CPictureEntry kGates[] = {
    {10010, 32, 32, Gate<EGate::Not, false>}, {10011, 32, 32, Gate<EGate::Not, true>},
    {10012, 32, 32, Gate<EGate::And, false>}, {10013, 32, 32, Gate<EGate::And, true>},
    {10014, 32, 32, Gate<EGate::Or, false>},  {10015, 32, 32, Gate<EGate::Or, true>},
    {10016, 32, 32, Gate<EGate::Xor, false>}, {10017, 32, 32, Gate<EGate::Xor, true>},
    {10018, 32, 32, Constant<true, false>},   {10019, 32, 32, Constant<false, false>},
    {10020, 32, 32, Constant<true, true>},    {10021, 32, 32, Constant<false, true>},
};

} // namespace

std::span<const CPictureEntry> PictureFamilies::Gates()
{
    return kGates;
}
