#include "layoutcheck.h"

#include "panelgrid.h"
#include "stringtable.h"

#include <QList>

#include <vector>

namespace {

constexpr int kInput = -1, kOutput = -2;

// Reads the grid for the check. A continuation cell answers for the multi-row panel that
// covers it, so a panel beside any row of a tall panel finds that panel's sides. The check
// asks for every position several times and for the neighbours of every panel, so the cells
// are looked up once, when the check starts.
class CCheckGrid
{
  public:
    explicit CCheckGrid(const CPanelGrid& grid)
        : m_grid(grid), m_rows(CPanelGrid::GetRowCount()), m_columns(CPanelGrid::GetColumnCount()),
          m_cells(std::size_t(m_columns + 2) * m_rows)
    {
        for (int column = kOutput; column <= m_columns; ++column)
            for (int row = 1; column != 0 && row <= m_rows; ++row)
                m_cells[Index(column, row)] = grid.GetCell(column, row);
    }

    const CPanel* TopPanel(int column, int row) const
    {
        const CPanelCell* cell = Cell(column, row);
        return cell ? cell->GetPanel() : nullptr;
    }

    QString SidesAt(int column, int row) const
    {
        const CPanelCell* cell = Cell(column, row);
        if (!cell)
            return QString();
        const CPanel* panel = cell->GetPanel();
        if (!panel) {
            const CGridPos top = m_grid.TopOf(column, row);
            panel = TopPanel(top.Column, top.Row);
        }
        return panel ? panel->GetSides() : QString();
    }

    // Every position, input column first, then the output column, then the process area
    // column by column.
    template <class F> void ForEachPanel(F f) const
    {
        for (int column : {kInput, kOutput})
            for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
                if (const CPanel* panel = TopPanel(column, row))
                    f(*panel, column, row);
        for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
            for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
                if (const CPanel* panel = TopPanel(column, row))
                    f(*panel, column, row);
    }

  private:
    // The output column first, then the input column, then the process columns.
    std::size_t Index(int column, int row) const
    {
        return std::size_t(column < 0 ? column + 2 : column + 1) * m_rows + (row - 1);
    }

    const CPanelCell* Cell(int column, int row) const
    {
        const bool inside =
            row >= 1 && row <= m_rows &&
            (column == kInput || column == kOutput || (column >= 1 && column <= m_columns));
        return inside ? m_cells[Index(column, row)] : nullptr;
    }

    const CPanelGrid& m_grid;
    int m_rows;
    int m_columns;
    std::vector<const CPanelCell*> m_cells;
};

QString SideName(const CPanel& panel, int id)
{
    const QString label = panel.GetTrailingComment();
    return CStringTable::Format(id,
                                {panel.GetName(), label.isEmpty() ? QString() : "[" + label + "]"});
}

QString ProcessName(const CPanel& panel, int id, int column, int row)
{
    return CStringTable::Format(id, {panel.GetName(), column, row});
}

class CChecker
{
  public:
    explicit CChecker(const CPanelGrid& grid) : m_grid(grid), m_cells(grid) {}

    QString Run()
    {
        CheckCapacity();
        CheckProperties();
        CheckPorts();
        CheckWebPanels();
        CheckConnections();
        CheckJumpers();
        return m_report;
    }

  private:
    void Add(const QString& fault) { m_report += fault + "\r\n"; }

    void CheckCapacity()
    {
        if (m_grid.GetLimitFlag() && m_grid.IsOverCapacity())
            Add(CStringTable::Get(Ids::MsgOverLimit));
    }

    void CheckProperties()
    {
        m_cells.ForEachPanel([this](const CPanel& panel, int column, int row) {
            // A gate or wire whose line names no kind has no sides and no picture: without
            // this it would pass every other check unseen.
            if (panel.GetBitmapId() == CPanel::NoPanel) {
                Add(CStringTable::Format(Ids::CheckUnknownKind,
                                         {panel.GetName(), column, row, panel.GetText()}));
                return;
            }
            if (!panel.NeedsProperties() || !panel.IsIncomplete())
                return;
            Add(column < 0 ? SideName(panel, Ids::CheckSideProperties)
                           : ProcessName(panel, Ids::CheckProcessProperties, column, row));
        });
    }

