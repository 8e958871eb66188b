#include "simsignals.h"

#include "boardinfo.h"
#include "layoutfile.h"
#include "panel.h"
#include "panelcell.h"
#include "panelgrid.h"

CSimSignals::CSimSignals(const CPanelGrid& grid, const CBoardInfo& board, const CSimTarget& target)
{
    QList<bool> used(target.PinCount(), false);
    for (const bool input : {true, false}) {
        const int column = input ? CPanelGrid::GetInputColumn() : CPanelGrid::GetOutputColumn();
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
            const CPanelCell* cell = grid.GetCell(column, row);
            const CPanel* panel = cell ? cell->GetPanel() : nullptr;
            if (!panel)
                continue;
            const QString port = panel->GetPortText();
            const int pin = target.PinNamed(port.toStdString());
            if (pin < 0)
                continue;
            const QString place = CLayoutFile::PositionText({column, row});
            const QString name = panel->GetTrailingComment().trimmed();
            const bool analog = panel->GetKind() == EPanelKind::AnalogIn;
            m_signals.append({name.isEmpty() ? place : name, place, port, pin, input,
                              analog ? target.ChannelOf(pin) : -1});
            used[pin] = true;
        }
    }
    for (int row = 0; row < board.GetPortCount(); ++row) {
        const CPortEntry& entry = board.GetPort(row);
        m_aliases.append({entry.Alias, entry.Name});
        const int pin = target.PinNamed(entry.Name.toStdString());
        if (pin >= 0 && !used[pin])
            m_signals.append({entry.Name, QString(), entry.Name, pin, true, -1});
    }
}

const CSimSignals::CSignal* CSimSignals::Find(const QString& name) const
{
    for (const CSignal& signal : m_signals)
        if (signal.Name == name || (!signal.Cell.isEmpty() && signal.Cell == name))
            return &signal;
    QString port = name;
    for (const auto& [alias, portName] : m_aliases)
        if (!alias.isEmpty() && alias == name)
            port = portName;
    for (const CSignal& signal : m_signals)
        if (signal.Port == port)
            return &signal;
    return nullptr;
}

QList<const CSimSignals::CSignal*> CSimSignals::Outputs() const
{
    QList<const CSignal*> outputs;
    for (const CSignal& signal : m_signals)
        if (!signal.Input && !signal.Cell.isEmpty())
            outputs.append(&signal);
    return outputs;
}
