#include "startup.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

ELanguage CStartup::LanguageFor(const QStringList& arguments, bool userIsJapanese)
{
    // The program's own path is no switch: a folder named "tools-eng" must not choose.
    const QString line = arguments.mid(1).join(u' ');
    if (line.contains(QStringLiteral("-eng")))
        return ELanguage::English;
    if (line.contains(QStringLiteral("-jpn")))
        return ELanguage::Japanese;
    return userIsJapanese ? ELanguage::Japanese : ELanguage::English;
}

void CStartup::WriteFolders(QSettings& profile, const QString& programFolder)
{
    const QString me = QDir(programFolder).absolutePath() + u'/';
    profile.setValue("Folders/Me", me);
    profile.setValue("Folders/Work", me + "Work");
    profile.setValue("Folders/Save", me + "Save");
    profile.setValue("Folders/Tools", me + "Tools");
}

void CStartup::WriteBoardFolder(QSettings& profile, const QString& boardFolder)
{
    profile.setValue("Folders/Board", boardFolder);
}

QString CStartup::TargetFolder(const QString& programFolder)
{
    // Beside the programs first, as a build tree and a portable copy have it; an installed
    // program keeps its boards in its data folder (/usr/share/quillon/TARGET).
    const QString beside = QDir(programFolder).filePath("TARGET");
    if (QFileInfo(beside).isDir())
        return beside;
    for (const QString& data :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        const QString installed = QDir(data).filePath("quillon/TARGET");
        if (QFileInfo(installed).isDir())
            return installed;
    }
    return beside;
}

QString CStartup::LayoutArgument(const QStringList& arguments)
{
    for (const QString& argument : arguments.mid(1))
        if (!argument.startsWith(u'-'))
            return argument;
    return QString();
}
