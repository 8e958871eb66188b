#include "layoutpaintoptions.h"

#include <QPalette>

CLayoutPaintOptions CLayoutPaintOptions::ForScreen(const QPalette& palette)
{
    CLayoutPaintOptions options;
    options.Background = palette.color(QPalette::Active, QPalette::Base);
    options.Text = palette.color(QPalette::Active, QPalette::Text);
    options.Grid = palette.color(QPalette::Disabled, QPalette::Text);
    options.Highlight = palette.color(QPalette::Active, QPalette::Highlight);
    return options;
}

CLayoutPaintOptions CLayoutPaintOptions::ForPrinting()
{
    CLayoutPaintOptions options;
    options.Printing = true;
    return options;
}
