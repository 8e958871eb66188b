#pragma once

#include <QString>

#include <functional>

class QProcess;

// What became of one external program.
struct CProcessResult
{
    bool Started = false;
    // The program's exit code; StillRunning when it outlived the watch.
    int ExitCode = -1;
    bool Crashed = false;
    // Why a program did not start, as the system numbers it (2: not found, 13 or 5: denied).
    int SystemError = 0;

    enum { StillRunning = 259 };
    bool Succeeded() const { return Started && !Crashed && ExitCode == 0; }
};

// Runs a command line in a folder without blocking the event loop: the program's output
// reaches the sink line by line while it runs, and the window keeps repainting.
class CProcessRunner
{
public:
    using COutputSink = std::function<void(const QString& line)>;

    explicit CProcessRunner(COutputSink sink = nullptr) : m_sink(std::move(sink)) {}

    // Waits for the program to end, however long it takes.
    CProcessResult Run(const QString& commandLine, const QString& folder);
    // Reads the program's state every interval, at most `readings` times; a program still
    // running then is left to finish on its own and reported as StillRunning.
    CProcessResult Watch(const QString& commandLine, const QString& folder, int readings,
                         int intervalMs);
    // Starts the program and does not wait for it.
    CProcessResult Launch(const QString& commandLine, const QString& folder);

    // The system's error number for a program that could not be started.
    static int StartError(const QString& program);

private:
    QProcess* Start(const QString& commandLine, const QString& folder, CProcessResult& result);

    COutputSink m_sink;
};
