#pragma once

#include "commandline.h"

#include <QString>
#include <QStringList>

class CBoardInfo;
class IBuildLog;
class IPortFinder;
class CStopRequest;

// What the writing takes from the user's settings.
struct CWriterSettings
{
    // The text after the board writer's "/C": a COM number on Windows, a serial device
    // path elsewhere; "" means the board is to be found.
    QString Port;
    int Wait = 2;
    // The user's own writer and its options, "%hex%" standing for the HEX file.
    QString Writer;
    QString WriterOptions;
};

// Writes a HEX file into the board's FLASH with the board's writer, or the user's when the
// board names none.
class CFlashWriter
{
  public:
    CFlashWriter(const CBoardInfo& board, const CWriterSettings& settings, IPortFinder& finder,
                 IBuildLog& log);

    // How often and how many times a board writer is asked whether it has ended.
    void SetPolling(int readings, int intervalMs);
    // Lets the user end a board writer that still runs.
    void SetStopRequest(CStopRequest* stop) { m_stop = stop; }

    // Appends its progress to the log; true when the writer ended with 0 (a user writer is
    // not waited for and counts as 0).
    bool Write(const QString& hexPath, const QString& workFolder);
    // A hint in plain words for what the writer said when it failed (the port not there,
    // no answer, no permission, the port busy): a string id, or 0 when none fits.
    static int HintFor(const QStringList& output);

    // The board writer's command line; empty with the log told why when no port is known.
    CCommandLine BoardCommand(const QString& hexPath);
    static CCommandLine UserCommand(const QString& writer, const QString& options,
                                    const QString& hexPath);

  private:
    const CBoardInfo& m_board;
    CWriterSettings m_settings;
    IPortFinder& m_finder;
    IBuildLog& m_log;
    CStopRequest* m_stop = nullptr;
    int m_readings = 60;
    int m_intervalMs = 1000;
};
