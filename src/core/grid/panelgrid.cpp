#include "panelgrid.h"

#include "messenger.h"
#include "stringtable.h"

#include <algorithm>
#include <initializer_list>

namespace {

// Insert hands the layout's display type to every decoder but the four-digit segment
// decoder; RefreshDecoders reaches that one too. Both are kept as the layouts already saved
// expect them.
bool TakesVariantOnInsert(EPanelKind kind)
{
    return IsDecoder(kind) && kind != EPanelKind::SegmentDecoder4;
}

bool IsComplete(const CPanelCell* cell)
{
    return cell && cell->GetPanel() && !cell->GetPanel()->IsIncomplete();
}

} // namespace

CPanelGrid::CPanelGrid(IMessenger& messenger)
    : m_messenger(messenger), m_clipboard(*this, messenger)
{
    Allocate();
}

CPanelGrid::~CPanelGrid()
{
    // Cells of the last step may still be listed in the journal; drop those records first.
    ClearJournal();
}

void CPanelGrid::Allocate()
{
    ClearJournal();
    m_columnCount = GetColumnCount();
    m_rowCount = GetRowCount();
    m_input.clear();
    m_output.clear();
    m_process.clear();
    m_input.resize(m_rowCount);
    m_output.resize(m_rowCount);
    m_process.resize(std::size_t(m_rowCount) * m_columnCount);
    m_useCounts.clear();
    m_weightedTotal = 0;
}

bool CPanelGrid::Contains(int column, int row) const
{
    return Slot(column, row) != nullptr;
}

bool CPanelGrid::IsBlock(int c1, int r1, int c2, int r2) const
{
    if (!Contains(c1, r1) || !Contains(c2, r2) || r1 > r2)
        return false;
    if (c1 < 0 || c2 < 0)
        return c1 == c2;
    return c1 <= c2;
}

const std::unique_ptr<CPanelCell>* CPanelGrid::Slot(int column, int row) const
{
    if (row < 1 || row > m_rowCount)
        return nullptr;
    if (column == GetInputColumn())
        return &m_input[row - 1];
    if (column == GetOutputColumn())
        return &m_output[row - 1];
    if (column < 1 || column > m_columnCount)
        return nullptr;
    return &m_process[std::size_t(row - 1) * m_columnCount + (column - 1)];
}

std::unique_ptr<CPanelCell>* CPanelGrid::Slot(int column, int row)
{
    return const_cast<std::unique_ptr<CPanelCell>*>(std::as_const(*this).Slot(column, row));
}

CPanelCell* CPanelGrid::GetCell(int column, int row) const
{
    const std::unique_ptr<CPanelCell>* slot = Slot(column, row);
    return slot ? slot->get() : nullptr;
}

std::unique_ptr<CPanelCell> CPanelGrid::SetCell(int column, int row,
                                                std::unique_ptr<CPanelCell> cell)
{
    std::unique_ptr<CPanelCell>* slot = Slot(column, row);
    if (!slot)
        return cell;
    return std::exchange(*slot, std::move(cell));
}

bool CPanelGrid::IsContinuation(int column, int row) const
{
    const CPanelCell* cell = GetCell(column, row);
    return cell && !cell->GetPanel();
}

CGridPos CPanelGrid::TopOf(int column, int row) const
{
    while (IsContinuation(column, row) && GetCell(column, row - 1))
        --row;
    return {column, row};
}

CGridPos CPanelGrid::BottomOf(int column, int row) const
{
    const CPanelCell* cell = GetCell(column, row);
    return {column, cell ? row + cell->GetHeight() - 1 : row};
}

bool CPanelGrid::CanUse(int typeId) const
{
    const int limit = m_useLimits.value(typeId, -1);
    return limit == -1 || GetUseCount(typeId) < limit;
}

void CPanelGrid::Count(const CPanelCell& cell)
{
    if (cell.GetTypeId() == CPanel::NoPanel)
        return;
    ++m_useCounts[cell.GetTypeId()];
    if (cell.GetPanel())
        m_weightedTotal += cell.GetPanel()->GetWeight();
}

