// The side columns' strips: a 64 x 32 frame per item holding the panel's name, port and
// comment, with the signal leaving towards the process area (right for inputs, left for
// outputs). The strips of one panel join into one tall frame.
#include "picturecanvas.h"
#include "picturefamilies.h"

#include "panelimage.h"

namespace {

using EJoin = CPictureCanvas::EJoin;

constexpr qreal kPinLength = 8;
constexpr qreal kTextSize = 10;

void Strip(CPictureCanvas& canvas, const CPanelImageItem& item, bool input, EJoin join,
           bool fallback)
{
    const bool top = join == CPictureCanvas::Single || join == CPictureCanvas::Top;
    const bool bottom = join == CPictureCanvas::Single || join == CPictureCanvas::Bottom;
    const qreal left = input ? 1 : kPinLength, right = input ? 64 - kPinLength : 63;
    const QRectF frame(QPointF(left, top ? 1 : 0), QPointF(right, bottom ? 31 : 32));
    canvas.Pin(input ? 'R' : 'L', kPinLength);
    canvas.Box(frame, input ? CPictureCanvas::InputFill() : CPictureCanvas::OutputFill(), join,
               fallback);

    // The name heads a panel once, on its first strip; port and comment belong to each row.
    const bool named = top && !item.Name.isEmpty();
    QStringList lines;
    if (named)
        lines.append(item.Name);
    const QString detail = QStringList({item.PortText, item.Comment}).join(u' ').trimmed();
    if (!named && !item.PortText.isEmpty() && !item.Comment.isEmpty())
        lines = QStringList{item.PortText, item.Comment};
    else if (!detail.isEmpty())
        lines.append(detail);
    if (fallback && lines.isEmpty())
        lines.append(QStringLiteral("?"));
    if (lines.isEmpty())
        return;

    const QRectF text = frame.adjusted(3, 2, -3, -2);
    const int flags = Qt::AlignVCenter | Qt::AlignLeft;
    if (lines.size() == 1) {
        canvas.Text(text, lines[0], kTextSize, flags, named);
        return;
    }
    const qreal half = text.height() / 2;
    canvas.Text(QRectF(text.left(), text.top(), text.width(), half), lines[0], kTextSize, flags,
                named);
    canvas.Text(QRectF(text.left(), text.top() + half, text.width(), half), lines[1], kTextSize,
                flags);
}

template <bool Input, EJoin Join, bool Fallback = false>
void SideStrip(CPictureCanvas& canvas, const CPanelImageItem& item)
{
    Strip(canvas, item, Input, Join, Fallback);
}

const CPictureEntry kStrips[] = {
    {10070, 64, 32, SideStrip<true, CPictureCanvas::Single>},
    {10071, 64, 32, SideStrip<true, CPictureCanvas::Top>},
    {10072, 64, 32, SideStrip<true, CPictureCanvas::Middle>},
    {10073, 64, 32, SideStrip<true, CPictureCanvas::Bottom>},
    {218, 64, 32, SideStrip<true, CPictureCanvas::Single, true>},
    {10079, 64, 32, SideStrip<false, CPictureCanvas::Single>},
    {10080, 64, 32, SideStrip<false, CPictureCanvas::Top>},
    {10081, 64, 32, SideStrip<false, CPictureCanvas::Middle>},
    {10082, 64, 32, SideStrip<false, CPictureCanvas::Bottom>},
    {219, 64, 32, SideStrip<false, CPictureCanvas::Single, true>},
};

} // namespace

std::span<const CPictureEntry> PictureFamilies::SideStrips()
{
    return kStrips;
}
