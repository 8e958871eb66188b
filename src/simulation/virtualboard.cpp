#include "virtualboard.h"

#include "avrsimulator.h"

#include <QFile>

#include <algorithm>
#include <chrono>
#include <thread>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>
#endif

bool CVirtualBoard::Open(const CSimTarget& target, const QString& bootLoaderHex,
                         quint32 bootAddress, QString& why)
{
    Close();
    m_target = target;
    m_bootLoader = bootLoaderHex;
    m_bootAddress = bootAddress;
    if (!QFile::exists(bootLoaderHex)) {
        why = bootLoaderHex + QStringLiteral(": no boot loader");
        return false;
    }
#ifdef Q_OS_UNIX
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0) {
        why = QStringLiteral("no pseudo-terminal: ") + QString::fromLocal8Bit(strerror(errno));
        Close();
        return false;
    }
    m_port = QString::fromLocal8Bit(ptsname(m_master));
    // The terminal reports a hang-up only once its line has been opened and closed: it is,
    // so the first program that opens it is seen as one.
    const int line = ::open(ptsname(m_master), O_RDWR | O_NOCTTY);
    if (line >= 0)
        ::close(line);
    // The line passes bytes as they are, in both directions.
    termios settings{};
    if (tcgetattr(m_master, &settings) == 0) {
        cfmakeraw(&settings);
        tcsetattr(m_master, TCSANOW, &settings);
    }
    return true;
#else
    why = QStringLiteral("a virtual board needs pseudo-terminals");
    return false;
#endif
}

void CVirtualBoard::Close()
{
#ifdef Q_OS_UNIX
    if (m_master >= 0)
        ::close(m_master);
#endif
    m_master = -1;
}

bool CVirtualBoard::Run(const std::atomic<bool>& stop, double forMs,
                        const std::function<void(double, int, bool)>& changed, QString& why)
{
#ifdef Q_OS_UNIX
    CAvrSimulator sim(m_target);
    if (!sim.Load(QFile::encodeName(m_bootLoader).toStdString())) {
        why = QString::fromStdString(sim.Error());
        return false;
    }
    sim.SetResetAddress(m_bootAddress);
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    bool opened = false;
    std::size_t sent = 0;
    Clock::time_point lastFrame = start;
    // Each pin's changes up to this cycle have been told.
    std::vector<std::uint64_t> told(std::size_t(m_target.PinCount()), 0);
    const auto wallMs = [&] {
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    };
    // A board runs at real time, so its time is the wall clock's, also while it stands still.
    while (!stop && (forMs < 0 || wallMs() < forMs)) {
        // No program holds the line while the terminal reports a hang-up; one that opens it
        // resets the board into its boot loader.
        pollfd line{m_master, POLLIN, 0};
        poll(&line, 1, 0);
        const bool open = !(line.revents & POLLHUP);
        if (open && !opened) {
            sim.ResetExternal();
            sim.ClearUartOutput();
            sent = 0;
        }
        opened = open;
        if (open && (line.revents & POLLIN)) {
            char bytes[256];
            const ssize_t count = ::read(m_master, bytes, sizeof bytes);
            if (count > 0)
                sim.SendUart(std::string(bytes, std::size_t(count)));
        }
        // Real time: the writer on the other end waits in real time too.
        const double now = wallMs();
        if (sim.NowMs() >= now) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
            continue;
        }
        // A board whose program ran wild stands still until the line resets it, as a real
        // one does: its time goes on.
        if (!sim.IsRunning() || !sim.RunMs(std::min(1.0, now - sim.NowMs()))) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            continue;
        }
        const std::string& out = sim.UartOutput();
        if (sent < out.size() && open) {
            const ssize_t written = ::write(m_master, out.data() + sent, out.size() - sent);
            if (written > 0)
                sent += std::size_t(written);
        }
        if (!open)
            sent = out.size();
        // Each change is told once.
        for (int pin = 0; changed && pin < m_target.PinCount(); ++pin) {
            const std::vector<CPinChange>& changes = sim.Trace(pin).Changes();
            std::uint64_t& last = told[std::size_t(pin)];
            // The trace keeps a window of changes: only those after the last one told are
            // looked at, so a fast pin costs nothing per slice but its new changes.
            auto next = std::partition_point(changes.begin(), changes.end(),
                                             [&](const CPinChange& c) { return c.Cycle <= last; });
            for (; next != changes.end(); ++next) {
                last = next->Cycle;
                changed(double(next->Cycle) * 1000.0 / double(m_target.ClockHz), pin, next->High);
            }
        }
        // Commands from the view, and a frame for it; the frame keeps only a window of the
        // traces, so a board that runs for hours holds no more.
        RunCommands(sim);
        if (Clock::now() - lastFrame >= std::chrono::milliseconds(15)) {
            lastFrame = Clock::now();
            CPanelStateFrame frame;
            {
                const std::lock_guard<std::mutex> guard(m_mapLock);
                frame = MakePanelStateFrame(sim, m_map);
            }
            frame.Running = true;
            Publish(std::move(frame), sim.UartOutput());
        }
    }
    return true;
#else
    Q_UNUSED(stop);
    Q_UNUSED(forMs);
    Q_UNUSED(changed);
    why = QStringLiteral("a virtual board needs pseudo-terminals");
    return false;
#endif
}

void CVirtualBoard::SetMap(const CSimMap& map)
{
    const std::lock_guard<std::mutex> guard(m_mapLock);
    m_map = map;
}
