#pragma once

#include "portlist.h"

#include <QStringList>

// What the "PWM Setting" dialog does with a PWM panel's tokens. The frequency limits are
// the board's; a board that gives none leaves the ones every board can do.
class CPwmDialogLogic
{
  public:
    static constexpr int kDutyFields = 15;
    static constexpr int kDefaultLowFreq = 10;
    static constexpr int kDefaultHighFreq = 81920;

    CPwmDialogLogic(const QStringList& tokens, const CPortList& ports, int lowFreq = 0,
                    int highFreq = 0);

    // The duty field to select, -1 when there is none.
    int WrongField() const;
    bool IsFrequencyValid() const;
    // Whether the frequency field is to be selected.
    bool IsFrequencyWrong() const;
    bool IsOkEnabled() const;
    QStringList Tokens() const;

    QStringList Ports;
    int Port = -1;
    QString Frequency;
    QStringList Duties; // always kDutyFields texts
    int LowFreq = kDefaultLowFreq;
    int HighFreq = kDefaultHighFreq;
};
