// The wire pieces: runs from side to side through the cell's centre, corners rounded so two
// corners in one cell stay apart, a hop where two runs cross without joining, and a dot
// where a branch joins a run.
#include "picturecanvas.h"
#include "picturefamilies.h"

#include "panelimage.h"

namespace {

QPainterPath Run(bool vertical)
{
    QPainterPath path;
    path.moveTo(vertical ? QPointF(16, 0) : QPointF(0, 16));
    path.lineTo(vertical ? QPointF(16, 32) : QPointF(32, 16));
    return path;
}

QPainterPath UpRight()
{
    QPainterPath path;
    path.moveTo(16, 0);
    path.lineTo(16, 8);
    path.arcTo(QRectF(16, 0, 16, 16), 180, 90);
    path.lineTo(32, 16);
    return path;
}

QPainterPath LeftDown()
{
    QPainterPath path;
    path.moveTo(0, 16);
    path.lineTo(8, 16);
    path.arcTo(QRectF(0, 16, 16, 16), 90, -90);
    path.lineTo(16, 32);
    return path;
}

void Vertical(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(Run(true));
}

void Horizontal(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(Run(false));
}

void CornerUpRight(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(UpRight());
}

void CornerLeftDown(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(LeftDown());
}

void TwoCorners(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(UpRight());
    canvas.Signal(LeftDown());
}

void Crossing(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(Run(true));
    QPainterPath hop;
    hop.moveTo(0, 16);
    hop.lineTo(10, 16);
    hop.arcTo(QRectF(10, 10, 12, 12), 180, -180);
    hop.lineTo(32, 16);
    canvas.Signal(hop);
}

void RunWithBranchRight(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(Run(true));
    canvas.Signal({{16, 16}, {32, 16}});
    canvas.Junction({16, 16});
}

void RunWithBranchDown(CPictureCanvas& canvas, const CPanelImageItem&)
{
    canvas.Signal(Run(false));
    canvas.Signal({{16, 16}, {16, 32}});
    canvas.Junction({16, 16});
}

const CPictureEntry kWires[] = {
    {10001, 32, 32, Vertical},           {10002, 32, 32, Horizontal},
    {10003, 32, 32, CornerUpRight},      {10004, 32, 32, CornerLeftDown},
    {10005, 32, 32, TwoCorners},         {10006, 32, 32, Crossing},
    {10007, 32, 32, RunWithBranchRight}, {10008, 32, 32, RunWithBranchDown},
};

} // namespace

std::span<const CPictureEntry> PictureFamilies::Wires()
{
    return kWires;
}
