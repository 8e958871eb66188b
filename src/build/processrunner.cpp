#include "processrunner.h"

#include <QEventLoop>
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
    const QString found = program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    const QFileInfo info(found);
#ifdef Q_OS_WIN
    enum { NotFound = 2, Denied = 5 };
#else
    enum { NotFound = 2, Denied = 13 };
#endif
    if (found.isEmpty() || !info.exists())
        return NotFound;
    return info.isDir() || !info.isExecutable() ? Denied : 0;
}

QProcess* CProcessRunner::Start(const QString& commandLine, const QString& folder,
                                CProcessResult& result)
{
    QStringList args = QProcess::splitCommand(commandLine);
    const QString program = args.isEmpty() ? QString() : args.takeFirst();
    auto* process = new QProcess;
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setWorkingDirectory(folder);
    process->setProgram(program);
    process->setArguments(args);
    process->start();
    if (!process->waitForStarted(-1)) {
        result.SystemError = StartError(program);
        if (result.SystemError == 0)
            result.SystemError = int(process->error()) + 1000; // a start failure the system did not name
        delete process;
        return nullptr;
    }
    result.Started = true;
    return process;
}

CProcessResult CProcessRunner::Run(const QString& commandLine, const QString& folder)
{
    return Watch(commandLine, folder, -1, 0);
}

CProcessResult CProcessRunner::Watch(const QString& commandLine, const QString& folder,
                                     int readings, int intervalMs)
{
    CProcessResult result;
    QProcess* process = Start(commandLine, folder, result);
    if (!process)
        return result;

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

CProcessResult CProcessRunner::Launch(const QString& commandLine, const QString& folder)
{
    QStringList args = QProcess::splitCommand(commandLine);
    const QString program = args.isEmpty() ? QString() : args.takeFirst();
    CProcessResult result;
    result.Started = QProcess::startDetached(program, args, folder);
    if (!result.Started)
        result.SystemError = StartError(program);
    result.ExitCode = 0;
    return result;
}
