// quillon-cli: Quillon's headless commands.

#include "avrsimulator.h"
#include "boardchooser.h"
#include "boardinfo.h"
#include "buildfolders.h"
#include "buildlog.h"
#include "buildpipeline.h"
#include "layoutcheck.h"
#include "layoutfile.h"
#include "panelgrid.h"
#include "portfinder.h"
#include "rendercommand.h"
#include "settings.h"
#include "simmap.h"
#include "simrun.h"
#include "simsignals.h"
#include "simtargetof.h"
#include "simvectors.h"
#include "stderrmessenger.h"
#include "stringtable.h"
#include "vcdwriter.h"
#include "virtualboard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTextStream>

#include <atomic>
#include <csignal>
#include <memory>
#include <optional>

namespace {

enum
{
    ExitOk = 0,
    ExitFaults = 1,
    ExitUsage = 2
};

QTextStream& Out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& Err()
{
    static QTextStream stream(stderr);
    return stream;
}

int Usage()
{
    Err() << "usage: quillon-cli COMMAND ... [--board DIR] [--lang en|ja]\n"
             "  check LAYOUT       check the layout; the report, one fault a line\n"
             "  dump LAYOUT        the loaded layout as JSON\n"
             "  save LAYOUT OUT    load the layout and save it again as OUT\n"
             "  build LAYOUT [--write] [--port DEVICE] [--work DIR]\n"
             "                     build the HEX file beside the layout; with --write also write\n"
             "                     it into the board (--port instead of the board found, --work\n"
             "                     instead of the work folder the settings name)\n"
             "  panels FILE        make a panel of every definition line in FILE and show it\n"
             "  render LAYOUT OUT [--scale N]\n"
             "                     draw the layout into OUT: a PNG at N device pixels a unit\n"
             "                     (1 to 8, default 1), or the printed page when OUT ends in .pdf\n"
             "  simulate LAYOUT [--for TIME] [--input NAME=LEVEL@TIME]... [--vectors FILE]\n"
             "           [--serial-in TEXT] [--vcd OUT.vcd] [--trace] [--work DIR]\n"
             "                     build the layout and run its HEX file in the simulated board\n"
             "                     for TIME (1s, or to the last vector); exit 1 at the first\n"
             "                     expectation of FILE that does not hold (docs/vectors.md)\n"
             "  board --virtual [--for TIME]\n"
             "                     a simulated board with its boot loader on a pseudo-terminal,\n"
             "                     whose path it prints; a program that opens the line resets it\n"
             "                     into the boot loader; prints each change of an output pin\n"
             "--board DIR names the board folder; without it the board start-up would choose.\n"
             "Exit status: 0 done, 1 the check, build or writing failed, 2 usage or a file that\n"
             "cannot be read.\n";
    return ExitUsage;
}

struct CArguments
{
    QStringList Positional;
    QString Board;
    QString Port;
    QString Work;
    double Scale = 1;
    bool Write = false;
    // simulate
    double ForMs = -1;
    QStringList Inputs;
    QString Vectors;
    QString Vcd;
    QString SerialIn;
    bool SerialInGiven = false;
    bool Trace = false;
    bool Virtual = false;
};

std::optional<CArguments> Parse(QStringList args)
{
    CArguments parsed;
    while (!args.isEmpty()) {
        const QString arg = args.takeFirst();
        if (arg == u"--write") {
            parsed.Write = true;
        } else if (arg == u"--trace") {
            parsed.Trace = true;
        } else if (arg == u"--virtual") {
            parsed.Virtual = true;
        } else if (arg == u"--board" || arg == u"--lang" || arg == u"--port" || arg == u"--work" ||
                   arg == u"--scale" || arg == u"--for" || arg == u"--input" ||
                   arg == u"--vectors" || arg == u"--vcd" || arg == u"--serial-in") {
            if (args.isEmpty())
                return std::nullopt;
            const QString value = args.takeFirst();
            if (arg == u"--for") {
                if ((parsed.ForMs = CSimVectors::ParseTime(value)) < 0)
                    return std::nullopt;
            } else if (arg == u"--input")
                parsed.Inputs.append(value);
            else if (arg == u"--vectors")
                parsed.Vectors = value;
            else if (arg == u"--vcd")
                parsed.Vcd = value;
            else if (arg == u"--serial-in")
                parsed.SerialIn = value, parsed.SerialInGiven = true;
            else if (arg == u"--board")
                parsed.Board = value;
            else if (arg == u"--port")
                parsed.Port = value;
            else if (arg == u"--work")
                parsed.Work = QFileInfo(value).absoluteFilePath();
            else if (arg == u"--scale")
                parsed.Scale = CRenderCommand::ParseScale(value);
            else if (value == u"ja" || value == u"en")
                CStringTable::SetLanguage(value == u"ja" ? ELanguage::Japanese
                                                         : ELanguage::English);
            else
                return std::nullopt;
        } else if (arg.startsWith(u"--")) {
            return std::nullopt;
        } else {
            parsed.Positional.append(arg);
        }
    }
    if (parsed.Scale == 0)
        return std::nullopt;
    return parsed;
}

// A layout loaded on a board, the way the editor loads it.
class CSession
{
  public:
    CSession()
        : m_profile(QString::fromLatin1(CSettings::kCompany),
                    QString::fromLatin1(CSettings::kApplication)),
          m_settings(&m_profile, CSettings::IniPathIn(Programs())), m_grid(m_messenger)
    {
        m_settings.Load();
    }

