// Composing and running the FLASH writer.
#include "core/toolchain/buildtest.h"
#include "flashwriter.h"
#include "stringtable.h"

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
        EXPECT_TRUE(
            sandbox.ReadBoard({.WriterCommand = writerCommand, .WriterParam = param}, board));
        const CCommandLine command =
            CFlashWriter(board, settings, finder, log).BoardCommand("/l/a b.hex");
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

    // Waits for a program the writer left running to record what it did.
    bool Recorded(const QString& prefix)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 5000) {
            for (const QString& line : sandbox.Recorded())
                if (line.startsWith(prefix))
                    return true;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        return false;
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
        QString Expected;            // after the writer's path, '|' between; "" no command
        const char* Found = nullptr; // asked: its answer
    } rows[] = {
        {"options in order", "w.exe", "-b 115200", "3", 4, "/C3|/W4|/P|-b|115200|/l/a b.hex"},
        {"a port in the template gets no second", "w.exe /c3", "", "", 2, "/c3|/W2|/l/a b.hex"},
        {"nor a wait", "w.exe /w1 /C7", "", "", 2, "/w1|/C7|/l/a b.hex"},
        {"zero wait is still passed", "w", "", "/dev/ttyUSB0", 0, "/C/dev/ttyUSB0|/W0|/l/a b.hex"},
        {"quoted template arguments stay whole", "w \"-x a b\"", "", "5", 2,
         "-x a b|/C5|/W2|/l/a b.hex"},
        {"an unset port is found by the board's interface name", "w", "", "", 2,
         "/C/dev/ttyACM1|/W2|/l/a b.hex", "/dev/ttyACM1"},
        {"no board found, no command", "w", "", "", 2, "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        settings.Port = row.Port;
        settings.Wait = row.Wait;
        finder = {};
        finder.Port = row.Found;
        const QStringList command = Compose(row.Template, row.Param);
        EXPECT_EQ(command.mid(1).join(u'|'), row.Expected);
        if (!row.Expected.isEmpty()) {
            EXPECT_EQ(command.value(0),
                      sandbox.BoardFolder() + "/" + QString(row.Template).section(u' ', 0, 0));
        }
        EXPECT_EQ(finder.AskedFor, row.Found ? "FakeSerial" : "");
    }
    EXPECT_EQ(
        log.Lines,
        QStringList{"COM-port scanning was not completed.\r\nPlease set the COM-port number."});
}

TEST_F(CWriterFixture, UserWriterTakesTheHexWhereThePlaceholderStands)
{
    const std::pair<const char*, const char*> rows[] = {
        {"-f %hex% -v", "-f|/l/a \" b.hex|-v"},
        {"-v", ""},
        {"%hex% %hex%", "/l/a \" b.hex|%hex%"},
        {"\"-Uflash:w:%hex%:i\" -q", "-Uflash:w:/l/a \" b.hex:i|-q"},
    };
    for (const auto& [options, arguments] : rows) {
        const CCommandLine command =
            CFlashWriter::UserCommand("/opt/my writer", options, "/l/a \" b.hex");
        EXPECT_EQ(command.Program, "/opt/my writer") << options;
        EXPECT_EQ(command.Arguments.join(u'|'), arguments) << options;
    }
}

TEST_F(CWriterFixture, BoardWriterIsWatchedAndItsExitCodeDecides)
{
    settings.Port = "1";
    const struct
    {
        const char* Writer;
        const char* Scenario;
        int Readings;
        QString Tail; // '|' between lines
    } rows[] = {
        {"faketool", "ok", 100, "The FLASH writing terminated."},
        {"faketool", "fail", 100, "Error on write on FLASH. code=3"},
        {"faketool", "crash", 100, "Error on write on FLASH. code=6"},
        // Still running after the watch: reported and left running.
        {"faketool", "sleep", 3, "Error on write on FLASH. code=259"},
        {"gone", "ok", 100, "Command execution error.\n(gone,2)|No such file or directory"},
    };
    qputenv("QUILLON_FAKE_SLEEP_MS", "300");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Scenario);
        ASSERT_TRUE(sandbox.ReadBoard({.WriterCommand = row.Writer}, board));
        const QStringList tail = row.Tail.split(u'|');
        EXPECT_EQ(Write(row.Scenario, row.Readings),
                  tail.last() == "The FLASH writing terminated.");
        EXPECT_EQ(log.Tail(tail.size()), tail);
    }
    qunsetenv("QUILLON_FAKE_SLEEP_MS");
    EXPECT_TRUE(Recorded("woke"));
}

TEST_F(CWriterFixture, UserWriterIsStartedAndNotWaitedFor)
{
    ASSERT_TRUE(sandbox.ReadBoard({}, board));
    EXPECT_FALSE(Write("ok"));
    EXPECT_EQ(log.Lines, QStringList{"FLASH writer was not setting."});

    log.Lines.clear();
    settings.Writer = sandbox.Tool();
    settings.WriterOptions = "--act ok %hex%";
    EXPECT_TRUE(Write(""));
    EXPECT_TRUE(log.Lines.isEmpty()) << "a user writer reports nothing of its own";
    EXPECT_TRUE(Recorded("ok [/l/a.hex]"));
}

// A failed write ends with a hint in plain words for what the writer said.
TEST(WriterHint, NamesTheKindOfFailure)
{
    const struct
    {
        const char* Output;
        int Hint;
    } rows[] = {
        {"avrdude OS error: cannot open port /dev/ttyACM0: No such file or directory",
         Ids::HintWriterNoPort},
        {"avrdude error: programmer is not responding", Ids::HintWriterNoAnswer},
        {"avrdude warning: attempt 1 of 10: not in sync: resp=0x00", Ids::HintWriterNoAnswer},
        {"avrdude OS error: cannot open port /dev/ttyACM0: Permission denied",
         Ids::HintWriterDenied},
        {"avrdude OS error: cannot open port /dev/ttyACM0: Device or resource busy",
         Ids::HintWriterBusy},
        {"avrdude: verification error, first mismatch at byte 0x0000", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CFlashWriter::HintFor({"avrdude: stk500 version 5", row.Output}), row.Hint)
            << row.Output;
}
