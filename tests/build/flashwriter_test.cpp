// Composing and running the FLASH writer.
#include "build/buildtest.h"
#include "build/flashwriter.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace {

struct CWriterFixture : testing::Test
{
    CBuildSandbox sandbox;
    CRecordingLog log;
    CFakePortFinder finder;
    CBoardInfo board;
    CWriterSettings settings;

    QString Compose(const QString& writerCommand, const QString& param = QString())
    {
        CFakeBoardDefinition fake;
        fake.WriterCommand = writerCommand;
        fake.WriterParam = param;
        EXPECT_TRUE(sandbox.ReadBoard(fake, board));
        CFlashWriter writer(board, settings, finder, log);
        return writer.BoardCommand("/l/a.hex");
    }

    bool Write(const char* scenario)
    {
        qputenv("QUILLON_FAKE_SCENARIO", scenario);
        CFlashWriter writer(board, settings, finder, log);
        writer.SetPolling(3, 10);
        return writer.Write("/l/a.hex", sandbox.WorkFolder());
    }
};

} // namespace

TEST_F(CWriterFixture, BoardWriterOptionsInOrder)
{
    settings.Port = "3";
    settings.Wait = 4;
    EXPECT_EQ(Compose("w.exe", "-b 115200"), sandbox.BoardFolder() + "/w.exe /C3 /W4 /P -b 115200 \"/l/a.hex\"");
    EXPECT_EQ(finder.Calls, 0);
}

TEST_F(CWriterFixture, TemplateThatNamesItsPortGetsNoSecondAndNoSearch)
{
    EXPECT_EQ(Compose("w.exe /c3"), sandbox.BoardFolder() + "/w.exe /c3 /W2 \"/l/a.hex\"");
    EXPECT_EQ(Compose("w.exe /w1 /C7"), sandbox.BoardFolder() + "/w.exe /w1 /C7 \"/l/a.hex\"");
    EXPECT_EQ(finder.Calls, 0);
}

TEST_F(CWriterFixture, ZeroWaitIsStillPassed)
{
    settings.Port = "/dev/ttyUSB0";
    settings.Wait = 0;
    EXPECT_EQ(Compose("w"), sandbox.BoardFolder() + "/w /C/dev/ttyUSB0 /W0 \"/l/a.hex\"");
}

TEST_F(CWriterFixture, UnsetPortIsFoundByTheBoardsInterfaceName)
{
    finder.Port = "/dev/ttyACM1";
    EXPECT_EQ(Compose("w"), sandbox.BoardFolder() + "/w /C/dev/ttyACM1 /W2 \"/l/a.hex\"");
    EXPECT_EQ(finder.AskedFor, "FakeSerial");

    finder.Port.clear();
    EXPECT_EQ(Compose("w"), "");
    EXPECT_EQ(log.Lines.last(), "COM-port scanning was not completed.\r\nPlease set the COM-port number.");
}

TEST_F(CWriterFixture, BoardFolderPathsNeverCountAsOptions)
{
    // "/c" and "/w" in the folder's own path are no options of the template.
    settings.Port = "5";
    const QString command = Compose("w");
    EXPECT_TRUE(command.contains(" /C5 /W2 ")) << command.toStdString();
}

TEST_F(CWriterFixture, UserWriterTakesTheHexWhereThePlaceholderStands)
{
    EXPECT_EQ(CFlashWriter::UserCommand("/opt/w", "-f %hex% -v", "/l/a.hex"), "\"/opt/w\" -f \"/l/a.hex\" -v");
    EXPECT_EQ(CFlashWriter::UserCommand("/opt/w", "-v", "/l/a.hex"), "\"/opt/w\"");
    EXPECT_EQ(CFlashWriter::UserCommand("/opt/w", "%hex% %hex%", "/h"), "\"/opt/w\" \"/h\" %hex%");
}

TEST_F(CWriterFixture, WriterExitCodeDecides)
{
    settings.Port = "1";
    ASSERT_TRUE(sandbox.ReadBoard({.WriterCommand = "faketool"}, board));
    EXPECT_TRUE(Write("ok"));
    EXPECT_EQ(log.Lines.last(), "The FLASH writing terminated.");
    EXPECT_FALSE(Write("fail"));
    EXPECT_EQ(log.Lines.last(), "Error on write on FLASH. code=3");
}

TEST_F(CWriterFixture, WriterStillRunningAfterTheWatchIsReportedAndLeftRunning)
{
    settings.Port = "1";
    ASSERT_TRUE(sandbox.ReadBoard({.WriterCommand = "faketool"}, board));
    qputenv("QUILLON_FAKE_SLEEP_MS", "300");
    EXPECT_FALSE(Write("sleep"));
    qunsetenv("QUILLON_FAKE_SLEEP_MS");
    EXPECT_EQ(log.Lines.last(), "Error on write on FLASH. code=259");
    QElapsedTimer timer;
    timer.start();
    while (!sandbox.Recorded().contains("woke") && timer.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_TRUE(sandbox.Recorded().contains("woke"));
}

TEST_F(CWriterFixture, UserWriterIsStartedAndNotWaitedFor)
{
    ASSERT_TRUE(sandbox.ReadBoard({}, board));
    settings.Writer = sandbox.Tool();
    settings.WriterOptions = "--act ok %hex%";
    EXPECT_TRUE(Write(""));
    EXPECT_TRUE(log.Lines.isEmpty()); // a user writer reports nothing of its own
    QElapsedTimer timer;
    timer.start();
    while (sandbox.Recorded().isEmpty() && timer.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_TRUE(sandbox.Recorded().value(0).startsWith("ok [/l/a.hex]"));
}

TEST_F(CWriterFixture, MissingWriterIsACommandExecutionError)
{
    settings.Port = "1";
    ASSERT_TRUE(sandbox.ReadBoard({.WriterCommand = "gone"}, board));
    EXPECT_FALSE(Write("ok"));
    EXPECT_EQ(log.Lines.last(), "Command execution error.\n(gone,2)");

    ASSERT_TRUE(sandbox.ReadBoard({}, board));
    settings.Writer.clear();
    log.Lines.clear();
    EXPECT_FALSE(Write("ok"));
    EXPECT_EQ(log.Lines, QStringList{"FLASH writer was not setting."});
}