    static QString Programs() { return QCoreApplication::applicationDirPath(); }

    bool LoadBoard(const QString& folder)
    {
        if (!folder.isEmpty()) {
            if (CBoardChooser(QString(), m_messenger).TryFolder(folder, m_board))
                return true;
            Err() << "cannot read the board in " << folder << "\n";
            if (!m_board.ErrorString().isEmpty())
                Err() << m_board.ErrorString() << "\n";
            return false;
        }
        const QString programs = Programs();
        if (!CBoardChooser(QDir(programs).filePath("TARGET"), m_messenger)
                 .Choose(m_settings, m_board)
                 .isEmpty())
            return true;
        Err() << "no board could be read under " << QDir(programs).filePath("TARGET") << "\n";
        return false;
    }

    bool LoadLayout(const QString& path)
    {
        m_grid.SetUseLimits(m_board.UseLimits());
        CLayoutFile file(&m_board, m_messenger);
        if (file.Load(m_grid, path))
            return true;
        Err() << path << ": " << file.ErrorString() << "\n";
        return false;
    }

    bool Save(const QString& path) { return CLayoutFile(&m_board, m_messenger).Save(m_grid, path); }

    const CPanelGrid& Grid() const { return m_grid; }
    const CBoardInfo& Board() const { return m_board; }
    const CSettings& Settings() const { return m_settings; }

  private:
    CStderrMessenger m_messenger;
    QSettings m_profile;
    CSettings m_settings;
    CBoardInfo m_board;
    CPanelGrid m_grid;
};

// The build's log on stdout, each line as it comes.
class CStdoutLog : public IBuildLog
{
  public:
    void Start(const QString& line) override { Append(line); }
    void Append(const QString& line) override
    {
        QString text = line;
        text.replace("\r\n", "\n");
        Out() << text << "\n";
        Out().flush();
    }
};

// The settings' build, with the folder and port the command line gives instead.
CBuildSettings BuildSettings(const CSession& session, const CArguments& args)
{
    CBuildSettings build =
        CBuildSettings::From(session.Settings(), session.Board(), CSession::Programs());
    // The work folder given is where everything of the build goes, the compiler's output too.
    if (!args.Work.isEmpty())
        build.WorkFolder = build.OutputFolder =
            CBuildFolders::WorkFolder(CSession::Programs(), args.Work);
    if (!args.Port.isEmpty())
        build.Writer.Port = args.Port;
    return build;
}

int Build(const CSession& session, const CArguments& args)
{
    const CBuildSettings build = BuildSettings(session, args);
    CStdoutLog log;
    // Without --write the question before writing is answered Cancel.
    CStderrMessenger messenger(args.Write ? EAnswer::Ok : EAnswer::Cancel);
    const std::unique_ptr<IPortFinder> finder = CreatePlatformPortFinder();
    CBuildPipeline pipeline(session.Grid(), session.Board(), build, log, messenger, *finder);
    const QString layout = QFileInfo(args.Positional[1]).absoluteFilePath();
    const bool written = pipeline.Build(layout);
    return (args.Write ? written : pipeline.HexMade()) ? ExitOk : ExitFaults;
}

// The build's log, kept to be shown only when the build fails.
class CKeptLog : public IBuildLog
{
  public:
    void Start(const QString& line) override { Append(line); }
    void Append(const QString& line) override { m_lines.append(QString(line).remove(u'\r')); }
    const QStringList& Lines() const { return m_lines; }

