#pragma once

#include "commandline.h"

#include <QString>

#include <functional>

class IBuildLog;
class QProcess;

// What became of one external program.
struct CProcessResult
{
    bool Started = false;
    // The program's exit code; StillRunning when it outlived the watch.
    int ExitCode = -1;
    bool Crashed = false;
    // Why a program did not start, as the system numbers it (2: not found, 13 or 5: denied,
    // 8: no program the system can run) and says it.
    int SystemError = 0;
    QString SystemReason;

    enum
    {
        StillRunning = 259
    };
    bool Succeeded() const { return Started && !Crashed && ExitCode == 0; }
};

// A user's wish to stop the work under way. Whoever runs a program lets the request stop it
// at once; the steps after it ask IsRequested() and do not begin.
class CStopRequest
{
  public:
    void Request()
    {
        m_requested = true;
        if (m_stopRunning)
            m_stopRunning();
    }
    bool IsRequested() const { return m_requested; }
    // What ends the program that runs now; cleared when it has ended.
    void SetStopRunning(std::function<void()> stop) { m_stopRunning = std::move(stop); }

  private:
    bool m_requested = false;
    std::function<void()> m_stopRunning;
};

// Runs a command line in a folder without blocking the event loop: the program's output
// reaches the sink line by line while it runs, and the window keeps repainting.
class CProcessRunner
{
  public:
    using COutputSink = std::function<void(const QString& line)>;

    explicit CProcessRunner(COutputSink sink = nullptr, CStopRequest* stop = nullptr)
        : m_sink(std::move(sink)), m_stop(stop)
    {
    }

    // Waits for the program to end, however long it takes.
    CProcessResult Run(const CCommandLine& command, const QString& folder);
    // Reads the program's state every interval, at most `readings` times; a program still
    // running then is left to finish on its own and reported as StillRunning.
    CProcessResult Watch(const CCommandLine& command, const QString& folder, int readings,
                         int intervalMs);
    // Starts the program and does not wait for it.
    CProcessResult Launch(const CCommandLine& command, const QString& folder);

    // The system's error number for a program that could not be started.
    static int StartError(const QString& program);

  private:
    QProcess* Start(const CCommandLine& command, const QString& folder, CProcessResult& result);

    COutputSink m_sink;
    CStopRequest* m_stop;
};

// Logs that a program could not be started: the error line with the program's name and
// the system's number, then the system's own words for it.
void LogStartFailure(IBuildLog& log, const QString& name, const CProcessResult& result);
