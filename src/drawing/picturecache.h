#pragma once

#include "panelimage.h"

#include <QRectF>

class QPainter;

// Panel pictures for the screen, each drawn once per text and scale into a pixmap and
// blitted after that: a repaint of a full layout draws hundreds of them.
class CPictureCache
{
  public:
    static void DrawImage(QPainter& painter, const QPointF& topLeft, const CPanelImage& image);
};
