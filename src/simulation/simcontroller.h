#pragma once

#include "panelstatesource.h"
#include "simmap.h"
#include "simtarget.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

// Runs a HEX file in the simulation engine on a thread of its own, so the editor never
// waits for it: at real time or a multiple of it (0.1 to 10), paused, or one scan at a time.
// Simulated time is the engine's cycle count at the board's clock; wall time only paces it.
// Every input is handed over between two short runs, so Stop returns within a few ms.
class CSimController : public CStateExchange
{
  public:
    // The length of one step: one scan of the board's program.
    static constexpr double kStepMs = 1.0;

    CSimController();
    ~CSimController();
    CSimController(const CSimController&) = delete;
    CSimController& operator=(const CSimController&) = delete;

    // Loads the program and starts it; false with why (in the engine's words) when it
    // cannot run. paced false runs as fast as the engine can (a benchmark's way).
    bool Start(const CSimTarget& target, const QString& hexPath, const CSimMap& map, QString& why,
               bool paced = true);
    void Stop();
    bool IsRunning() const { return m_thread.joinable(); }

    void SetSpeed(double factor);
    double Speed() const { return m_speed; }
    void SetPaused(bool paused);
    bool IsPaused() const { return m_paused; }
    // While paused: runs one more scan.
    void Step();

    class CWorker;

  private:
    std::unique_ptr<CWorker> m_worker;
    std::thread m_thread;
    std::atomic<double> m_speed{1.0};
    std::atomic<bool> m_paused{false};
};
