#include "layoutgeometry.h"

#include "panelgrid.h"

#include <algorithm>

namespace {

const int kColumns = CPanelGrid::GetColumnCount();
const int kRows = CPanelGrid::GetRowCount();

int Left(int column)
{
    if (column == CPanelGrid::GetInputColumn())
        return CLayoutGeometry::kMargin;
    if (column == CPanelGrid::GetOutputColumn())
        return CLayoutGeometry::kCell * kColumns + 94;
    return CLayoutGeometry::kCell * column + 62;
}

int Width(int column)
{
    return column < 0 ? CLayoutGeometry::kSideWidth : CLayoutGeometry::kCell;
}

bool OnGrid(int column, int row)
{
    const bool columnOk = column == CPanelGrid::GetInputColumn() ||
                          column == CPanelGrid::GetOutputColumn() ||
                          (column >= 1 && column <= kColumns);
    return columnOk && row >= 1 && row <= kRows;
}

} // namespace

QSize CLayoutGeometry::DrawingSize()
{
    return {kCell * kColumns + 188, kCell * kRows + 60};
}

QRect CLayoutGeometry::CellRect(int column, int row)
{
    if (!OnGrid(column, row))
        return QRect();
    return QRect(Left(column), kCell * row - 2, Width(column), kCell);
}

QRect CLayoutGeometry::BlockRect(int c1, int r1, int c2, int r2)
{
    const QRect first = CellRect(c1, r1);
    if (c2 == 0 && r2 == 0)
        return first;
    return first.united(CellRect(c2, r2));
}

CGridPos CLayoutGeometry::HitTest(QPoint point)
{
    const int x = point.x() - kMargin, y = point.y() - kMargin;
    const int processStart = kSideWidth, processEnd = (kColumns + 2) * kCell,
              outputEnd = (kColumns + 4) * kCell;
    CGridPos pos;
    if (x >= 0 && x < processStart)
        pos.Column = CPanelGrid::GetInputColumn();
    else if (x >= processStart && x < processEnd)
        pos.Column = (x - processStart) / kCell + 1;
    else if (x >= processEnd && x < outputEnd)
        pos.Column = CPanelGrid::GetOutputColumn();
    if (y >= 0 && y < kRows * kCell)
        pos.Row = y / kCell + 1;
    return pos;
}

QPoint CLayoutGeometry::OutputHeading()
{
    return {Left(CPanelGrid::GetOutputColumn()), 10};
}
