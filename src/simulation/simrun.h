#pragma once

#include "pinchange.h"
#include "simvectors.h"

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

class CAvrSimulator;
class CSimMap;
class CSimSignals;

// One headless run of a loaded program: the events played at their times, each expectation
// checked when its time comes, up to an end time. What the inputs did is kept, so the run
// can be told as output changes or written as waveforms afterwards.
class CSimRun
{
  public:
    CSimRun(CAvrSimulator& sim, const CSimSignals& signals) : m_sim(sim), m_signals(signals) {}

    // Reads the map's values after every scan (1 ms) of the run, so the waveforms show the
    // panels inside the grid too: each net once, and every value a person reads.
    void SampleMap(const CSimMap& map) { m_map = &map; }

    // False at the first expectation that does not hold, or when the program stops; Error()
    // says which output, when, what was expected and what was seen.
    bool Run(const QList<CSimVectors::CEvent>& events, double endMs);
    const QString& Error() const { return m_error; }

    // Every change of an output panel's pin, in time order: "1.000312 s  red (O_09, PD2) 1".
    QStringList TraceLines() const;
    // The levels this run gave the inputs, by pin; a pin not in here was left floating.
    const std::map<int, std::vector<CPinChange>>& InputChanges() const { return m_inputs; }
    // One wave a sampled value: its name ("0201_R", "0301_count"), its width in bits and its
    // changes, by the cycle.
    struct CWave
    {
        QString Name;
        int Bits = 1;
        std::uint32_t Address = 0;
        std::vector<std::pair<std::uint64_t, std::uint32_t>> Changes;
    };
    const std::vector<CWave>& Waves() const { return m_waves; }

    static QString TimeText(double ms);

  private:
    bool Play(const CSimVectors::CEvent& event);
    bool RunTo(double ms);
    void Sample();

    CAvrSimulator& m_sim;
    const CSimSignals& m_signals;
    QString m_error;
    std::map<int, std::vector<CPinChange>> m_inputs;
    const CSimMap* m_map = nullptr;
    std::vector<CWave> m_waves;
};
