// Composing and running the FLASH writer.
#include "core/toolchain/buildtest.h"
#include "flashwriter.h"

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

    // The board writer's command line as the writer receives it: program, then arguments.
    QStringList Compose(const QString& writerCommand, const QString& param = QString())
    {
        CFakeBoardDefinition fake;
        fake.WriterCommand = writerCommand;
        fake.WriterParam = param;
        EXPECT_TRUE(sandbox.ReadBoard(fake, board));
        CFlashWriter writer(board, settings, finder, log);
        const CCommandLine command = writer.BoardCommand("/l/a b.hex");
        return command.IsEmpty() ? QStringList() : QStringList{command.Program} + command.Arguments;
    }

    // The watch is long enough for a writer that ends at once, even on a busy machine,
    // unless a test wants it short.
    bool Write(const char* scenario, int readings = 100)
    {
        qputenv("QUILLON_FAKE_SCENARIO", scenario);
        CFlashWriter writer(board, settings, finder, log);
        writer.SetPolling(readings, 50);
        return writer.Write("/l/a.hex", sandbox.WorkFolder());
    }
};

} // namespace

TEST_F(CWriterFixture, BoardWriterCommandLines)
{
    const struct
    {
        const char* Name;
        const char* Template;
        const char* Param;
        const char* Port;
        int Wait;
        QStringList Expected; // after the writer's path
    } rows[] = {
        {"options in order", "w.exe", "-b 115200", "3", 4, {"/C3", "/W4", "/P", "-b", "115200", "/l/a b.hex"}},
        {"a port in the template gets no second", "w.exe /c3", "", "", 2, {"/c3", "/W2", "/l/a b.hex"}},
        {"nor a wait", "w.exe /w1 /C7", "", "", 2, {"/w1", "/C7", "/l/a b.hex"}},
        {"zero wait is still passed", "w", "", "/dev/ttyUSB0", 0, {"/C/dev/ttyUSB0", "/W0", "/l/a b.hex"}},
        {"quoted template arguments stay whole", "w \"-x a b\"", "", "5", 2, {"-x a b", "/C5", "/W2", "/l/a b.hex"}},
    };
    for (const auto& row : rows) {
        settings.Port = row.Port;
        settings.Wait = row.Wait;
        const QStringList command = Compose(row.Template, row.Param);
        EXPECT_EQ(command.mid(1), row.Expected) << row.Name;
        EXPECT_EQ(command.value(0), sandbox.BoardFolder() + "/" + QString(row.Template).section(u' ', 0, 0)) << row.Name;
    }
    EXPECT_EQ(finder.Calls, 0);
}

TEST_F(CWriterFixture, UnsetPortIsFoundByTheBoardsInterfaceName)
{
    finder.Port = "/dev/ttyACM1";
    EXPECT_EQ(Compose("w").mid(1, 1), QStringList{"/C/dev/ttyACM1"});
    EXPECT_EQ(finder.AskedFor, "FakeSerial");

    finder.Port.clear();
    EXPECT_EQ(Compose("w"), QStringList());
    EXPECT_EQ(log.Lines.last(), "COM-port scanning was not completed.\r\nPlease set the COM-port number.");
}

TEST_F(CWriterFixture, UserWriterTakesTheHexWhereThePlaceholderStands)
{
    const struct
    {
        const char* Options;
        QStringList Arguments;
    } rows[] = {
        {"-f %hex% -v", {"-f", "/l/a \" b.hex", "-v"}},
        {"-v", {}},
        {"%hex% %hex%", {"/l/a \" b.hex", "%hex%"}},
        {"\"-Uflash:w:%hex%:i\" -q", {"-Uflash:w:/l/a \" b.hex:i", "-q"}},
    };
    for (const auto& row : rows) {
        const CCommandLine command = CFlashWriter::UserCommand("/opt/my writer", row.Options, "/l/a \" b.hex");
        EXPECT_EQ(command.Program, "/opt/my writer") << row.Options;
        EXPECT_EQ(command.Arguments, row.Arguments) << row.Options;
    }
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
    EXPECT_FALSE(Write("sleep", 3));
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
    EXPECT_EQ(log.Lines.mid(log.Lines.size() - 2), (QStringList{"Command execution error.\n(gone,2)", "No such file or directory"}));

    ASSERT_TRUE(sandbox.ReadBoard({}, board));
    settings.Writer.clear();
    log.Lines.clear();
    EXPECT_FALSE(Write("ok"));
    EXPECT_EQ(log.Lines, QStringList{"FLASH writer was not setting."});
}
