#include "usedportlist.h"

#include "panelcell.h"
#include "panelgrid.h"
#include "stringtable.h"

namespace {

QString AssignedPort(const CPanel& panel)
{
    const CPortList& ports = panel.GetPortList();
    // A name the board does not have is no assignment.
    const QString port =
        panel.GetPortIndex() >= 0 ? ports.GetAt(panel.GetPortIndex()) : panel.GetPortText();
    return ports.IndexOf(port) >= 0 ? ports.DisplayName(port) : QString();
}

} // namespace

QList<CUsedPortList::CRow> CUsedPortList::Rows(const CPanelGrid& grid)
{
    QList<CRow> rows;
    const struct
    {
        int Column;
        int Io;
    } sides[] = {{CPanelGrid::GetInputColumn(), Ids::UsedPortIn},
                 {CPanelGrid::GetOutputColumn(), Ids::UsedPortOut}};
    for (const auto& side : sides) {
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
            const CPanelCell* cell = grid.GetCell(side.Column, row);
            const CPanel* panel = cell ? cell->GetPanel() : nullptr;
            if (!panel)
                continue;
            rows.append({CStringTable::Get(side.Io), QString::number(row), panel->GetName(),
                         panel->GetTrailingComment(), AssignedPort(*panel)});
        }
    }
    return rows;
}
