#pragma once

#include "panels/panelimage.h"

#include <QPointF>
#include <QRectF>

class QPainter;

// Draws the pictures of the panel catalogue with vectors, so they stay crisp at any scale.
// A process item is 32 x 32 logical units, a side-column item 64 x 32; white is transparent
// (nothing is painted where the picture is white).
class CPanelPainter
{
public:
    // One picture item, with its texts, into rect.
    static void DrawItem(QPainter& painter, const QRectF& rect, const CPanelImageItem& item);
    // A panel's whole picture, its items stacked downwards from topLeft.
    static void DrawImage(QPainter& painter, const QPointF& topLeft, const CPanelImage& image);
    // Every picture id the catalogue uses, for review sheets.
    static QList<int> KnownIds();
};
