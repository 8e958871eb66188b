#pragma once

#include "panelimage.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>

class QPainter;

// Draws the pictures of the panel catalogue with vectors, so they stay crisp at any scale.
// A process item is 32 x 32 logical units, a side-column item 64 x 32; white is transparent
// (nothing is painted where the picture is white). Nothing is drawn outside the item's
// rectangle, and an id the catalogue does not know draws a framed "?".
class CPanelPainter
{
  public:
    // One picture item, with its texts, into rect. A rect of another size than the
    // picture's own is filled as far as the picture's proportions allow, centred.
    static void DrawItem(QPainter& painter, const QRectF& rect, const CPanelImageItem& item);
    // A panel's whole picture, its items stacked downwards from topLeft.
    static void DrawImage(QPainter& painter, const QPointF& topLeft, const CPanelImage& image);
    // Every picture id the catalogue uses, for review sheets.
    static QList<int> KnownIds();
    static bool IsKnown(int bitmapId);
    // The size a picture is drawn for: 64 x 32 for side-column strips, 32 x 32 otherwise.
    static QSize NaturalSize(int bitmapId);
};
