#pragma once

#include "portlist.h"

#include <QStringList>

// "Buzzer Setting": the port and which of 2000, 1000 and 500 Hz sound.
class CBuzzerDialogLogic
{
  public:
    enum EFrequency
    {
        Freq2000,
        Freq1000,
        Freq500,
        FrequencyCount
    };

    CBuzzerDialogLogic(const QStringList& tokens, const CPortList& ports);

    static QString FrequencyText(EFrequency frequency);

    int GetPortIndex() const { return m_portIndex; }
    void SetPortIndex(int index) { m_portIndex = index; }
    bool IsChecked(EFrequency frequency) const { return m_checked[frequency]; }
    void SetChecked(EFrequency frequency, bool on) { m_checked[frequency] = on; }

    bool IsOkEnabled() const;
    // "BUZZ", the port, then the checked frequencies from the highest.
    QStringList Tokens() const;

  private:
    const CPortList& m_ports;
    int m_portIndex = -1;
    bool m_checked[FrequencyCount] = {};
};
