#include "runtimefiles.h"

#include <QDir>
#include <QFile>

namespace {

// The run-time's sources in the board folder, in the order PANEL.c joins them. Named, not
// searched for, so a stray file in the folder never joins the program.
const char* const kSources[] = {"ports.c", "display.c", "motor.c"};

bool Read(const QString& path, QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll();
    return true;
}

bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size();
}

} // namespace

bool CRuntimeFiles::Copy(const QString& boardFolder, const QString& workFolder, QString& failed)
{
    const QDir runtime(QDir(boardFolder).filePath("runtime"));
    const QDir work(workFolder);
    QByteArray header;
    if (!Read(runtime.filePath("panel.h"), header)) {
        failed = runtime.filePath("panel.h");
        return false;
    }
    if (!Write(work.filePath("PANEL.h"), header)) {
        failed = work.filePath("PANEL.h");
        return false;
    }
    QByteArray source = "#include \"PANEL.h\"\n";
    for (const QString part : kSources) {
        QByteArray bytes;
        if (!Read(runtime.filePath(part), bytes)) {
            failed = runtime.filePath(part);
            return false;
        }
        source += "\n/* " + part.toUtf8() + " */\n" + bytes;
    }
    if (!Write(work.filePath("PANEL.c"), source)) {
        failed = work.filePath("PANEL.c");
        return false;
    }
    QString sizeTool = QDir(boardFolder).filePath("quillon-avrsize");
    if (!QFile::exists(sizeTool))
        sizeTool += ".exe";
    const QString copy = work.filePath("PANEL.avrsize");
    QFile::remove(copy);
    if (!QFile::copy(sizeTool, copy) ||
        !QFile::setPermissions(copy, QFile::permissions(sizeTool) | QFileDevice::ExeOwner)) {
        failed = sizeTool;
        return false;
    }
    return true;
}
