#include "picturecanvas.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QStaticText>
#include <QtMath>

namespace {

constexpr qreal kSignalWidth = 2;

QPen OutlinePen(const QColor& colour, qreal width = 1, Qt::PenStyle style = Qt::SolidLine)
{
    return QPen(colour, width, style, Qt::FlatCap, Qt::MiterJoin);
}

QPointF SideMiddle(QSizeF size, char side)
{
    switch (side) {
    case 'U':
        return {size.width() / 2, 0};
    case 'D':
        return {size.width() / 2, size.height()};
    case 'L':
        return {0, size.height() / 2};
    default:
        return {size.width(), size.height() / 2};
    }
}

QPointF Inwards(char side)
{
    switch (side) {
    case 'U':
        return {0, 1};
    case 'D':
        return {0, -1};
    case 'L':
        return {1, 0};
    default:
        return {-1, 0};
    }
}

} // namespace

CPictureCanvas::CPictureCanvas(QPainter& painter, QSizeF size) : m_painter(painter), m_size(size) {}

void CPictureCanvas::Pin(char side, qreal length)
{
    const QPointF from = SideMiddle(m_size, side);
    Signal({from, from + Inwards(side) * length});
}

void CPictureCanvas::Signal(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    for (const QPointF& point : points) {
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    Signal(path);
}

void CPictureCanvas::Signal(const QPainterPath& path)
{
    m_painter.setPen(QPen(SignalColour(), kSignalWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawPath(path);
}

void CPictureCanvas::Junction(QPointF at)
{
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(SignalColour());
    m_painter.drawEllipse(at, 2.5, 2.5);
}

void CPictureCanvas::ArrowHead(QPointF tip, char pointing, qreal size)
{
    // Inwards from the right side is leftwards, so pointing right is its opposite.
    const QPointF ahead = -Inwards(pointing);
    const QPointF across(ahead.y(), ahead.x());
    QPolygonF head;
    head << tip << tip - ahead * size + across * size << tip - ahead * size - across * size;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(SignalColour());
    m_painter.drawPolygon(head);
}

void CPictureCanvas::Box(const QRectF& rect, const QColor& fill, EJoin join, bool dashed)
{
    const qreal l = rect.left() + 0.5, r = rect.right() - 0.5;
    const qreal t = join == Single || join == Top ? rect.top() + 0.5 : rect.top();
    const qreal b = join == Single || join == Bottom ? rect.bottom() - 0.5 : rect.bottom();
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(fill);
    m_painter.drawRect(QRectF(QPointF(l, t), QPointF(r, b)));

    if (join == Middle || join == Bottom) {
        m_painter.setPen(OutlinePen(Faint(), 1, Qt::DotLine));
        m_painter.drawLine(QPointF(l + 2, rect.top() + 0.5), QPointF(r - 2, rect.top() + 0.5));
    }
    m_painter.setPen(OutlinePen(Ink(), 1, dashed ? Qt::DashLine : Qt::SolidLine));
    m_painter.setBrush(Qt::NoBrush);
    QPainterPath edges;
    edges.moveTo(l, t);
    edges.lineTo(l, b);
    if (join == Single || join == Bottom)
        edges.lineTo(r, b);
    else
        edges.moveTo(r, b);
    edges.lineTo(r, t);
    if (join == Single || join == Top)
        edges.lineTo(l, t);
    m_painter.drawPath(edges);
}

void CPictureCanvas::Shape(const QPainterPath& outline, const QColor& fill)
{
    m_painter.setPen(OutlinePen(Ink()));
    m_painter.setBrush(fill);
    m_painter.drawPath(outline);
}

void CPictureCanvas::Line(QPointF from, QPointF to, qreal width)
{
    m_painter.setPen(QPen(Ink(), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    m_painter.drawLine(from, to);
}

namespace {

QFont PictureFont(int pixelSize, bool bold)
{
    // Fonts are resolved once per size: looking a face up is what drawing texts cost most.
    static QHash<int, QFont> fonts;
    const int key = pixelSize * 2 + (bold ? 1 : 0);
    auto it = fonts.find(key);
    if (it == fonts.end()) {
        QFont font;
        font.setFamilies({QStringLiteral("DejaVu Sans Condensed"), QStringLiteral("Arial Narrow"),
                          QStringLiteral("Arial"), QStringLiteral("Helvetica")});
        font.setStyleHint(QFont::SansSerif);
        font.setPixelSize(pixelSize);
        font.setBold(bold);
        it = fonts.insert(key, font);
    }
    return *it;
}

// A text shaped once: a layout repaints the same names and values again and again.
struct CShapedText
{
    QStaticText Text;
    QSizeF Size;
};

const CShapedText& Shaped(const QString& text, const QFont& font, qreal width)
{
    static QHash<QString, CShapedText> cache;
    const QString key = text + QChar(0) + font.key() + QChar(0) + QString::number(width);
    auto it = cache.find(key);
    if (it == cache.end()) {
        if (cache.size() > 4096)
            cache.clear();
        const QFontMetricsF metrics(font);
        QStaticText shaped(metrics.horizontalAdvance(text) <= width
                               ? text
                               : metrics.elidedText(text, Qt::ElideRight, width));
        shaped.setTextFormat(Qt::PlainText);
        shaped.prepare(QTransform(), font);
        it = cache.insert(key, {shaped, shaped.size()});
    }
    return *it;
}

} // namespace

void CPictureCanvas::Text(const QRectF& rect, const QString& text, qreal pixelSize, int flags,
                          bool bold)
{
    if (text.isEmpty())
        return;
    const QFont font = PictureFont(qMax(1, qRound(pixelSize)), bold);
    m_painter.setFont(font);
    m_painter.setPen(Ink());
    const CShapedText& shaped = Shaped(text, font, rect.width());
    QPointF at = rect.topLeft();
    if (flags & Qt::AlignHCenter)
        at.rx() += (rect.width() - shaped.Size.width()) / 2;
    else if (flags & Qt::AlignRight)
        at.rx() += rect.width() - shaped.Size.width();
    if (flags & Qt::AlignVCenter)
        at.ry() += (rect.height() - shaped.Size.height()) / 2;
    else if (flags & Qt::AlignBottom)
        at.ry() += rect.height() - shaped.Size.height();
    m_painter.drawStaticText(at, shaped.Text);
}

void CPictureCanvas::BarredText(const QRectF& rect, const QString& text, qreal pixelSize)
{
    Text(rect, text, pixelSize, Qt::AlignCenter, true);
    const QFontMetricsF metrics(m_painter.font());
    const qreal width = metrics.horizontalAdvance(text);
    const qreal top = qFloor(rect.center().y() - metrics.ascent() / 2) - 1.5;
    m_painter.setPen(OutlinePen(Ink()));
    m_painter.drawLine(QPointF(rect.center().x() - width / 2, top),
                       QPointF(rect.center().x() + width / 2, top));
}

void CPictureCanvas::SevenSegment(const QRectF& rect, unsigned lit, qreal width)
{
    const qreal l = rect.left(), r = rect.right(), t = rect.top(), b = rect.bottom();
    const qreal m = (t + b) / 2;
    const QLineF segments[7] = {{l, t, r, t}, {r, t, r, m}, {r, m, r, b}, {l, b, r, b},
                                {l, m, l, b}, {l, t, l, m}, {l, m, r, m}};
    for (int i = 0; i < 7; ++i) {
        const bool on = lit & (1u << i);
        m_painter.setPen(QPen(on ? QColor(0xd0, 0x20, 0x20) : QColor(0xd8, 0xc8, 0xc8), width,
                              Qt::SolidLine, Qt::RoundCap));
        // Shortened a little so the segments read as separate bars.
        const QLineF s = segments[i];
        const QPointF inset = (s.p2() - s.p1()) * (1.2 / qMax(s.length(), 1.0));
        m_painter.drawLine(s.p1() + inset, s.p2() - inset);
    }
}

const QColor& CPictureCanvas::Ink()
{
    static const QColor colour(0x20, 0x20, 0x20);
    return colour;
}

const QColor& CPictureCanvas::SignalColour()
{
    static const QColor colour(0x1f, 0x4e, 0x9a);
    return colour;
}

const QColor& CPictureCanvas::ProcessFill()
{
    static const QColor colour(0xff, 0xf1, 0xc9);
    return colour;
}

const QColor& CPictureCanvas::LogicFill()
{
    static const QColor colour(0xe2, 0xf2, 0xd8);
    return colour;
}

const QColor& CPictureCanvas::InputFill()
{
    static const QColor colour(0xdc, 0xea, 0xfb);
    return colour;
}

const QColor& CPictureCanvas::OutputFill()
{
    static const QColor colour(0xfb, 0xe0, 0xd6);
    return colour;
}

const QColor& CPictureCanvas::Faint()
{
    static const QColor colour(0x90, 0x90, 0x90);
    return colour;
}
