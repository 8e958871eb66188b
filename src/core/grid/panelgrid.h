#pragma once

#include "gridclipboard.h"
#include "gridjournal.h"
#include "gridpos.h"
#include "panelcell.h"

#include <QChar>
#include <QHash>
#include <QString>

#include <memory>
#include <vector>

class IMessenger;
class IPropertyEditor;

// The cells of one layout: the input column, the process area and the output column, the
// use count of every panel type against the board's limits, the weighted panel total
// against the capacity, and a journal of the last editing operation so it can be undone.
// The grid owns its cells; each cell owns its panel. Every editing operation starts by
// committing the previous one, so exactly one step can be undone.
class CPanelGrid
{
  public:
    // The last operation, as Undo needs to know it: the shifts move blocks back first.
    enum EOperation
    {
        OpNone = -1,
        OpPlace = 1,
        OpPaste = 2,
        OpCut = 3,
        OpDelete = 4,
        OpShiftDown = 5,
        OpShiftUp = 6,
        OpShiftLeft = 7,
        OpShiftRight = 8,
        OpMove = 9,
        OpReplace = 10,
    };

    static int GetColumnCount() { return 16; }
    static int GetRowCount() { return 40; }
    static int GetInputColumn() { return -1; }
    static int GetOutputColumn() { return -2; }
    // The weighted total the board can take; one more is over the limit.
    static int GetCapacity() { return 1000; }

    explicit CPanelGrid(IMessenger& messenger);
    CPanelGrid(const CPanelGrid&) = delete;
    CPanelGrid& operator=(const CPanelGrid&) = delete;
    ~CPanelGrid();

    // Empties every position and sizes the grid; the constructor has already done it once.
    void Allocate();

    bool Contains(int column, int row) const;
    // A column and a row range forming one block: a single side column, or process columns.
    bool IsBlock(int c1, int r1, int c2, int r2) const;
    CPanelCell* GetCell(int column, int row) const;
    CPanelCell* GetCell(CGridPos pos) const { return GetCell(pos.Column, pos.Row); }
    // Stores the cell without counting or journaling and hands back what was there. The
    // caller keeps the journal and the counts right.
    [[nodiscard]] std::unique_ptr<CPanelCell> SetCell(int column, int row,
                                                      std::unique_ptr<CPanelCell> cell);
    // The top cell of the panel covering the position; an empty position is its own top.
    CGridPos TopOf(int column, int row) const;
    CGridPos BottomOf(int column, int row) const;

    // Type id to the largest count allowed; -1 or no entry is no limit.
    void SetUseLimits(const QHash<int, int>& limits) { m_useLimits = limits; }
    const QHash<int, int>& GetUseLimits() const { return m_useLimits; }
    int GetUseCount(int typeId) const { return m_useCounts.value(typeId, 0); }
    bool CanUse(int typeId) const;
    int GetWeightedTotal() const { return m_weightedTotal; }
    // The one capacity rule, for placing, loading and the check alike: a total of exactly
    // the capacity fits, one more is over.
    bool IsOverCapacity() const { return m_weightedTotal > GetCapacity(); }
    // Off while a layout loads, so its panels are placed without the capacity message.
    bool GetLimitFlag() const { return m_limitFlag; }
    void SetLimitFlag(bool on) { m_limitFlag = on; }
    int GetDecoderVariant() const { return m_decoderVariant; }
    int GetLastOperation() const { return m_lastOperation; }
    // The layout check's report, one fault a line.
    const QString& GetReport() const { return m_report; }
    void SetReport(const QString& report) { m_report = report; }

