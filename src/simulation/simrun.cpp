#include "simrun.h"

#include "avrsimulator.h"
#include "layoutfile.h"
#include "simmap.h"
#include "simsignals.h"
#include "stringtable.h"

#include <algorithm>

namespace {

// Bytes as a person reads them: printable ASCII as it is, the rest as C escapes.
QString Shown(const QByteArray& bytes)
{
    QString text = QStringLiteral("\"");
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == '\r')
            text += QStringLiteral("\\r");
        else if (byte == '\n')
            text += QStringLiteral("\\n");
        else if (byte == '"' || byte == '\\')
            text += u'\\' + QChar(byte);
        else if (byte >= 0x20 && byte < 0x7F)
            text += QChar(byte);
        else
            text += QStringLiteral("\\x%1").arg(byte, 2, 16, QChar(u'0'));
    }
    return text + u'"';
}

} // namespace

QString CSimRun::TimeText(double ms)
{
    return QString::number(ms / 1000.0, 'f', 6) + QStringLiteral(" s");
}

bool CSimRun::Run(const QList<CSimVectors::CEvent>& events, double endMs)
{
    if (m_map && m_waves.empty()) {
        // A net is listed at every pin it reaches: its first place names it.
        for (const CSimMap::CEntry& entry : m_map->Entries())
            if (std::none_of(m_waves.begin(), m_waves.end(),
                             [&](const CWave& wave) { return wave.Address == entry.Address; }))
                m_waves.push_back({CLayoutFile::PositionText(entry.Cell) + u'_' + entry.Item,
                                   entry.Item.size() == 1 ? 1 : 8 * entry.Bytes,
                                   entry.Address,
                                   {}});
        Sample();
    }
    for (const CSimVectors::CEvent& event : events)
        if (!RunTo(event.Ms) || !Play(event))
            return false;
    return RunTo(endMs);
}

bool CSimRun::RunTo(double ms)
{
    while (ms > m_sim.NowMs()) {
        const double step = m_map ? std::min(1.0, ms - m_sim.NowMs()) : ms - m_sim.NowMs();
        if (m_sim.Ms(step) == 0)
            break;
        if (!m_sim.RunMs(step)) {
            m_error = CStringTable::Format(
                Ids::SimStopped, {TimeText(m_sim.NowMs()), QString::fromStdString(m_sim.Error())});
            return false;
        }
        if (m_map)
            Sample();
    }
    return true;
}

void CSimRun::Sample()
{
    for (CWave& wave : m_waves) {
        const std::uint32_t value = m_sim.ReadRam(wave.Address, wave.Bits == 1 ? 1 : wave.Bits / 8);
        const std::uint32_t shown = wave.Bits == 1 ? std::uint32_t(value != 0) : value;
        if (wave.Changes.empty() || wave.Changes.back().second != shown)
            wave.Changes.push_back({m_sim.Cycle(), shown});
    }
}

bool CSimRun::Play(const CSimVectors::CEvent& event)
{
    using E = CSimVectors::CEvent;
    const auto mismatch = [&](const QString& expected, const QString& seen) {
        m_error = CStringTable::Format(Ids::SimMismatch,
                                       {TimeText(m_sim.NowMs()), event.Name, expected, seen});
        return false;
    };
    switch (event.Kind) {
    case E::SetLevel:
        m_sim.SetInput(event.Pin, event.Value != 0);
        m_inputs[event.Pin].push_back({m_sim.Cycle(), event.Value != 0});
        return true;
    case E::SetReading:
        m_sim.SetAnalogReading(event.Channel, event.Value);
        return true;
    case E::SendSerial:
        m_sim.SendUart(event.Text.toStdString());
        return true;
    case E::ExpectLevel: {
        const int seen = m_sim.Level(event.Pin) ? 1 : 0;
        return seen == event.Value || mismatch(QString::number(event.Value), QString::number(seen));
    }
    case E::ExpectSerial: {
        const QByteArray seen = QByteArray::fromStdString(m_sim.UartOutput());
        m_sim.ClearUartOutput();
        return seen == event.Text || mismatch(Shown(event.Text), Shown(seen));
    }
    case E::ExpectLcd: {
        const QByteArray seen = QByteArray::fromStdString(m_sim.LcdLine(event.Value - 1));
        const QByteArray expected = event.Text.leftJustified(seen.size(), ' ');
        return seen == expected || mismatch(Shown(event.Text), Shown(seen));
    }
    }
    return true;
}

QStringList CSimRun::TraceLines() const
{
    struct CLine
    {
        std::uint64_t Cycle;
        QString Text;
    };
    std::vector<CLine> lines;
    for (const CSimSignals::CSignal* signal : m_signals.Outputs()) {
        const QString who = signal->Name + QStringLiteral(" (") + signal->Cell +
                            QStringLiteral(", ") + signal->Port + QStringLiteral(") ");
        for (const CPinChange& change : m_sim.Trace(signal->Pin).Changes())
            lines.push_back(
                {change.Cycle,
                 TimeText(double(change.Cycle) * 1000.0 / double(m_sim.Target().ClockHz)) +
                     QStringLiteral("  ") + who + QString::number(change.High ? 1 : 0)});
    }
    std::stable_sort(lines.begin(), lines.end(),
                     [](const CLine& a, const CLine& b) { return a.Cycle < b.Cycle; });
    QStringList text;
    for (const CLine& line : lines)
        text.append(line.Text);
    return text;
}