    // One entry a port reference; every equal pair is a fault, so a port used by three
    // panels is reported three times.
    void CheckPorts()
    {
        QStringList ports;
        m_cells.ForEachPanel([&ports](const CPanel& panel, int, int) {
            if (const QString port = panel.GetPortText(); !port.isEmpty())
                ports.append(port);
        });
        for (qsizetype i = 0; i < ports.size(); ++i)
            for (qsizetype j = i + 1; j < ports.size(); ++j)
                if (ports[i] == ports[j])
                    Add(CStringTable::Format(Ids::CheckPortTwice, {ports[i]}));
    }

    void CheckWebPanels()
    {
        const auto holds = [this](int column, EPanelKind kind) {
            for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
                if (const CPanel* panel = m_cells.TopPanel(column, row);
                    panel && panel->GetKind() == kind)
                    return true;
            return false;
        };
        if (!holds(kOutput, EPanelKind::WebOut) && holds(kInput, EPanelKind::WebIn))
            Add(CStringTable::Get(Ids::CheckWebOutMissing));
    }

    void CheckConnections()
    {
        const int last = CPanelGrid::GetColumnCount();
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
            if (const CPanel* panel = m_cells.TopPanel(kInput, row);
                panel && !m_cells.SidesAt(1, row).contains(u'L'))
                Add(SideName(*panel, Ids::CheckSideConnection));
        for (int column = 1; column <= last; ++column)
            for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
                if (const CPanel* panel = m_cells.TopPanel(column, row);
                    panel && !Connected(*panel, column, row))
                    Add(ProcessName(*panel, Ids::CheckProcessConnection, column, row));
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
            if (const CPanel* panel = m_cells.TopPanel(kOutput, row);
                panel && !m_cells.SidesAt(last, row).contains(u'R'))
                Add(SideName(*panel, Ids::CheckSideConnection));
    }

    // Every side of a process panel needs a neighbour with the facing side. A tall panel's
    // "D" faces the row below its bottom.
    bool Connected(const CPanel& panel, int column, int row) const
    {
        const int last = CPanelGrid::GetColumnCount();
        const int below = row + panel.GetHeight();
        for (const QChar side : panel.GetSides()) {
            bool ok = true;
            if (side == u'U')
                ok = panel.GetKind() == EPanelKind::Counter ||
                     m_cells.SidesAt(column, row - 1).contains(u'D');
            else if (side == u'D')
                ok = m_cells.SidesAt(column, below).contains(u'U');
            else if (side == u'L')
                ok = m_cells.SidesAt(column == 1 ? kInput : column - 1, row).contains(u'R');
            else if (side == u'R')
                ok = m_cells.SidesAt(column == last ? kOutput : column + 1, row).contains(u'L');
            if (!ok)
                return false;
        }
        return true;
    }

    // One id on one side matches any number of equal ids on the other; of two equal ids
    // on the jump-in side against one jump-out, the earlier stays unmatched.
    void CheckJumpers()
    {
        QList<int> ins, outs;
        for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
            for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
                if (const CPanel* panel = m_cells.TopPanel(column, row)) {
                    if (panel->GetKind() == EPanelKind::JumpIn)
                        ins.append(panel->GetReference());
                    else if (panel->GetKind() == EPanelKind::JumpOut)
                        outs.append(panel->GetReference());
                }
        for (qsizetype i = ins.size() - 1; i >= 0; --i)
            if (outs.removeAll(ins[i]) > 0)
                ins.remove(i);
        for (const QList<int>* list : {&ins, &outs})
            for (int id : *list)
                Add(CStringTable::Format(Ids::CheckJumperUnpaired, {id}));
    }

    const CPanelGrid& m_grid;
    CCheckGrid m_cells;
    QString m_report;
};

} // namespace

QString CLayoutCheck::Run(const CPanelGrid& grid)
{
    return CChecker(grid).Run();
}
