#include "vcdwriter.h"

#include "avrsimulator.h"
#include "simrun.h"
#include "simsignals.h"
#include "stringtable.h"

#include <QFile>
#include <QSaveFile>

#include <map>

namespace {

// VCD names each wave with a short code of printable characters.
QByteArray Code(int index)
{
    QByteArray code;
    do {
        code += char('!' + index % 94);
        index /= 94;
    } while (index > 0);
    return code;
}

// A name as one VCD word.
QByteArray Word(const QString& name)
{
    QByteArray word = name.toUtf8();
    word.replace(' ', '_');
    return word.isEmpty() ? QByteArray("_") : word;
}

} // namespace

bool WriteVcd(const QString& path, const CAvrSimulator& sim, const CSimRun& run,
              const CSimSignals& signals, QString& why)
{
    const CSimTarget& target = sim.Target();
    const auto ns = [&](std::uint64_t cycle) {
        return QByteArray::number(qulonglong(cycle * 1000000000ull / target.ClockHz));
    };
    QByteArray out = "$version Quillon $end\n$timescale 1ns $end\n$scope module pins $end\n";
    for (int pin = 0; pin < target.PinCount(); ++pin) {
        const CSimTarget::CPin& place = target.Pins[pin];
        out += "$var wire 1 " + Code(pin) + " P" + place.Port + QByteArray::number(place.Bit) +
               " $end\n";
    }
    out += "$upscope $end\n$scope module panels $end\n";
    for (const CSimSignals::CSignal& signal : signals.All())
        if (!signal.Cell.isEmpty())
            out += "$var wire 1 " + Code(signal.Pin) + " " + Word(signal.Name) + " $end\n";
    // The panels inside the grid, as the map names them, after the pins' codes.
    const int firstWave = target.PinCount();
    if (!run.Waves().empty()) {
        out += "$upscope $end\n$scope module grid $end\n";
        for (std::size_t i = 0; i < run.Waves().size(); ++i) {
            const CSimRun::CWave& wave = run.Waves()[i];
            out += "$var wire " + QByteArray::number(wave.Bits) + " " + Code(firstWave + int(i)) +
                   " " + Word(wave.Name) + " $end\n";
        }
    }
    out += "$upscope $end\n$enddefinitions $end\n";

    // Each pin's changes: an output's from its trace, an input's as the run set it; a pin
    // that is neither stays high-impedance.
    std::map<std::uint64_t, QByteArray> changes;
    QByteArray initial;
    for (int pin = 0; pin < target.PinCount(); ++pin) {
        const auto input = run.InputChanges().find(pin);
        const std::vector<CPinChange>& list =
            input != run.InputChanges().end() ? input->second : sim.Trace(pin).Changes();
        const bool touched = input != run.InputChanges().end() || !list.empty();
        initial += (touched ? "0" : "z") + Code(pin) + "\n";
        for (const CPinChange& change : list)
            changes[change.Cycle] += (change.High ? "1" : "0") + Code(pin) + "\n";
    }
    for (std::size_t i = 0; i < run.Waves().size(); ++i) {
        const CSimRun::CWave& wave = run.Waves()[i];
        for (const auto& [cycle, value] : wave.Changes) {
            const QByteArray bits = wave.Bits == 1 ? QByteArray::number(value)
                                                   : "b" + QByteArray::number(value, 2) + " ";
            (cycle == 0 ? initial : changes[cycle]) += bits + Code(firstWave + int(i)) + "\n";
        }
    }
    out += "#0\n$dumpvars\n" + initial + "$end\n";
    for (const auto& [cycle, lines] : changes)
        out += "#" + ns(cycle) + "\n" + lines;
    out += "#" + ns(sim.Cycle()) + "\n";

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(out) != out.size() || !file.commit()) {
        why = CStringTable::Format(Ids::SimVcdNotWritten, {path, file.errorString()});
        return false;
    }
    return true;
}
