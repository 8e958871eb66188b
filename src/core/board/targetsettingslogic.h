#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class CBoardInfo;
class CSettings;

// What the "Target CPU Setting" dialog does: offers the installed candidate boards, the
// chosen board's clock sources and, for a board with a network, its addresses. A changed
// board is only stored; the board in use stays until the program starts again.
class CTargetSettingsLogic
{
  public:
    struct CCandidate
    {
        QString Name;        // the folder name, as the "Target%d" list holds it
        QString DisplayName; // the board's own name
        int Index = -1;      // position in the candidate list
    };

    // The board in use decides what shows until a candidate is chosen.
    CTargetSettingsLogic(const CSettings& settings, const QString& targetFolder,
                         const CBoardInfo& inUse);

    const QList<CCandidate>& Candidates() const { return m_candidates; }
    // Chooses a listed board and takes its default clock source and network flag.
    void SelectTarget(int entry);
    // True when OK has to ask before storing another board.
    bool ChangesBoard() const;
    // Stores everything; the board only when keepNewBoard. Does not save.
    void Apply(CSettings& settings, bool keepNewBoard) const;

    int Target = -1; // entry in Candidates()
    QStringList ClockSources;
    int Clock = -1;
    bool ShowsNetwork = false;
    quint32 IPAddress = 0;
    quint32 IPMask = 0;

    // "192.168.0.10" and back; an address that does not read gives false.
    static QString AddressText(quint32 address);
    static bool ReadAddress(const QString& text, quint32& address);

  private:
    QString m_targetFolder;
    QString m_currentName;
    QList<CCandidate> m_candidates;
};
