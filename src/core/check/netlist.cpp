#include "netlist.h"

#include "panelgrid.h"
#include "panelpins.h"

#include <QMultiHash>

#include <algorithm>
#include <functional>
#include <queue>
#include <set>

namespace {

// Grid order follows the signal: the input column, the process columns, the output column.
std::vector<int> ColumnsInGridOrder()
{
    std::vector<int> columns{CPanelGrid::GetInputColumn()};
    for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
        columns.push_back(column);
    columns.push_back(CPanelGrid::GetOutputColumn());
    return columns;
}

int SideIndex(char side)
{
    return side == 'U' ? 0 : side == 'D' ? 1 : side == 'L' ? 2 : 3;
}

int Key(CGridPos cell, char side)
{
    return ((cell.Column + 2) * 64 + cell.Row) * 4 + SideIndex(side);
}

// The cell and side a node looks at across the cell border; the side columns face the
// first and the last process column.
std::pair<CGridPos, char> Facing(CGridPos cell, char side)
{
    const int last = CPanelGrid::GetColumnCount();
    switch (side) {
    case 'U':
        return {{cell.Column, cell.Row - 1}, 'D'};
    case 'D':
        return {{cell.Column, cell.Row + 1}, 'U'};
    case 'L':
        return {{cell.Column == 1 ? CPanelGrid::GetInputColumn() : cell.Column - 1, cell.Row}, 'R'};
    default:
        if (cell.Column == CPanelGrid::GetInputColumn())
            return {{1, cell.Row}, 'L'};
        return {{cell.Column == last ? CPanelGrid::GetOutputColumn() : cell.Column + 1, cell.Row},
                'L'};
    }
}

// The gates as a graph: an edge from a gate to every gate that reads one of its nets.
class CGateGraph
{
  public:
    explicit CGateGraph(std::size_t count) : m_edges(count) {}

    void Add(int from, int to) { m_edges[from].insert(to); }
    bool HasEdge(int from, int to) const { return m_edges[from].count(to) > 0; }

    // Strongly connected components (Tarjan), each as its sorted members.
    std::vector<std::vector<int>> Components() const
    {
        const int n = int(m_edges.size());
        std::vector<int> index(n, -1), low(n, 0), stack;
        std::vector<bool> onStack(n, false);
        std::vector<std::vector<int>> components;
        int next = 0;
        std::function<void(int)> visit = [&](int v) {
            index[v] = low[v] = next++;
            stack.push_back(v);
            onStack[v] = true;
            for (int w : m_edges[v]) {
                if (index[w] < 0) {
                    visit(w);
                    low[v] = std::min(low[v], low[w]);
                } else if (onStack[w]) {
                    low[v] = std::min(low[v], index[w]);
                }
            }
            if (low[v] != index[v])
                return;
            std::vector<int> component;
            int w = -1;
            do {
                w = stack.back();
                stack.pop_back();
                onStack[w] = false;
                component.push_back(w);
            } while (w != v);
            std::sort(component.begin(), component.end());
            components.push_back(std::move(component));
        };
        for (int v = 0; v < n; ++v)
            if (index[v] < 0)
                visit(v);
        return components;
    }

    // The components in an order where each comes after those feeding it; among those
    // ready at once, the one whose first gate comes first in the grid.
    std::vector<int> Topological(const std::vector<std::vector<int>>& components) const
    {
        std::vector<int> componentOf(m_edges.size());
        for (std::size_t c = 0; c < components.size(); ++c)
            for (int v : components[c])
                componentOf[v] = int(c);
        std::vector<std::set<int>> successors(components.size());
        std::vector<int> pending(components.size(), 0);
        for (std::size_t v = 0; v < m_edges.size(); ++v)
            for (int w : m_edges[v])
                if (componentOf[v] != componentOf[w] &&
                    successors[componentOf[v]].insert(componentOf[w]).second)
                    ++pending[componentOf[w]];
        using CReady = std::pair<int, int>; // first gate, component
        std::priority_queue<CReady, std::vector<CReady>, std::greater<>> ready;
        for (std::size_t c = 0; c < components.size(); ++c)
            if (pending[c] == 0)
                ready.push({components[c].front(), int(c)});
        std::vector<int> order;
        while (!ready.empty()) {
            const int c = ready.top().second;
            ready.pop();
            order.push_back(c);
            for (int s : successors[c])
                if (--pending[s] == 0)
                    ready.push({components[s].front(), s});
        }
        return order;
    }

  private:
    std::vector<std::set<int>> m_edges;
};

} // namespace

CNetlist::CNetlist(const CPanelGrid& grid)
{
    Collect(grid);
    Join(grid);
    FormNets();
    FindTwoDrivers();
    Order(grid);
}

int CNetlist::NetOf(const CNetPin& pin) const
{
    const int node = NodeAt(pin.Cell(), pin.Side);
    return node < 0 || m_nodes[node].Pos != pin.Pos ? -1 : m_netOfNode[node];
}

std::vector<CNetPin> CNetlist::GetPins(CGridPos top) const
{
    std::vector<CNetPin> pins;
    for (const CNetPin& node : m_nodes)
        if (node.Pos == top)
            pins.push_back(node);
    return pins;
}

