#pragma once

#include "commandline.h"
#include "flashwriter.h"

#include <QString>

class CBoardInfo;
class CPanelGrid;
class CSettings;
class IBuildLog;
class IMessenger;
class IPortFinder;
class CStopRequest;

// What a build takes from the settings, resolved to folders.
struct CBuildSettings
{
    QString WorkFolder;
    QString OutputFolder;
    int ClockSource = -1;
    CWriterSettings Writer;

    // From the user's settings: the work folder from WorkDir (beside the programs, or the
    // user's data folder), the output folder, the clock source (the board's default when
    // unset), the writer's port (the COM number when one is set), wait and program.
    static CBuildSettings From(const CSettings& settings, const CBoardInfo& board,
                               const QString& programFolder);
};

// "Build && Write": writes the layout into the work folder and checks it (pass 1), runs
// the board's panel compiler (pass 2) and command list (pass 3), copies the HEX file beside
// the layout, and after the user's OK writes it into the board's FLASH.
class CBuildPipeline
{
  public:
    CBuildPipeline(const CPanelGrid& grid, const CBoardInfo& board, const CBuildSettings& settings,
                   IBuildLog& log, IMessenger& messenger, IPortFinder& finder);

    // True when the HEX file was made and written.
    bool Build(const QString& layoutPath);
    // Builds without writing and without asking: true when the HEX file was made.
    bool Make(const QString& layoutPath);
    // True when this build made the HEX file beside the layout (written or not); a HEX file
    // an earlier build left there does not count.
    bool HexMade() const { return m_hexMade; }
    // Lets the user stop the build: the program that runs is ended, nothing after it starts.
    void SetStopRequest(CStopRequest* stop) { m_stop = stop; }

    bool Pass1(const QString& layoutPath);
    bool Pass2();
    bool Pass3();
    // Copies the work folder's HEX file beside the layout, and the board compiler's simulation
    // map when it wrote one; false when there is no HEX file.
    bool CollectHex(const QString& layoutPath);

    // The compiler's command line, options in their fixed order.
    CCommandLine CompilerCommand() const;
    // The layout path with its last extension replaced by "hex".
    static QString HexPathFor(const QString& layoutPath);
    // Beside the HEX file: "simmap" for "hex". It tells where the program keeps each panel's
    // state in RAM.
    static QString SimulationMapPathFor(const QString& layoutPath);
    void CleanWorkFolder() const;

    // How often the board writer is asked whether it has ended (tests make it quick).
    void SetWriterPolling(int readings, int intervalMs);

  private:
    bool RunLogged(const CCommandLine& command, const QString& name);
    bool StopRequested() const;
    void AppendFirstErrorFile();

    const CPanelGrid& m_grid;
    const CBoardInfo& m_board;
    CBuildSettings m_settings;
    IBuildLog& m_log;
    IMessenger& m_messenger;
    IPortFinder& m_finder;
    QString m_locationPath;
    CStopRequest* m_stop = nullptr;
    bool m_hexMade = false;
    int m_writerReadings = 60;
    int m_writerIntervalMs = 1000;
};
