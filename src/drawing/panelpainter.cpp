#include "panelpainter.h"

#include "picturecanvas.h"
#include "picturefamilies.h"

#include <QHash>
#include <QPainter>

namespace {

using FamilyFn = std::span<const CPictureEntry> (*)();
const FamilyFn kFamilies[] = {PictureFamilies::Gates, PictureFamilies::Wires,
                              PictureFamilies::Blocks, PictureFamilies::SideStrips,
                              PictureFamilies::TypeSymbols};

const QHash<int, CPictureEntry>& Table()
{
    static const QHash<int, CPictureEntry> table = [] {
        QHash<int, CPictureEntry> entries;
        for (const FamilyFn family : kFamilies)
            for (const CPictureEntry& entry : family())
                entries.insert(entry.Id, entry);
        return entries;
    }();
    return table;
}

void Unknown(CPictureCanvas& canvas, const CPanelImageItem&)
{
    const QRectF all(QPointF(0, 0), canvas.Size());
    canvas.Box(all.adjusted(1, 1, -1, -1), QColor(0xee, 0xee, 0xee), CPictureCanvas::Single, true);
    canvas.Text(all, QStringLiteral("?"), qMin(all.width(), all.height()) * 0.5, Qt::AlignCenter,
                true);
}

} // namespace

void CPanelPainter::DrawItem(QPainter& painter, const QRectF& rect, const CPanelImageItem& item)
{
    if (rect.isEmpty())
        return;
    const auto found = Table().constFind(item.BitmapId);
    const bool known = found != Table().constEnd();
    const QSizeF natural = known ? QSizeF(found->Width, found->Height) : rect.size();
    const qreal scale = qMin(rect.width() / natural.width(), rect.height() / natural.height());

    painter.save();
    painter.setClipRect(rect, painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.translate(rect.center() - QPointF(natural.width(), natural.height()) * scale / 2);
    painter.scale(scale, scale);
    CPictureCanvas canvas(painter, natural);
    (known ? found->Draw : Unknown)(canvas, item);
    painter.restore();
}

void CPanelPainter::DrawImage(QPainter& painter, const QPointF& topLeft, const CPanelImage& image)
{
    QRectF rect(topLeft, QSizeF(image.Width, image.Height));
    for (const CPanelImageItem& item : image.Items) {
        DrawItem(painter, rect, item);
        rect.translate(0, image.Height);
    }
}

QList<int> CPanelPainter::KnownIds()
{
    QList<int> ids;
    for (const FamilyFn family : kFamilies)
        for (const CPictureEntry& entry : family())
            ids.append(entry.Id);
    return ids;
}

bool CPanelPainter::IsKnown(int bitmapId)
{
    return Table().contains(bitmapId);
}

QSize CPanelPainter::NaturalSize(int bitmapId)
{
    const auto found = Table().constFind(bitmapId);
    return found == Table().constEnd() ? QSize(32, 32) : QSize(found->Width, found->Height);
}
