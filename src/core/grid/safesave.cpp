#include "safesave.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

bool HasOtherLinks(const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat status
    {
    };
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && status.st_nlink > 1;
#else
    Q_UNUSED(path);
    return false;
#endif
}

// The bytes reach the disk before the rename makes them the file.
bool Flush(QFile& file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0;
#else
    return true;
#endif
}

} // namespace

QString CSafeSave::TemporaryPath(const QString& path)
{
    const QFileInfo info(path);
    return info.dir().filePath(u'.' + info.fileName() + QStringLiteral(".saving"));
}

bool CSafeSave::Write(const QString& path, const QByteArray& bytes, QString& error)
{
    const QFileInfo info(path);
    QFile::remove(TemporaryPath(path));
    const bool exists = info.exists() || info.isSymLink();
    if (exists && (info.isSymLink() || !info.isFile() || HasOtherLinks(path)))
        return WriteInPlace(path, bytes, error);
    if (WriteAtomically(path, bytes, error))
        return true;
    // A folder that takes no new file may still hold a file that can be written.
    return exists && WriteInPlace(path, bytes, error);
}

bool CSafeSave::WriteAtomically(const QString& path, const QByteArray& bytes, QString& error)
{
    const QString temporary = TemporaryPath(path);
    QFile file(temporary);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        error = file.errorString();
        return false;
    }
    if (file.write(bytes) != bytes.size() || !Flush(file)) {
        error = file.errorString();
        file.close();
        QFile::remove(temporary);
        return false;
    }
    file.close();
    if (QFileInfo::exists(path))
        QFile::setPermissions(temporary, QFile::permissions(path));
    std::error_code failure;
    std::filesystem::rename(QFile::encodeName(temporary).toStdString(),
                            QFile::encodeName(path).toStdString(), failure);
    if (failure) {
        error = QString::fromLocal8Bit(failure.message());
        QFile::remove(temporary);
        return false;
    }
    return true;
}

bool CSafeSave::WriteInPlace(const QString& path, const QByteArray& bytes, QString& error)
{
    QFile file(path);
    const bool plain = QFileInfo(path).isFile();
    if (!file.open(plain ? QIODevice::ReadWrite : QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    // A device or pipe has no old content to keep; a plain file's old bytes go back on
    // failure.
    const QByteArray old = plain ? file.readAll() : QByteArray();
    const bool written = (!plain || file.seek(0)) && file.write(bytes) == bytes.size() &&
                         (!plain || file.resize(bytes.size())) && Flush(file);
    if (written)
        return true;
    error = file.errorString();
    if (plain && file.seek(0) && file.write(old) == old.size())
        file.resize(old.size());
    return false;
}
