// "Build && Write" against a fake board tool that acts out every outcome.
#include "buildpipeline.h"
#include "core/toolchain/buildtest.h"
#include "panelgrid.h"
#include "processrunner.h"
#include "settings.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>

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
    CStopRequest stop;

    void SetUp() override
    {
        settings.WorkFolder = sandbox.WorkFolder();
        settings.OutputFolder = sandbox.WorkFolder();
        messenger.Answers = {EAnswer::Cancel}; // the FLASH question
    }

    bool Build(const CFakeBoardDefinition& fake, const char* scenario,
               const QString& layout = "layouts/a.loc")
    {
        EXPECT_TRUE(sandbox.ReadBoard(fake, board));
        qputenv("QUILLON_FAKE_SCENARIO", scenario);
        CBuildPipeline pipeline(grid, board, settings, log, messenger, finder);
        pipeline.SetWriterPolling(100, 50); // time enough for a writer that ends at once
        pipeline.SetStopRequest(&stop);
        return pipeline.Build(sandbox.Path(layout));
    }
};

} // namespace

TEST_F(CPipelineFixture, SuccessfulBuildCopiesTheHexAndAsksBeforeWriting)
{
    settings.ClockSource = 2;
    settings.OutputFolder = sandbox.Path("layouts");
    EXPECT_FALSE(Build({}, "hex"));
    EXPECT_EQ(log.Lines,
              (QStringList{"The compilation started.", "Pass1...", "Pass2...", "Pass3...",
                           "The compilation terminated.", "The FLASH writing was canceled."}));
    EXPECT_EQ(messenger.Texts, QStringList{"Build Completed.\nStart to write on FLASH."});
    EXPECT_EQ(sandbox.ReadFile("layouts/a.hex"), ":00000001FF\n");
    // The location file is the layout as saved, in the work folder; the compiler gets its
    // options in their fixed order and runs there.
    EXPECT_TRUE(sandbox.ReadFile("work/a.loc").startsWith("; Quillon\r\n"));
    EXPECT_EQ(sandbox.Recorded().value(0),
              QStringLiteral("hex [%1] [-o] [%2] [-w] [%3] [-x] [16] [-y] [40] [-c3] cwd=%3")
                  .arg(sandbox.Path("work/a.loc"), sandbox.Path("layouts"), sandbox.WorkFolder()));
}

TEST_F(CPipelineFixture, FileNamesNeverBecomeArguments)
{
    // A quote in the layout's folder and name would close a quoted path and open new options
    // if a command line were joined and split again.
    QDir(sandbox.Path("layouts")).mkpath(R"(x" -o "y)");
    messenger.Answers = {EAnswer::Ok};
    settings.Writer.Port = "/dev/ttyACM0";
    EXPECT_TRUE(Build({.WriterCommand = "faketool"}, "hex", R"(layouts/x" -o "y/a" -o "evil.loc)"));
    const QStringList recorded = sandbox.Recorded();
    ASSERT_EQ(recorded.size(), 2);
    EXPECT_TRUE(recorded[0].startsWith(
        QStringLiteral("hex [%1] [-o] [").arg(sandbox.Path(R"(work/a" -o "evil.loc)"))))
        << recorded[0].toStdString();
    // The board writer gets the HEX file beside the layout.
    EXPECT_EQ(recorded[1],
              QStringLiteral("hex [/C/dev/ttyACM0] [/W2] [%1] cwd=%2")
                  .arg(sandbox.Path(R"(layouts/x" -o "y/a" -o "evil.hex)"), sandbox.WorkFolder()));
}

TEST_F(CPipelineFixture, EveryOutcomeEndsTheLogAsTheUserSeesIt)
{
    const QString stopped = "|The compilation stopped.", tool = "\"%tool%\" --x",
                  canceled = "The compilation terminated.|The FLASH writing was canceled.",
                  missing = "|No such file or directory" + stopped;
    const struct
    {
        const char* Behaviour;
        const char* Scenario;   // what the fake compiler acts out
        QString Tail;           // the log's last lines, '|' between; "%tool%" is the board's "tool"
        QString Commands = {};  // '|' between; "@x" runs the fake tool acting out x
        QByteArray Script = {}; // written as "tool" when not empty
        QString Writer = {};    // the board's; null: the FLASH question is canceled
        QString Compiler = "faketool";
    } rows[] = {
        {"the compiler's error file after an empty line", "err",
         "Pass2...||Panel (3,4): the net has two drivers.\r\n" + stopped},
        {"a crashing compiler", "crash", "Pass2...|" + stopped},
        {"a missing compiler", "hex",
         "Pass2...|Command execution error.\n(nothere,2)|No such file or directory|" + stopped, "",
         "", QString(), "nothere"},
        {"no compiler: the board folder cannot be run", "hex",
         "Pass2...|Command execution error.\n(,13)|Permission denied|" + stopped, "", "", QString(),
         ""},
        {"an empty HEX file", "empty-hex", "HEX file was not created."},
        {"no HEX file", "ok", "HEX file was not created."},
        {"every command runs, empty positions skipped", "hex",
         "Pass3...|first line|second line|first line|second line|" + canceled, "@print||@print"},
        {"a failing command stops the list", "hex", "Pass3..." + stopped, "@fail|@print"},
        {"a missing program", "hex", "Command execution error.\n(" + tool + ",2)" + missing, tool},
        {"neither a program nor a script", "hex",
         "Command execution error.\n(" + tool + ",8)|Exec format error" + stopped, tool,
         "echo hi\n"},
        {"a script whose interpreter is missing", "hex",
         "Command execution error.\n(" + tool + ",2)" + missing, tool, "#!/no/such/sh\n"},
        // Lines are passed on whole, however the output arrives; a last one without its end too.
        {"output in pieces", "hex", "Pass3...|first half|no end|" + canceled, tool,
         "#!/bin/sh\nprintf 'first '\nsleep 0.3\nprintf 'half\\n'\nprintf 'no end'\n"},
        {"writing needs a writer", "hex",
         "The compilation terminated.|FLASH writer was not setting.", "", "", ""},
        {"OK starts the board writer", "hex",
         "The compilation terminated.|The FLASH writing started.|The FLASH writing terminated.", "",
         "", "faketool"},
    };
    settings.Writer.Port = "/dev/ttyACM0";
    const QString script = sandbox.BoardFolder() + "/tool";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        QFile::remove(script);
        if (!row.Script.isEmpty()) {
            sandbox.WriteFile("my board/tool", row.Script);
            QFile::setPermissions(script, QFile::permissions(script) | QFileDevice::ExeOwner);
        }
        CFakeBoardDefinition fake{row.Compiler, row.Commands.split(u'|'), row.Writer};
        for (QString& command : fake.Commands)
            command = command.startsWith(u'@') ? sandbox.ToolActing(command.mid(1))
                                               : command.replace("%tool%", script);
        messenger.Answers = {row.Writer.isNull() ? EAnswer::Cancel : EAnswer::Ok};
        const QStringList tail = QString(row.Tail).replace("%tool%", script).split(u'|');
        EXPECT_EQ(Build(fake, row.Scenario), tail.last() == "The FLASH writing terminated.");
        EXPECT_EQ(log.Tail(tail.size()), tail);
    }
}

