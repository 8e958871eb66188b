#include "boardchooser.h"

#include "boardinfo.h"
#include "folderpath.h"
#include "messenger.h"
#include "settings.h"
#include "stringtable.h"

#include <QDir>
#include <QFileInfo>

CBoardChooser::CBoardChooser(const QString& targetFolder, IMessenger& messenger)
    : m_targetFolder(targetFolder), m_messenger(messenger)
{
}

QString CBoardChooser::Choose(const CSettings& settings, CBoardInfo& board)
{
    const QDir target(m_targetFolder);
    if (const QString saved = settings.GetTarget(); !saved.isEmpty()) {
        if (TryBoard(saved, board))
            return target.filePath(saved);
    }
    if (settings.GetTargets().isEmpty()) {
        m_messenger.Message(CStringTable::Get(Ids::MsgInvalidSetting), EButtons::Ok, EIcon::Stop);
        return QString();
    }
    for (const QString& candidate : settings.GetTargets())
        if (TryBoard(candidate, board))
            return target.filePath(candidate);
    return QString();
}

bool CBoardChooser::TryBoard(const QString& name, CBoardInfo& board)
{
    // A board is a folder of TARGET: a name that leads elsewhere (an absolute path, "..")
    // is no board, whatever lies there.
    return StaysInsideFolder(name) && TryFolder(QDir(m_targetFolder).filePath(name), board);
}

bool CBoardChooser::TryFolder(const QString& folder, CBoardInfo& board)
{
    return QFileInfo(folder).isDir() && board.Read(folder, QString(), m_messenger);
}
