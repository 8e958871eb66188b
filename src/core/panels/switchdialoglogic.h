#pragma once

#include "portlist.h"

#include <QString>
#include <QStringList>

// "Switch Setting" of the switch and the lamp: name, port and active level.
class CSwitchDialogLogic
{
  public:
    // The switch hands its comment as the first name; the lamp hands none. A name in
    // token 3 wins either way.
    CSwitchDialogLogic(const QStringList& tokens, const CPortList& ports,
                       const QString& initialName = QString());

    // "H" and "L", in list order.
    static QStringList Levels();

    QString GetName() const { return m_name; }
    void SetName(const QString& name) { m_name = name; }
    // -1 when no port is selected.
    int GetPortIndex() const { return m_portIndex; }
    void SetPortIndex(int index) { m_portIndex = index; }
    // -1 when the line names a level that is neither.
    int GetLevelIndex() const { return m_levelIndex; }
    void SetLevelIndex(int index) { m_levelIndex = index; }

    bool IsNameValid() const;
    bool IsOkEnabled() const { return IsNameValid(); }
    // Level, port and ";name" written in place into tokens 1 to 3.
    QStringList Tokens() const;

  private:
    QStringList m_tokens;
    const CPortList& m_ports;
    QString m_name;
    int m_portIndex = -1;
    int m_levelIndex = 0;
};
