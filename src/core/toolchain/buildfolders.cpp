#include "buildfolders.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString CBuildFolders::WorkFolder(const QString& programFolder, const QString& workDir)
{
    if (workDir.isEmpty())
        return QString();
    if (QDir::isAbsolutePath(workDir))
        return QDir::cleanPath(workDir);
    const QString beside = QDir(programFolder).filePath(workDir);
    if (QDir().mkpath(beside) && QFileInfo(beside).isWritable())
        return QDir::cleanPath(beside);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir::cleanPath(data + "/Corvel Tools/Quillon/" + workDir);
}

QString CBuildFolders::OutputFolder(const QString& programFolder, const QString& project,
                                    const QString& workFolder)
{
    const QString folder = QDir(programFolder).filePath(project);
    return !project.isEmpty() && QFileInfo(folder).isDir() ? QDir::cleanPath(folder) : workFolder;
}