void CPanelGrid::Uncount(const CPanelCell& cell)
{
    if (cell.GetTypeId() == CPanel::NoPanel)
        return;
    --m_useCounts[cell.GetTypeId()];
    if (cell.GetPanel())
        m_weightedTotal -= cell.GetPanel()->GetWeight();
}

void CPanelGrid::AnnounceOverCapacity()
{
    if (m_limitFlag && IsOverCapacity())
        m_messenger.Message(CStringTable::Get(Ids::MsgOverLimit), EButtons::Ok, EIcon::Information);
}

bool CPanelGrid::Place(int column, int row, std::unique_ptr<CPanelCell> cell)
{
    return PlaceCell(column, row, std::move(cell), true);
}

bool CPanelGrid::PlaceCell(int column, int row, std::unique_ptr<CPanelCell> cell, bool announce)
{
    if (!cell || !cell->GetPanel() || !Contains(column, row))
        return false;
    const int bottom = row + cell->GetHeight() - 1;
    if (bottom > m_rowCount || !CanUse(cell->GetTypeId()))
        return false;
    const bool occupied = GetCell(column, row) != nullptr;
    const CGridPos top = TopOf(column, row);
    const int oldBottom = occupied ? BottomOf(top.Column, top.Row).Row : row;
    // Only the panel at the target is replaced; a taller panel must not land on the next.
    for (int r = row + 1; r <= bottom; ++r)
        if (GetCell(column, r) && (!occupied || r > oldBottom))
            return false;

    ClearJournal();
    if (occupied) {
        if (IsComplete(GetCell(top)) &&
            m_messenger.Message(CStringTable::Get(Ids::MsgReplacePanel), EButtons::OkCancel,
                                EIcon::Question) == EAnswer::Cancel)
            return false;
        Remove(column, row);
    }
    if (!Insert(column, row, std::move(cell))) {
        Undo();
        return false;
    }
    m_lastOperation = OpPlace;
    if (announce)
        AnnounceOverCapacity();
    return true;
}

bool CPanelGrid::Insert(int column, int row, std::unique_ptr<CPanelCell> cell)
{
    if (!cell || !cell->GetPanel() || !Contains(column, row))
        return false;
    const int height = cell->GetHeight();
    if (row + height - 1 > m_rowCount)
        return false;
    for (int r = row; r < row + height; ++r)
        if (GetCell(column, r))
            return false;

    CPanelCell* placed = cell.get();
    *Slot(column, row) = std::move(cell);
    m_journal.PutIn({column, row}, placed);
    Count(*placed);
    CPanel* panel = placed->GetPanel();
    if (TakesVariantOnInsert(panel->GetKind()) && panel->GetVariant() == 0)
        panel->SetVariant(m_decoderVariant);
    for (int r = row + 1; r < row + height; ++r) {
        std::unique_ptr<CPanelCell>& slot = *Slot(column, r);
        slot = std::make_unique<CPanelCell>(QString());
        m_journal.PutIn({column, r}, slot.get());
    }
    return true;
}

bool CPanelGrid::Remove(int column, int row)
{
    if (!GetCell(column, row))
        return false;
    const CGridPos top = TopOf(column, row);
    std::unique_ptr<CPanelCell> topCell = SetCell(top.Column, top.Row, nullptr);
    const int height = topCell->GetHeight();
    Uncount(*topCell);
    m_journal.TakeOut(top, std::move(topCell));
    for (int r = top.Row + 1; r < top.Row + height; ++r)
        if (IsContinuation(top.Column, r))
            m_journal.TakeOut({top.Column, r}, SetCell(top.Column, r, nullptr));
    return true;
}

bool CPanelGrid::Undo()
{
    MoveBack(EOperation(m_lastOperation));
    for (const CGridJournal::CPutIn& record : m_journal.GetPutIn()) {
        if (!record.Cell)
            continue;
        std::unique_ptr<CPanelCell>* slot = Slot(record.Pos.Column, record.Pos.Row);
        // A cell no longer where it was put stays with the grid rather than be lost.
        if (!slot || slot->get() != record.Cell)
            continue;
        Uncount(*record.Cell);
        slot->reset();
    }
    for (CGridJournal::CTakenOut& record : m_journal.ReleaseTakenOut()) {
        std::unique_ptr<CPanelCell>* slot = Slot(record.Pos.Column, record.Pos.Row);
        if (!slot || *slot)
            continue;
        Count(*record.Cell);
        *slot = std::move(record.Cell);
    }
    ClearJournal();
    return true;
}