TEST_F(CPipelineFixture, HexNamedAfterTheLayoutIsTheFallback)
{
    EXPECT_FALSE(Build({}, "named-hex", "layouts/b.c.loc"));
    EXPECT_EQ(sandbox.ReadFile("layouts/b.c.hex"), ":00000001FF\n");
    EXPECT_EQ(CBuildPipeline::HexPathFor("/x/plain"), "/x/plain.hex");
}

TEST_F(CPipelineFixture, NothingRunsWithoutAWorkFolderOrAfterAFailedCheck)
{
    settings.WorkFolder.clear();
    EXPECT_FALSE(Build({}, "hex"));
    EXPECT_TRUE(log.Lines.isEmpty());

    settings.WorkFolder = sandbox.WorkFolder();
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
    for (const char* name :
         {"old.hex", "BASE.c", "PANEL.txt", "a.inc", "b.log", "c.err", "d.loc", "keep.txt"})
        sandbox.WriteFile(QStringLiteral("work/") + name, "x");
    ASSERT_TRUE(sandbox.ReadBoard({}, board));
    CBuildPipeline(grid, board, settings, log, messenger, finder).CleanWorkFolder();
    EXPECT_EQ(work.entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              (QStringList{"BASE.x", "keep.txt"}));
}

TEST_F(CPipelineFixture, StopEndsTheRunningProgramAndStartsNothingAfterIt)
{
    QTimer::singleShot(200, [this] { stop.Request(); });
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(
        Build({.Commands = {sandbox.ToolActing("sleep"), sandbox.ToolActing("ok")}}, "hex"));
    EXPECT_LT(timer.elapsed(), 4000) << "the sleeping tool was ended, not waited for";
    EXPECT_EQ(log.Tail(3), (QStringList{"Pass3...", "Stopped at the user's request.",
                                        "The compilation stopped."}));
    EXPECT_EQ(sandbox.Recorded().size(), 2) << "the compiler and the sleeping tool, nothing after";
}

TEST_F(CPipelineFixture, UsersSettingsTakeTheBoardsClockWhenUnsetAndTheWorkFolderWithoutAProject)
{
    QDir(sandbox.Path(".")).mkdir("Project");
    QSettings profile(sandbox.Path("p.ini"), QSettings::IniFormat);
    CSettings user(&profile, sandbox.Path("quillon.ini"));
    user.Load();
    user.SetWritePort("/dev/ttyUSB0");
    user.SetWriteCOM(3);
    ASSERT_TRUE(board.Read(QStringLiteral(QUILLON_TEST_DATA "/boards/netboard"), QString(),
                           messenger)); // clock 1
    const struct
    {
        int Clock;
        const char* Project;
        const char* Option; /* the compiler's */
        const char* Output;
    } rows[] = {
        {-1, "Project", "-c2", "Project"}, {0, "", "-c1", "work"}, {2, "none", "-c3", "work"}};
    for (const auto& row : rows) {
        user.SetClockSource(row.Clock);
        user.SetProject(row.Project);
        const CBuildSettings build = CBuildSettings::From(user, board, sandbox.Path("."));
        EXPECT_EQ(build.WorkFolder, sandbox.WorkFolder());
        EXPECT_EQ(build.OutputFolder, sandbox.Path(row.Output)) << row.Project;
        EXPECT_EQ(CBuildPipeline(grid, board, build, log, messenger, finder)
                      .CompilerCommand()
                      .Arguments.last(),
                  row.Option);
#ifdef Q_OS_WIN
        EXPECT_EQ(build.Writer.Port, "3");
#else
        EXPECT_EQ(build.Writer.Port, "/dev/ttyUSB0");
#endif
    }
}
