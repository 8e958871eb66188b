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
    CWorker(const CSimTarget& target, const CSimMap& map, CStateExchange& exchange)
        : Sim(target), Map(map), Exchange(exchange)
    {
    }

    void Run(const CSimController& owner, bool paced);
    void Publish(const CSimController& owner, bool running, const QString& error = QString());

    CAvrSimulator Sim;
    const CSimMap Map;
    std::atomic<bool> StopNow{false};
    std::atomic<int> Steps{0};

    CStateExchange& Exchange;
};

void CSimController::CWorker::Publish(const CSimController& owner, bool running,
                                      const QString& error)
{
    CPanelStateFrame frame = MakePanelStateFrame(Sim, Map);
    frame.Running = running;
    frame.Paused = owner.IsPaused();
    frame.Error = error;
    Exchange.Publish(std::move(frame), Sim.UartOutput());
}

void CSimController::CWorker::Run(const CSimController& owner, bool paced)
{
    double baseMs = Sim.NowMs();
    Clock::time_point baseWall = Clock::now();
    double speed = owner.Speed();
    Clock::time_point lastFrame = Clock::now();
    bool wasPaused = false;
    Publish(owner, true);
    while (!StopNow) {
        Exchange.RunCommands(Sim);
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
                Publish(owner, false, QString::fromStdString(Sim.Error()));
                return;
            }
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (Clock::now() - lastFrame >= kFrameEvery) {
            Publish(owner, true);
            lastFrame = Clock::now();
        }
    }
    Publish(owner, false);
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
    Reset();
    m_worker = std::make_unique<CWorker>(target, map, *this);
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
