// The small symbols of the side-column panel types, as the panel bar offers them. Each
// shows the device; an arrow along the bottom tells inputs (into a bar, "->|") from outputs
// (out of a bar, "|->").
#include "picturecanvas.h"
#include "picturefamilies.h"

#include "panelimage.h"

#include <QPainter>

namespace {

QPen InkPen(qreal width = 2)
{
    return QPen(CPictureCanvas::Ink(), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void Flow(CPictureCanvas& canvas, bool input)
{
    const qreal y = 28;
    if (input) {
        canvas.Signal({{3, y}, {24, y}});
        canvas.ArrowHead({28, y}, 'R', 3.5);
        canvas.Signal({{29, y - 4}, {29, y + 4}});
    } else {
        canvas.Signal({{3, y - 4}, {3, y + 4}});
        canvas.Signal({{4, y}, {25, y}});
        canvas.ArrowHead({29, y}, 'R', 3.5);
    }
}

void Stroke(CPictureCanvas& canvas, std::initializer_list<QPointF> points, qreal width = 2)
{
    QPainterPath path;
    for (const QPointF& point : points)
        path.elementCount() == 0 ? path.moveTo(point) : path.lineTo(point);
    canvas.Painter().setPen(InkPen(width));
    canvas.Painter().setBrush(Qt::NoBrush);
    canvas.Painter().drawPath(path);
}

void Terminal(CPictureCanvas& canvas, QPointF at)
{
    canvas.Painter().setPen(InkPen(1.5));
    canvas.Painter().setBrush(Qt::NoBrush);
    canvas.Painter().drawEllipse(at, 2, 2);
}

// A normally open push button: two contacts, a bridge above them and its plunger.
void Key(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Stroke(canvas, {{2, 18}, {6, 18}});
    Stroke(canvas, {{26, 18}, {30, 18}});
    Terminal(canvas, {8, 18});
    Terminal(canvas, {24, 18});
    Stroke(canvas, {{7, 12}, {25, 12}});
    Stroke(canvas, {{16, 12}, {16, 4}});
    Stroke(canvas, {{11, 4}, {21, 4}});
    Flow(canvas, true);
}

// A toggle switch: a lever from one contact, lifted off the other.
void Switch(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Stroke(canvas, {{2, 18}, {6, 18}});
    Stroke(canvas, {{26, 18}, {30, 18}});
    Terminal(canvas, {8, 18});
    Terminal(canvas, {24, 18});
    Stroke(canvas, {{9.5, 16.5}, {24, 7}});
    Flow(canvas, true);
}

// A plain digital pin: a level change with its direction written beside it.
void Digital(CPictureCanvas& canvas, bool input)
{
    Stroke(canvas, {{2, 18}, {6, 18}, {6, 6}, {13, 6}, {13, 18}});
    canvas.Text(QRectF(14, 4, 18, 16), input ? QStringLiteral("IN") : QStringLiteral("OUT"), 8,
                Qt::AlignCenter, true);
    Flow(canvas, input);
}

void Input(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Digital(canvas, true);
}

void Output(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Digital(canvas, false);
}

void Analog(CPictureCanvas& canvas, const CPanelImageItem&)
{
    QPainterPath sine;
    sine.moveTo(3, 12);
    sine.cubicTo(7, 0, 11, 0, 16, 12);
    sine.cubicTo(21, 24, 25, 24, 29, 12);
    canvas.Painter().setPen(InkPen());
    canvas.Painter().setBrush(Qt::NoBrush);
    canvas.Painter().drawPath(sine);
    Flow(canvas, true);
}

void Serial(CPictureCanvas& canvas, bool input)
{
    canvas.Text(QRectF(0, 0, 32, 11), input ? QStringLiteral("RxD") : QStringLiteral("TxD"), 9,
                Qt::AlignCenter, true);
    Stroke(canvas,
           {{2, 21},
            {6, 21},
            {6, 14},
            {10, 14},
            {10, 21},
            {18, 21},
            {18, 14},
            {22, 14},
            {22, 21},
            {30, 21}},
           1.5);
    Flow(canvas, input);
}

void SerialIn(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Serial(canvas, true);
}

void SerialOut(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Serial(canvas, false);
}

// A lamp: a circle with a cross, on its two leads.
void Lamp(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Stroke(canvas, {{2, 13}, {7, 13}});
    Stroke(canvas, {{25, 13}, {30, 13}});
    canvas.Painter().setPen(InkPen());
    canvas.Painter().setBrush(QColor(0xff, 0xe8, 0x80));
    canvas.Painter().drawEllipse(QPointF(16, 13), 9, 9);
    Stroke(canvas, {{9.6, 6.6}, {22.4, 19.4}}, 1.5);
    Stroke(canvas, {{22.4, 6.6}, {9.6, 19.4}}, 1.5);
    Flow(canvas, false);
}

// A buzzer: a speaker with its sound.
void Buzzer(CPictureCanvas& canvas, const CPanelImageItem&)
{
    QPainterPath speaker;
    speaker.addRect(QRectF(4.5, 9.5, 5, 7));
    speaker.moveTo(9.5, 9.5);
    speaker.lineTo(15.5, 3.5);
    speaker.lineTo(15.5, 22.5);
    speaker.lineTo(9.5, 16.5);
    canvas.Shape(speaker, CPictureCanvas::OutputFill());
    canvas.Painter().setPen(InkPen(1.5));
    canvas.Painter().setBrush(Qt::NoBrush);
    canvas.Painter().drawArc(QRectF(13, 7, 8, 12), -50 * 16, 100 * 16);
    canvas.Painter().drawArc(QRectF(13, 3, 14, 20), -50 * 16, 100 * 16);
    Flow(canvas, false);
}

void Pwm(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Stroke(canvas,
           {{2, 15},
            {4, 15},
            {4, 4},
            {6, 4},
            {6, 15},
            {11, 15},
            {11, 4},
            {15, 4},
            {15, 15},
            {19, 15},
            {19, 4},
            {27, 4},
            {27, 15},
            {30, 15}},
           1.5);
    canvas.Text(QRectF(0, 15, 32, 9), QStringLiteral("PWM"), 8, Qt::AlignCenter, true);
    Flow(canvas, false);
}

void Pulse(CPictureCanvas& canvas, const CPanelImageItem&)
{
    // Duty steps from full to none, as the pulse panel's rows offer them.
    Stroke(canvas,
           {{2, 4},
            {8, 4},
            {8, 8},
            {14, 8},
            {14, 12},
            {20, 12},
            {20, 16},
            {26, 16},
            {26, 19},
            {30, 19}},
           1.5);
    canvas.Text(QRectF(0, 16, 14, 9), QStringLiteral("%"), 9, Qt::AlignCenter, true);
    Flow(canvas, false);
}

void SevenSegment(CPictureCanvas& canvas, const CPanelImageItem&)
{
    // Lit as a "5" would be, so it reads as a display rather than a frame.
    canvas.SevenSegment(QRectF(11, 3, 10, 18), 0b1101101, 2.5);
    Flow(canvas, false);
}

void Lcd(CPictureCanvas& canvas, const CPanelImageItem&)
{
    const QRectF screen(2, 3, 28, 18);
    canvas.Box(screen, QColor(0xc8, 0xe6, 0xb4));
    canvas.Text(screen, QStringLiteral("LCD"), 9, Qt::AlignCenter, true);
    Flow(canvas, false);
}

void Globe(CPictureCanvas& canvas)
{
    QPainterPath globe;
    globe.addEllipse(QPointF(16, 12), 9.5, 9.5);
    canvas.Shape(globe, QColor(0xd4, 0xe8, 0xfa));
    canvas.Painter().setPen(InkPen(1));
    canvas.Painter().setBrush(Qt::NoBrush);
    canvas.Painter().drawEllipse(QPointF(16, 12), 4, 9.5);
    canvas.Painter().drawLine(QPointF(6.5, 12), QPointF(25.5, 12));
}

void WebIn(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Globe(canvas);
    Flow(canvas, true);
}

void WebOut(CPictureCanvas& canvas, const CPanelImageItem&)
{
    Globe(canvas);
    Flow(canvas, false);
}

// A motor: the circled M, with a step under it for the stepping drive.
void Motor(CPictureCanvas& canvas, const CPanelImageItem&)
{
    QPainterPath body;
    body.addEllipse(QPointF(16, 12), 10, 10);
    canvas.Shape(body, CPictureCanvas::ProcessFill());
    canvas.Text(QRectF(6, 2, 20, 12), QStringLiteral("M"), 10, Qt::AlignCenter, true);
    Stroke(canvas, {{10, 19.5}, {14, 19.5}, {14, 17}, {18, 17}, {18, 14.5}, {22, 14.5}}, 1);
    Flow(canvas, false);
}

// A motor driver: the motor with the four coil lines the driver switches.
void MotorDriver(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    Motor(canvas, item);
    for (const qreal y : {5.0, 9.5, 14.0, 18.5})
        Stroke(canvas, {{27, y}, {31, y}}, 1.5);
}

const CPictureEntry kSymbols[] = {
    {10074, 32, 32, Key},       {10075, 32, 32, Switch},       {10076, 32, 32, Input},
    {10077, 32, 32, Analog},    {10078, 32, 32, SerialIn},     {10083, 32, 32, Lamp},
    {10084, 32, 32, Output},    {10085, 32, 32, Buzzer},       {10086, 32, 32, Pwm},
    {10087, 32, 32, SerialOut}, {10088, 32, 32, SevenSegment}, {10089, 32, 32, Pulse},
    {10090, 32, 32, Lcd},       {10091, 32, 32, WebIn},        {10092, 32, 32, WebOut},
    {249, 32, 32, Motor},       {10093, 32, 32, MotorDriver},
};

} // namespace

std::span<const CPictureEntry> PictureFamilies::TypeSymbols()
{
    return kSymbols;
}