void CNetlist::Collect(const CPanelGrid& grid)
{
    for (int column : ColumnsInGridOrder())
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
            const CPanelCell* cell = grid.GetCell(column, row);
            if (!cell || !cell->GetPanel())
                continue;
            for (const CNetPin& pin : CPanelPins::Of(*cell->GetPanel(), {column, row})) {
                m_nodeByKey.insert(Key(pin.Cell(), pin.Side), int(m_nodes.size()));
                m_nodes.push_back(pin);
            }
        }
    m_parent.resize(m_nodes.size());
    for (std::size_t i = 0; i < m_parent.size(); ++i)
        m_parent[i] = int(i);
}

void CNetlist::Join(const CPanelGrid& grid)
{
    QMultiHash<int, int> jumps; // connection id to the jump sides
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        const CNetPin& node = m_nodes[i];
        const CPanel& panel = *grid.GetCell(node.Pos)->GetPanel();
        for (const QString& piece : CPanelPins::PiecesOf(panel))
            if (piece.contains(QChar(node.Side)))
                for (const QChar side : piece)
                    Unite(int(i), NodeAt(node.Cell(), char(side.unicode())));
        if (const int id = CPanelPins::JumpIdOf(panel); id > 0)
            jumps.insert(id, int(i));
        // Each border is met once, from its right or its lower side.
        if (node.Side == 'R' || node.Side == 'D') {
            const auto [cell, side] = Facing(node.Cell(), node.Side);
            if (const int other = NodeAt(cell, side); other >= 0)
                Unite(int(i), other);
        }
    }
    for (const int id : jumps.uniqueKeys()) {
        const QList<int> sides = jumps.values(id);
        for (const int side : sides)
            Unite(sides.front(), side);
    }
}

void CNetlist::FormNets()
{
    QHash<int, int> netOfRoot;
    std::vector<std::vector<CNetPin>> members;
    std::vector<bool> hasPanelPin;
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        const int root = Find(int(i));
        auto it = netOfRoot.find(root);
        if (it == netOfRoot.end()) {
            it = netOfRoot.insert(root, int(members.size()));
            members.emplace_back();
            hasPanelPin.push_back(false);
        }
        members[*it].push_back(m_nodes[i]);
        if (m_nodes[i].Role != EPinRole::Wire)
            hasPanelPin[*it] = true;
    }
    // Wires that reach no panel pin carry nothing; the nets are renumbered without them.
    std::vector<int> kept(members.size(), -1);
    for (std::size_t n = 0; n < members.size(); ++n)
        if (hasPanelPin[n]) {
            kept[n] = int(m_nets.size());
            m_nets.emplace_back(std::move(members[n]));
        }
    m_netOfNode.resize(m_nodes.size());
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
        m_netOfNode[i] = kept[netOfRoot.value(Find(int(i)))];
}

void CNetlist::FindTwoDrivers()
{
    for (std::size_t n = 0; n < m_nets.size(); ++n) {
        const std::vector<CNetPin> drivers = m_nets[n].GetDrivers();
        if (drivers.size() < 2)
            continue;
        CNetFault fault{CNetFault::TwoDrivers, int(n), {}};
        for (const CNetPin& driver : drivers)
            if (std::find(fault.Panels.begin(), fault.Panels.end(), driver.Pos) ==
                fault.Panels.end())
                fault.Panels.push_back(driver.Pos);
        m_faults.push_back(std::move(fault));
    }
}

void CNetlist::Order(const CPanelGrid& grid)
{
    std::vector<CGridPos> gates;
    QHash<int, int> gateOfNode;
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        const CGridPos pos = m_nodes[i].Pos;
        if (CPanelPins::BehaviourOf(*grid.GetCell(pos)->GetPanel()) != CPanelPins::Combinational)
            continue;
        if (gates.empty() || gates.back() != pos)
            gates.push_back(pos);
        gateOfNode.insert(int(i), int(gates.size()) - 1);
    }
    // Constants have no input node, so they are found by their output alone above.
    QMultiHash<int, int> driversOfNet, readersOfNet;
    for (auto it = gateOfNode.cbegin(); it != gateOfNode.cend(); ++it) {
        const int net = m_netOfNode[it.key()];
        if (net < 0)
            continue;
        if (m_nodes[it.key()].Role == EPinRole::Output)
            driversOfNet.insert(net, it.value());
        else
            readersOfNet.insert(net, it.value());
    }
    CGateGraph graph(gates.size());
    for (auto it = driversOfNet.cbegin(); it != driversOfNet.cend(); ++it)
        for (const int reader : readersOfNet.values(it.key()))
            graph.Add(it.value(), reader);

    const std::vector<std::vector<int>> components = graph.Components();
    for (const int c : graph.Topological(components)) {
        const std::vector<int>& members = components[c];
        for (const int gate : members)
            m_order.push_back(gates[gate]);
        if (members.size() > 1 || graph.HasEdge(members.front(), members.front())) {
            CNetFault fault{CNetFault::Loop, -1, {}};
            for (const int gate : members)
                fault.Panels.push_back(gates[gate]);
            m_faults.push_back(std::move(fault));
        }
    }
}

int CNetlist::Find(int node)
{
    while (m_parent[node] != node) {
        m_parent[node] = m_parent[m_parent[node]];
        node = m_parent[node];
    }
    return node;
}

void CNetlist::Unite(int a, int b)
{
    if (a < 0 || b < 0)
        return;
    a = Find(a);
    b = Find(b);
    // The earlier node stays the root, which keeps the nets in grid order.
    if (a != b)
        m_parent[std::max(a, b)] = std::min(a, b);
}

int CNetlist::NodeAt(CGridPos cell, char side) const
{
    return m_nodeByKey.value(Key(cell, side), -1);
}
