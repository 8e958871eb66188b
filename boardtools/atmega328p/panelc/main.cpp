// quillon-panelc: the panel compiler of the ATmega328P board. The build runs it as
//   "<board>/quillon-panelc" "<location file>" -o "<out>" -w "<work>" -x 16 -y 40 -c<n>
// with the work folder as its current folder. It writes BASE.h, BASE.c, BASE.cells (what
// the simulation map shows, for the size check to resolve) and the run-time (PANEL.h,
// PANEL.c, PANEL.avrsize) into the work folder and exits 0, or writes the faults of a
// layout the board cannot run into PANEL.err, one a line, and exits 1.
#include "avrboard.h"
#include "avrcodegenerator.h"
#include "avrlayoutcheck.h"
#include "panelcarguments.h"
#include "quietmessenger.h"
#include "runtimefiles.h"

#include "boardinfo.h"
#include "layoutfile.h"
#include "netlist.h"
#include "panelgrid.h"
#include "stringtable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

enum
{
    ExitOk = 0,
    ExitRefused = 1,
    ExitUsage = 2
};

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

// The build shows the first *.err file of the work folder when the compiler fails.
int Refuse(const QString& workFolder, const QStringList& faults)
{
    QByteArray text;
    for (const QString& fault : faults)
        text += fault.toUtf8() + "\r\n";
    WriteFile(QDir(workFolder).filePath("PANEL.err"), text);
    return ExitRefused;
}

// English unless only the board's Japanese file can be read.
bool ReadBoard(const QString& folder, CBoardInfo& board, IMessenger& messenger)
{
    for (const ELanguage language : {ELanguage::English, ELanguage::Japanese}) {
        CStringTable::SetLanguage(language);
        if (board.Read(folder, QString(), messenger))
            return true;
    }
    CStringTable::SetLanguage(ELanguage::English);
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QStringList args = QCoreApplication::arguments();
    args.removeFirst();
    CPanelcArguments parsed;
    QString error;
    if (CPanelcArguments::Parse(args, parsed, error) &&
        (parsed.Columns != CPanelGrid::GetColumnCount() ||
         parsed.Rows != CPanelGrid::GetRowCount()))
        error = QStringLiteral("the grid is %1 x %2")
                    .arg(CPanelGrid::GetColumnCount())
                    .arg(CPanelGrid::GetRowCount());
    if (!error.isEmpty()) {
        std::fprintf(
            stderr,
            "quillon-panelc: %s\nusage: quillon-panelc LOCATION -o OUT -w WORK -x 16 -y 40 -cN\n",
            qPrintable(error));
        return ExitUsage;
    }
    const QString work = parsed.WorkFolder;

    // The board folder is the program's own folder.
    const QString folder = QCoreApplication::applicationDirPath();
    CQuietMessenger messenger;
    CBoardInfo board;
    if (!ReadBoard(folder, board, messenger))
        return Refuse(
            work, {CStringTable::Format(Ids::PanelcNoBoard, {QDir::toNativeSeparators(folder)})});

    const int source = parsed.ClockSource > 0 ? parsed.ClockSource : board.GetSystemClock() + 1;
    const long clock = CAvrBoard::ClockFrequency(source);
    if (clock == 0)
        return Refuse(work, {CStringTable::Format(Ids::PanelcNoClock, {source})});

    CPanelGrid grid(messenger);
    grid.SetUseLimits(board.UseLimits());
    CLayoutFile file(&board, messenger);
    if (!file.Load(grid, parsed.LocationFile))
        return Refuse(work, {CStringTable::Format(Ids::PanelcNoLayout,
                                                  {parsed.LocationFile, file.ErrorString()})});

    const CNetlist netlist(grid);
    if (const QStringList faults = CAvrLayoutCheck(grid, netlist, board, clock).Run();
        !faults.isEmpty())
        return Refuse(work, faults);

    const CAvrCodeGenerator generator(grid, netlist, board, clock);
    const QString layoutName = QFileInfo(parsed.LocationFile).fileName();
    const QDir dir(work);
    for (const auto& [name, bytes] :
         {std::pair{QStringLiteral("BASE.h"), generator.BaseHeader(layoutName)},
          std::pair{QStringLiteral("BASE.c"), generator.BaseSource(layoutName)},
          std::pair{QStringLiteral("BASE.cells"), generator.BaseCells(layoutName)}})
        if (!WriteFile(dir.filePath(name), bytes))
            return Refuse(work,
                          {CStringTable::Format(Ids::PanelcNotWritten, {dir.filePath(name)})});
    QString missing;
    if (!CRuntimeFiles::Copy(folder, work, missing))
        return Refuse(work, {CStringTable::Format(Ids::PanelcNoRuntime, {missing})});
    QFile::remove(dir.filePath("PANEL.err"));
    return ExitOk;
}
