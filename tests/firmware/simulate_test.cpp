// quillon-cli simulate: the examples hold the vectors shipped beside them, and a vectors
// file that is wrong, or an output that does not do what it says, is told with its place.
#include "firmwaretest.h"
#include "layoutfile.h"
#include "panelgrid.h"
#include "simsignals.h"
#include "simvectors.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct CCliRun
{
    int Exit = -1;
    QString Out, Err;
};

// Runs quillon-cli simulate on a copy of an example in a fresh folder.
CCliRun Simulate(const QString& example, const QStringList& options)
{
    QTemporaryDir folder;
    const QString layout = folder.filePath(example + ".loc");
    QFile::copy(QStringLiteral(QUILLON_EXAMPLES_FOLDER "/") + example + ".loc", layout);
    QProcess cli;
    cli.setWorkingDirectory(folder.path());
    cli.start(QStringLiteral(QUILLON_CLI),
              QStringList{"simulate", layout, "--board", QUILLON_BOARD_FOLDER, "--work",
                          folder.filePath("work")} +
                  options);
    cli.waitForFinished(120000);
    return {cli.exitStatus() == QProcess::NormalExit ? cli.exitCode() : -1,
            QString::fromUtf8(cli.readAllStandardOutput()),
            QString::fromUtf8(cli.readAllStandardError())};
}

} // namespace

TEST(Simulate, EveryExampleHoldsItsVectors)
{
    if (!QUILLON_HAVE_AVR_GCC)
        GTEST_SKIP() << "avr-gcc not found";
    const QDir examples(QStringLiteral(QUILLON_EXAMPLES_FOLDER));
    const QStringList vectors = examples.entryList({"*.vectors"});
    EXPECT_EQ(vectors.size(), examples.entryList({"*.loc"}).size()) << "an example has none";
    for (const QString& name : vectors) {
        SCOPED_TRACE(name.toStdString());
        const CCliRun run =
            Simulate(QFileInfo(name).completeBaseName(), {"--vectors", examples.filePath(name)});
        EXPECT_EQ(run.Exit, 0) << run.Err.toStdString();
        EXPECT_TRUE(run.Out.contains("expectations held")) << run.Out.toStdString();
    }
}

// Inputs from the command line drive the latch; the trace and the waveforms show its lamp.
TEST(Simulate, InputsTraceAndWaveforms)
{
    if (!QUILLON_HAVE_AVR_GCC)
        GTEST_SKIP() << "avr-gcc not found";
    QTemporaryDir out;
    const QString vcd = out.filePath("latch.vcd");
    const CCliRun run = Simulate("latch", {"--input", "start=0@0s", "--input", "stop=0@0s",
                                           "--input", "start=1@50ms", "--input", "D2=0@90ms",
                                           "--for", "200ms", "--trace", "--vcd", vcd});
    ASSERT_EQ(run.Exit, 0) << run.Err.toStdString();
    // The key settles for 20 ms and the next scan lights the lamp.
    EXPECT_TRUE(run.Out.startsWith("0.07")) << run.Out.toStdString();
    EXPECT_TRUE(run.Out.contains(" s  run (O_02, PB5) 1\n")) << run.Out.toStdString();
    QFile file(vcd);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray waves = file.readAll();
    for (const char* part :
         {"$timescale 1ns $end", "$var wire 1 . PB5 $end", "$scope module grid $end",
          "$var wire 1 . run $end", "$var wire 1 # start $end", "\n#500000", "\n1#\n#71",
          "\n#900000", "\n0#\n", "\n#2000000"})
        EXPECT_TRUE(waves.contains(part)) << part;
}

TEST(Simulate, AnOutputThatDoesNotHoldNamesItselfTheTimeAndBothLevels)
{
    if (!QUILLON_HAVE_AVR_GCC)
        GTEST_SKIP() << "avr-gcc not found";
    QTemporaryDir out;
    const QString vectors = out.filePath("wrong.vectors");
    QFile file(vectors);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0s set start=0 stop=0\n50ms expect run=0\n60ms expect run=1\n900ms expect run=0\n");
    file.close();
    const CCliRun run = Simulate("latch", {"--vectors", vectors});
    EXPECT_EQ(run.Exit, 1);
    EXPECT_EQ(run.Err, "At 0.060000 s, run was expected to be 1 but was 0.\n");
}

// Every fault of a vectors line is told with its line and column, before anything runs.
TEST(Simulate, VectorsFaultsNameLineAndColumn)
{
    CRecordingMessenger messenger;
    CBoardInfo board;
    ASSERT_TRUE(board.Read(QUILLON_BOARD_FOLDER, QString(), messenger));
    CPanelGrid grid(messenger);
    ASSERT_TRUE(CLayoutFile(&board, messenger).Load(grid, QUILLON_EXAMPLES_FOLDER "/latch.loc"));
    const CSimSignals signals(grid, board, Uno());
    const struct
    {
        const char* Line;
        const char* Error;
    } rows[] = {
        {"0s set start=1 PD3=0 O_02=0", "is an output"},
        {"5x set start=1", "v, line 2, column 1: a time"},
        {"1s", "v, line 2, column 3: \"set\""},
        {"1s  set nosuch=1", "column 9: no input, output or pin is named \"nosuch\""},
        {"1s set start=2", "column 14: a level"},
        {"1s expect serial=\"abc", "column 18: a text in double quotes"},
        {"1s serial \"\\q\"", "column 11: a text"},
        {"1s jump start=1", "column 4: \"set\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Line);
        CSimVectors vectors(signals);
        EXPECT_FALSE(vectors.Parse(QString("# first line\n") + row.Line, "v"));
        EXPECT_TRUE(vectors.Error().contains(row.Error)) << vectors.Error().toStdString();
    }
    // What is right reads as events in time order: A2 is an analog pin read as a level.
    CSimVectors vectors(signals);
    ASSERT_TRUE(vectors.Parse("1s set D2=1 ; a comment\r\n0.5s serial \"a\\x41\\r\" "
                              "expect lcd2=\"x\" A2=1",
                              "v"));
    const QList<CSimVectors::CEvent> events = vectors.Events();
    ASSERT_EQ(events.size(), 4);
    EXPECT_EQ(events[0].Text, "aA\r");
    EXPECT_EQ(events[1].Kind, CSimVectors::CEvent::ExpectLcd);
    EXPECT_EQ(events[1].Value, 2);
    EXPECT_EQ(events[2].Pin, PC2);
    EXPECT_EQ(events[3].Ms, 1000);
    EXPECT_EQ(events[3].Pin, PD2);
    EXPECT_TRUE(vectors.ParseInput("start=1@250us"));
    EXPECT_FALSE(vectors.ParseInput("start=1"));
}
