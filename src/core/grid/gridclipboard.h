#pragma once

#include "gridpos.h"
#include "panelcell.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class CPanelGrid;
class IMessenger;

// The grid's own clipboard: owned copies of the panels of a copied block, each with its
// place. The block a paste fills is the one the copied panels cover, from the first column
// and row that holds one of them to the last, not the selection they were copied from.
// Cut and Paste go through the grid's journaled operations, so Undo takes them back like
// any other step.
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

    // The clipboard as the system clipboard carries it to another layout or program: the
    // private form keeps each panel's place in the block, the plain form is its lines.
    QString ToText() const;
    QString ToPlainText() const;
    // Replaces the clipboard by a block in the private form; make turns each definition
    // line into a cell as loading a layout does. False, and empty, for any other text.
    using CCellMaker = std::function<std::unique_ptr<CPanelCell>(const QString&)>;
    bool FromText(const QString& text, const CCellMaker& make);

    bool IsEmpty() const { return m_records.empty(); }
    // Extent of the block the copied panels cover, 0 x 0 when empty.
    int GetWidth() const;
    int GetHeight() const;
    // The top-left corner of that block where it was copied.
    CGridPos GetOrigin() const { return m_origin; }

  private:
    struct CRecord
    {
        CGridPos Pos;
        std::unique_ptr<CPanelCell> Cell; // a panel's top cell
    };

    void Add(CGridPos pos, std::unique_ptr<CPanelCell> cell);

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
