// Any bytes as a board definition file or as a panel definition file of a board folder.
// The first byte chooses which. The other two files of the folder are small stand-ins, so
// that an input costs the reading of its own bytes rather than of a whole sample board
// (the seeds are the sample board's own files).
#include "boardinfo.h"
#include "messenger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

struct CSilent : IMessenger
{
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

struct CStandIn
{
    const char* Name;
    const char* Text;
};

const CStandIn kStandIns[] = {
    {"board_e.xml",
     "<QUILLON><BOARD name=\"Stand-in\"><PALETTE><INOUT file=\"inout_e.xml\"/>"
     "<PARTS file=\"parts_e.xml\"/></PALETTE><CPU><PORT id=\"2\" name=\"PD2\" alias=\"D2\"/>"
     "<PORT id=\"8\" name=\"PB0\" alias=\"D8\"/></CPU></BOARD></QUILLON>"},
    {"inout_e.xml",
     "<PANELS><PALETTE name=\"In\"><PANEL type=\"KEY\" name=\"Key\"><PORT id=\"2\" name=\"PD2\"/>"
     "<USELIMIT value=\"4\"/><WEIGHT value=\"1\"/></PANEL></PALETTE><PALETTE name=\"Out\">"
     "<PANEL type=\"LAMP\" name=\"Lamp\"><PORT id=\"8\" name=\"PB0\"/></PANEL></PALETTE></PANELS>"},
    {"parts_e.xml",
     "<PANELS><PALETTE name=\"Logic\"><PANEL type=\"AND\" name=\"And\"><WEIGHT value=\"1\"/>"
     "</PANEL></PALETTE></PANELS>"},
};

// QFile::copy would sync the file to the disk.
void WriteFile(const QString& path, const char* data, qint64 size)
{
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(data, size) != size)
        std::abort();
}

// Every input rewrites a file of the folder twice. On ext4 a rewritten file is flushed to
// the disk when it is closed, which would cost more than the read under test, so the folder
// lies in memory where the machine has a tmpfs.
QTemporaryDir MemoryFolder()
{
    QTemporaryDir shm(QStringLiteral("/dev/shm/quillon-boardfile-fuzz-XXXXXX"));
    return shm.isValid() ? std::move(shm) : QTemporaryDir();
}

QString StandInPath(const CStandIn& file)
{
    static const QTemporaryDir folder = [] {
        QTemporaryDir made = MemoryFolder();
        for (const CStandIn& standIn : kStandIns)
            WriteFile(QDir(made.path()).filePath(QString::fromLatin1(standIn.Name)), standIn.Text,
                      qint64(qstrlen(standIn.Text)));
        return made;
    }();
    return QDir(folder.path()).filePath(QString::fromLatin1(file.Name));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const CStandIn& chosen = kStandIns[data[0] % 3];
    const QString target = StandInPath(chosen);
    WriteFile(target, reinterpret_cast<const char*>(data + 1), qint64(size - 1));
    CSilent messenger;
    CBoardInfo board;
    if (board.Read(QFileInfo(target).path(), QString(), messenger)) {
        board.UseLimits();
        for (int i = 0; i < board.GetPortCount(); ++i)
            board.GetPort(i);
        board.FindEntry(QStringLiteral("LAMP"));
    }
    WriteFile(target, chosen.Text, qint64(qstrlen(chosen.Text)));
    return 0;
}