void CPanelGrid::MoveBack(EOperation operation)
{
    switch (operation) {
    case OpShiftDown:
        MoveAllColumns(2, m_rowCount, 1);
        break;
    case OpShiftUp:
        MoveAllColumns(1, m_rowCount - 1, 2);
        break;
    case OpShiftLeft:
        MoveBlock(1, 1, m_columnCount - 1, m_rowCount, 2, 1);
        break;
    case OpShiftRight:
        MoveBlock(2, 1, m_columnCount, m_rowCount, 1, 1);
        break;
    default:
        break;
    }
}

void CPanelGrid::MoveAllColumns(int r1, int r2, int dr)
{
    MoveBlock(GetInputColumn(), r1, GetInputColumn(), r2, GetInputColumn(), dr);
    MoveBlock(GetOutputColumn(), r1, GetOutputColumn(), r2, GetOutputColumn(), dr);
    MoveBlock(1, r1, m_columnCount, r2, 1, dr);
}

bool CPanelGrid::MoveBlock(int c1, int r1, int c2, int r2, int dc, int dr)
{
    if (!IsBlock(c1, r1, c2, r2) || !IsBlock(dc, dr, dc + c2 - c1, dr + r2 - r1))
        return false;
    std::vector<std::unique_ptr<CPanelCell>> lifted;
    lifted.reserve(std::size_t(c2 - c1 + 1) * (r2 - r1 + 1));
    for (int c = c1; c <= c2; ++c)
        for (int r = r1; r <= r2; ++r)
            lifted.push_back(SetCell(c, r, nullptr));
    auto next = lifted.begin();
    for (int c = dc; c <= dc + c2 - c1; ++c)
        for (int r = dr; r <= dr + r2 - r1; ++r)
            *Slot(c, r) = std::move(*next++);
    return true;
}

bool CPanelGrid::ShiftDown()
{
    return ShiftVertically(m_rowCount, OpShiftDown);
}

bool CPanelGrid::ShiftUp()
{
    return ShiftVertically(1, OpShiftUp);
}

bool CPanelGrid::ShiftLeft()
{
    ShiftHorizontally(1, OpShiftLeft);
    return true;
}

bool CPanelGrid::ShiftRight()
{
    ShiftHorizontally(m_columnCount, OpShiftRight);
    return true;
}

bool CPanelGrid::ShiftVertically(int lostRow, EOperation operation)
{
    std::vector<int> columns = {GetInputColumn(), GetOutputColumn()};
    for (int c = 1; c <= m_columnCount; ++c)
        columns.push_back(c);
    // A multi-row panel on the lost edge would be cut in two; refuse instead.
    for (int c : columns) {
        const CPanelCell* cell = GetCell(c, lostRow);
        const bool refuses =
            operation == OpShiftDown ? IsContinuation(c, lostRow) : cell && cell->GetHeight() >= 2;
        if (refuses) {
            m_messenger.Message(CStringTable::Get(Ids::MsgCantShift), EButtons::Ok, EIcon::Warning);
            return false;
        }
    }
    ClearJournal();
    for (int c : columns)
        if (GetCell(c, lostRow))
            Remove(c, lostRow);
    if (operation == OpShiftDown)
        MoveAllColumns(1, m_rowCount - 1, 2);
    else
        MoveAllColumns(2, m_rowCount, 1);
    m_journal.Separate();
    m_lastOperation = operation;
    return true;
}

void CPanelGrid::ShiftHorizontally(int lostColumn, EOperation operation)
{
    ClearJournal();
    for (int r = 1; r <= m_rowCount; ++r)
        if (GetCell(lostColumn, r))
            Remove(lostColumn, r);
    if (operation == OpShiftLeft)
        MoveBlock(2, 1, m_columnCount, m_rowCount, 1, 1);
    else
        MoveBlock(1, 1, m_columnCount - 1, m_rowCount, 2, 1);
    m_journal.Separate();
    m_lastOperation = operation;
}

