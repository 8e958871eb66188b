#pragma once

#include "layoutpaintoptions.h"

class CPanelGrid;
class QPainter;

// Draws a whole layout into its 700 x 1340 drawing: background, the "Input" and "Output"
// headings, the side columns (pictures, or frames for empty positions on screen; row
// numbers on paper), the process area (corner crosses on screen, then the pictures) and the
// selection. The view, printing and the command-line renderer all draw through it.
class CLayoutPainter
{
  public:
    static void Paint(QPainter& painter, const CPanelGrid& grid,
                      const CLayoutPaintOptions& options);
};
