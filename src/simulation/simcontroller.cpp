#include "simcontroller.h"

#include "avrsimulator.h"

#include <QFile>

#include <chrono>
#include <deque>

namespace {

using Clock = std::chrono::steady_clock;

// A run of the engine between two looks at the commands: short enough that Stop and inputs
// take effect at once, long enough that the looks cost nothing.
constexpr double kSliceMs = 2.0;
// A frame for the view at least this often, in wall time.
constexpr auto kFrameEvery = std::chrono::milliseconds(15);
// When the engine falls this far behind the wall clock, it stops trying to catch up.
constexpr double kMaxLagMs = 100.0;

} // namespace

class CSimController::CWorker
{
  public:
    CWorker(const CSimTarget& target, const CSimMap& map) : Sim(target), Map(map) {}

    void Run(const CSimController& owner, bool paced);
    void Publish(bool running, const QString& error = QString());

    CAvrSimulator Sim;
    const CSimMap Map;
    std::atomic<bool> StopNow{false};
    std::atomic<int> Steps{0};

    mutable std::mutex Lock; // guards everything below
    std::deque<std::function<void(CAvrSimulator&)>> Commands;
    CPanelStateFrame Latest;
    QList<QPair<double, char>> Serial;
    std::size_t SerialSeen = 0;
};

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

void CSimController::CWorker::Publish(bool running, const QString& error)
{
    CPanelStateFrame frame = MakePanelStateFrame(Sim, Map);
    frame.Running = running;
    frame.Error = error;
    const std::string& sent = Sim.UartOutput();
    const std::lock_guard<std::mutex> guard(Lock);
    for (; SerialSeen < sent.size(); ++SerialSeen)
        Serial.append({frame.Ms, sent[SerialSeen]});
    frame.Paused = Latest.Paused;
    Latest = std::move(frame);
}

void CSimController::CWorker::Run(const CSimController& owner, bool paced)
{
    double baseMs = Sim.NowMs();
    Clock::time_point baseWall = Clock::now();
    double speed = owner.Speed();
    Clock::time_point lastFrame = Clock::now();
    bool wasPaused = false;
    Publish(true);
    while (!StopNow) {
        {
            std::deque<std::function<void(CAvrSimulator&)>> commands;
            {
                const std::lock_guard<std::mutex> guard(Lock);
                commands.swap(Commands);
                Latest.Paused = owner.IsPaused();
            }
            for (const auto& command : commands)
                command(Sim);
        }
        // A new speed, or the end of a pause, starts the pacing afresh from now.
        const bool paused = owner.IsPaused();
        if (speed != owner.Speed() || paused != wasPaused) {
            speed = owner.Speed();
            baseMs = Sim.NowMs();
            baseWall = Clock::now();
            wasPaused = paused;
        }
        double untilMs = Sim.NowMs();
        if (paused) {
            if (Steps > 0) {
                --Steps;
                untilMs += kStepMs;
            }
        } else if (!paced) {
            untilMs += kSliceMs;
        } else {
            const double wallMs =
                std::chrono::duration<double, std::milli>(Clock::now() - baseWall).count();
            untilMs = std::min(baseMs + wallMs * speed, Sim.NowMs() + kSliceMs * speed);
            if (baseMs + wallMs * speed - Sim.NowMs() > kMaxLagMs) {
                baseMs = Sim.NowMs();
                baseWall = Clock::now();
            }
        }
        if (untilMs > Sim.NowMs()) {
            if (!Sim.RunMs(untilMs - Sim.NowMs())) {
                Publish(false, QString::fromStdString(Sim.Error()));
                return;
            }
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (Clock::now() - lastFrame >= kFrameEvery) {
            Publish(true);
            lastFrame = Clock::now();
        }
    }
    Publish(false);
}

CSimController::CSimController() = default;

CSimController::~CSimController()
{
    Stop();
}

bool CSimController::Start(const CSimTarget& target, const QString& hexPath, const CSimMap& map,
                           QString& why, bool paced)
{
    Stop();
    m_worker = std::make_unique<CWorker>(target, map);
    if (!m_worker->Sim.Load(QFile::encodeName(hexPath).toStdString())) {
        why = QString::fromStdString(m_worker->Sim.Error());
        m_worker.reset();
        return false;
    }
    m_thread = std::thread([this, paced] { m_worker->Run(*this, paced); });
    return true;
}

void CSimController::Stop()
{
    if (m_thread.joinable()) {
        m_worker->StopNow = true;
        m_thread.join();
    }
}

void CSimController::SetSpeed(double factor)
{
    m_speed = std::clamp(factor, 0.1, 10.0);
}

void CSimController::SetPaused(bool paused)
{
    m_paused = paused;
}

void CSimController::Step()
{
    if (m_worker && m_paused)
        ++m_worker->Steps;
}

CPanelStateFrame CSimController::Frame() const
{
    if (!m_worker)
        return {};
    const std::lock_guard<std::mutex> guard(m_worker->Lock);
    return m_worker->Latest;
}

void CSimController::Post(std::function<void(CAvrSimulator&)> command)
{
    if (!m_worker)
        return;
    const std::lock_guard<std::mutex> guard(m_worker->Lock);
    m_worker->Commands.push_back(std::move(command));
}

void CSimController::SetInput(int pin, bool high)
{
    Post([pin, high](CAvrSimulator& sim) { sim.SetInput(pin, high); });
}

void CSimController::SetReading(int channel, int reading)
{
    Post([channel, reading](CAvrSimulator& sim) { sim.SetAnalogReading(channel, reading); });
}

void CSimController::SendSerial(const QByteArray& bytes)
{
    Post([text = bytes.toStdString()](CAvrSimulator& sim) { sim.SendUart(text); });
}

QList<QPair<double, char>> CSimController::TakeSerial()
{
    if (!m_worker)
        return {};
    const std::lock_guard<std::mutex> guard(m_worker->Lock);
    return std::exchange(m_worker->Serial, {});
}