CPanelCell* CPanelGrid::FindDisplay() const
{
    // Every layout read looks for its display, so the cells are walked where they are kept
    // rather than asked for by position; the order stays the input column, the output
    // column, then the process area column by column.
    const auto holds = [](const std::unique_ptr<CPanelCell>& cell) {
        return cell && cell->GetPanel() && IsSevenSegDisplay(cell->GetPanel()->GetKind());
    };
    for (const auto* side : {&m_input, &m_output})
        for (const std::unique_ptr<CPanelCell>& cell : *side)
            if (holds(cell))
                return cell.get();
    for (int c = 0; c < m_columnCount; ++c)
        for (int r = 0; r < m_rowCount; ++r)
            if (const std::unique_ptr<CPanelCell>& cell =
                    m_process[std::size_t(r) * m_columnCount + c];
                holds(cell))
                return cell.get();
    return nullptr;
}

void CPanelGrid::RefreshDecoders()
{
    const CPanelCell* display = FindDisplay();
    m_decoderVariant = display ? display->GetPanel()->GetMode() : 0;
    for (const std::unique_ptr<CPanelCell>& cell : m_process) {
        if (!cell || !cell->GetPanel() || !IsDecoder(cell->GetPanel()->GetKind()))
            continue;
        cell->GetPanel()->SetVariant(m_decoderVariant);
        cell->MakeImage();
    }
}

void CPanelGrid::ClearAll()
{
    ClearJournal();
    for (auto* cells : {&m_input, &m_output, &m_process})
        for (std::unique_ptr<CPanelCell>& cell : *cells)
            cell.reset();
    m_useCounts.clear();
    m_weightedTotal = 0;
}

void CPanelGrid::ClearJournal()
{
    m_journal.Clear();
    m_lastOperation = OpNone;
}

bool CPanelGrid::Rotate(int column, int row)
{
    ClearJournal();
    CPanelCell* cell = GetCell(column, row);
    if (!cell || !cell->GetPanel() || !cell->GetPanel()->CanRotate())
        return false;
    if (!cell->GetPanel()->Rotate())
        return false;
    cell->MakeImage();
    return true;
}

bool CPanelGrid::Fill(int column, int row, QChar direction)
{
    const CPanelCell* source = GetCell(column, row);
    if (!source || !source->GetPanel() || source->GetHeight() >= 2)
        return false;
    ClearJournal();
    int dc = 0;
    int dr = 0;
    const bool inProcess = column >= 1;
    switch (direction.unicode()) {
    case u'D':
        dr = 1;
        break;
    case u'U':
        dr = -1;
        break;
    case u'L':
        dc = inProcess ? -1 : 0;
        break;
    case u'R':
        dc = inProcess ? 1 : 0;
        break;
    default:
        break;
    }
    if (dc != 0 || dr != 0) {
        for (int c = column + dc, r = row + dr; Contains(c, r) && !GetCell(c, r);
             c += dc, r += dr) {
            // Each copy is its own Place, so an undo takes back the last copy only.
            if (CanUse(source->GetTypeId()))
                PlaceCell(c, r, std::make_unique<CPanelCell>(*source), false);
        }
    }
    AnnounceOverCapacity();
    return true;
}

void CPanelGrid::MarkOperation(EOperation operation, bool commit)
{
    // A step that did not commit continues the one before and keeps its code.
    if (commit || m_lastOperation == OpNone)
        m_lastOperation = operation;
}

bool CPanelGrid::Cut(int c1, int r1, int c2, int r2, bool commit)
{
    if (!m_clipboard.Cut(c1, r1, c2, r2, commit))
        return false;
    MarkOperation(OpCut, commit);
    return true;
}

bool CPanelGrid::Paste(int column, int row, bool commit)
{
    if (!m_clipboard.Paste(column, row, commit))
        return false;
    MarkOperation(OpPaste, commit);
    return true;
}

