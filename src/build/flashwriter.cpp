#include "flashwriter.h"

#include "app/boardinfo.h"
#include "buildlog.h"
#include "portfinder.h"
#include "processrunner.h"
#include "res/stringtable.h"

#include <QDir>

namespace {

QString Quoted(const QString& text)
{
    return u'"' + text + u'"';
}

} // namespace

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

QString CFlashWriter::BoardCommand(const QString& hexPath)
{
    const QString& options = m_board.GetWriterCommand();
    QString command = QDir(m_board.GetFolder()).filePath(options);
    // Only the template is searched for options: the board folder's own path holds "/"
    // everywhere outside Windows ("/home/carol/..."). A template that names its port
    // itself gets none, and no board is looked for.
    if (!options.contains(QStringLiteral("/C"), Qt::CaseInsensitive)) {
        QString port = m_settings.Port;
        if (port.isEmpty())
            port = m_finder.FindBoardPort(m_board.GetInterfaceName());
        if (port.isEmpty()) {
            m_log.Append(CStringTable::Get(Ids::LogComScanFailed));
            return QString();
        }
        command += " /C" + port;
    }
    if (!options.contains(QStringLiteral("/W"), Qt::CaseInsensitive))
        command += " /W" + QString::number(m_settings.Wait);
    if (!m_board.GetWriterParam().isEmpty())
        command += " /P " + m_board.GetWriterParam();
    return command + u' ' + Quoted(hexPath);
}

QString CFlashWriter::UserCommand(const QString& writer, const QString& options, const QString& hexPath)
{
    // Options without the placeholder are not passed at all: the writer gets its bare path.
    const qsizetype at = options.indexOf(QStringLiteral("%hex%"));
    if (at < 0)
        return Quoted(writer);
    QString filled = options;
    filled.replace(at, 5, Quoted(hexPath));
    return Quoted(writer) + u' ' + filled;
}

bool CFlashWriter::Write(const QString& hexPath, const QString& workFolder)
{
    const bool boardWriter = !m_board.GetWriterCommand().isEmpty();
    QString command;
    if (boardWriter) {
        command = BoardCommand(hexPath);
        if (command.isEmpty())
            return false;
    } else {
        if (m_settings.Writer.isEmpty()) {
            m_log.Append(CStringTable::Get(Ids::LogWriterNotSet));
            return false;
        }
        command = UserCommand(m_settings.Writer, m_settings.WriterOptions, hexPath);
    }

    CProcessRunner runner([this](const QString& line) { m_log.Append(line); });
    const CProcessResult result = boardWriter
                                      ? runner.Watch(command, workFolder, m_readings, m_intervalMs)
                                      : runner.Launch(command, workFolder);
    if (!result.Started) {
        // Named by what was started, so the user sees which program is missing.
        const QString program = boardWriter ? m_board.GetWriterCommand() : m_settings.Writer;
        m_log.Append(CStringTable::Format(Ids::LogCommandError, {program, result.SystemError}));
        return false;
    }
    if (result.ExitCode == 0 && !result.Crashed) {
        if (boardWriter)
            m_log.Append(CStringTable::Get(Ids::LogFlashTerminated));
        return true;
    }
    m_log.Append(CStringTable::Format(Ids::LogFlashError, {result.ExitCode}));
    return false;
}