    // The one entry for adding a panel. Replaces the panel at the position (asking first
    // when that one is complete); refuses a panel that does not fit, is used up, or whose
    // lower rows would cover another panel. A refused cell is deleted.
    bool Place(int column, int row, std::unique_ptr<CPanelCell> cell);
    // Journaled primitives: Insert needs every position the panel covers to be empty;
    // Remove takes out the whole panel covering the position.
    bool Insert(int column, int row, std::unique_ptr<CPanelCell> cell);
    bool Remove(int column, int row);
    bool CanUndo() const { return !m_journal.IsEmpty(); }
    // Takes back the last step and commits, so the undo itself cannot be undone.
    bool Undo();
    // Moves the block so that its first cell lands on (dc, dr); no journal, no counting.
    // False, with nothing moved, when the block or its target leaves the grid.
    bool MoveBlock(int c1, int r1, int c2, int r2, int dc, int dr);
    bool ShiftDown();
    bool ShiftUp();
    bool ShiftLeft();
    bool ShiftRight();
    CPanelCell* FindDisplay() const;
    // After a load or a changed seven-segment LED: the decoders take its display type.
    void RefreshDecoders();
    void ClearAll();
    void ClearJournal();
    bool Rotate(int column, int row);
    // Repeats the single-row panel at the position into the empty cells in the direction
    // "D", "U", "L" or "R"; any other letter does nothing and succeeds.
    bool Fill(int column, int row, QChar direction);

    void ClearClipboard() { m_clipboard.Clear(); }
    bool Copy(int c1, int r1, int c2, int r2) { return m_clipboard.Copy(c1, r1, c2, r2); }
    bool Cut(int c1, int r1, int c2, int r2, bool commit = true);
    bool CanPaste(int column, int row) const { return m_clipboard.CanPaste(column, row); }
    bool Paste(int column, int row, bool commit = true);
    const CGridClipboard& GetClipboard() const { return m_clipboard; }
    CGridClipboard& Clipboard() { return m_clipboard; }
    int CountPanels(int c1, int r1, int c2, int r2) const;

    // The view's editing steps, each one undoable step.
    // Deletes the panels lying wholly inside the block, asking once when one is complete.
    bool DeleteRange(int c1, int r1, int c2, int r2);
    // Cuts the block and pastes it with its first cell at (column, row), so every panel in it
    // moves by the same offset; when it cannot be pasted there the cut is undone. The
    // user's clipboard is left alone.
    bool MoveRange(int c1, int r1, int c2, int r2, int column, int row);
    // Puts an edited copy in place of the panel covering the position; refuses with
    // "Unable to change size." when the copy is taller than the rows free below its top.
    bool ReplaceCell(int column, int row, std::unique_ptr<CPanelCell> cell);
    // Opens the panel's property dialog on a copy and replaces the panel on OK.
    bool EditCell(int column, int row, IPropertyEditor& editor);

  private:
    std::unique_ptr<CPanelCell>* Slot(int column, int row);
    const std::unique_ptr<CPanelCell>* Slot(int column, int row) const;
    bool IsContinuation(int column, int row) const;
    void Count(const CPanelCell& cell);
    void Uncount(const CPanelCell& cell);
    bool PlaceCell(int column, int row, std::unique_ptr<CPanelCell> cell, bool announce);
    void AnnounceOverCapacity();
    bool ShiftVertically(int lostRow, EOperation operation);
    void ShiftHorizontally(int lostColumn, EOperation operation);
    void MoveBack(EOperation operation);
    void MoveAllColumns(int r1, int r2, int dr);
    // Number of rows from the panel's top down to the next panel, or to the grid's end.
    int RoomBelow(CGridPos top) const;
    void MarkOperation(EOperation operation, bool commit);

    bool m_limitFlag = true;
    int m_weightedTotal = 0;
    QString m_report;
    int m_lastOperation = OpNone;
    int m_decoderVariant = 0;
    int m_columnCount = 0;
    int m_rowCount = 0;
    CGridJournal m_journal;
    std::vector<std::unique_ptr<CPanelCell>> m_input;
    std::vector<std::unique_ptr<CPanelCell>> m_output;
    std::vector<std::unique_ptr<CPanelCell>> m_process; // (row - 1) * columns + column - 1
    QHash<int, int> m_useCounts;
    QHash<int, int> m_useLimits;
    IMessenger& m_messenger;
    CGridClipboard m_clipboard;
};
