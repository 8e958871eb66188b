#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <initializer_list>

class QPainter;

// The shared strokes of the panel pictures, in the picture's own units (32 x 32 or 64 x 32,
// whatever the device pixel ratio). Signals are 2 units wide on whole coordinates and
// outlines 1 unit wide on half coordinates, so both land on whole pixels at 1x and at 2x.
class CPictureCanvas
{
  public:
    // How a row of a tall panel joins the rows above and below it.
    enum EJoin
    {
        Single,
        Top,
        Middle,
        Bottom,
    };

    CPictureCanvas(QPainter& painter, QSizeF size);

    QPainter& Painter() { return m_painter; }
    QSizeF Size() const { return m_size; }

    // A signal from the middle of a side ('U', 'D', 'L', 'R') inwards, length units long.
    void Pin(char side, qreal length);
    // A signal along the points, joined with square corners.
    void Signal(std::initializer_list<QPointF> points);
    void Signal(const QPainterPath& path);
    // The dot that marks signals joined where lines meet.
    void Junction(QPointF at);
    void ArrowHead(QPointF tip, char pointing, qreal size = 4);

    // A framed block filling the whole-unit rectangle; rows of a tall block join with a
    // dotted line between them instead of edges.
    void Box(const QRectF& rect, const QColor& fill, EJoin join = Single, bool dashed = false);
    void Shape(const QPainterPath& outline, const QColor& fill);
    void Line(QPointF from, QPointF to, qreal width = 1);

    // Text centred (or as flags say) in rect, elided at its right end when too wide.
    void Text(const QRectF& rect, const QString& text, qreal pixelSize, int flags = Qt::AlignCenter,
              bool bold = false);
    // A seven-segment digit in rect; bit 0 lights segment a, bit 6 segment g.
    void SevenSegment(const QRectF& rect, unsigned lit, qreal width);
    // A letter with a bar over it, for the inverted coil phases.
    void BarredText(const QRectF& rect, const QString& text, qreal pixelSize);

    static const QColor& Ink();
    static const QColor& SignalColour();
    static const QColor& ProcessFill();
    static const QColor& LogicFill();
    static const QColor& InputFill();
    static const QColor& OutputFill();
    static const QColor& Faint();

  private:
    QPainter& m_painter;
    QSizeF m_size;
};
