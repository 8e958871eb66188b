#include "targetsettingslogic.h"

#include "boardinfo.h"
#include "folderpath.h"
#include "messenger.h"
#include "settings.h"

#include <QDir>
#include <QFileInfo>

namespace {

// A candidate's faults are no reason to interrupt the dialog: it is listed or left out.
class CSilentMessenger : public IMessenger
{
  public:
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

bool ReadBoard(const QString& folder, CBoardInfo& board)
{
    CSilentMessenger silent;
    return board.Read(folder, QString(), silent);
}

} // namespace

CTargetSettingsLogic::CTargetSettingsLogic(const CSettings& settings, const QString& targetFolder,
                                           const CBoardInfo& inUse)
    : m_targetFolder(targetFolder), m_currentName(settings.GetTarget())
{
    ShowsNetwork = inUse.HasNetwork();
    ClockSources = inUse.GetClockSources();
    IPAddress = settings.GetIPAddress();
    IPMask = settings.GetIPMask();
    const QStringList& names = settings.GetTargets();
    for (int i = 0; i < names.size(); ++i) {
        const QString folder = QDir(targetFolder).filePath(names[i]);
        CBoardInfo board;
        if (!StaysInsideFolder(names[i]) || !QFileInfo(folder).isDir() || !ReadBoard(folder, board))
            continue;
        m_candidates.append({names[i], board.GetBoardName(), i});
        if (names[i] == m_currentName) {
            Target = int(m_candidates.size()) - 1;
            ShowsNetwork = board.HasNetwork();
            ClockSources = board.GetClockSources();
        }
    }
    Clock = settings.GetClockSource();
}

void CTargetSettingsLogic::SelectTarget(int entry)
{
    Target = entry;
    CBoardInfo board;
    if (entry < 0 || entry >= m_candidates.size() ||
        !ReadBoard(QDir(m_targetFolder).filePath(m_candidates[entry].Name), board))
        return;
    ClockSources = board.GetClockSources();
    Clock = board.GetSystemClock();
    ShowsNetwork = board.HasNetwork();
}

bool CTargetSettingsLogic::ChangesBoard() const
{
    return Target >= 0 && Target < m_candidates.size() &&
           m_candidates[Target].Name != m_currentName;
}

void CTargetSettingsLogic::Apply(CSettings& settings, bool keepNewBoard) const
{
    settings.SetClockSource(Clock);
    if (ChangesBoard() && keepNewBoard)
        settings.SetTarget(m_candidates[Target].Name);
    // The addresses are kept even while a board without a network hides them.
    settings.SetIPAddress(IPAddress);
    settings.SetIPMask(IPMask);
}

QString CTargetSettingsLogic::AddressText(quint32 address)
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address >> 24)
        .arg((address >> 16) & 0xFF)
        .arg((address >> 8) & 0xFF)
        .arg(address & 0xFF);
}

bool CTargetSettingsLogic::ReadAddress(const QString& text, quint32& address)
{
    const QStringList parts = text.trimmed().split(u'.');
    if (parts.size() != 4)
        return false;
    quint32 value = 0;
    for (const QString& part : parts) {
        bool ok = false;
        const uint byte = part.toUInt(&ok);
        if (!ok || byte > 255 || part.isEmpty())
            return false;
        value = (value << 8) | byte;
    }
    address = value;
    return true;
}
