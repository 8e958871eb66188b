#pragma once

#include <QList>
#include <QString>

// One port of the board that a panel may be assigned to. The alias is the board's own
// label for the pin (D2 for PD2); it only changes how the port is shown.
struct CPortEntry
{
    QString Id;
    QString Name;
    QString Alias;

    bool operator==(const CPortEntry&) const = default;
};

// The board ports a panel may use, in the order the board lists them.
class CPortList
{
  public:
    void Add(const CPortEntry& entry) { m_entries.append(entry); }
    void Clear() { m_entries.clear(); }

    int GetCount() const { return int(m_entries.size()); }
    // Index of the port called name, -1 when the list has no such port.
    int IndexOf(const QString& name) const;
    // Name at index, "" out of range (a dialog closed with no port selected asks for -1).
    QString GetAt(int index) const;
    const CPortEntry& GetEntry(int index) const { return m_entries.at(index); }
    // The one name of a list that holds exactly one port, else "".
    QString GetSingle() const;
    // How a port is shown to the user: "PD2(D2)" when the board gives the pin a label of
    // its own, else the name as it stands (also for a name the list does not hold).
    QString DisplayName(const QString& name) const;

    bool operator==(const CPortList&) const = default;

  private:
    QList<CPortEntry> m_entries;
};