  private:
    QStringList m_lines;
};

int Simulate(const CSession& session, const CArguments& args)
{
    CSimTarget target;
    QString why;
    if (!SimTargetOf(session.Board(), session.Settings().GetClockSource(), target, why)) {
        Err() << why << "\n";
        return ExitFaults;
    }
    // The HEX file Build && Write would write, made by the same pipeline.
    const CBuildSettings build = BuildSettings(session, args);
    CKeptLog log;
    CStderrMessenger messenger(EAnswer::Cancel);
    const std::unique_ptr<IPortFinder> finder = CreatePlatformPortFinder();
    CBuildPipeline pipeline(session.Grid(), session.Board(), build, log, messenger, *finder);
    const QString layout = QFileInfo(args.Positional[1]).absoluteFilePath();
    if (!pipeline.Make(layout)) {
        for (const QString& line : log.Lines())
            Err() << line << "\n";
        return ExitFaults;
    }

    const CSimSignals signals(session.Grid(), session.Board(), target);
    CSimVectors vectors(signals);
    if (!args.Vectors.isEmpty()) {
        QFile file(args.Vectors);
        if (!file.open(QIODevice::ReadOnly)) {
            Err() << CStringTable::Format(Ids::SimVectorsUnreadable,
                                          {args.Vectors, file.errorString()})
                  << "\n";
            return ExitUsage;
        }
        if (!vectors.Parse(QString::fromUtf8(file.readAll()), args.Vectors)) {
            Err() << vectors.Error() << "\n";
            return ExitUsage;
        }
    }
    for (const QString& input : args.Inputs)
        if (!vectors.ParseInput(input)) {
            Err() << vectors.Error() << "\n";
            return ExitUsage;
        }
    if (args.SerialInGiven)
        vectors.AddSerial(0, args.SerialIn.toUtf8());

    const QString hex = CBuildPipeline::HexPathFor(layout);
    CAvrSimulator sim(target);
    if (!sim.Load(QFile::encodeName(hex).toStdString())) {
        Err() << CStringTable::Format(Ids::SimCannotLoad,
                                      {hex, QString::fromStdString(sim.Error())})
              << "\n";
        return ExitFaults;
    }
    const QList<CSimVectors::CEvent> events = vectors.Events();
    const double endMs = args.ForMs >= 0 ? args.ForMs : std::max(1000.0, vectors.LastMs());
    CSimRun run(sim, signals);
    // The waveforms show the panels inside the grid too, from the simulation map.
    CSimMap map;
    if (!args.Vcd.isEmpty() && map.Read(CBuildPipeline::SimulationMapPathFor(layout), why))
        run.SampleMap(map);
    const bool held = run.Run(events, endMs);
    if (args.Trace)
        for (const QString& line : run.TraceLines())
            Out() << line << "\n";
    if (args.Trace && !sim.UartOutput().empty())
        Out() << "serial: " << QString::fromUtf8(QByteArray::fromStdString(sim.UartOutput()))
              << "\n";
    if (!args.Vcd.isEmpty() && !WriteVcd(args.Vcd, sim, run, signals, why)) {
        Err() << why << "\n";
        return ExitFaults;
    }
    if (!held) {
        Err() << run.Error() << "\n";
        return ExitFaults;
    }
    const auto expectations = std::count_if(events.begin(), events.end(), [](const auto& e) {
        return e.Kind >= CSimVectors::CEvent::ExpectLevel;
    });
    if (expectations > 0)
        Out() << CStringTable::Format(Ids::SimPassed,
                                      {int(expectations), CSimRun::TimeText(sim.NowMs())})
              << "\n";
    return ExitOk;
}

std::atomic<bool> g_stopBoard{false};

int VirtualBoard(const CSession& session, const CArguments& args)
{
    CSimTarget target;
    QString why;
    const CBoardSimulation& simulation = session.Board().GetSimulation();
    CVirtualBoard board;
    if (!SimTargetOf(session.Board(), session.Settings().GetClockSource(), target, why) ||
        !board.Open(target, simulation.BootLoader, simulation.BootAddress, why)) {
        Err() << why << "\n";
        return ExitFaults;
    }
    Out() << "virtual board on " << board.Port() << "\n";
    Out().flush();
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, [](int) { g_stopBoard = true; });
    const auto changed = [&](double ms, int pin, bool high) {
        const CSimTarget::CPin& place = target.Pins[std::size_t(pin)];
        Out() << CSimRun::TimeText(ms) << "  P" << place.Port << place.Bit << " " << int(high)
              << "\n";
        Out().flush();
    };
    if (!board.Run(g_stopBoard, args.ForMs, changed, why)) {
        Err() << why << "\n";
        return ExitFaults;
    }
    return ExitOk;
}

int Check(CSession& session)
{
    const QString report = CLayoutCheck::Run(session.Grid());
    for (const QString& fault : report.split("\r\n", Qt::SkipEmptyParts))
        Out() << fault << "\n";
    return report.isEmpty() ? ExitOk : ExitFaults;
}

