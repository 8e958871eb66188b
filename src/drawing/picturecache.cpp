#include "picturecache.h"

#include "panelpainter.h"

#include <QHash>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmap>

namespace {

constexpr qsizetype kMostPictures = 4096;

QPixmap Picture(const CPanelImageItem& item, const QSize& size, qreal scale)
{
    static QHash<QString, QPixmap> pictures;
    const QString key = QStringLiteral("%1\x1f%2\x1f%3\x1f%4\x1f%5x%6@%7")
                            .arg(item.BitmapId)
                            .arg(item.Name, item.PortText, item.Comment)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(scale);
    auto it = pictures.find(key);
    if (it != pictures.end())
        return *it;
    if (pictures.size() > kMostPictures)
        pictures.clear();
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    CPanelPainter::DrawItem(painter, QRectF(QPointF(0, 0), size), item);
    painter.end();
    return *pictures.insert(key, pixmap);
}

} // namespace

void CPictureCache::DrawImage(QPainter& painter, const QPointF& topLeft, const CPanelImage& image)
{
    // The scale of the target: its pixel ratio and any zoom of the view.
    const qreal zoom = painter.worldTransform().m11();
    const qreal scale = (painter.device() ? painter.device()->devicePixelRatioF() : 1.0) * zoom;
    if (zoom <= 0 || painter.worldTransform().isRotating()) {
        CPanelPainter::DrawImage(painter, topLeft, image);
        return;
    }
    const QSize size(image.Width, image.Height);
    QPointF at = topLeft;
    for (const CPanelImageItem& item : image.Items) {
        painter.drawPixmap(at, Picture(item, size, scale));
        at.ry() += image.Height;
    }
}
