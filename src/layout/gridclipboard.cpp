#include "gridclipboard.h"

#include "app/messenger.h"
#include "panelgrid.h"
#include "res/stringtable.h"

CGridClipboard::CGridClipboard(CPanelGrid& grid, IMessenger& messenger)
    : m_grid(grid), m_messenger(messenger)
{
}

CGridClipboard::~CGridClipboard() = default;

void CGridClipboard::Clear()
{
    m_records.clear();
    m_origin = {};
    m_end = {};
}

int CGridClipboard::GetWidth() const
{
    return IsEmpty() ? 0 : m_end.Column - m_origin.Column + 1;
}

int CGridClipboard::GetHeight() const
{
    return IsEmpty() ? 0 : m_end.Row - m_origin.Row + 1;
}

bool CGridClipboard::Copy(int c1, int r1, int c2, int r2)
{
    Clear();
    if (!m_grid.IsBlock(c1, r1, c2, r2))
        return false;
    bool protruded = false;
    for (int c = c1; c <= c2; ++c) {
        for (int r = r1; r <= r2; ++r) {
            const CPanelCell* cell = m_grid.GetCell(c, r);
            if (!cell) {
                m_records.push_back({{c, r}, nullptr});
            } else if (!cell->GetPanel()) {
                const CGridPos top = m_grid.TopOf(c, r);
                if (top.Row < r1 || m_grid.BottomOf(top.Column, top.Row).Row > r2)
                    protruded = true;
                else
                    m_records.push_back({{c, r}, std::make_unique<CPanelCell>(QString())});
            } else if (r + cell->GetHeight() - 1 > r2) {
                protruded = true;
            } else {
                m_records.push_back({{c, r}, std::make_unique<CPanelCell>(*cell)});
            }
        }
    }
    // The block keeps its corners even when a protruding panel at a corner is left out,
    // so a paste lands where the block was drawn.
    m_origin = {c1, r1};
    m_end = {c2, r2};
    if (protruded && m_messenger.Message(CStringTable::Get(Ids::MsgProtrudedPanel),
                                         EButtons::OkCancel, EIcon::Question) == EAnswer::Cancel)
        Clear();
    if (m_records.empty())
        Clear();
    return !IsEmpty();
}

bool CGridClipboard::Cut(int c1, int r1, int c2, int r2, bool commit)
{
    if (!m_grid.IsBlock(c1, r1, c2, r2))
        return false;
    if (commit)
        m_grid.ClearJournal();
    // The answer to the protrusion question only decides what is copied: the panels
    // wholly inside are cut either way, and Undo brings them back.
    Copy(c1, r1, c2, r2);
    for (int c = c1; c <= c2; ++c)
        for (int r = r1; r <= r2; ++r)
            if (const CPanelCell* cell = m_grid.GetCell(c, r);
                cell && cell->GetPanel() && r + cell->GetHeight() - 1 <= r2)
                m_grid.Remove(c, r);
    return true;
}

bool CGridClipboard::Fits(int column, int row) const
{
    if (IsEmpty() || row < 1 || row + GetHeight() - 1 > CPanelGrid::GetRowCount())
        return false;
    if (column < 0)
        return column == m_origin.Column;
    return column >= 1 && m_origin.Column >= 1 &&
           column + GetWidth() - 1 <= CPanelGrid::GetColumnCount();
}

bool CGridClipboard::CanPaste(int column, int row) const
{
    return Fits(column, row);
}

bool CGridClipboard::TargetOccupied(int column, int row) const
{
    for (int c = column; c < column + GetWidth(); ++c)
        for (int r = row; r < row + GetHeight(); ++r)
            if (m_grid.GetCell(c, r))
                return true;
    return false;
}

void CGridClipboard::RemoveTargetBlock(int column, int row)
{
    for (int c = column; c < column + GetWidth(); ++c)
        for (int r = row; r < row + GetHeight(); ++r)
            if (m_grid.GetCell(c, r))
                m_grid.Remove(c, r);
}

bool CGridClipboard::InsertRecords(int column, int row)
{
    for (const CRecord& record : m_records) {
        // Continuation cells come with their panel.
        if (!record.Cell || !record.Cell->GetPanel())
            continue;
        const int c = column + record.Pos.Column - m_origin.Column;
        const int r = row + record.Pos.Row - m_origin.Row;
        if (m_grid.GetCell(c, r))
            continue;
        for (int below = r + 1; below < r + record.Cell->GetHeight(); ++below) {
            if (m_grid.GetCell(c, below)) {
                m_messenger.Message(CStringTable::Get(Ids::MsgNotAllPasted), EButtons::Ok,
                                    EIcon::Information);
                m_grid.Undo();
                return false;
            }
        }
        if (!m_grid.CanUse(record.Cell->GetTypeId())) {
            m_messenger.Message(CStringTable::Get(Ids::MsgPasteOverLimit), EButtons::Ok,
                                EIcon::Information);
            m_grid.Undo();
            return false;
        }
        // A fresh copy each time, so the clipboard can be pasted again.
        m_grid.Insert(c, r, std::make_unique<CPanelCell>(*record.Cell));
    }
    return true;
}

bool CGridClipboard::Paste(int column, int row, bool commit)
{
    if (IsEmpty())
        return false;
    if (!Fits(column, row)) {
        m_messenger.Message(CStringTable::Get(Ids::MsgPasteOutOfArea), EButtons::Ok,
                            EIcon::Warning);
        return false;
    }
    EAnswer answer = EAnswer::No;
    if (TargetOccupied(column, row)) {
        answer = m_messenger.Message(CStringTable::Get(Ids::MsgPasteOverPanels),
                                     EButtons::YesNoCancel, EIcon::Question);
        if (answer == EAnswer::Cancel)
            return false;
    }
    if (commit)
        m_grid.ClearJournal();
    if (answer == EAnswer::Yes)
        RemoveTargetBlock(column, row);
    return InsertRecords(column, row);
}
