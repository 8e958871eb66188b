#pragma once

#include "gridpos.h"
#include "panelcell.h"

#include <memory>
#include <utility>
#include <vector>

// What the last editing operation put into and took out of the grid, so that exactly that
// one step can be taken back. The grid owns the cells put in; the journal owns the cells
// taken out until Clear deletes them or the grid takes them back to undo.
class CGridJournal
{
  public:
    struct CPutIn
    {
        CGridPos Pos;
        CPanelCell* Cell = nullptr; // null separates steps
    };
    struct CTakenOut
    {
        CGridPos Pos;
        std::unique_ptr<CPanelCell> Cell;
    };

    void PutIn(CGridPos pos, CPanelCell* cell) { m_putIn.push_back({pos, cell}); }
    void Separate() { m_putIn.push_back({}); }
    void TakeOut(CGridPos pos, std::unique_ptr<CPanelCell> cell)
    {
        m_takenOut.push_back({pos, std::move(cell)});
    }

    bool IsEmpty() const { return m_putIn.empty() && m_takenOut.empty(); }
    const std::vector<CPutIn>& GetPutIn() const { return m_putIn; }
    // Hands the taken-out cells back, leaving the journal without them.
    std::vector<CTakenOut> ReleaseTakenOut() { return std::exchange(m_takenOut, {}); }
    // Makes the last step final: the cells taken out are deleted.
    void Clear()
    {
        m_putIn.clear();
        m_takenOut.clear();
    }

  private:
    std::vector<CPutIn> m_putIn;
    std::vector<CTakenOut> m_takenOut;
};
