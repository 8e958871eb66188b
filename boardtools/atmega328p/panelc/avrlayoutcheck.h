#pragma once

#include <QStringList>

class CBoardInfo;
class CNetlist;
class CPanelGrid;

// What the board cannot run, one message a fault, in the order the user fixes them:
// panels without properties or not offered by the board, wiring faults, pins used twice,
// timer outputs. Empty when the layout can be compiled.
class CAvrLayoutCheck
{
  public:
    CAvrLayoutCheck(const CPanelGrid& grid, const CNetlist& netlist, const CBoardInfo& board,
                    long clock);

    QStringList Run() const;

  private:
    bool IsOffered(const QString& keyword) const;
    void CheckPanels(QStringList& faults) const;
    void CheckWiring(QStringList& faults) const;
    void CheckPins(QStringList& faults) const;
    void CheckTimers(QStringList& faults) const;

    const CPanelGrid& m_grid;
    const CNetlist& m_netlist;
    const CBoardInfo& m_board;
    long m_clock;
};
