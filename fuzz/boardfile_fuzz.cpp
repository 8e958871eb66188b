// Any bytes as a board definition file or as a panel definition file of a board folder.
// The first byte chooses which; the other files of the folder are the sample board's.
#include "boardinfo.h"
#include "messenger.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

struct CSilent : IMessenger
{
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

const QTemporaryDir& Folder()
{
    static QTemporaryDir folder;
    static bool copied = false;
    if (!copied) {
        const QDir sample(QStringLiteral(QUILLON_BOARDS "/atmega328p"));
        for (const QString& name : sample.entryList(QDir::Files))
            QFile::copy(sample.filePath(name), QDir(folder.path()).filePath(name));
        copied = true;
    }
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    static const char* const kFiles[] = {"board_e.xml", "inout_e.xml", "parts_e.xml"};
    const QString folder = Folder().path();
    const QString target = QDir(folder).filePath(QString::fromLatin1(kFiles[data[0] % 3]));
    QFile original(QDir(QStringLiteral(QUILLON_BOARDS "/atmega328p")).filePath(QString::fromLatin1(kFiles[data[0] % 3])));
    {
        QFile out(target);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        out.write(reinterpret_cast<const char*>(data + 1), qint64(size - 1));
    }
    CSilent messenger;
    CBoardInfo board;
    if (board.Read(folder, QString(), messenger)) {
        board.UseLimits();
        for (int i = 0; i < board.GetPortCount(); ++i)
            board.GetPort(i);
        board.FindEntry(QStringLiteral("LAMP"));
    }
    // Put the sample file back for the next input.
    QFile::remove(target);
    QFile::copy(original.fileName(), target);
    return 0;
}
