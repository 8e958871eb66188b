#pragma once

#include <QByteArray>
#include <QString>

// Writes a whole file so that a failure never loses what was there before.
//
// Where it can, it writes a temporary file beside the target and renames it over the
// target, so the file is always either the old or the new one. It writes the file itself
// instead, keeping the old bytes to put back if the write fails, where a rename would
// break something: a target that has other hard links or is a symbolic link (the rename
// would cut them off), one that is no plain file, or a folder that takes no new file.
class CSafeSave
{
  public:
    // False with error set to the system's reason when the file could not be written.
    static bool Write(const QString& path, const QByteArray& bytes, QString& error);
    // The temporary file beside path. A save killed before its rename leaves it behind;
    // the next save of the same file removes it.
    static QString TemporaryPath(const QString& path);

  private:
    static bool WriteAtomically(const QString& path, const QByteArray& bytes, QString& error);
    static bool WriteInPlace(const QString& path, const QByteArray& bytes, QString& error);
};
