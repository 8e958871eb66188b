#pragma once

#include "gridpos.h"
#include "panelcell.h"

#include <memory>
#include <vector>

class CPanelGrid;
class IMessenger;

// The grid's own clipboard: a copied block of grid positions with owned copies of its
// panels. Cut and Paste go through the grid's journaled operations, so Undo takes them
// back like any other step.
class CGridClipboard
{
  public:
    CGridClipboard(CPanelGrid& grid, IMessenger& messenger);
    CGridClipboard(const CGridClipboard&) = delete;
    CGridClipboard& operator=(const CGridClipboard&) = delete;
    ~CGridClipboard();

    void Clear();
    // Replaces the clipboard by the block; false when nothing was copied (a bad block, or
    // Cancel to leaving out a panel that protrudes from it).
    bool Copy(int c1, int r1, int c2, int r2);
    // Copies the block, then removes every panel lying wholly inside it, whatever the
    // answer to the protrusion question was. False when the block is not a block.
    bool Cut(int c1, int r1, int c2, int r2, bool commit);
    bool CanPaste(int column, int row) const;
    bool Paste(int column, int row, bool commit);

    bool IsEmpty() const { return m_records.empty(); }
    // Extent of the copied block, 0 x 0 when empty.
    int GetWidth() const;
    int GetHeight() const;
    // Where the block was copied from.
    CGridPos GetOrigin() const { return m_origin; }

  private:
    struct CRecord
    {
        CGridPos Pos;
        std::unique_ptr<CPanelCell> Cell; // null: an empty position
    };

    bool Fits(int column, int row) const;
    bool TargetOccupied(int column, int row) const;
    void RemoveTargetBlock(int column, int row);
    bool InsertRecords(int column, int row);

    CPanelGrid& m_grid;
    IMessenger& m_messenger;
    std::vector<CRecord> m_records;
    CGridPos m_origin;
    CGridPos m_end;
};
