// The board's FLASH writer, run as the editor runs it, with a fake avrdude that records
// its arguments.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct CWriterRun
{
    int ExitCode = -1;
    QString Output;
    QStringList AvrdudeArgs; /* empty: it never ran */
};

// How a run differs from a plain one with the recording fake.
struct CRunCase
{
    const char* Behaviour;
    QStringList Args; // "%hex%" stands for the HEX file
    int ExitCode;
    QStringList Avrdude;      // the fake's arguments; empty: it must not run
    const char* Message = ""; // in the writer's output
    QString Program =
        "%fake%";      // QUILLON_AVRDUDE: "%fake%" the fake, "%hex%" the HEX file, null unset
    QString Path = {}; // PATH; null keeps it
    int FakeExit = 0;
    const char* Signal = ""; // the fake ends itself by this signal
};

struct CWriterProgram : testing::Test
{
    QTemporaryDir dir;
    QString hex = dir.filePath("BASE.hex");
    QString fake = dir.filePath("fake-avrdude");

    void SetUp() override
    {
        QFile hexFile(hex);
        ASSERT_TRUE(hexFile.open(QIODevice::WriteOnly));
        hexFile.write(":00000001FF\n");
        hexFile.close();
        QFile script(fake);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\n"
                     "printf '%s\\n' \"$@\" > \"$FAKE_AVRDUDE_ARGS\"\n"
                     "echo \"avrdude: 1024 bytes of flash written\"\n"
                     "[ -n \"$FAKE_AVRDUDE_SIGNAL\" ] && kill -$FAKE_AVRDUDE_SIGNAL $$\n"
                     "exit ${FAKE_AVRDUDE_EXIT:-0}\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    CWriterRun Run(const CRunCase& c)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        if (c.Program.isNull())
            env.remove("QUILLON_AVRDUDE");
        else
            env.insert("QUILLON_AVRDUDE",
                       QString(c.Program).replace("%fake%", fake).replace("%hex%", hex));
        if (!c.Path.isNull())
            env.insert("PATH", c.Path);
        const QString record = dir.filePath("args.txt");
        QFile::remove(record);
        env.insert("FAKE_AVRDUDE_ARGS", record);
        env.insert("FAKE_AVRDUDE_EXIT", QString::number(c.FakeExit));
        env.insert("FAKE_AVRDUDE_SIGNAL", c.Signal);
        QProcess process;
        process.setProcessEnvironment(env);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QUILLON_WRITER, QStringList(c.Args).replaceInStrings("%hex%", hex));
        CWriterRun run;
        if (!process.waitForFinished(20000))
            return run;
        run.ExitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
        run.Output = QString::fromLocal8Bit(process.readAll());
        QFile recorded(record);
        if (recorded.open(QIODevice::ReadOnly))
            run.AvrdudeArgs =
                QString::fromLocal8Bit(recorded.readAll()).split('\n', Qt::SkipEmptyParts);
        return run;
    }
};

QStringList Avrdude(const QString& port, const QString& part = "m328p",
                    const QString& programmer = "arduino", const QString& baud = "115200",
                    const QString& hex = "%hex%")
{
    QStringList args = {"-c", programmer, "-p", part, "-b", baud, "-P", port};
    // A boot loader that does not answer its first sync is given up at once.
    if (programmer == "arduino" || programmer == "stk500v1")
        args << "-x"
             << "attempts=1";
    return args << "-U"
                << "flash:w:" + hex + ":i";
}

} // namespace

