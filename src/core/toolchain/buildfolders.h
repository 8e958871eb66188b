#pragma once

#include <QString>

// Where a build works and where its output goes, from the settings' folder names.
class CBuildFolders
{
  public:
    // programFolder is where the programs are installed. A relative WorkDir lies beside
    // them; when that cannot be written (an installed program), in the user's own data
    // folder instead (on Linux ~/.local/share/Corvel Tools/Quillon/<WorkDir>).
    static QString WorkFolder(const QString& programFolder, const QString& workDir);
    // The project folder beside the programs when it exists, else the work folder.
    static QString OutputFolder(const QString& programFolder, const QString& project,
                                const QString& workFolder);
};
