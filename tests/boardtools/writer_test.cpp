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
    // The fake's arguments, one a line; empty when it never ran.
    QStringList AvrdudeArgs;
    bool AvrdudeRan = false;
};

struct CWriterProgram : testing::Test
{
    QTemporaryDir dir;
    QString hex;
    QString fake;

    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        hex = dir.filePath("BASE.hex");
        QFile hexFile(hex);
        ASSERT_TRUE(hexFile.open(QIODevice::WriteOnly));
        hexFile.write(":00000001FF\n");
        hexFile.close();

        fake = dir.filePath("fake-avrdude");
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

    CWriterRun Run(const QStringList& args, const QString& avrdude, int fakeExit = 0,
                   const QString& signal = QString(), const QString& path = QString())
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        if (avrdude.isNull())
            env.remove("QUILLON_AVRDUDE");
        else
            env.insert("QUILLON_AVRDUDE", avrdude);
        if (!path.isNull())
            env.insert("PATH", path);
        const QString record = dir.filePath("args.txt");
        QFile::remove(record);
        env.insert("FAKE_AVRDUDE_ARGS", record);
        env.insert("FAKE_AVRDUDE_EXIT", QString::number(fakeExit));
        env.insert("FAKE_AVRDUDE_SIGNAL", signal);

        QProcess process;
        process.setProcessEnvironment(env);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QUILLON_WRITER, args);
        CWriterRun run;
        if (!process.waitForFinished(20000))
            return run;
        run.ExitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
        run.Output = QString::fromLocal8Bit(process.readAll());
        QFile recorded(record);
        if (recorded.open(QIODevice::ReadOnly)) {
            run.AvrdudeRan = true;
            run.AvrdudeArgs = QString::fromLocal8Bit(recorded.readAll()).split('\n', Qt::SkipEmptyParts);
        }
        return run;
    }

    QStringList Expected(const QString& port, const QString& part = "m328p",
                         const QString& programmer = "arduino", const QString& baud = "115200")
    {
        QStringList args = {"-c", programmer, "-p", part, "-b", baud, "-P", port};
        // A boot loader that does not answer its first sync is given up at once.
        if (programmer == "arduino" || programmer == "stk500v1")
            args << "-x" << "attempts=1";
        return args << "-U" << "flash:w:" + hex + ":i";
    }
};

} // namespace

TEST_F(CWriterProgram, ComposesAvrdudeArguments)
{
    struct CRow
    {
        const char* Behaviour;
        QStringList Args;   // "%hex%" stands for the HEX file
        QStringList Avrdude;
    };
    const CRow rows[] = {
        {"the editor's own line", {"/C/dev/ttyACM0", "/W0", "/P", "atmega328p:arduino:115200", "%hex%"},
         Expected("/dev/ttyACM0")},
        {"options after the file, lower case", {"%hex%", "/p", "atmega328p:arduino:115200", "/w0", "/c/dev/ttyUSB1"},
         Expected("/dev/ttyUSB1")},
        {"parameters attached to /P", {"/Patmega328p:arduino:115200", "/C/dev/ttyACM0", "%hex%"},
         Expected("/dev/ttyACM0")},
        {"no /P keeps this board's defaults", {"/C/dev/ttyACM0", "%hex%"}, Expected("/dev/ttyACM0")},
        {"other processor, programmer and speed", {"/C/dev/ttyS0", "/P", "ATmega2560:wiring:57600", "%hex%"},
         Expected("/dev/ttyS0", "m2560", "wiring", "57600")},
        {"a tiny", {"/C/dev/ttyS0", "/P", "attiny85:usbasp:19200", "%hex%"},
         Expected("/dev/ttyS0", "t85", "usbasp", "19200")},
        {"avrdude's own part id passes as it is", {"/C/dev/ttyS0", "/P", "m168", "%hex%"},
         Expected("/dev/ttyS0", "m168")},
        {"empty fields keep defaults", {"/C/dev/ttyS0", "/P", "::57600", "%hex%"},
         Expected("/dev/ttyS0", "m328p", "arduino", "57600")},
        {"another boot loader of the same protocol", {"/C/dev/ttyS0", "/P", "m328p:stk500v1:57600", "%hex%"},
         Expected("/dev/ttyS0", "m328p", "stk500v1", "57600")},
        {"a COM number", {"/C3", "%hex%"}, Expected("3")},
        {"the later of two ports wins", {"/C/dev/ttyS0", "/C/dev/ttyACM1", "%hex%"}, Expected("/dev/ttyACM1")},
    };
    for (const CRow& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        QStringList args = row.Args;
        args.replaceInStrings("%hex%", hex);
        const CWriterRun run = Run(args, fake);
        EXPECT_EQ(run.ExitCode, 0) << run.Output.toStdString();
        EXPECT_EQ(run.AvrdudeArgs, row.Avrdude);
    }
}

TEST_F(CWriterProgram, HexPathThatBeginsLikeAnOptionIsStillTheFile)
{
    // An absolute Linux path starts with "/" as the options do; "/proc/.." leads back to
    // the root, so this path begins like "/P" and still names the HEX file.
    const QString path = "/proc/.." + hex;
    const CWriterRun run = Run({"/C/dev/ttyACM0", path}, fake);
    EXPECT_EQ(run.ExitCode, 0) << run.Output.toStdString();
    ASSERT_FALSE(run.AvrdudeArgs.isEmpty());
    EXPECT_EQ(run.AvrdudeArgs.last(), "flash:w:" + path + ":i");
}

