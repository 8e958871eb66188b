// Build && Write for real: the board's own writer (avrdude behind quillon-writer) writes a
// program into a virtual board, an emulated processor with the board's boot loader on a
// pseudo-terminal, exactly as into the board on a USB cable.
#include "firmwaretest.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace {

// quillon-cli board --virtual, started and asked for its line; null when it does not start.
std::unique_ptr<QProcess> StartBoard(QString& port)
{
    auto board = std::make_unique<QProcess>();
    board->start(QUILLON_CLI,
                 {"board", "--virtual", "--for", "20s", "--board", QUILLON_BOARD_FOLDER});
    if (!board->waitForReadyRead(10000))
        return nullptr;
    const QString first = QString::fromUtf8(board->readLine()).trimmed();
    port = first.section(u' ', -1);
    return first.startsWith("virtual board on /dev/") ? std::move(board) : nullptr;
}

struct CWrite
{
    int Exit = -1;
    QString Log;
    qint64 Ms = 0;
};

// quillon-cli build --write of the blinker, to the line given.
CWrite WriteBlinker(const QString& port)
{
    QTemporaryDir folder;
    const QString layout = folder.filePath("blinker.loc");
    QFile::copy(QUILLON_EXAMPLES_FOLDER "/blinker.loc", layout);
    QElapsedTimer timer;
    timer.start();
    QProcess cli;
    cli.setProcessChannelMode(QProcess::MergedChannels);
    cli.start(QUILLON_CLI, {"build", layout, "--write", "--port", port, "--board",
                            QUILLON_BOARD_FOLDER, "--work", folder.filePath("work")});
    cli.waitForFinished(60000);
    return {cli.exitStatus() == QProcess::NormalExit ? cli.exitCode() : -1,
            QString::fromUtf8(cli.readAll()), timer.elapsed()};
}

// A virtual board started for each test, where the build can write at all.
struct VirtualBoard : testing::Test
{
    QString port;
    std::unique_ptr<QProcess> board;

    void SetUp() override
    {
        if (!QUILLON_HAVE_AVR_GCC || !QFile::exists(QUILLON_BOARD_FOLDER "/bootloader.hex") ||
            !QFile::exists("/usr/bin/avrdude"))
            GTEST_SKIP() << "no avr-gcc, boot loader or avrdude";
        board = StartBoard(port);
        ASSERT_TRUE(board) << "the virtual board did not start";
    }
    void TearDown() override
    {
        if (board) {
            board->terminate();
            board->waitForFinished(5000);
        }
    }
};

} // namespace

TEST_F(VirtualBoard, TheBoardsWriterWritesTheBlinkerAndItRuns)
{
    const CWrite write = WriteBlinker(port);
    EXPECT_EQ(write.Exit, 0) << write.Log.toStdString();
    EXPECT_TRUE(write.Log.contains("302 bytes of flash verified")) << write.Log.toStdString();
    EXPECT_TRUE(write.Log.trimmed().endsWith("The FLASH writing terminated."))
        << write.Log.toStdString();

    // The program runs once the boot loader lets it: PB5 turns over every 0.5 s.
    QString changes;
    for (QElapsedTimer waited; !waited.isValid() || waited.elapsed() < 3000;) {
        if (!waited.isValid())
            waited.start();
        board->waitForReadyRead(200);
        changes += QString::fromUtf8(board->readAll());
    }
    std::vector<double> times;
    for (const QString& line : changes.split(u'\n'))
        if (line.endsWith(" PB5 1") || line.endsWith(" PB5 0"))
            times.push_back(line.section(u' ', 0, 0).toDouble());
    ASSERT_GE(times.size(), 4u) << changes.toStdString();
    for (std::size_t i = 1; i < times.size(); ++i)
        EXPECT_NEAR(times[i] - times[i - 1], 0.5, 0.002) << changes.toStdString();
}

TEST_F(VirtualBoard, AStoppedBoardFailsTheWriteWithinTenSeconds)
{
    board->terminate();
    board->waitForFinished(5000);
    const CWrite write = WriteBlinker(port);
    EXPECT_EQ(write.Exit, 1);
    EXPECT_LT(write.Ms, 10000);
    EXPECT_TRUE(write.Log.contains("Error on write on FLASH.")) << write.Log.toStdString();
    EXPECT_TRUE(write.Log.trimmed().endsWith(
        "Hint: the port is not there. Check that the board is plugged in, and the port in "
        "Settings > Writer Settings."))
        << write.Log.toStdString();
}
