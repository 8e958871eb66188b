#include "panelstatesource.h"

#include "avrsimulator.h"
#include "simmap.h"

#include <algorithm>

CPanelStateFrame MakePanelStateFrame(CAvrSimulator& sim, const CSimMap& map)
{
    CPanelStateFrame frame;
    frame.Ms = sim.NowMs();
    // Only the window the frame measures is kept of the pins' traces.
    const double from = std::max(0.0, frame.Ms - CPanelStateFrame::kWindowMs);
    sim.ForgetBefore(sim.Ms(from));
    for (int pin = 0; pin < sim.Target().PinCount(); ++pin) {
        frame.Pins.push_back(sim.Level(pin));
        frame.Duty.push_back(float(sim.Duty(pin, from, frame.Ms)));
        frame.Hz.push_back(frame.Ms > from
                               ? float(sim.Pulses(pin, from, frame.Ms) * 1000.0 / (frame.Ms - from))
                               : 0.0f);
    }
    frame.Values.reserve(std::size_t(map.Entries().size()));
    for (const CSimMap::CEntry& entry : map.Entries())
        frame.Values.push_back(sim.ReadRam(entry.Address, entry.Bytes));
    frame.Segments = sim.Segments();
    for (int digit = 0; digit < 4; ++digit)
        frame.Digits[digit] = sim.Digit(digit);
    frame.Lcd[0] = sim.LcdLine(0);
    frame.Lcd[1] = sim.LcdLine(1);
    return frame;
}

CPanelStateFrame CStateExchange::Frame() const
{
    const std::lock_guard<std::mutex> guard(m_lock);
    return m_frame;
}

void CStateExchange::SetInput(int pin, bool high)
{
    const std::lock_guard<std::mutex> guard(m_lock);
    m_commands.push_back([pin, high](CAvrSimulator& sim) { sim.SetInput(pin, high); });
}

void CStateExchange::SetReading(int channel, int reading)
{
    const std::lock_guard<std::mutex> guard(m_lock);
    m_commands.push_back(
        [channel, reading](CAvrSimulator& sim) { sim.SetAnalogReading(channel, reading); });
}

void CStateExchange::SendSerial(const QByteArray& bytes)
{
    const std::lock_guard<std::mutex> guard(m_lock);
    m_commands.push_back([text = bytes.toStdString()](CAvrSimulator& sim) { sim.SendUart(text); });
}

QList<QPair<double, char>> CStateExchange::TakeSerial()
{
    const std::lock_guard<std::mutex> guard(m_lock);
    return std::exchange(m_serial, {});
}

void CStateExchange::RunCommands(CAvrSimulator& sim)
{
    std::deque<std::function<void(CAvrSimulator&)>> commands;
    {
        const std::lock_guard<std::mutex> guard(m_lock);
        commands.swap(m_commands);
    }
    for (const auto& command : commands)
        command(sim);
}

void CStateExchange::Publish(CPanelStateFrame frame, const std::string& sent)
{
    const std::lock_guard<std::mutex> guard(m_lock);
    if (sent.size() < m_serialSeen)
        m_serialSeen = 0;
    for (; m_serialSeen < sent.size(); ++m_serialSeen)
        m_serial.append({frame.Ms, sent[m_serialSeen]});
    m_frame = std::move(frame);
}

void CStateExchange::Reset()
{
    const std::lock_guard<std::mutex> guard(m_lock);
    m_commands.clear();
    m_frame = {};
    m_serial.clear();
    m_serialSeen = 0;
}
