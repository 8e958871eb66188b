#include "buildpipeline.h"

#include "boardinfo.h"
#include "buildfolders.h"
#include "buildlog.h"
#include "layoutcheck.h"
#include "layoutfile.h"
#include "messenger.h"
#include "panelgrid.h"
#include "processrunner.h"
#include "settings.h"
#include "stringtable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

CBuildSettings CBuildSettings::From(const CSettings& settings, const CBoardInfo& board,
                                    const QString& programFolder)
{
    CBuildSettings build;
    build.WorkFolder = CBuildFolders::WorkFolder(programFolder, settings.GetWorkDir());
    build.OutputFolder =
        CBuildFolders::OutputFolder(programFolder, settings.GetProject(), build.WorkFolder);
    build.ClockSource =
        settings.GetClockSource() < 0 ? board.GetSystemClock() : settings.GetClockSource();
#ifdef Q_OS_WIN
    build.Writer.Port =
        settings.GetWriteCOM() > 0 ? QString::number(settings.GetWriteCOM()) : QString();
#else
    // Serial devices have paths here; a COM number means nothing to the writer.
    build.Writer.Port = settings.GetWritePort();
#endif
    build.Writer.Wait = settings.GetWriteWait();
    build.Writer.Writer = settings.GetWriter();
    build.Writer.WriterOptions = settings.GetWriterOptions();
    return build;
}

CBuildPipeline::CBuildPipeline(const CPanelGrid& grid, const CBoardInfo& board,
                               const CBuildSettings& settings, IBuildLog& log,
                               IMessenger& messenger, IPortFinder& finder)
    : m_grid(grid), m_board(board), m_settings(settings), m_log(log), m_messenger(messenger),
      m_finder(finder)
{
}

void CBuildPipeline::SetWriterPolling(int readings, int intervalMs)
{
    m_writerReadings = readings;
    m_writerIntervalMs = intervalMs;
}

bool CBuildPipeline::Make(const QString& layoutPath)
{
    m_hexMade = false;
    if (m_settings.WorkFolder.isEmpty())
        return false;
    m_log.Start(CStringTable::Get(Ids::LogCompileStarted));
    const auto stopped = [this] {
        m_log.Append(CStringTable::Get(Ids::LogCompileStopped));
        return false;
    };
    if (!Pass1(layoutPath))
        return false;
    if (!Pass2()) {
        m_log.Append(QString());
        AppendFirstErrorFile();
        return stopped();
    }
    if (!Pass3())
        return stopped();
    if (!CollectHex(layoutPath))
        return false;
    m_hexMade = true;
    m_log.Append(CStringTable::Get(Ids::LogCompileTerminated));
    return true;
}

bool CBuildPipeline::Build(const QString& layoutPath)
{
    if (!Make(layoutPath))
        return false;
    if (m_messenger.Message(CStringTable::Get(Ids::MsgBuildCompleted), EButtons::OkCancel,
                            EIcon::Question) != EAnswer::Ok) {
        m_log.Append(CStringTable::Get(Ids::LogFlashCanceled));
        return false;
    }
    if (m_board.GetWriterCommand().isEmpty() && m_settings.Writer.Writer.isEmpty()) {
        m_log.Append(CStringTable::Get(Ids::LogWriterNotSet));
        return false;
    }
    m_log.Append(CStringTable::Get(Ids::LogFlashStarted));
    CFlashWriter writer(m_board, m_settings.Writer, m_finder, m_log);
    writer.SetPolling(m_writerReadings, m_writerIntervalMs);
    writer.SetStopRequest(m_stop);
    return writer.Write(HexPathFor(layoutPath), m_settings.WorkFolder);
}

void CBuildPipeline::CleanWorkFolder() const
{
    // Files only, pattern by pattern in this order; folders such as a BASE.x stay.
    static const char* const kPatterns[] = {"BASE.*", "*.inc", "PANEL.*", "*.log",
                                            "*.loc",  "*.err", "*.hex"};
    QDir work(m_settings.WorkFolder);
    for (const char* pattern : kPatterns)
        for (const QString& name :
             work.entryList({QString::fromLatin1(pattern)}, QDir::Files | QDir::Hidden))
            work.remove(name);
}

