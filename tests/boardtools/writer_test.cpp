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

struct CWriterProgram : testing::Test
{
    QTemporaryDir dir;
    QString hex = dir.filePath("BASE.hex");
    QString fake = dir.filePath("fake-avrdude");

    void SetUp() override
    {
        QFile hexFile(hex), script(fake);
        ASSERT_TRUE(hexFile.open(QIODevice::WriteOnly) && script.open(QIODevice::WriteOnly));
        hexFile.write(":00000001FF\n");
        script.write("#!/bin/sh\n"
                     "printf '%s\\n' \"$@\" > \"$FAKE_AVRDUDE_ARGS\"\n"
                     "echo \"avrdude: 1024 bytes of flash written\"\n"
                     "[ -n \"$FAKE_AVRDUDE_SIGNAL\" ] && kill -$FAKE_AVRDUDE_SIGNAL $$\n"
                     "exit ${FAKE_AVRDUDE_EXIT:-0}\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // Arguments are blank-separated; the environment starts with QUILLON_AVRDUDE naming the
    // fake and is then changed by "NAME=value" words ("-NAME" removes one). "%hex%" stands
    // for the HEX file, "%dir%" for the test's folder.
    CWriterRun Run(const QString& args, const QString& environment = QString())
    {
        const auto expand = [this](QString text) {
            return text.replace("%hex%", hex).replace("%dir%", dir.path());
        };
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        const QString record = dir.filePath("args.txt");
        QFile::remove(record);
        env.insert("QUILLON_AVRDUDE", fake);
        env.insert("FAKE_AVRDUDE_ARGS", record);
        for (const QString& change : environment.split(u' ', Qt::SkipEmptyParts)) {
            if (change.startsWith(u'-'))
                env.remove(change.mid(1));
            else
                env.insert(change.section(u'=', 0, 0), expand(change.section(u'=', 1)));
        }
        QProcess process;
        process.setProcessEnvironment(env);
        process.setProcessChannelMode(QProcess::MergedChannels);
        QStringList words = args.split(u' ', Qt::SkipEmptyParts);
        for (QString& word : words)
            word = expand(word);
        process.start(QUILLON_WRITER, words);
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

// avrdude's arguments from "port part programmer baud hex", each after the port optional.
QStringList Avrdude(const QString& fields, const QString& hex)
{
    if (fields.isEmpty())
        return {};
    const QStringList f = fields.split(u' ');
    const QString programmer = f.value(2, "arduino");
    QStringList args = {"-c", programmer,           "-p", f.value(1, "m328p"),
                        "-b", f.value(3, "115200"), "-P", f[0]};
    // A boot loader that does not answer its first sync is given up at once.
    if (programmer == "arduino" || programmer == "stk500v1")
        args << "-x"
             << "attempts=1";
    return args << "-U"
                << "flash:w:" + f.value(4, "%hex%").replace("%hex%", hex) + ":i";
}

} // namespace

TEST_F(CWriterProgram, ComposesAvrdudeArgumentsAndPassesItsResultOn)
{
    const QString acm0 = "/C/dev/ttyACM0 ";
    const struct
    {
        const char* Behaviour;
        QString Args;
        int ExitCode;
        const char* Avrdude;      // see Avrdude(); "": it must not run
        const char* Message = ""; // in the writer's output
        const char* Environment = "";
    } rows[] = {
        {"the editor's own line", acm0 + "/W0 /P atmega328p:arduino:115200 %hex%", 0,
         "/dev/ttyACM0"},
        {"options after the file, lower case",
         "%hex% /p atmega328p:arduino:115200 /w0 /c/dev/ttyUSB1", 0, "/dev/ttyUSB1"},
        {"parameters attached to /P", "/Patmega328p:arduino:115200 " + acm0 + "%hex%", 0,
         "/dev/ttyACM0"},
        {"no /P keeps this board's defaults", acm0 + "%hex%", 0, "/dev/ttyACM0"},
        {"other processor, programmer and speed", "/C/dev/ttyS0 /P ATmega2560:wiring:57600 %hex%",
         0, "/dev/ttyS0 m2560 wiring 57600"},
        {"a tiny", "/C/dev/ttyS0 /P attiny85:usbasp:19200 %hex%", 0, "/dev/ttyS0 t85 usbasp 19200"},
        {"avrdude's own part id passes as it is", "/C/dev/ttyS0 /P m168 %hex%", 0,
         "/dev/ttyS0 m168"},
        {"empty fields keep defaults", "/C/dev/ttyS0 /P ::57600 %hex%", 0,
         "/dev/ttyS0 m328p arduino 57600"},
        {"another boot loader of the same protocol", "/C/dev/ttyS0 /P m328p:stk500v1:57600 %hex%",
         0, "/dev/ttyS0 m328p stk500v1 57600"},
        {"a COM number", "/C3 %hex%", 0, "3"},
        {"the later of two ports wins", "/C/dev/ttyS0 /C/dev/ttyACM1 %hex%", 0, "/dev/ttyACM1"},
        // An absolute Linux path starts with "/" as the options do; "/proc/.." leads back to
        // the root, so this path begins like "/P" and still names the HEX file.
        {"a HEX path that begins like an option", acm0 + "/proc/..%hex%", 0,
         "/dev/ttyACM0 m328p arduino 115200 /proc/..%hex%"},
        {"avrdude found on PATH", acm0 + "%hex%", 0, "/dev/ttyACM0", "flash written",
         "-QUILLON_AVRDUDE PATH=/nonexistent:%dir%"},
        {"avrdude's failure passes through", acm0 + "/W0 %hex%", 1, "/dev/ttyACM0", "flash written",
         "FAKE_AVRDUDE_EXIT=1"},
        {"and its exit code", acm0 + "%hex%", 3, "/dev/ttyACM0", "", "FAKE_AVRDUDE_EXIT=3"},
        {"avrdude ended by a signal fails", acm0 + "%hex%", 128 + 9, "/dev/ttyACM0", "",
         "FAKE_AVRDUDE_SIGNAL=KILL"},
        // Faults are found before avrdude runs.
        {"no port", "/W0 /P atmega328p:arduino:115200 %hex%", 65, "", "no serial port given"},
        {"HEX file missing", acm0 + "%dir%/missing.hex", 66, "", "missing.hex\" does not exist"},
        {"HEX path is a folder", acm0 + "%dir%", 66, "", "does not exist"},
        {"QUILLON_AVRDUDE names nothing", acm0 + "%hex%", 67, "", "was not found",
         "QUILLON_AVRDUDE=%dir%/nothing"},
        {"QUILLON_AVRDUDE names a file that cannot run", acm0 + "%hex%", 67, "", "was not found",
         "QUILLON_AVRDUDE=%hex%"},
        {"avrdude not on PATH", acm0 + "%hex%", 67, "", "\"avrdude\" was not found",
         "-QUILLON_AVRDUDE PATH=%dir%/empty"},
        {"no HEX file", acm0, 64, "", "no HEX file given"},
        {"two HEX files", acm0 + "%hex% %hex%", 64, "", "more than one HEX file"},
        {"wait above five seconds", acm0 + "/W6 %hex%", 64, "", "out of range"},
        {"a huge wait", acm0 + "/W99999999999 %hex%", 64, "", "out of range"},
        {"/P without its value", acm0 + "%hex% /P", 64, "", "/P needs"},
        {"baud not a number", acm0 + "/P m328p:arduino:fast %hex%", 64, "", "not a number"},
        {"four parameter fields", acm0 + "/P a:b:1:d %hex%", 64, "", "too many fields"},
    };
    QFile::copy(fake, dir.filePath("avrdude"));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        const CWriterRun run = Run(row.Args, row.Environment);
        EXPECT_EQ(run.ExitCode, row.ExitCode) << run.Output.toStdString();
        EXPECT_EQ(run.AvrdudeArgs, Avrdude(row.Avrdude, hex));
        EXPECT_TRUE(run.Output.contains(row.Message)) << run.Output.toStdString();
    }
}

TEST_F(CWriterProgram, WaitsBeforeWritingSoTheUserCanPressResetButFailsFast)
{
    QElapsedTimer clock;
    clock.start();
    const CWriterRun run = Run("/C/dev/ttyACM0 /W1 %hex%");
    EXPECT_GE(clock.elapsed(), 1000);
    EXPECT_EQ(run.ExitCode, 0);
    EXPECT_TRUE(run.Output.contains("press the board's reset button")) << run.Output.toStdString();
    EXPECT_FALSE(run.AvrdudeArgs.isEmpty());

    // A fault is reported without the wait.
    clock.restart();
    EXPECT_EQ(Run("/C/dev/ttyACM0 /W5 %dir%/missing.hex").ExitCode, 66);
    EXPECT_LT(clock.elapsed(), 4000);
}
