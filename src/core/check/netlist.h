#pragma once

#include "net.h"
#include "netfault.h"
#include "netpin.h"

#include <QHash>

#include <vector>

class CPanelGrid;

// The signals of a layout: which panel pins are one net, who drives each net, in which
// order the gates are evaluated, and the wiring faults the compiler refuses. The panel
// compiler and the simulator both work from it, so they evaluate the same nets.
//
// Every panel pin is a node. The pieces of a wire join their sides, two neighbouring cells
// join where both facing sides have a node (a continuation cell answers for its panel, on
// the rows where that panel has a pin), and a jump-in joins every jump-out with its id.
// Nets made of wires alone are dropped. It is a snapshot: the grid may change afterwards.
class CNetlist
{
  public:
    explicit CNetlist(const CPanelGrid& grid);

    // In grid order of their first member: input column, process columns, output column.
    const std::vector<CNet>& GetNets() const { return m_nets; }
    // The net the node is on; -1 for a pin the grid does not have or a dangling wire.
    int NetOf(const CNetPin& pin) const;
    // The panel's pins (wire and jump sides included), as CPanelPins gives them.
    std::vector<CNetPin> GetPins(CGridPos top) const;
    // The gates and constants, each after every gate that feeds it. The panels of a loop
    // stand together where the loop sits.
    const std::vector<CGridPos>& GetEvaluationOrder() const { return m_order; }
    const std::vector<CNetFault>& GetFaults() const { return m_faults; }

  private:
    void Collect(const CPanelGrid& grid);
    void Join(const CPanelGrid& grid);
    void FormNets();
    void FindTwoDrivers();
    void Order(const CPanelGrid& grid);
    int Find(int node);
    void Unite(int a, int b);
    int NodeAt(CGridPos cell, char side) const;

    std::vector<CNetPin> m_nodes; // in grid order
    std::vector<int> m_parent;
    QHash<int, int> m_nodeByKey;
    std::vector<int> m_netOfNode;
    std::vector<CNet> m_nets;
    std::vector<CGridPos> m_order;
    std::vector<CNetFault> m_faults;
};