bool CBuildPipeline::Pass1(const QString& layoutPath)
{
    const QString stop = CStringTable::Get(Ids::LogCompileStopped);
    // Cleaning deletes every *.loc and *.hex of the work folder: never the user's own.
    QDir().mkpath(m_settings.WorkFolder);
    const QString work = QFileInfo(m_settings.WorkFolder).canonicalFilePath();
    if (work.isEmpty() ||
        work == QFileInfo(QFileInfo(layoutPath).absolutePath()).canonicalFilePath()) {
        m_log.Append(
            CStringTable::Format(Ids::LogWorkFolderIsLayoutFolder, {m_settings.WorkFolder}));
        m_log.Append(stop);
        return false;
    }
    CleanWorkFolder();
    const QString fileName = QFileInfo(layoutPath).fileName();
    if (!layoutPath.contains(u'/') || fileName.isEmpty()) {
        m_log.Append(stop);
        return false;
    }
    m_locationPath = QDir(m_settings.WorkFolder).filePath(fileName);
    if (!CLayoutFile(&m_board, m_messenger).Save(m_grid, m_locationPath)) {
        m_log.Append(stop);
        return false;
    }
    m_log.Append(CStringTable::Get(Ids::LogPass1));
    const QString report = CLayoutCheck::Run(m_grid);
    if (report.isEmpty())
        return true;
    for (const QString& fault : report.split("\r\n", Qt::SkipEmptyParts))
        m_log.Append(fault);
    return false;
}

CCommandLine CBuildPipeline::CompilerCommand() const
{
    return {m_board.GetFolder() + u'/' + m_board.GetCompilerPanel(),
            {m_locationPath, QStringLiteral("-o"), m_settings.OutputFolder, QStringLiteral("-w"),
             m_settings.WorkFolder, QStringLiteral("-x"),
             QString::number(CPanelGrid::GetColumnCount()), QStringLiteral("-y"),
             QString::number(CPanelGrid::GetRowCount()),
             QStringLiteral("-c") + QString::number(m_settings.ClockSource + 1)}};
}

bool CBuildPipeline::Pass2()
{
    m_log.Append(CStringTable::Get(Ids::LogPass2));
    return RunLogged(CompilerCommand(), m_board.GetCompilerPanel());
}

bool CBuildPipeline::Pass3()
{
    m_log.Append(CStringTable::Get(Ids::LogPass3));
    const QStringList names = m_board.GetCommands();
    const QList<CCommandLine> commands = m_board.GetCommandLines();
    for (qsizetype i = 0; i < commands.size(); ++i)
        if (!RunLogged(commands[i], names[i]))
            return false;
    return true;
}

bool CBuildPipeline::StopRequested() const
{
    return m_stop && m_stop->IsRequested();
}

bool CBuildPipeline::RunLogged(const CCommandLine& command, const QString& name)
{
    if (StopRequested())
        return false;
    CProcessRunner runner([this](const QString& line) { m_log.Append(line); }, m_stop);
    const CProcessResult result = runner.Run(command, m_settings.WorkFolder);
    if (StopRequested()) {
        m_log.Append(CStringTable::Get(Ids::LogStoppedByUser));
        return false;
    }
    if (!result.Started)
        LogStartFailure(m_log, name, result);
    return result.Succeeded();
}

void CBuildPipeline::AppendFirstErrorFile()
{
    const QDir work(m_settings.WorkFolder);
    const QStringList errors = work.entryList({QStringLiteral("*.err")}, QDir::Files, QDir::Name);
    if (errors.isEmpty())
        return;
    QFile file(work.filePath(errors.first()));
    if (file.open(QIODevice::ReadOnly))
        m_log.Append(CLayoutFile::Decode(file.readAll()));
}

QString CBuildPipeline::SimulationMapPathFor(const QString& layoutPath)
{
    return HexPathFor(layoutPath).chopped(3) + "simmap";
}

QString CBuildPipeline::HexPathFor(const QString& layoutPath)
{
    const QFileInfo info(layoutPath);
    const QString base = info.suffix().isEmpty() ? info.fileName() : info.completeBaseName();
    return QDir(info.path()).filePath(base + ".hex");
}

bool CBuildPipeline::CollectHex(const QString& layoutPath)
{
    const QString destination = HexPathFor(layoutPath);
    QFile::remove(destination);
    const QDir work(m_settings.WorkFolder);
    // The simulation map belongs to this HEX file only: an older one never stays beside it.
    const QString map = SimulationMapPathFor(layoutPath);
    QFile::remove(map);
    QFile::copy(work.filePath("BASE.simmap"), map);
    QString source = work.filePath("BASE.hex");
    if (!QFileInfo::exists(source))
        source = work.filePath(QFileInfo(HexPathFor(layoutPath)).fileName());
    if (!QFile::copy(source, destination) || QFileInfo(destination).size() < 1) {
        m_log.Append(CStringTable::Get(Ids::LogHexNotCreated));
        return false;
    }
    return true;
}
