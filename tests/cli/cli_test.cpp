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
    QString Out;
    QString Err;
};

QString Data(const char* path)
{
    return QStringLiteral(QUILLON_TEST_DATA "/") + QString::fromLatin1(path);
}

const QString kBoard = QStringLiteral(QUILLON_BOARDS "/atmega328p");

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

TEST(Cli, CheckPassesAWiredLayoutOnTheSampleBoard)
{
    const CRun run = Cli({"check", QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc"), "--board", kBoard});
    EXPECT_EQ(run.Exit, 0) << run.Err.toStdString();
    EXPECT_EQ(run.Out, "");
}

TEST(Cli, CheckPrintsOneFaultALineAndExitsOne)
{
    const CRun run = Cli({"check", Data("layouts/golden.loc"), "--board", kBoard});
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(run.Out.startsWith("The properties of panel [(2,10)] is none. \n")) << run.Out.toStdString();
    EXPECT_FALSE(run.Out.contains(u'\r'));
    // The PWM output runs on the first port of its palette entry, PB2, as the pulse output does.
    EXPECT_TRUE(run.Out.contains("The port assigned two or more panels. port=PB2\n"));
}

TEST(Cli, CheckSpeaksJapanese)
{
    const CRun run = Cli({"check", Data("layouts/golden.loc"), "--board", kBoard, "--lang", "ja"});
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(run.Out.contains(QString::fromUtf8("の接続が不完全です。"))) << run.Out.toStdString();
}

TEST(Cli, UsageAndUnreadableFilesExitTwo)
{
    EXPECT_EQ(Cli({}).Exit, 2);
    EXPECT_EQ(Cli({"check"}).Exit, 2);
    EXPECT_EQ(Cli({"frobnicate", "x"}).Exit, 2);
    EXPECT_EQ(Cli({"check", "x.loc", "--lang", "fr"}).Exit, 2);
    const CRun missing = Cli({"check", Data("layouts/none.loc"), "--board", kBoard});
    EXPECT_EQ(missing.Exit, 2);
    EXPECT_FALSE(missing.Err.isEmpty());
    EXPECT_EQ(Cli({"check", "/etc/hostname", "--board", kBoard}).Exit, 2);
    EXPECT_EQ(Cli({"check", Data("layouts/golden.loc"), "--board", Data("boards/commentfirst")}).Exit, 2);
}

TEST(Cli, DefaultBoardIsTheOneStartUpChooses)
{
    // The built programs sit beside TARGET/ and quillon.ini, which offers the sample board.
    const CRun run = Cli({"check", QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc")});
    EXPECT_EQ(run.Exit, 0) << run.Err.toStdString();
}

TEST(Cli, DumpListsPanelsInFileOrder)
{
    const CRun run = Cli({"dump", QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc"), "--board", kBoard});
    ASSERT_EQ(run.Exit, 0);
    const QJsonObject root = QJsonDocument::fromJson(run.Out.toUtf8()).object();
    EXPECT_EQ(root["weightedTotal"].toInt(), 20); // the key and the lamp; wires weigh nothing
    const QJsonArray panels = root["panels"].toArray();
    ASSERT_EQ(panels.size(), 18);
    const QJsonObject key = panels.first().toObject();
    EXPECT_EQ(key["column"].toInt(), -1);
    EXPECT_EQ(key["row"].toInt(), 1);
    EXPECT_EQ(key["keyword"].toString(), "KEY");
    EXPECT_EQ(key["line"].toString(), "KEY \tH,PD2\t\t;button");
    EXPECT_EQ(key["bitmapId"].toInt(), 10074);
    EXPECT_EQ(key["sides"].toString(), "R");
    EXPECT_EQ(key["caption"].toString(), "Push key : PORT=PD2(D2)  ACTIVE=H  ");
    EXPECT_FALSE(key["incomplete"].toBool());
    EXPECT_EQ(key["portIndex"].toInt(), 0);
    EXPECT_EQ(panels[1].toObject()["column"].toInt(), 1);
    EXPECT_EQ(panels.last().toObject()["column"].toInt(), -2);
    EXPECT_EQ(panels.last().toObject()["height"].toInt(), 1);
}

TEST(Cli, SaveWritesTheLayoutAgain)
{
    QTemporaryDir dir;
    const QString out = dir.filePath("copy.loc");
    const QString source = QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc");
    ASSERT_EQ(Cli({"save", source, out, "--board", kBoard}).Exit, 0);
    QFile a(source), b(out);
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), b.readAll());
}

namespace {

// A layout that passes the check, in a sandbox whose board builds with the fake tool.
struct CCliBuild : testing::Test
{
    CBuildSandbox sandbox;
    QString layout;

    void SetUp() override
    {
        CFakeBoardDefinition fake;
        fake.WriterCommand = "faketool";
        CBoardInfo board;
        ASSERT_TRUE(sandbox.ReadBoard(fake, board));
        layout = sandbox.Path("layouts/lamp.loc");
        QFile::copy(QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc"), layout);
    }

    CRun Build(const char* scenario, const QStringList& more = {}, const QString& work = QString())
    {
        qputenv("QUILLON_FAKE_SCENARIO", scenario);
        // A relative board folder, as a user types it in the folder above the board.
        return Cli(QStringList{"build", layout, "--board", "my board", "--work",
                               work.isEmpty() ? sandbox.WorkFolder() : work} + more,
                   sandbox.Path("."));
    }
};

} // namespace

TEST_F(CCliBuild, WithoutWriteTheBuildEndsAtTheQuestion)
{
    const CRun run = Build("hex");
    EXPECT_EQ(run.Exit, 0) << run.Err.toStdString();
    EXPECT_EQ(run.Out, "The compilation started.\nPass1...\nPass2...\nPass3...\n"
                       "The compilation terminated.\nThe FLASH writing was canceled.\n");
    EXPECT_EQ(sandbox.ReadFile("layouts/lamp.hex"), ":00000001FF\n");
}

TEST_F(CCliBuild, FailedBuildExitsOneThoughAnOlderHexLiesBesideTheLayout)
{
    sandbox.WriteFile("layouts/lamp.hex", ":00000001FF\n");
    const CRun run = Build("err");
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(run.Out.endsWith("Panel (3,4): the net has two drivers.\n\nThe compilation stopped.\n"))
        << run.Out.toStdString();
}

TEST_F(CCliBuild, TheWorkFolderIsTheCompilersOutputAndNeverTheLayoutsFolder)
{
    ASSERT_EQ(Build("hex").Exit, 0);
    EXPECT_TRUE(sandbox.Recorded().value(0).contains(QStringLiteral("[-o] [%1]").arg(sandbox.WorkFolder())))
        << sandbox.Recorded().value(0).toStdString();

    // Cleaning the layout's own folder would delete the user's other layouts.
    sandbox.WriteFile("layouts/other.loc", "; mine\r\n");
    const CRun run = Build("hex", {}, sandbox.Path("layouts"));
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(run.Out.contains("is the layout's own folder")) << run.Out.toStdString();
    EXPECT_EQ(sandbox.ReadFile("layouts/other.loc"), "; mine\r\n");
}

TEST_F(CCliBuild, WriteUsesThePortGiven)
{
    const CRun run = Build("hex", {"--write", "--port", "/dev/ttyFAKE0"});
    EXPECT_EQ(run.Exit, 0) << run.Out.toStdString();
    EXPECT_TRUE(run.Out.endsWith("The FLASH writing started.\nThe FLASH writing terminated.\n"));
    EXPECT_TRUE(sandbox.Recorded().value(1).startsWith("hex [/C/dev/ttyFAKE0] [/W2] ["));
}
