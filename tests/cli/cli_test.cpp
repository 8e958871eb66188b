// quillon-cli's contract, as scripts and acceptance tests use it.
#include "core/toolchain/buildtest.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct CRun
{
    int Exit = -1;
    QString Out, Err;
};

const QString kBoard = QStringLiteral(QUILLON_BOARDS "/atmega328p");
const QString kLamp = QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc");
const QString kGolden = QStringLiteral(QUILLON_TEST_DATA "/layouts/golden.loc");

// Runs the program with a profile of its own, so no user's settings are read.
CRun Cli(const QStringList& args, const QString& folder = QString())
{
    static QTemporaryDir home;
    QProcess process;
    process.setWorkingDirectory(folder);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("XDG_CONFIG_HOME", home.path());
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(QUILLON_CLI), args);
    process.waitForFinished(30000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

TEST(Cli, CheckExitsByWhatItFindsOneFaultALine)
{
    const QString golden = "check " + kGolden + " --board " + kBoard;
    const struct
    {
        const char* Behaviour;
        QString Args; // blank-separated
        int Exit;
        QString Contains = {}; // in the output; "": none
    } rows[] = {
        {"a wired layout passes", "check " + kLamp + " --board " + kBoard, 0},
        // The built programs sit beside TARGET/ and quillon.ini, which offers the sample board.
        {"the default board is the one start-up chooses", "check " + kLamp, 0},
        {"faults one a line", golden, 1, "The properties of panel [(2,10)] is none. \n"},
        // The PWM output runs on the first port of its palette entry, PB2, as the pulse output
        // does.
        {"the PWM output's port", golden, 1, "The port assigned two or more panels. port=PB2\n"},
        {"in Japanese", golden + " --lang ja", 1, "の接続が不完全です。"},
        {"no command", "", 2},
        {"no layout", "check", 2},
        {"an unknown command", "frobnicate x", 2},
        {"an unknown language", "check x.loc --lang fr", 2},
        {"a missing layout", "check " QUILLON_TEST_DATA "/layouts/none.loc --board " + kBoard, 2},
        {"a file that is no layout", "check /etc/hostname --board " + kBoard, 2},
        {"a board that does not read",
         "check " + kGolden + " --board " QUILLON_TEST_DATA "/boards/commentfirst", 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        const CRun run = Cli(row.Args.split(u' ', Qt::SkipEmptyParts));
        EXPECT_EQ(run.Exit, row.Exit) << run.Err.toStdString();
        EXPECT_TRUE(row.Exit < 2 || !run.Err.isEmpty()) << "says why";
        EXPECT_FALSE(run.Out.contains(u'\r'));
        EXPECT_TRUE(row.Contains.isEmpty() ? run.Out.isEmpty() : run.Out.contains(row.Contains))
            << run.Out.toStdString();
    }
}

TEST(Cli, DumpListsPanelsInFileOrderAndSaveWritesTheLayoutAgain)
{
    const CRun run = Cli({"dump", kLamp, "--board", kBoard});
    ASSERT_EQ(run.Exit, 0);
    const QJsonObject root = QJsonDocument::fromJson(run.Out.toUtf8()).object();
    EXPECT_EQ(root["weightedTotal"].toInt(), 20); // the key and the lamp; wires weigh nothing
    const QJsonArray panels = root["panels"].toArray();
    ASSERT_EQ(panels.size(), 18);
    EXPECT_EQ(QJsonDocument(panels.first().toObject()).toJson(QJsonDocument::Compact),
              R"({"bitmapId":10074,"caption":"Push key : PORT=PD2(D2)  ACTIVE=H  ","column":-1,)"
              R"("height":1,"incomplete":false,"itemCount":1,"keyword":"KEY",)"
              R"("line":"KEY \tH,PD2\t\t;button","portIndex":0,"row":1,"sides":"R"})");
    EXPECT_EQ(panels[1].toObject()["column"].toInt(), 1);
    EXPECT_EQ(panels.last().toObject()["column"].toInt(), -2);

    QTemporaryDir dir;
    ASSERT_EQ(Cli({"save", kLamp, dir.filePath("copy.loc"), "--board", kBoard}).Exit, 0);
    QFile a(kLamp), b(dir.filePath("copy.loc"));
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), b.readAll());
}

namespace {

// A layout that passes the check, in a sandbox whose board builds with the fake tool.
struct CCliBuild : testing::Test
{
    CBuildSandbox sandbox;
    QString layout = sandbox.Path("layouts/lamp.loc");

    void SetUp() override
    {
        CBoardInfo board;
        ASSERT_TRUE(sandbox.ReadBoard({.WriterCommand = "faketool"}, board));
        QFile::copy(kLamp, layout);
    }

    CRun Build(const char* scenario, const QStringList& more = {}, const QString& work = QString())
    {
        qputenv("QUILLON_FAKE_SCENARIO", scenario);
        // A relative board folder, as a user types it in the folder above the board.
        return Cli(QStringList{"build", layout, "--board", "my board", "--work",
                               work.isEmpty() ? sandbox.WorkFolder() : work} +
                       more,
                   sandbox.Path("."));
    }
};

} // namespace

TEST_F(CCliBuild, FailedBuildExitsOneThoughAnOlderHexLiesBesideTheLayout)
{
    sandbox.WriteFile("layouts/lamp.hex", ":00000001FF\n");
    const CRun run = Build("err");
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(
        run.Out.endsWith("Panel (3,4): the net has two drivers.\n\nThe compilation stopped.\n"))
        << run.Out.toStdString();
}

TEST_F(CCliBuild, TheWorkFolderIsNeverTheLayoutsFolder)
{
    // Cleaning the layout's own folder would delete the user's other layouts.
    sandbox.WriteFile("layouts/other.loc", "; mine\r\n");
    const CRun run = Build("hex", {}, sandbox.Path("layouts"));
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(run.Out.contains("is the layout's own folder")) << run.Out.toStdString();
    EXPECT_EQ(sandbox.ReadFile("layouts/other.loc"), "; mine\r\n");
}

TEST_F(CCliBuild, WithoutWriteTheBuildEndsAtTheQuestionAndWithItUsesThePortGiven)
{
    CRun run = Build("hex");
    EXPECT_EQ(run.Exit, 0) << run.Err.toStdString();
    EXPECT_EQ(run.Out, "The compilation started.\nPass1...\nPass2...\nPass3...\n"
                       "The compilation terminated.\nThe FLASH writing was canceled.\n");
    EXPECT_EQ(sandbox.ReadFile("layouts/lamp.hex"), ":00000001FF\n");
    EXPECT_TRUE(
        sandbox.Recorded().value(0).contains(QStringLiteral("[-o] [%1]").arg(sandbox.WorkFolder())))
        << "the work folder is the compiler's output";

    QFile::remove(sandbox.Path("record.txt"));
    run = Build("hex", {"--write", "--port", "/dev/ttyFAKE0"});
    EXPECT_EQ(run.Exit, 0) << run.Out.toStdString();
    EXPECT_TRUE(run.Out.endsWith("The FLASH writing started.\nThe FLASH writing terminated.\n"));
    EXPECT_TRUE(sandbox.Recorded().value(1).startsWith("hex [/C/dev/ttyFAKE0] [/W2] ["));
}
