#include "gridorder.h"

#include "panelgrid.h"

std::vector<CGridPos> CGridOrder::Panels(const CPanelGrid& grid)
{
    std::vector<int> columns{CPanelGrid::GetInputColumn()};
    for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
        columns.push_back(column);
    columns.push_back(CPanelGrid::GetOutputColumn());
    std::vector<CGridPos> panels;
    for (int column : columns)
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
            if (const CPanelCell* cell = grid.GetCell(column, row); cell && cell->GetPanel())
                panels.push_back({column, row});
    return panels;
}
