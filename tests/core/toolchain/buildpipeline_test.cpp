// "Build && Write" against a fake board tool that acts out every outcome.
#include "buildpipeline.h"
#include "core/toolchain/buildtest.h"
#include "processrunner.h"
#include "panelgrid.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QFileInfo>

namespace {

struct CPipelineFixture : testing::Test
{
    CBuildSandbox sandbox;
    CRecordingMessenger messenger;
    CRecordingLog log;
    CFakePortFinder finder;
    CPanelGrid grid{messenger};
    CBoardInfo board;
    CBuildSettings settings;

    void SetUp() override
    {
        settings.WorkFolder = sandbox.WorkFolder();
        settings.OutputFolder = sandbox.WorkFolder();
        messenger.Answers = {EAnswer::Cancel}; // the FLASH question
    }

    bool Build(const CFakeBoardDefinition& fake, const char* scenario, const QString& layout = "layouts/a.loc")
    {
        EXPECT_TRUE(sandbox.ReadBoard(fake, board));
        qputenv("QUILLON_FAKE_SCENARIO", scenario);
        CBuildPipeline pipeline(grid, board, settings, log, messenger, finder);
        pipeline.SetWriterPolling(100, 50); // time enough for a writer that ends at once
        return pipeline.Build(sandbox.Path(layout));
    }

    QStringList Tail(int n) const { return log.Lines.mid(log.Lines.size() - n); }
};

} // namespace

TEST_F(CPipelineFixture, SuccessfulBuildCopiesTheHexAndAsksBeforeWriting)
{
    EXPECT_FALSE(Build({}, "hex"));
    EXPECT_EQ(log.Lines, (QStringList{"The compilation started.", "Pass1...", "Pass2...", "Pass3...",
                                      "The compilation terminated.", "The FLASH writing was canceled."}));
    EXPECT_EQ(messenger.Texts, QStringList{"Build Completed.\nStart to write on FLASH."});
    EXPECT_EQ(sandbox.ReadFile("layouts/a.hex"), ":00000001FF\n");
    // The location file is the layout as saved, in the work folder.
    EXPECT_TRUE(sandbox.ReadFile("work/a.loc").startsWith("; Quillon\r\n"));
}

TEST_F(CPipelineFixture, CompilerGetsItsOptionsInOrderInTheWorkFolder)
{
    settings.ClockSource = 2;
    settings.OutputFolder = sandbox.Path("layouts");
    Build({}, "hex");
    const QString expected = QStringLiteral("hex [%1] [-o] [%2] [-w] [%3] [-x] [16] [-y] [40] [-c3] cwd=%3")
                                 .arg(sandbox.Path("work/a.loc"), sandbox.Path("layouts"), sandbox.WorkFolder());
    EXPECT_EQ(sandbox.Recorded().value(0), expected);
}

TEST_F(CPipelineFixture, UnsetClockSourceGivesC0)
{
    CBuildPipeline pipeline(grid, board, settings, log, messenger, finder);
    EXPECT_EQ(pipeline.CompilerCommand().Arguments.mid(5), (QStringList{"-x", "16", "-y", "40", "-c0"}));
}

TEST_F(CPipelineFixture, FileNamesNeverBecomeArguments)
{
    // A quote in the layout's folder and name would close a quoted path and open new options
    // if a command line were joined and split again.
    QDir(sandbox.Path("layouts")).mkpath(R"(x" -o "y)");
    const QString layout = QStringLiteral(R"(layouts/x" -o "y/a" -o "evil.loc)");
    messenger.Answers = {EAnswer::Ok};
    settings.Writer.Port = "/dev/ttyACM0";
    CFakeBoardDefinition fake;
    fake.WriterCommand = "faketool";
    EXPECT_TRUE(Build(fake, "hex", layout));
    const QStringList recorded = sandbox.Recorded();
    ASSERT_EQ(recorded.size(), 2);
    EXPECT_TRUE(recorded[0].startsWith(QStringLiteral("hex [%1] [-o] [").arg(sandbox.Path(R"(work/a" -o "evil.loc)"))))
        << recorded[0].toStdString();
    EXPECT_EQ(recorded[1], QStringLiteral("hex [/C/dev/ttyACM0] [/W2] [%1] cwd=%2")
                               .arg(sandbox.Path(R"(layouts/x" -o "y/a" -o "evil.hex)"), sandbox.WorkFolder()));
}

