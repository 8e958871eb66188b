#include "processrunner.h"

#include "buildlog.h"
#include "stringtable.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <memory>

namespace {

// Passes on complete lines as they arrive; what is left at the end is passed on too.
void Forward(QProcess& process, QByteArray& pending, const CProcessRunner::COutputSink& sink,
             bool flush)
{
    pending += process.readAll();
    qsizetype end;
    while ((end = pending.indexOf('\n')) >= 0) {
        if (sink)
            sink(QString::fromLocal8Bit(pending.left(end)).remove(u'\r'));
        pending.remove(0, end + 1);
    }
    if (flush && !pending.isEmpty()) {
        if (sink)
            sink(QString::fromLocal8Bit(pending).remove(u'\r'));
        pending.clear();
    }
}

} // namespace

int CProcessRunner::StartError(const QString& program)
{
    const QString found =
        program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    const QFileInfo info(found);
#ifdef Q_OS_WIN
    enum
    {
        NotFound = 2,
        Denied = 5,
        NotAProgram = 193
    };
#else
    enum
    {
        NotFound = 2,
        Denied = 13,
        NotAProgram = 8
    };
#endif
    if (found.isEmpty() || !info.exists())
        return NotFound;
    if (info.isDir() || !info.isExecutable())
        return Denied;
#ifndef Q_OS_WIN
    // An executable file the system still would not start: a script whose interpreter is
    // missing (the system says "not found"), or neither a program nor a script.
    QFile file(found);
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray head = file.read(256);
        if (head.startsWith("#!")) {
            const QByteArray line = head.mid(2).split('\n').value(0).trimmed();
            const QString interpreter = QString::fromLocal8Bit(line.split(' ').value(0));
            return QFileInfo(interpreter).isExecutable() ? 0 : NotFound;
        }
        if (!head.startsWith("\x7f"
                             "ELF"))
            return NotAProgram;
    }
#endif
    return 0;
}

QProcess* CProcessRunner::Start(const CCommandLine& command, const QString& folder,
                                CProcessResult& result)
{
    auto* process = new QProcess;
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setWorkingDirectory(folder);
    process->setProgram(command.Program);
    process->setArguments(command.Arguments);
    process->start();
    if (!process->waitForStarted(-1)) {
        result.SystemError = StartError(command.Program);
        result.SystemReason =
            result.SystemError ? qt_error_string(result.SystemError) : process->errorString();
        delete process;
        return nullptr;
    }
    result.Started = true;
    return process;
}

CProcessResult CProcessRunner::Run(const CCommandLine& command, const QString& folder)
{
    return Watch(command, folder, -1, 0);
}

CProcessResult CProcessRunner::Watch(const CCommandLine& command, const QString& folder,
                                     int readings, int intervalMs)
{
    CProcessResult result;
    if (m_stop && m_stop->IsRequested())
        return result;
    QProcess* process = Start(command, folder, result);
    if (!process)
        return result;
    if (m_stop)
        m_stop->SetStopRunning([process] { process->kill(); });

    QByteArray pending;
    QEventLoop loop;
    QObject::connect(process, &QProcess::readyRead, &loop,
                     [&] { Forward(*process, pending, m_sink, false); });
    QObject::connect(process, &QProcess::finished, &loop, [&] { loop.quit(); });
    QTimer poll;
    int left = readings;
    if (readings >= 0) {
        QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
            if (--left <= 0)
                loop.quit();
        });
        poll.start(intervalMs);
    }
    if (process->state() != QProcess::NotRunning)
        loop.exec();
    QObject::disconnect(process, nullptr, &loop, nullptr);
    if (m_stop)
        m_stop->SetStopRunning(nullptr);
    Forward(*process, pending, m_sink, true);

    if (process->state() != QProcess::NotRunning) {
        // Still running after the watch: it is not ended. Its QProcess lives until it
        // finishes, since destroying a QProcess would end the program.
        result.ExitCode = CProcessResult::StillRunning;
        QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        return result;
    }
    result.Crashed = process->exitStatus() == QProcess::CrashExit;
    result.ExitCode = process->exitCode();
    delete process;
    return result;
}

CProcessResult CProcessRunner::Launch(const CCommandLine& command, const QString& folder)
{
    CProcessResult result;
    result.Started = QProcess::startDetached(command.Program, command.Arguments, folder);
    if (!result.Started) {
        result.SystemError = StartError(command.Program);
        result.SystemReason = qt_error_string(result.SystemError);
    }
    result.ExitCode = 0;
    return result;
}

void LogStartFailure(IBuildLog& log, const QString& name, const CProcessResult& result)
{
    log.Append(CStringTable::Format(Ids::LogCommandError, {name, result.SystemError}));
    if (!result.SystemReason.isEmpty())
        log.Append(result.SystemReason);
}
