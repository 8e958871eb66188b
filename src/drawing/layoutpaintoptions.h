#pragma once

#include <QColor>
#include <QRect>

class QPalette;

// How a layout is drawn: for the screen or for a printed page, what is selected, and which
// part of the drawing needs painting. Rectangles are in drawing coordinates.
struct CLayoutPaintOptions
{
    // A printed page has row numbers and no frames for empty side positions, no crosses.
    bool Printing = false;
    // Highlighted with a translucent fill and a frame; null for none.
    QRect Selection;
    // Only what meets this rectangle is painted; null paints everything.
    QRect Clip;
    QColor Background = Qt::white;
    QColor Text = Qt::black;
    // The 1-pixel grey of frames and crosses.
    QColor Grid = QColor(0x80, 0x80, 0x80);
    QColor Highlight = QColor(0x30, 0x78, 0xd8);

    // Screen colours from a widget's palette: its base, text, disabled text and highlight.
    static CLayoutPaintOptions ForScreen(const QPalette& palette);
    static CLayoutPaintOptions ForPrinting();
};
