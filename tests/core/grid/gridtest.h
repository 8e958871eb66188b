#pragma once

#include "core/panels/paneltest.h"
#include "panelgrid.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QStringList>

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

    // Forgets what was said and scripts the next answers, for the next row of a table.
    void Reset(const QList<EAnswer>& answers = {})
    {
        Texts.clear();
        Buttons.clear();
        Answers = answers;
    }

    QList<EButtons> Buttons;
};

inline std::unique_ptr<CPanelCell> Cell(const QString& line)
{
    return std::make_unique<CPanelCell>(line);
}
// The text of a message as a list, none for 0.
inline QStringList Said(int id)
{
    return id ? QStringList{CStringTable::Get(id)} : QStringList{};
}

// Places a panel written the way Cells() lists it, "c,r LINE", and names it as a board's
// palette would when " @Name" follows.
inline bool Put(CPanelGrid& grid, const QString& put)
{
    const QString pos = put.section(u' ', 0, 0), line = put.section(u' ', 1);
    auto cell = Cell(line.section(QStringLiteral(" @"), 0, 0));
    if (cell->GetPanel() && line.contains(QStringLiteral(" @")))
        cell->GetPanel()->SetName(line.section(QStringLiteral(" @"), 1));
    return grid.Place(pos.section(u',', 0, 0).toInt(), pos.section(u',', 1).toInt(),
                      std::move(cell));
}

// Places panels listed as Cells() lists them, "c,r LINE; c,r LINE"; "+" is skipped.
inline void PutAll(CPanelGrid& grid, const QString& panels)
{
    for (const QString& put : panels.split(QStringLiteral("; "), Qt::SkipEmptyParts))
        if (!put.endsWith(QStringLiteral(" +"))) {
            EXPECT_TRUE(Put(grid, put)) << put.toStdString();
        }
}

// The line of the panel at a position, "+" for a continuation cell, "" when empty.
inline QString LineAt(const CPanelGrid& grid, int column, int row)
{
    const CPanelCell* cell = grid.GetCell(column, row);
    if (!cell)
        return QString();
    return cell->GetPanel() ? cell->GetPanel()->GetLine() : QStringLiteral("+");
}

// Every occupied position with its line, input column first, then output, then process.
inline QString Cells(const CPanelGrid& grid)
{
    QStringList cells;
    QList<int> columns = {CPanelGrid::GetInputColumn(), CPanelGrid::GetOutputColumn()};
    for (int c = 1; c <= CPanelGrid::GetColumnCount(); ++c)
        columns.append(c);
    for (int c : columns)
        for (int r = 1; r <= CPanelGrid::GetRowCount(); ++r)
            if (grid.GetCell(c, r))
                cells.append(QStringLiteral("%1,%2 %3").arg(c).arg(r).arg(LineAt(grid, c, r)));
    return cells.join(QStringLiteral("; "));
}

// The cells, the use count of each type in them and the weighted total: two equal dumps are
// two grids no user could tell apart.
inline QString Dump(const CPanelGrid& grid)
{
    QString dump = Cells(grid);
    for (int type = 0; type < 20000; ++type)
        if (grid.GetUseCount(type) != 0)
            dump += QStringLiteral(" #%1=%2").arg(type).arg(grid.GetUseCount(type));
    return (dump + QStringLiteral(" total=%1").arg(grid.GetWeightedTotal())).trimmed();
}

// Cell type ids of the panels used below.
enum : int
{
    LampType = 10083,
    CounterType = 10026,
    AndType = 10012
};

// A layout with a panel of every shape in every area; every vertical and horizontal
// shift of it succeeds.
inline void FillSampleLayout(CPanelGrid& grid)
{
    PutAll(grid, "-1,1 KEY \tH,P1; -1,3 UARI\tC,5,4; -2,1 LAMP\tH,P1; -2,40 LAMP\tL,P2; "
                 "1,2 CNT \tC,3,2,1; 2,1 AND \tR; 16,5 SMOT\t1,10; 5,40 JPI \t1,L; 1,10 7S_B\t0");
    grid.ClearJournal();
}

struct GridFixture : testing::Test
{
    CGridMessenger messenger;
    CPanelGrid grid{messenger};
};
