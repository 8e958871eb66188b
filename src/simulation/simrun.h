#pragma once

#include "pinchange.h"
#include "simvectors.h"

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

class CAvrSimulator;
class CSimSignals;

// One headless run of a loaded program: the events played at their times, each expectation
// checked when its time comes, up to an end time. What the inputs did is kept, so the run
// can be told as output changes or written as waveforms afterwards.
class CSimRun
{
  public:
    CSimRun(CAvrSimulator& sim, const CSimSignals& signals) : m_sim(sim), m_signals(signals) {}

    // False at the first expectation that does not hold, or when the program stops; Error()
    // says which output, when, what was expected and what was seen.
    bool Run(const QList<CSimVectors::CEvent>& events, double endMs);
    const QString& Error() const { return m_error; }

    // Every change of an output panel's pin, in time order: "1.000312 s  red (O_09, PD2) 1".
    QStringList TraceLines() const;
    // The levels this run gave the inputs, by pin; a pin not in here was left floating.
    const std::map<int, std::vector<CPinChange>>& InputChanges() const { return m_inputs; }

    static QString TimeText(double ms);

  private:
    bool Play(const CSimVectors::CEvent& event);

    CAvrSimulator& m_sim;
    const CSimSignals& m_signals;
    QString m_error;
    std::map<int, std::vector<CPinChange>> m_inputs;
};
