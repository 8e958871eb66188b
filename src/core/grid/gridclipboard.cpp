#include "gridclipboard.h"

#include "messenger.h"
#include "panelgrid.h"
#include "stringtable.h"

#include <QStringList>

#include <algorithm>

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

void CGridClipboard::Add(CGridPos pos, std::unique_ptr<CPanelCell> cell)
{
    const int bottom = pos.Row + cell->GetHeight() - 1;
    if (IsEmpty()) {
        m_origin = pos;
        m_end = {pos.Column, bottom};
    } else {
        m_origin = {std::min(m_origin.Column, pos.Column), std::min(m_origin.Row, pos.Row)};
        m_end = {std::max(m_end.Column, pos.Column), std::max(m_end.Row, bottom)};
    }
    m_records.push_back({pos, std::move(cell)});
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
            if (!cell)
                continue;
            if (!cell->GetPanel()) {
                // Continuation cells come with their panel's top cell; one whose panel
                // starts above the block protrudes.
                const CGridPos top = m_grid.TopOf(c, r);
                if (top.Row < r1 || m_grid.BottomOf(top.Column, top.Row).Row > r2)
                    protruded = true;
            } else if (r + cell->GetHeight() - 1 > r2) {
                protruded = true;
            } else {
                Add({c, r}, std::make_unique<CPanelCell>(*cell));
            }
        }
    }
    if (protruded && m_messenger.Message(CStringTable::Get(Ids::MsgProtrudedPanel),
                                         EButtons::OkCancel, EIcon::Question) == EAnswer::Cancel)
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

namespace {

// The private form names the column kind of the block first, since a block copied from a
// side column pastes into that column only.
constexpr QChar kInputBlock = u'I', kOutputBlock = u'O', kProcessBlock = u'P';

} // namespace

QString CGridClipboard::ToText() const
{
    if (IsEmpty())
        return QString();
    const int column = m_origin.Column;
    QString text(column == CPanelGrid::GetInputColumn()    ? kInputBlock
                 : column == CPanelGrid::GetOutputColumn() ? kOutputBlock
                                                           : kProcessBlock);
    text += u'\n';
    // Each panel as "column offset,row offset:definition line".
    for (const CRecord& record : m_records)
        text += QStringLiteral("%1,%2:%3\n")
                    .arg(record.Pos.Column - m_origin.Column)
                    .arg(record.Pos.Row - m_origin.Row)
                    .arg(record.Cell->GetPanel()->GetLine());
    return text;
}

QString CGridClipboard::ToPlainText() const
{
    QString text;
    for (const CRecord& record : m_records)
        text += record.Cell->GetPanel()->GetLine() + u'\n';
    return text;
}

bool CGridClipboard::FromText(const QString& text, const CCellMaker& make)
{
    Clear();
    QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
    if (lines.isEmpty() || lines.first().size() != 1)
        return false;
    const QChar kind = lines.takeFirst().at(0);
    const int column = kind == kInputBlock     ? CPanelGrid::GetInputColumn()
                       : kind == kOutputBlock  ? CPanelGrid::GetOutputColumn()
                       : kind == kProcessBlock ? 1
                                               : 0;
    if (column == 0)
        return false;
    for (QString line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const qsizetype colon = line.indexOf(u':');
        const QStringList offsets = line.left(colon).split(u',');
        bool columnOk = false, rowOk = false;
        const int dc = offsets.value(0).toInt(&columnOk);
        const int dr = offsets.value(1).toInt(&rowOk);
        std::unique_ptr<CPanelCell> cell = colon < 0 || offsets.size() != 2 || !columnOk ||
                                                   !rowOk || dc < 0 || dr < 0 ||
                                                   (column < 0 && dc != 0)
                                               ? nullptr
                                               : make(line.mid(colon + 1));
        if (!cell || !cell->GetPanel()) {
            Clear();
            return false;
        }
        Add({column + dc, 1 + dr}, std::move(cell));
    }
    return !IsEmpty();
}
