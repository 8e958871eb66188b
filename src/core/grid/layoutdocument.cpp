#include "layoutdocument.h"

#include "boardinfo.h"
#include "layoutfile.h"
#include "stringtable.h"

#include <QFileInfo>

CLayoutDocument::CLayoutDocument(const CBoardInfo* board, IMessenger& messenger)
    : m_board(board), m_messenger(messenger), m_grid(messenger)
{
    if (m_board)
        m_grid.SetUseLimits(m_board->UseLimits());
}

QString CLayoutDocument::GetTitle() const
{
    if (!m_path.isEmpty())
        return QFileInfo(m_path).fileName();
    // The second field of the document string is the untitled name.
    const QString untitled = CStringTable::Get(Ids::DocTemplate).section(u'\n', 1, 1);
    return untitled.isEmpty() ? QStringLiteral("Untitled") : untitled;
}

// The clipboard outlives the layout, so panels copied in one can be pasted into the next.
void CLayoutDocument::New()
{
    m_grid.ClearAll();
    m_path.clear();
    m_modified = false;
}

bool CLayoutDocument::Open(const QString& path)
{
    // The file is read and judged before the layout is touched, so a file that is no
    // layout loses nothing.
    CLayoutFile file(m_board, m_messenger);
    QString text;
    if (!file.ReadText(path, text)) {
        m_error = file.ErrorString();
        return false;
    }
    m_grid.ClearAll();
    file.Read(m_grid, text);
    m_path = QFileInfo(path).absoluteFilePath();
    m_modified = false;
    return true;
}

bool CLayoutDocument::SaveAs(const QString& path)
{
    if (!CLayoutFile(m_board, m_messenger).Save(m_grid, path))
        return false;
    m_path = QFileInfo(path).absoluteFilePath();
    m_modified = false;
    return true;
}