TEST_F(CWriterProgram, ComposesAvrdudeArgumentsAndPassesItsResultOn)
{
    const char* written = "1024 bytes of flash written";
    const CRunCase rows[] = {
        {"the editor's own line",
         {"/C/dev/ttyACM0", "/W0", "/P", "atmega328p:arduino:115200", "%hex%"},
         0,
         Avrdude("/dev/ttyACM0")},
        {"options after the file, lower case",
         {"%hex%", "/p", "atmega328p:arduino:115200", "/w0", "/c/dev/ttyUSB1"},
         0,
         Avrdude("/dev/ttyUSB1")},
        {"parameters attached to /P",
         {"/Patmega328p:arduino:115200", "/C/dev/ttyACM0", "%hex%"},
         0,
         Avrdude("/dev/ttyACM0")},
        {"no /P keeps this board's defaults",
         {"/C/dev/ttyACM0", "%hex%"},
         0,
         Avrdude("/dev/ttyACM0")},
        {"other processor, programmer and speed",
         {"/C/dev/ttyS0", "/P", "ATmega2560:wiring:57600", "%hex%"},
         0,
         Avrdude("/dev/ttyS0", "m2560", "wiring", "57600")},
        {"a tiny",
         {"/C/dev/ttyS0", "/P", "attiny85:usbasp:19200", "%hex%"},
         0,
         Avrdude("/dev/ttyS0", "t85", "usbasp", "19200")},
        {"avrdude's own part id passes as it is",
         {"/C/dev/ttyS0", "/P", "m168", "%hex%"},
         0,
         Avrdude("/dev/ttyS0", "m168")},
        {"empty fields keep defaults",
         {"/C/dev/ttyS0", "/P", "::57600", "%hex%"},
         0,
         Avrdude("/dev/ttyS0", "m328p", "arduino", "57600")},
        {"another boot loader of the same protocol",
         {"/C/dev/ttyS0", "/P", "m328p:stk500v1:57600", "%hex%"},
         0,
         Avrdude("/dev/ttyS0", "m328p", "stk500v1", "57600")},
        {"a COM number", {"/C3", "%hex%"}, 0, Avrdude("3")},
        {"the later of two ports wins",
         {"/C/dev/ttyS0", "/C/dev/ttyACM1", "%hex%"},
         0,
         Avrdude("/dev/ttyACM1")},
        // An absolute Linux path starts with "/" as the options do; "/proc/.." leads back to
        // the root, so this path begins like "/P" and still names the HEX file.
        {"a HEX path that begins like an option",
         {"/C/dev/ttyACM0", "/proc/..%hex%"},
         0,
         Avrdude("/dev/ttyACM0", "m328p", "arduino", "115200", "/proc/..%hex%")},
        {"avrdude found on PATH",
         {"/C/dev/ttyACM0", "%hex%"},
         0,
         Avrdude("/dev/ttyACM0"),
         written,
         QString(),
         "/nonexistent:%dir%"},
        {"avrdude's failure passes through",
         {"/C/dev/ttyACM0", "/W0", "%hex%"},
         1,
         Avrdude("/dev/ttyACM0"),
         written,
         "%fake%",
         {},
         1},
        {"and its exit code",
         {"/C/dev/ttyACM0", "%hex%"},
         3,
         Avrdude("/dev/ttyACM0"),
         written,
         "%fake%",
         {},
         3},
        {"avrdude ended by a signal fails",
         {"/C/dev/ttyACM0", "%hex%"},
         128 + 9,
         Avrdude("/dev/ttyACM0"),
         written,
         "%fake%",
         {},
         0,
         "KILL"},
        // Faults are found before avrdude runs.
        {"no port",
         {"/W0", "/P", "atmega328p:arduino:115200", "%hex%"},
         65,
         {},
         "no serial port given"},
        {"HEX file missing",
         {"/C/dev/ttyACM0", "%dir%/missing.hex"},
         66,
         {},
         "missing.hex\" does not exist"},
        {"HEX path is a folder", {"/C/dev/ttyACM0", "%dir%"}, 66, {}, "does not exist"},
        {"QUILLON_AVRDUDE names nothing",
         {"/C/dev/ttyACM0", "%hex%"},
         67,
         {},
         "was not found",
         "%dir%/nothing"},
        {"QUILLON_AVRDUDE names a file that cannot run",
         {"/C/dev/ttyACM0", "%hex%"},
         67,
         {},
         "was not found",
         "%hex%"},
        {"avrdude not on PATH",
         {"/C/dev/ttyACM0", "%hex%"},
         67,
         {},
         "\"avrdude\" was not found",
         QString(),
         "%dir%/empty"},
        {"no HEX file", {"/C/dev/ttyACM0"}, 64, {}, "no HEX file given"},
        {"two HEX files", {"/C/dev/ttyACM0", "%hex%", "%hex%"}, 64, {}, "more than one HEX file"},
        {"wait above five seconds", {"/C/dev/ttyACM0", "/W6", "%hex%"}, 64, {}, "out of range"},
        {"a huge wait", {"/C/dev/ttyACM0", "/W99999999999", "%hex%"}, 64, {}, "out of range"},
        {"/P without its value", {"/C/dev/ttyACM0", "%hex%", "/P"}, 64, {}, "/P needs"},
        {"baud not a number",
         {"/C/dev/ttyACM0", "/P", "m328p:arduino:fast", "%hex%"},
         64,
         {},
         "not a number"},
        {"four parameter fields",
         {"/C/dev/ttyACM0", "/P", "a:b:1:d", "%hex%"},
         64,
         {},
         "too many fields"},
    };
    QFile::copy(fake, dir.filePath("avrdude"));
    for (CRunCase row : rows) {
        SCOPED_TRACE(row.Behaviour);
        row.Args.replaceInStrings("%dir%", dir.path());
        for (QString* text : {&row.Program, &row.Path})
            if (!text->isNull())
                text->replace("%dir%", dir.path());
        const CWriterRun run = Run(row);
        EXPECT_EQ(run.ExitCode, row.ExitCode) << run.Output.toStdString();
        EXPECT_EQ(run.AvrdudeArgs, row.Avrdude.replaceInStrings("%hex%", hex));
        EXPECT_TRUE(run.Output.contains(row.Message)) << run.Output.toStdString();
    }
}

TEST_F(CWriterProgram, WaitsBeforeWritingSoTheUserCanPressResetButFailsFast)
{
    QElapsedTimer clock;
    clock.start();
    const CWriterRun run = Run({"wait", {"/C/dev/ttyACM0", "/W1", hex}, 0, {}});
    EXPECT_GE(clock.elapsed(), 1000);
    EXPECT_EQ(run.ExitCode, 0);
    EXPECT_TRUE(run.Output.contains("press the board's reset button")) << run.Output.toStdString();
    EXPECT_FALSE(run.AvrdudeArgs.isEmpty());

    // A fault is reported without the wait.
    clock.restart();
    EXPECT_EQ(
        Run({"fault", {"/C/dev/ttyACM0", "/W5", dir.filePath("missing.hex")}, 0, {}}).ExitCode, 66);
    EXPECT_LT(clock.elapsed(), 4000);
}
