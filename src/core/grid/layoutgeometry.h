#pragma once

#include "gridpos.h"

#include <QPoint>
#include <QRect>
#include <QSize>

// Where the grid's cells lie in the drawing, in logical pixels: rows 32 high from y 30, the
// input column 64 wide from x 30, sixteen process columns 32 wide, the output column 64 wide.
// Everything derives from the grid's sizes.
class CLayoutGeometry
{
  public:
    static constexpr int kMargin = 30;
    static constexpr int kCell = 32;
    static constexpr int kSideWidth = 2 * kCell;

    // The whole drawing: 700 x 1340.
    static QSize DrawingSize();
    // A position's rectangle (right and bottom exclusive); null for a position off the grid.
    static QRect CellRect(int column, int row);
    // The union of the two corner cells' rectangles; a second corner of (0, 0) is none.
    static QRect BlockRect(int c1, int r1, int c2, int r2);
    // The position under a point of the drawing; column or row 0 when it is off the grid.
    static CGridPos HitTest(QPoint point);
    // Where the headings "Input" and "Output" are written.
    static QPoint InputHeading() { return {kMargin, 10}; }
    static QPoint OutputHeading();
};