QJsonObject PanelJson(const CPanelCell& cell, int column, int row)
{
    const CPanel& panel = *cell.GetPanel();
    return QJsonObject{
        {"column", column},
        {"row", row},
        {"keyword", panel.GetTokens().value(0)},
        {"line", panel.GetLine()},
        {"bitmapId", cell.GetBitmapId()},
        {"sides", panel.GetSides()},
        {"height", cell.GetHeight()},
        {"itemCount", panel.GetItemCount()},
        {"caption", panel.GetCaption()},
        {"incomplete", panel.IsIncomplete()},
        {"portIndex", panel.GetPortIndex()},
    };
}

// Panels in file order: the input column, the process area column by column, the output.
int Dump(const CSession& session)
{
    const CPanelGrid& grid = session.Grid();
    QList<QPair<int, int>> positions;
    for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
        positions.append({CPanelGrid::GetInputColumn(), row});
    for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
            positions.append({column, row});
    for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
        positions.append({CPanelGrid::GetOutputColumn(), row});

    QJsonArray panels;
    for (const auto& [column, row] : positions)
        if (const CPanelCell* cell = grid.GetCell(column, row); cell && cell->GetPanel())
            panels.append(PanelJson(*cell, column, row));
    const QJsonObject root{{"weightedTotal", grid.GetWeightedTotal()}, {"panels", panels}};
    Out() << QJsonDocument(root).toJson(QJsonDocument::Indented);
    return ExitOk;
}

QString Quoted(const QString& text)
{
    QString shown = text;
    shown.replace(QChar(u'\t'), QStringLiteral("\\t"));
    return u'"' + shown + u'"';
}

// Shows each line as the catalogue understands it: the panel's line written back, its
// caption, sides, rows, completeness and picture.
int ShowPanels(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Err() << "cannot read " << path << ": " << file.errorString() << "\n";
        return ExitUsage;
    }
    int number = 0;
    while (!file.atEnd()) {
        ++number;
        const QString line = QString::fromUtf8(file.readLine()).remove(u'\r').remove(u'\n');
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        const CPanelCell cell(line);
        const CPanel* panel = cell.GetPanel();
        Out() << number << ": " << Quoted(line) << "\n";
        if (!panel) {
            Out() << "    no panel: unknown keyword\n";
            continue;
        }
        Out() << "    line     " << Quoted(panel->GetLine()) << "\n"
              << "    caption  " << Quoted(panel->GetCaption()) << "\n"
              << "    area " << panel->GetArea() << "  sides " << Quoted(panel->GetSides())
              << "  rows " << cell.GetHeight() << "  bitmap " << cell.GetBitmapId()
              << (panel->IsIncomplete() ? "  incomplete" : "  complete") << "\n";
        for (const CPanelImageItem& item : cell.GetImage().Items)
            Out() << "    picture " << item.BitmapId << " " << Quoted(item.PortText) << " "
                  << Quoted(item.Comment) << "\n";
    }
    return ExitOk;
}

int Run(const CArguments& args)
{
    const QStringList& p = args.Positional;
    if (p.size() == 2 && p[0] == u"panels")
        return ShowPanels(p[1]);
    const bool check = p.size() == 2 && p[0] == u"check";
    const bool dump = p.size() == 2 && p[0] == u"dump";
    const bool save = p.size() == 3 && p[0] == u"save";
    const bool build = p.size() == 2 && p[0] == u"build";
    const bool render = p.size() == 3 && p[0] == u"render";
    const bool simulate = p.size() == 2 && p[0] == u"simulate";
    const bool virtualBoard = p.size() == 1 && p[0] == u"board" && args.Virtual;
    if (!check && !dump && !save && !build && !render && !simulate && !virtualBoard)
        return Usage();

    CSession session;
    if (virtualBoard)
        return session.LoadBoard(args.Board) ? VirtualBoard(session, args) : ExitUsage;
    if (!session.LoadBoard(args.Board) || !session.LoadLayout(p[1]))
        return ExitUsage;
    if (check)
        return Check(session);
    if (dump)
        return Dump(session);
    if (build)
        return Build(session, args);
    if (simulate)
        return Simulate(session, args);
    if (render) {
        QString error;
        if (CRenderCommand::Render(session.Grid(), p[2], args.Scale, error))
            return ExitOk;
        Err() << error << "\n";
        return ExitFaults;
    }
    return session.Save(p[2]) ? ExitOk : ExitFaults;
}

// Only drawing needs a QGuiApplication; the other commands must not look for a display.
bool WantsRender(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const std::optional<CArguments> args = Parse(arguments);
    return args && args->Positional.value(0) == u"render";
}

} // namespace

int main(int argc, char* argv[])
{
    const std::unique_ptr<QCoreApplication> app =
        WantsRender(argc, argv) ? CRenderCommand::CreateApplication(argc, argv)
                                : std::make_unique<QCoreApplication>(argc, argv);
    const std::optional<CArguments> args = Parse(app->arguments().mid(1));
    const int result = args ? Run(*args) : Usage();
    Out().flush();
    return result;
}
