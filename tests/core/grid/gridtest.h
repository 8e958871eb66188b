#pragma once

#include "panelgrid.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <memory>

// Remembers the buttons each message offered, beside what the recording messenger keeps.
class CGridMessenger : public CRecordingMessenger
{
  public:
    EAnswer Message(const QString& text, EButtons buttons, EIcon icon) override
    {
        Buttons.append(buttons);
        return CRecordingMessenger::Message(text, buttons, icon);
    }

    void Reset()
    {
        Texts.clear();
        Answers.clear();
        Buttons.clear();
    }

    QList<EButtons> Buttons;
};

inline std::unique_ptr<CPanelCell> Cell(const QString& line)
{
    return std::make_unique<CPanelCell>(line);
}

inline QString Text(int id)
{
    return CStringTable::Get(id);
}

// Every occupied position with its line ("+" for a continuation cell), then the use
// counts and the weighted total: two equal dumps are two grids no user could tell apart.
inline QStringList Dump(const CPanelGrid& grid)
{
    QStringList lines;
    QList<int> columns = {CPanelGrid::GetInputColumn(), CPanelGrid::GetOutputColumn()};
    for (int c = 1; c <= CPanelGrid::GetColumnCount(); ++c)
        columns.append(c);
    QList<int> types;
    for (int c : columns) {
        for (int r = 1; r <= CPanelGrid::GetRowCount(); ++r) {
            const CPanelCell* cell = grid.GetCell(c, r);
            if (!cell)
                continue;
            const CPanel* panel = cell->GetPanel();
            lines.append(QStringLiteral("%1,%2 %3")
                             .arg(c)
                             .arg(r)
                             .arg(panel ? panel->GetLine() : QStringLiteral("+")));
            if (panel && !types.contains(cell->GetTypeId()))
                types.append(cell->GetTypeId());
        }
    }
    std::sort(types.begin(), types.end());
    for (int type : types)
        lines.append(QStringLiteral("count %1 = %2").arg(type).arg(grid.GetUseCount(type)));
    lines.append(QStringLiteral("total = %1").arg(grid.GetWeightedTotal()));
    return lines;
}

// The line of the panel at a position, "+" for a continuation cell, "" when empty.
inline QString LineAt(const CPanelGrid& grid, int column, int row)
{
    const CPanelCell* cell = grid.GetCell(column, row);
    if (!cell)
        return QString();
    return cell->GetPanel() ? cell->GetPanel()->GetLine() : QStringLiteral("+");
}

// Cell type ids of the panels used below.
enum : int
{
    LampType = 10083,
    CounterType = 10026,
    AndType = 10012,
};

// A layout with a panel of every shape in every area; every vertical and horizontal
// shift of it succeeds.
inline void FillSampleLayout(CPanelGrid& grid)
{
    grid.Place(-1, 1, Cell("KEY \tH,P1"));
    grid.Place(-1, 3, Cell("UARI\tC,5,4"));
    grid.Place(-2, 1, Cell("LAMP\tH,P1"));
    grid.Place(-2, 40, Cell("LAMP\tL,P2"));
    grid.Place(1, 2, Cell("CNT \tC,3,2,1"));
    grid.Place(2, 1, Cell("AND \tR"));
    grid.Place(16, 5, Cell("SMOT\t1,10"));
    grid.Place(5, 40, Cell("JPI \t1,L"));
    grid.Place(1, 10, Cell("7S_B\t0"));
    grid.ClearJournal();
}
