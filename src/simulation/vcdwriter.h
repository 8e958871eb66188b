#pragma once

#include <QString>

class CAvrSimulator;
class CSimRun;
class CSimSignals;

// Writes a finished run as a VCD file that a waveform viewer opens: every pin of the board
// under "pins", and every input and output panel under "panels" by its name (the same wave
// as its pin), and under "grid" the map's values the run sampled. Time in nanoseconds. False, with
// why, when the file cannot be written.
bool WriteVcd(const QString& path, const CAvrSimulator& sim, const CSimRun& run,
              const CSimSignals& signals, QString& why);
