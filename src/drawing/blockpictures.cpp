// The process blocks drawn as framed boxes with their pins: flip-flops, delay, timer,
// counter, jumps, serial bit, segment decoders and the stepping motor. Pins follow the
// netlist: the top and left pins on a block's first row only, the right pin on every row.
#include "picturecanvas.h"
#include "picturefamilies.h"

#include "panelimage.h"

#include <QPainter>

namespace {

using EJoin = CPictureCanvas::EJoin;

bool HasTop(EJoin join)
{
    return join == CPictureCanvas::Single || join == CPictureCanvas::Top;
}

bool HasBottom(EJoin join)
{
    return join == CPictureCanvas::Single || join == CPictureCanvas::Bottom;
}

// A block's box, open where it joins the rows above and below.
QRectF BlockRect(EJoin join, qreal left = 5, qreal right = 27)
{
    return QRectF(QPointF(left, HasTop(join) ? 5 : 0), QPointF(right, HasBottom(join) ? 28 : 32));
}

// Box, pins and a two-line label: a large main text over a small second one.
void LabelledBox(CPictureCanvas& canvas, const char* pins, const QString& main,
                 const QString& small)
{
    for (const char* side = pins; *side; ++side)
        canvas.Pin(*side, 5);
    const QRectF box = BlockRect(CPictureCanvas::Single);
    canvas.Box(box, CPictureCanvas::ProcessFill());
    canvas.Text(QRectF(box.left(), 7, box.width(), 12), main, 11, Qt::AlignCenter, true);
    canvas.Text(QRectF(box.left(), 18, box.width(), 9), small, 7);
}

template <int Kind> void FlipFlop(CPictureCanvas& canvas, const CPanelImageItem&)
{
    static const char* const kLabels[] = {"FF", "RS", "D", "T"};
    LabelledBox(canvas, "ULR", QString::fromLatin1(kLabels[Kind]),
                Kind == 0 ? QStringLiteral("?") : QStringLiteral("FF"));
}

void Delay(CPictureCanvas& canvas, const CPanelImageItem&)
{
    LabelledBox(canvas, "LR", QString(), QStringLiteral("DLY"));
    QPainterPath glass;
    glass.moveTo(12.5, 8.5);
    glass.lineTo(19.5, 8.5);
    glass.lineTo(16, 13);
    glass.lineTo(19.5, 17.5);
    glass.lineTo(12.5, 17.5);
    glass.lineTo(16, 13);
    glass.closeSubpath();
    canvas.Shape(glass, QColor(0xe8, 0xd0, 0x90));
}

void Timer(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    LabelledBox(canvas, "LR", QString(), QStringLiteral("TIM"));
    QPainterPath face;
    face.addEllipse(QPointF(11.5, 12.5), 4.5, 4.5);
    canvas.Shape(face, Qt::transparent);
    canvas.Line({11.5, 12.5}, {11.5, 9.5});
    canvas.Line({11.5, 12.5}, {13.5, 12.5});
    // The kind letter (H, T, N or R) tells the timers apart in the drawing.
    canvas.Text(QRectF(16, 6, 11, 13), item.Comment, 11, Qt::AlignCenter, true);
}

void Counter(CPictureCanvas& canvas, const CPanelImageItem& item, EJoin join)
{
    if (HasTop(join)) {
        canvas.Pin('U', 5);
        canvas.Pin('L', 5);
    }
    canvas.Pin('R', 5);
    const QRectF box = BlockRect(join);
    canvas.Box(box, CPictureCanvas::ProcessFill(), join);
    QRectF value(box.left() + 1, box.top(), box.width() - 2, box.height());
    if (HasTop(join)) {
        canvas.Text(QRectF(box.left(), 6, box.width(), 8), QStringLiteral("CNT"), 7);
        value.setTop(13);
    }
    canvas.Text(value, item.PortText, 9, Qt::AlignCenter, true);
}

template <EJoin Join> void CounterRow(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    Counter(canvas, item, Join);
}

// A tag with a point in the direction the signal flows, holding the connection id.
void JumpTag(CPictureCanvas& canvas, const QRectF& body, char pointing, const QString& id)
{
    QPainterPath tag;
    if (pointing == 'R') {
        tag.moveTo(body.topLeft());
        tag.lineTo(body.right() - 5, body.top());
        tag.lineTo(body.right(), body.center().y());
        tag.lineTo(body.right() - 5, body.bottom());
        tag.lineTo(body.bottomLeft());
    } else {
        tag.moveTo(body.topLeft());
        tag.lineTo(body.topRight());
        tag.lineTo(body.right(), body.bottom() - 5);
        tag.lineTo(body.center().x(), body.bottom());
        tag.lineTo(body.left(), body.bottom() - 5);
    }
    tag.closeSubpath();
    canvas.Shape(tag, CPictureCanvas::ProcessFill());
    const QRectF text = pointing == 'R' ? body.adjusted(0, 0, -4, 0) : body.adjusted(0, 0, 0, -4);
    canvas.Text(text, id, 9, Qt::AlignCenter, true);
}

template <char Side> void Jump(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    switch (Side) {
    case 'L': // in from the left
        canvas.Signal({{0, 16}, {7, 16}});
        canvas.ArrowHead({11, 16}, 'R');
        JumpTag(canvas, QRectF(11.5, 9.5, 18, 13), 'R', item.PortText);
        break;
    case 'U': // in from above
        canvas.Signal({{16, 0}, {16, 6}});
        canvas.ArrowHead({16, 10}, 'D');
        JumpTag(canvas, QRectF(9.5, 10.5, 13, 19), 'D', item.PortText);
        break;
    case 'R': // out to the right
        JumpTag(canvas, QRectF(2.5, 9.5, 18, 13), 'R', item.PortText);
        canvas.Signal({{21, 16}, {32, 16}});
        canvas.ArrowHead({30, 16}, 'R');
        break;
    default: // out downwards
        JumpTag(canvas, QRectF(9.5, 1.5, 13, 19), 'D', item.PortText);
        canvas.Signal({{16, 21}, {16, 32}});
        canvas.ArrowHead({16, 30}, 'D');
        break;
    }
}

template <bool PortZero> void SerialBit(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    canvas.Pin('L', 6);
    const QRectF box(6, 5, 23, 23);
    canvas.Box(box, CPictureCanvas::ProcessFill());
    canvas.Text(QRectF(6, 6, 23, 9), PortZero ? QStringLiteral("SIO0") : QStringLiteral("SIO"), 7);
    canvas.Text(QRectF(7, 15, 21, 12), item.PortText, 9, Qt::AlignCenter, true);
}

// Decoders show a digit (two for the four-digit kinds), their mode letter and their index.
template <int Digits, char Mode> void Decoder(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    canvas.Pin('L', 6);
    const QRectF box(6, 3, 24, 26);
    canvas.Box(box, CPictureCanvas::ProcessFill());
    canvas.SevenSegment(QRectF(10, 6.5, 5, 10), 0x7f, 1.5);
    if (Digits > 1)
        canvas.SevenSegment(QRectF(17, 6.5, 5, 10), 0x7f, 1.5);
    if (Mode != ' ')
        canvas.Text(QRectF(Digits > 1 ? 23 : 18, 5, 7, 13), QString(QChar::fromLatin1(Mode)), 9,
                    Qt::AlignCenter, true);
    canvas.Text(QRectF(7, 18, 22, 10), item.PortText, 8, Qt::AlignCenter, true);
}

// The stepping motor's four rows: the motor on the first, a coil with its phase on each.
template <int Row> void MotorRow(CPictureCanvas& canvas, const CPanelImageItem&)
{
    static const EJoin kJoins[] = {CPictureCanvas::Top, CPictureCanvas::Middle,
                                   CPictureCanvas::Middle, CPictureCanvas::Bottom};
    const EJoin join = kJoins[Row];
    if (Row == 0) {
        canvas.Pin('U', 5);
        canvas.Pin('L', 5);
    }
    canvas.Pin('R', 5);
    canvas.Box(BlockRect(join), CPictureCanvas::ProcessFill(), join);
    if (Row == 0) {
        QPainterPath motor;
        motor.addEllipse(QPointF(11, 18.5), 4.5, 4.5);
        canvas.Shape(motor, Qt::transparent);
        canvas.Text(QRectF(6, 13, 10, 11), QStringLiteral("M"), 7, Qt::AlignCenter, true);
    } else {
        QPainterPath coil;
        coil.moveTo(7, 16);
        for (int turn = 0; turn < 3; ++turn)
            coil.arcTo(QRectF(7 + 3 * turn, 13, 3, 6), 180, -180);
        canvas.Shape(coil, Qt::transparent);
    }
    const QRectF phase(17, HasTop(join) ? 12 : 9, 9, 14);
    if (Row < 2)
        canvas.Text(phase, QString(QChar::fromLatin1("AB"[Row])), 9, Qt::AlignCenter, true);
    else
        canvas.BarredText(phase, QString(QChar::fromLatin1("AB"[Row - 2])), 9);
}

const CPictureEntry kBlocks[] = {
    {10022, 32, 32, FlipFlop<0>},
    {10023, 32, 32, FlipFlop<1>},
    {10024, 32, 32, FlipFlop<2>},
    {10025, 32, 32, FlipFlop<3>},
    {10027, 32, 32, Delay},
    {10028, 32, 32, Timer},
    {10026, 32, 32, CounterRow<CPictureCanvas::Single>},
    {10029, 32, 32, CounterRow<CPictureCanvas::Top>},
    {10030, 32, 32, CounterRow<CPictureCanvas::Middle>},
    {10031, 32, 32, CounterRow<CPictureCanvas::Bottom>},
    {10033, 32, 32, Jump<'U'>},
    {10034, 32, 32, Jump<'L'>},
    {10035, 32, 32, Jump<'R'>},
    {10036, 32, 32, Jump<'D'>},
    {10037, 32, 32, SerialBit<false>},
    {275, 32, 32, SerialBit<true>},
    {10038, 32, 32, Decoder<1, ' '>},
    {10039, 32, 32, Decoder<4, ' '>},
    {10041, 32, 32, Decoder<1, 'B'>},
    {10042, 32, 32, Decoder<1, 'D'>},
    {262, 32, 32, Decoder<1, 'S'>},
    {263, 32, 32, Decoder<4, 'B'>},
    {264, 32, 32, Decoder<4, 'D'>},
    {265, 32, 32, Decoder<4, 'S'>},
    {245, 32, 32, MotorRow<0>},
    {246, 32, 32, MotorRow<1>},
    {247, 32, 32, MotorRow<2>},
    {248, 32, 32, MotorRow<3>},
};

} // namespace

std::span<const CPictureEntry> PictureFamilies::Blocks()
{
    return kBlocks;
}
