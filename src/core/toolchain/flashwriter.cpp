#include "flashwriter.h"

#include <algorithm>

#include "boardinfo.h"
#include "buildlog.h"
#include "portfinder.h"
#include "processrunner.h"
#include "stringtable.h"

#include <QProcess>

CFlashWriter::CFlashWriter(const CBoardInfo& board, const CWriterSettings& settings,
                           IPortFinder& finder, IBuildLog& log)
    : m_board(board), m_settings(settings), m_finder(finder), m_log(log)
{
}

void CFlashWriter::SetPolling(int readings, int intervalMs)
{
    m_readings = readings;
    m_intervalMs = intervalMs;
}

CCommandLine CFlashWriter::BoardCommand(const QString& hexPath)
{
    // Only the template is searched for options: the board folder's own path holds "/"
    // everywhere outside Windows ("/home/carol/..."). A template that names its port
    // itself gets none, and no board is looked for.
    const QString& options = m_board.GetWriterCommand();
    CCommandLine command = m_board.GetWriterCommandLine();
    if (!options.contains(QStringLiteral("/C"), Qt::CaseInsensitive)) {
        QString port = m_settings.Port;
        if (port.isEmpty())
            port = m_finder.FindBoardPort(m_board.GetInterfaceName());
        if (port.isEmpty()) {
            m_log.Append(CStringTable::Get(Ids::LogComScanFailed));
            return {};
        }
        command.Arguments.append(QStringLiteral("/C") + port);
    }
    if (!options.contains(QStringLiteral("/W"), Qt::CaseInsensitive))
        command.Arguments.append(QStringLiteral("/W") + QString::number(m_settings.Wait));
    if (!m_board.GetWriterParam().isEmpty())
        command.Arguments += QStringList{QStringLiteral("/P")} + m_board.GetWriterParamArguments();
    command.Arguments.append(hexPath);
    return command;
}

CCommandLine CFlashWriter::UserCommand(const QString& writer, const QString& options,
                                       const QString& hexPath)
{
    // Options without the placeholder are not passed at all: the writer gets its bare path.
    // The options are split before the path goes in, so the path stays one argument.
    CCommandLine command{writer, QProcess::splitCommand(options)};
    if (!command.Substitute(QStringLiteral("%hex%"), hexPath))
        command.Arguments.clear();
    return command;
}

bool CFlashWriter::Write(const QString& hexPath, const QString& workFolder)
{
    const bool boardWriter = !m_board.GetWriterCommand().isEmpty();
    CCommandLine command;
    if (boardWriter) {
        command = BoardCommand(hexPath);
        if (command.IsEmpty())
            return false;
    } else {
        if (m_settings.Writer.isEmpty()) {
            m_log.Append(CStringTable::Get(Ids::LogWriterNotSet));
            return false;
        }
        command = UserCommand(m_settings.Writer, m_settings.WriterOptions, hexPath);
    }

    QStringList output;
    CProcessRunner runner(
        [this, &output](const QString& line) {
            output.append(line);
            m_log.Append(line);
        },
        m_stop);
    const CProcessResult result = boardWriter
                                      ? runner.Watch(command, workFolder, m_readings, m_intervalMs)
                                      : runner.Launch(command, workFolder);
    if (!result.Started) {
        // Named by what was started, so the user sees which program is missing.
        LogStartFailure(m_log, boardWriter ? m_board.GetWriterCommand() : m_settings.Writer,
                        result);
        return false;
    }
    if (m_stop && m_stop->IsRequested())
        m_log.Append(CStringTable::Get(Ids::LogStoppedByUser));
    if (result.ExitCode == 0 && !result.Crashed) {
        if (boardWriter)
            m_log.Append(CStringTable::Get(Ids::LogFlashTerminated));
        return true;
    }
    m_log.Append(CStringTable::Format(Ids::LogFlashError, {result.ExitCode}));
    if (const int hint = HintFor(output))
        m_log.Append(CStringTable::Get(hint));
    return false;
}

int CFlashWriter::HintFor(const QStringList& output)
{
    // What the writer says, from the most to the least telling: the first kind found wins.
    static const struct
    {
        int Hint;
        const char* Words[4];
    } kHints[] = {
        {Ids::HintWriterDenied, {"Permission denied"}},
        {Ids::HintWriterBusy, {"Device or resource busy", "resource busy"}},
        {Ids::HintWriterNoPort, {"No such file or directory", "can't open device"}},
        {Ids::HintWriterNoAnswer, {"not responding", "not in sync", "timeout", "stk500_recv"}},
    };
    for (const auto& hint : kHints)
        for (const char* words : hint.Words)
            if (words && std::any_of(output.begin(), output.end(), [&](const QString& line) {
                    return line.contains(QLatin1String(words), Qt::CaseInsensitive);
                }))
                return hint.Hint;
    return 0;
}
