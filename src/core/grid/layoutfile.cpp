#include "layoutfile.h"

#include "boardinfo.h"
#include "messenger.h"
#include "panelfactory.h"
#include "panelgrid.h"
#include "panelvalues.h"
#include "safesave.h"
#include "stringtable.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>

namespace {

// Two digits with a leading zero, as every record prefix writes its numbers.
void AppendTwoDigits(QByteArray& out, int n)
{
    out += char('0' + n / 10 % 10);
    out += char('0' + n % 10);
}

// Only a top cell has a panel: continuation cells and empty positions write nothing. A
// save passes all 720 positions and most are empty, so they must not cost an allocation.
void WriteRecord(QByteArray& out, const CPanelGrid& grid, int column, int row)
{
    const CPanelCell* cell = grid.GetCell(column, row);
    if (!cell || !cell->GetPanel())
        return;
    if (column == CPanelGrid::GetInputColumn())
        out += "I_";
    else if (column == CPanelGrid::GetOutputColumn())
        out += "O_";
    else
        AppendTwoDigits(out, column);
    AppendTwoDigits(out, row);
    out += ':';
    out += cell->GetPanel()->GetLine().toUtf8();
    out += "\r\n";
}

// Files made by hand or on other systems end their lines with CR LF, LF or a bare CR.
QList<QStringView> SplitLines(const QString& text)
{
    static const QRegularExpression ends(QStringLiteral("\r\n|\r|\n"));
    return QStringView(text).split(ends);
}

// A layout has at least one line a layout writes: its header, a heading or a record
// ("I_03:", "O_12:", "0112:"). Anything else, or binary bytes, is no layout.
bool LooksLikeLayout(const QString& text)
{
    if (text.contains(QChar(0)))
        return false;
    static const QRegularExpression record(QStringLiteral("^(I_|O_|[0-9]{2})[0-9]{2}:"));
    for (QStringView line : SplitLines(text)) {
        line = line.trimmed();
        if (line == u"; PANEL LOCATION" || line == u"INPUT" || line == u"PROCESS" ||
            line == u"OUTPUT" || record.match(line).hasMatch())
            return true;
    }
    return false;
}

// One load message names this many faulty lines, then says how many more there were.
constexpr int kFaultsShown = 20;

qint64 KeyOf(CGridPos pos)
{
    return (qint64(pos.Column) << 32) | quint32(pos.Row);
}

} // namespace

CLayoutFile::CLayoutFile(const CBoardInfo* board, IMessenger& messenger)
    : m_board(board), m_messenger(messenger)
{
}

QByteArray CLayoutFile::Write(const CPanelGrid& grid)
{
    QByteArray out;
    out.reserve(32 * 1024);
    out += "; Quillon\r\n; PANEL LOCATION\r\n;\r\nINPUT\r\n";
    const int rows = CPanelGrid::GetRowCount();
    for (int row = 1; row <= rows; ++row)
        WriteRecord(out, grid, CPanelGrid::GetInputColumn(), row);
    out += ";\r\nPROCESS\r\n";
    for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
        for (int row = 1; row <= rows; ++row)
            WriteRecord(out, grid, column, row);
    out += ";\r\nOUTPUT\r\n";
    for (int row = 1; row <= rows; ++row)
        WriteRecord(out, grid, CPanelGrid::GetOutputColumn(), row);
    return out;
}

bool CLayoutFile::Save(const CPanelGrid& grid, const QString& path)
{
    if (path.isEmpty())
        return false;
    if (!CSafeSave::Write(path, Write(grid), m_error)) {
        // Which file and why, in the system's words, under the message the user knows.
        m_messenger.Message(CStringTable::Get(Ids::MsgNotSaved) + u'\n' +
                                QDir::toNativeSeparators(path) + u'\n' + m_error,
                            EButtons::Ok, EIcon::Error);
        return false;
    }
    return true;
}

QString CLayoutFile::Decode(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringConverter::Utf8);
    const QString text = utf8(bytes);
    if (!utf8.hasError())
        return text;
    QStringDecoder cp932("windows-31j");
    return cp932.isValid() ? cp932(bytes) : QString::fromLatin1(bytes);
}

bool CLayoutFile::Load(CPanelGrid& grid, const QString& path)
{
    QString text;
    if (!ReadText(path, text))
        return false;
    Read(grid, text);
    return true;
}

bool CLayoutFile::ReadText(const QString& path, QString& text)
{
    m_error.clear();
    if (path.isEmpty())
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = file.errorString();
        return false;
    }
    text = Decode(file.readAll());
    if (!LooksLikeLayout(text)) {
        m_error = CStringTable::Get(Ids::MsgNotLocFile);
        return false;
    }
    return true;
}

