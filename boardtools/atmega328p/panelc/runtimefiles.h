#pragma once

#include <QString>

// The run-time the generated program is compiled with, copied from the board folder into
// the work folder: runtime/panel.h as PANEL.h, the run-time's C sources joined into PANEL.c,
// and the size check quillon-avrsize as PANEL.avrsize, so that the board's commands find
// all of it in the folder they run in. The build cleans PANEL.* before each run, so
// nothing stale survives.
class CRuntimeFiles
{
  public:
    // False with `failed` naming the file that could not be read or written.
    static bool Copy(const QString& boardFolder, const QString& workFolder, QString& failed);
};