TEST_F(CPipelineFixture, CompilerErrorFileIsShownAfterAnEmptyLine)
{
    EXPECT_FALSE(Build({}, "err"));
    EXPECT_EQ(Tail(4), (QStringList{"Pass2...", "", "Panel (3,4): the net has two drivers.\r\n",
                                    "The compilation stopped."}));
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(CPipelineFixture, CrashingCompilerStopsTheBuild)
{
    EXPECT_FALSE(Build({}, "crash"));
    EXPECT_EQ(Tail(3), (QStringList{"Pass2...", "", "The compilation stopped."}));
}

TEST_F(CPipelineFixture, MissingCompilerIsACommandExecutionError)
{
    CFakeBoardDefinition fake;
    fake.Compiler = "nothere";
    EXPECT_FALSE(Build(fake, "hex"));
    EXPECT_EQ(Tail(5), (QStringList{"Pass2...", "Command execution error.\n(nothere,2)", "No such file or directory",
                                    "", "The compilation stopped."}));

    fake.Compiler.clear(); // the board folder itself cannot be run
    log.Lines.clear();
    EXPECT_FALSE(Build(fake, "hex"));
    EXPECT_TRUE(log.Lines.value(log.Lines.size() - 4).startsWith("Command execution error.\n(,"));
}

TEST_F(CPipelineFixture, CommandListSkipsEmptyPositionsAndStopsAtAFailure)
{
    CFakeBoardDefinition fake;
    fake.Commands = {sandbox.ToolActing("ok"), "", sandbox.ToolActing("print"), sandbox.ToolActing("fail"),
                     sandbox.ToolActing("ok")};
    EXPECT_FALSE(Build(fake, "hex"));
    EXPECT_EQ(Tail(4), (QStringList{"Pass3...", "first line", "second line", "The compilation stopped."}));
    QStringList acted;
    for (const QString& line : sandbox.Recorded())
        acted << line.section(u' ', 0, 0);
    EXPECT_EQ(acted, (QStringList{"hex", "ok", "print", "fail"}));
}

TEST_F(CPipelineFixture, CommandThatCannotStartNamesItselfAndTheSystemsReason)
{
    const struct
    {
        const char* Name;
        QByteArray Script; // written into the board folder as "tool"; empty: no file
        int Error;
        const char* Reason;
    } rows[] = {
        {"missing program", {}, 2, "No such file or directory"},
        {"neither a program nor a script", "echo hi\n", 8, "Exec format error"},
        {"a script whose interpreter is missing", "#!/no/such/sh\n", 2, "No such file or directory"},
    };
    for (const auto& row : rows) {
        const QString tool = sandbox.BoardFolder() + "/tool";
        QFile::remove(tool);
        if (!row.Script.isEmpty()) {
            sandbox.WriteFile("my board/tool", row.Script);
            QFile::setPermissions(tool, QFile::permissions(tool) | QFileDevice::ExeOwner);
        }
        CFakeBoardDefinition fake;
        fake.Commands = {u'"' + tool + "\" --x"};
        log.Lines.clear();
        EXPECT_FALSE(Build(fake, "hex")) << row.Name;
        EXPECT_EQ(Tail(3), (QStringList{QStringLiteral("Command execution error.\n(%1,%2)").arg(fake.Commands[0]).arg(row.Error),
                                        row.Reason, "The compilation stopped."}))
            << row.Name;
    }
}

TEST_F(CPipelineFixture, EmptyOrMissingHexIsNotCreated)
{
    EXPECT_FALSE(Build({}, "empty-hex"));
    EXPECT_EQ(log.Lines.last(), "HEX file was not created.");
    EXPECT_FALSE(QFileInfo::exists(sandbox.Path("layouts/a.hex")) && QFileInfo(sandbox.Path("layouts/a.hex")).size() > 0);
    log.Lines.clear();
    EXPECT_FALSE(Build({}, "ok"));
    EXPECT_EQ(log.Lines.last(), "HEX file was not created.");
}

TEST_F(CPipelineFixture, HexNamedAfterTheLayoutIsTheFallback)
{
    EXPECT_FALSE(Build({}, "named-hex", "layouts/b.c.loc"));
    EXPECT_EQ(sandbox.ReadFile("layouts/b.c.hex"), ":00000001FF\n");
    EXPECT_EQ(CBuildPipeline::HexPathFor("/x/b.c.loc"), "/x/b.c.hex");
    EXPECT_EQ(CBuildPipeline::HexPathFor("/x/plain"), "/x/plain.hex");
}

TEST_F(CPipelineFixture, FailedCheckShowsTheReportAndRunsNothing)
{
    grid.Place(-1, 3, std::make_unique<CPanelCell>("SW\tH,P1"));
    EXPECT_FALSE(Build({}, "hex"));
    EXPECT_EQ(log.Lines, (QStringList{"The compilation started.", "Pass1...",
                                      "The connection of panel [] is incomplete. "}));
    EXPECT_TRUE(sandbox.Recorded().isEmpty());
}

TEST_F(CPipelineFixture, CleaningRemovesOldFilesButNotFolders)
{
    QDir work(sandbox.WorkFolder());
    work.mkdir("BASE.x");
    for (const char* name : {"old.hex", "BASE.c", "PANEL.txt", "a.inc", "b.log", "c.err", "keep.txt"})
        sandbox.WriteFile(QStringLiteral("work/") + name, "x");
    ASSERT_TRUE(sandbox.ReadBoard({}, board));
    CBuildPipeline pipeline(grid, board, settings, log, messenger, finder);
    pipeline.CleanWorkFolder();
    EXPECT_EQ(work.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), (QStringList{"BASE.x", "keep.txt"}));
}

