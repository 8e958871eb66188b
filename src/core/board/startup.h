#pragma once

#include "stringtable.h"

#include <QString>
#include <QStringList>

class QSettings;

// The start-up decisions that need no window, shared by the editor and its tests.
class CStartup
{
  public:
    // Japanese when the user's language is, then "-eng" or "-jpn" anywhere in the arguments
    // after the program's path decides, "-eng" winning when both stand there.
    static ELanguage LanguageFor(const QStringList& arguments, bool userIsJapanese);
    // The "Folders" values other programs find the installation by, written at every start.
    static void WriteFolders(QSettings& profile, const QString& programFolder);
    static void WriteBoardFolder(QSettings& profile, const QString& boardFolder);
    // The boards' folder beside the programs, or in an installed program's data folder.
    static QString TargetFolder(const QString& programFolder);
    // The first argument that is no switch: the layout to open, "" for none.
    static QString LayoutArgument(const QStringList& arguments);
};