TEST_F(CWriterProgram, AvrdudeExitCodeAndOutputPassThrough)
{
    for (int code : {0, 1, 3}) {
        SCOPED_TRACE(code);
        const CWriterRun run = Run({"/C/dev/ttyACM0", "/W0", hex}, fake, code);
        EXPECT_EQ(run.ExitCode, code);
        EXPECT_TRUE(run.Output.contains("1024 bytes of flash written")) << run.Output.toStdString();
    }
}

TEST_F(CWriterProgram, AvrdudeEndedBySignalIsAFailure)
{
    const CWriterRun run = Run({"/C/dev/ttyACM0", hex}, fake, 0, "KILL");
    EXPECT_EQ(run.ExitCode, 128 + 9);
}

TEST_F(CWriterProgram, AvrdudeIsFoundOnPath)
{
    QFile::copy(fake, dir.filePath("avrdude"));
    const CWriterRun run = Run({"/C/dev/ttyACM0", hex}, QString(), 0, QString(), "/nonexistent:" + dir.path());
    EXPECT_EQ(run.ExitCode, 0) << run.Output.toStdString();
    EXPECT_EQ(run.AvrdudeArgs, Expected("/dev/ttyACM0"));
}

TEST_F(CWriterProgram, FaultsHaveTheirMessageAndCode)
{
    struct CRow
    {
        const char* Behaviour;
        QStringList Args;
        QString Avrdude;     // "%fake%" is the recording fake
        QString Path;        // a null string keeps PATH
        int Code;
        const char* Message;
    };
    const QString missingHex = dir.filePath("missing.hex");
    const CRow rows[] = {
        {"no port", {"/W0", "/P", "atmega328p:arduino:115200", "%hex%"}, "%fake%", {}, 65, "no serial port given"},
        {"HEX file missing", {"/C/dev/ttyACM0", missingHex}, "%fake%", {}, 66, "missing.hex\" does not exist"},
        {"HEX path is a folder", {"/C/dev/ttyACM0", dir.path()}, "%fake%", {}, 66, "does not exist"},
        {"QUILLON_AVRDUDE names nothing", {"/C/dev/ttyACM0", "%hex%"}, dir.filePath("nothing"), {}, 67,
         "was not found"},
        {"QUILLON_AVRDUDE names a file that cannot run", {"/C/dev/ttyACM0", "%hex%"}, "%hex%", {}, 67,
         "was not found"},
        {"avrdude not on PATH", {"/C/dev/ttyACM0", "%hex%"}, QString(), dir.filePath("empty"), 67,
         "\"avrdude\" was not found"},
        {"no HEX file", {"/C/dev/ttyACM0"}, "%fake%", {}, 64, "no HEX file given"},
        {"two HEX files", {"/C/dev/ttyACM0", "%hex%", "%hex%"}, "%fake%", {}, 64, "more than one HEX file"},
        {"wait above five seconds", {"/C/dev/ttyACM0", "/W6", "%hex%"}, "%fake%", {}, 64, "out of range"},
        {"a huge wait", {"/C/dev/ttyACM0", "/W99999999999", "%hex%"}, "%fake%", {}, 64, "out of range"},
        {"/P without its value", {"/C/dev/ttyACM0", "%hex%", "/P"}, "%fake%", {}, 64, "/P needs"},
        {"baud not a number", {"/C/dev/ttyACM0", "/P", "m328p:arduino:fast", "%hex%"}, "%fake%", {}, 64,
         "not a number"},
        {"four parameter fields", {"/C/dev/ttyACM0", "/P", "a:b:1:d", "%hex%"}, "%fake%", {}, 64,
         "too many fields"},
    };
    for (const CRow& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        QStringList args = row.Args;
        args.replaceInStrings("%hex%", hex);
        QString avrdude = row.Avrdude;
        if (avrdude == "%fake%")
            avrdude = fake;
        else if (avrdude == "%hex%")
            avrdude = hex;
        const CWriterRun run = Run(args, avrdude, 0, QString(), row.Path);
        EXPECT_EQ(run.ExitCode, row.Code);
        EXPECT_TRUE(run.Output.contains(row.Message)) << run.Output.toStdString();
        EXPECT_FALSE(run.AvrdudeRan);
    }
}

TEST_F(CWriterProgram, WaitsBeforeWritingSoTheUserCanPressReset)
{
    QElapsedTimer clock;
    clock.start();
    const CWriterRun run = Run({"/C/dev/ttyACM0", "/W1", hex}, fake);
    EXPECT_GE(clock.elapsed(), 1000);
    EXPECT_EQ(run.ExitCode, 0);
    EXPECT_TRUE(run.Output.contains("press the board's reset button")) << run.Output.toStdString();
    EXPECT_TRUE(run.AvrdudeRan);
}

TEST_F(CWriterProgram, FaultsAreReportedWithoutWaiting)
{
    QElapsedTimer clock;
    clock.start();
    const CWriterRun run = Run({"/C/dev/ttyACM0", "/W5", dir.filePath("missing.hex")}, fake);
    EXPECT_EQ(run.ExitCode, 66);
    EXPECT_LT(clock.elapsed(), 4000);
}
