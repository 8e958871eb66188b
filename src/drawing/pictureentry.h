#pragma once

class CPictureCanvas;
struct CPanelImageItem;

// One picture of the catalogue: its id, the size it is drawn for (in picture units) and the
// function that draws it on a canvas of that size.
struct CPictureEntry
{
    int Id;
    int Width;
    int Height;
    void (*Draw)(CPictureCanvas& canvas, const CPanelImageItem& item);
};
