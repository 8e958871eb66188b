#include "layoutfile.h"

#include "app/boardinfo.h"
#include "app/messenger.h"
#include "panelgrid.h"
#include "panels/panelfactory.h"
#include "panels/panelvalues.h"
#include "res/stringtable.h"

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
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

// A layout has at least one line a layout writes: its header, a heading or a record
// ("I_03:", "O_12:", "0112:"). Anything else, or binary bytes, is no layout.
bool LooksLikeLayout(const QString& text)
{
    if (text.contains(QChar(0)))
        return false;
    static const QRegularExpression record(QStringLiteral("^(I_|O_|[0-9]{2})[0-9]{2}:"));
    for (QStringView line : QStringView(text).split(u'\n')) {
        line = line.trimmed();
        if (line == u"; PANEL LOCATION" || line == u"INPUT" || line == u"PROCESS" ||
            line == u"OUTPUT" || record.match(line).hasMatch())
            return true;
    }
    return false;
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
    QSaveFile file(path);
    const QByteArray bytes = Write(grid);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        m_error = file.errorString();
        m_messenger.Message(CStringTable::Get(Ids::MsgNotSaved), EButtons::Ok, EIcon::Error);
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
    // Lines are read through views: a line is copied only for the panel it makes.
    for (const QStringView raw : QStringView(text).split(u'\n'))
        ReadRecord(grid, raw.trimmed());
    if (grid.GetWeightedTotal() > CPanelGrid::GetCapacity())
        m_messenger.Message(CStringTable::Get(Ids::MsgOverLimit));
    grid.SetLimitFlag(true);
    grid.ClearJournal();
    grid.RefreshDecoders();
}

void CLayoutFile::ReadRecord(CPanelGrid& grid, QStringView line)
{
    // Headings only guide a reader of the file: each record's prefix names its column.
    if (line.size() < 5 || line.startsWith(u';') || line == u"INPUT" || line == u"PROCESS" ||
        line == u"OUTPUT")
        return;
    const QStringView prefix = QStringView(line).left(2);
    const int column = prefix == u"I_"   ? CPanelGrid::GetInputColumn()
                       : prefix == u"O_" ? CPanelGrid::GetOutputColumn()
                                         : LeadingInt(prefix);
    const int row = LeadingInt(line.mid(2, 2));
    const QStringView record = line.mid(5);
    if (column == 0 || row == 0 || record.isEmpty())
        return;

    std::unique_ptr<CPanel> panel = CPanelFactory::Create(record.toString());
    if (!panel)
        return;
    if (const CPaletteEntry* entry = m_board ? m_board->FindEntry(panel->GetTokens().value(0), panel->GetBitmapId()) : nullptr;
        entry && entry->GetPrototype()) {
        // The board's entry gives ports, name and weight. The line was read already; with
        // the ports known the panel finds its port, and its name rebuilds the caption.
        const CPanel& prototype = *entry->GetPrototype();
        panel->PortList() = prototype.GetPortList();
        panel->ResolvePort();
        panel->SetOption(prototype.GetOption());
        panel->SetName(prototype.GetName());
    }
    auto cell = std::make_unique<CPanelCell>(std::move(panel));
    grid.Place(column, row, std::move(cell));
}
