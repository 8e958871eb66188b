#pragma once

#include <QDir>
#include <QFile>

// Copies a board's definition and palette files into a TARGET folder of a test's own.
inline void CopyBoardFiles(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList({QStringLiteral("*.xml")}, QDir::Files))
        QFile::copy(QDir(from).filePath(name), QDir(to).filePath(name));
}