void CLayoutFile::Read(CPanelGrid& grid, const QString& text)
{
    grid.ClearJournal();
    grid.SetLimitFlag(false);
    m_faults.clear();
    m_faultCount = 0;
    m_placedBy.clear();
    int number = 0;
    for (QStringView line : SplitLines(text))
        ReadRecord(grid, line.trimmed(), ++number);
    ReportFaults();
    if (grid.IsOverCapacity())
        m_messenger.Message(CStringTable::Get(Ids::MsgOverLimit));
    grid.SetLimitFlag(true);
    grid.ClearJournal();
    grid.RefreshDecoders();
    m_placedBy.clear();
}

void CLayoutFile::AddFault(int number, int why, std::initializer_list<QVariant> args)
{
    // Only the faults shown are put into words: a file of garbage has thousands.
    if (++m_faultCount <= kFaultsShown)
        m_faults.append(CStringTable::Format(
            Ids::LoadFaultLine,
            {number, args.size() ? CStringTable::Format(why, args) : CStringTable::Get(why)}));
}

void CLayoutFile::ReportFaults()
{
    if (m_faultCount == 0)
        return;
    QStringList lines{CStringTable::Get(Ids::LoadFaults)};
    lines += m_faults;
    if (m_faultCount > kFaultsShown)
        lines.append(CStringTable::Format(Ids::LoadMoreFaults, {m_faultCount - kFaultsShown}));
    m_messenger.Message(lines.join(u'\n'), EButtons::Ok, EIcon::Warning);
}

std::unique_ptr<CPanelCell> CLayoutFile::MakeCell(const QString& record) const
{
    std::unique_ptr<CPanel> panel = CPanelFactory::Create(record);
    if (!panel)
        return nullptr;
    if (const CPaletteEntry* entry =
            m_board ? m_board->FindEntry(panel->GetTokens().value(0), panel->GetBitmapId())
                    : nullptr;
        entry && entry->GetPrototype()) {
        // The board's entry gives ports, name and weight. The line was read already; with
        // the ports known the panel finds its port, and its name rebuilds the caption.
        const CPanel& prototype = *entry->GetPrototype();
        panel->PortList() = prototype.GetPortList();
        panel->ResolvePort();
        panel->SetWeight(prototype.GetWeight());
        panel->SetName(prototype.GetName());
    }
    return std::make_unique<CPanelCell>(std::move(panel));
}

QString CLayoutFile::PositionText(CGridPos pos)
{
    QByteArray text;
    if (pos.Column == CPanelGrid::GetInputColumn())
        text = "I_";
    else if (pos.Column == CPanelGrid::GetOutputColumn())
        text = "O_";
    else
        AppendTwoDigits(text, pos.Column);
    AppendTwoDigits(text, pos.Row);
    return QString::fromLatin1(text);
}

CGridPos CLayoutFile::PositionOf(QStringView prefix)
{
    const QStringView column = prefix.left(2);
    return {column == u"I_"   ? CPanelGrid::GetInputColumn()
            : column == u"O_" ? CPanelGrid::GetOutputColumn()
                              : LeadingInt(column),
            LeadingInt(prefix.mid(2, 2))};
}

void CLayoutFile::ReadRecord(CPanelGrid& grid, QStringView line, int number)
{
    // Headings only guide a reader of the file: each record's prefix names its column.
    if (line.isEmpty() || line.startsWith(u';') || line == u"INPUT" || line == u"PROCESS" ||
        line == u"OUTPUT")
        return;
    if (line.size() < 5)
        return AddFault(number, Ids::LoadNoRecord);
    // Only the record itself is copied out of the file's text.
    const auto [column, row] = PositionOf(line);
    if (!grid.Contains(column, row))
        return AddFault(number, Ids::LoadNoPosition);
    const QString record = line.mid(5).toString();
    if (record.isEmpty())
        return AddFault(number, Ids::LoadNoRecord);
    // Loading never asks: a second record for a taken position is named, and the first stays.
    if (grid.GetCell(column, row))
        return AddFault(number, Ids::LoadDuplicate,
                        {m_placedBy.value(KeyOf(grid.TopOf(column, row)))});

    std::unique_ptr<CPanelCell> cell = MakeCell(record);
    if (!cell)
        return AddFault(number, Ids::LoadUnknownPanel, {CPanelFactory::Keyword(record)});
    const int bottom = row + cell->GetHeight() - 1;
    if (bottom > CPanelGrid::GetRowCount())
        return AddFault(number, Ids::LoadTooTall);
    for (int r = row + 1; r <= bottom; ++r)
        if (grid.GetCell(column, r))
            return AddFault(number, Ids::LoadCovers);
    if (!grid.CanUse(cell->GetTypeId()))
        return AddFault(number, Ids::LoadUsedUp);
    // A gate or wire whose line names no kind is kept, so its line is not lost, and named.
    const bool unknownKind = cell->GetPanel()->GetBitmapId() == CPanel::NoPanel;
    if (!grid.Place(column, row, std::move(cell)))
        return AddFault(number, Ids::LoadNoPosition);
    m_placedBy.insert(KeyOf({column, row}), number);
    if (unknownKind)
        AddFault(number, Ids::LoadUnknownKind);
}