TEST_F(CPipelineFixture, StopEndsTheRunningProgramAndStartsNothingAfterIt)
{
    CFakeBoardDefinition fake;
    fake.Commands = {sandbox.ToolActing("sleep"), sandbox.ToolActing("ok")};
    ASSERT_TRUE(sandbox.ReadBoard(fake, board));
    qputenv("QUILLON_FAKE_SCENARIO", "hex");
    CStopRequest stop;
    CBuildPipeline pipeline(grid, board, settings, log, messenger, finder);
    pipeline.SetStopRequest(&stop);
    QTimer::singleShot(200, [&stop] { stop.Request(); });
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(pipeline.Build(sandbox.Path("layouts/a.loc")));
    EXPECT_LT(timer.elapsed(), 4000) << "the sleeping tool was ended, not waited for";
    EXPECT_EQ(Tail(3), (QStringList{"Pass3...", "Stopped at the user's request.", "The compilation stopped."}));
    QStringList acted;
    for (const QString& line : sandbox.Recorded())
        acted << line.section(u' ', 0, 0);
    EXPECT_EQ(acted, (QStringList{"hex", "sleep"}));
    EXPECT_FALSE(pipeline.HexMade());
}

TEST_F(CPipelineFixture, NoWorkFolderDoesNothing)
{
    settings.WorkFolder.clear();
    EXPECT_FALSE(Build({}, "hex"));
    EXPECT_TRUE(log.Lines.isEmpty());
}

TEST_F(CPipelineFixture, WritingNeedsAWriter)
{
    messenger.Answers = {EAnswer::Ok};
    EXPECT_FALSE(Build({}, "hex"));
    EXPECT_EQ(Tail(2), (QStringList{"The compilation terminated.", "FLASH writer was not setting."}));
}

TEST_F(CPipelineFixture, OkStartsTheBoardWriterWithTheHexBesideTheLayout)
{
    messenger.Answers = {EAnswer::Ok};
    settings.Writer.Port = "/dev/ttyACM0";
    CFakeBoardDefinition fake;
    fake.WriterCommand = "faketool";
    EXPECT_TRUE(Build(fake, "hex"));
    EXPECT_EQ(Tail(3), (QStringList{"The compilation terminated.", "The FLASH writing started.",
                                    "The FLASH writing terminated."}));
    EXPECT_EQ(sandbox.Recorded().value(1),
              QStringLiteral("hex [/C/dev/ttyACM0] [/W2] [%1] cwd=%2").arg(sandbox.Path("layouts/a.hex"), sandbox.WorkFolder()));
}