int CPanelGrid::CountPanels(int c1, int r1, int c2, int r2) const
{
    if (!IsBlock(c1, r1, c2, r2))
        return 0;
    int count = 0;
    for (int c = c1; c <= c2; ++c)
        for (int r = r1; r <= r2; ++r)
            if (const CPanelCell* cell = GetCell(c, r); cell && cell->GetPanel())
                ++count;
    return count;
}

bool CPanelGrid::DeleteRange(int c1, int r1, int c2, int r2)
{
    if (!IsBlock(c1, r1, c2, r2))
        return false;
    // A panel reaching out of the block stays, as Cut leaves it.
    std::vector<CGridPos> tops;
    for (int c = c1; c <= c2; ++c)
        for (int r = r1; r <= r2; ++r)
            if (const CPanelCell* cell = GetCell(c, r);
                cell && cell->GetPanel() && r + cell->GetHeight() - 1 <= r2)
                tops.push_back({c, r});
    if (tops.empty())
        return false;
    const bool anyComplete = std::any_of(tops.begin(), tops.end(),
                                         [this](CGridPos pos) { return IsComplete(GetCell(pos)); });
    // Asked before anything changes, so Cancel also keeps the previous step undoable.
    if (anyComplete && m_messenger.Message(CStringTable::Get(Ids::MsgDeletePanel),
                                           EButtons::OkCancel, EIcon::Question) == EAnswer::Cancel)
        return false;
    ClearJournal();
    for (CGridPos pos : tops)
        Remove(pos.Column, pos.Row);
    m_lastOperation = OpDelete;
    return true;
}

bool CPanelGrid::MoveRange(int c1, int r1, int c2, int r2, int column, int row)
{
    if (!IsBlock(c1, r1, c2, r2) || (column == c1 && row == r1))
        return false;
    CGridClipboard moving(*this, m_messenger);
    ClearJournal();
    moving.Cut(c1, r1, c2, r2, false);
    // The panels move by the selection's offset, wherever in it they lie.
    const CGridPos from = moving.GetOrigin();
    const int toColumn = column + from.Column - c1, toRow = row + from.Row - r1;
    if (!moving.CanPaste(toColumn, toRow)) {
        Undo();
        return false;
    }
    if (!moving.Paste(toColumn, toRow, false)) {
        // A paste that failed midway has already undone the cut with it.
        if (CanUndo())
            Undo();
        return false;
    }
    m_lastOperation = OpMove;
    return true;
}

int CPanelGrid::RoomBelow(CGridPos top) const
{
    for (int r = top.Row + 1; r <= m_rowCount; ++r)
        if (const CPanelCell* cell = GetCell(top.Column, r); cell && cell->GetPanel())
            return r - top.Row;
    return m_rowCount - top.Row + 1;
}

bool CPanelGrid::ReplaceCell(int column, int row, std::unique_ptr<CPanelCell> cell)
{
    const CGridPos top = TopOf(column, row);
    const CPanelCell* old = GetCell(top);
    if (!cell || !cell->GetPanel() || !old || !old->GetPanel())
        return false;
    ClearJournal();
    if (cell->GetHeight() > RoomBelow(top)) {
        m_messenger.Message(CStringTable::Get(Ids::MsgCantChangeSize), EButtons::Ok,
                            EIcon::Warning);
        return false;
    }
    Remove(top.Column, top.Row);
    // The dialog changed the panel after the cell drew it.
    cell->MakeImage();
    const bool isDisplay = IsSevenSegDisplay(cell->GetPanel()->GetKind());
    if (!CanUse(cell->GetTypeId()) || !Insert(top.Column, top.Row, std::move(cell))) {
        Undo();
        return false;
    }
    m_lastOperation = OpReplace;
    AnnounceOverCapacity();
    if (isDisplay)
        RefreshDecoders();
    return true;
}

bool CPanelGrid::EditCell(int column, int row, IPropertyEditor& editor)
{
    const CGridPos top = TopOf(column, row);
    const CPanelCell* old = GetCell(top);
    if (!old || !old->GetPanel())
        return false;
    ClearJournal();
    auto copy = std::make_unique<CPanelCell>(*old);
    if (!copy->GetPanel() || !copy->GetPanel()->EditProperties(editor))
        return false;
    return ReplaceCell(top.Column, top.Row, std::move(copy));
}
