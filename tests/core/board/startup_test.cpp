// Start-up: the language, the folders written for other programs, and the board chosen.
#include "boardchooser.h"
#include "boardinfo.h"
#include "settings.h"
#include "startup.h"
#include "support/boardfolder.h"
#include "support/recordingmessenger.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

TEST(Startup, SwitchesChooseTheLanguageAndEnglishWins)
{
    EXPECT_EQ(CStartup::LanguageFor({"quillon"}, false), ELanguage::English);
    EXPECT_EQ(CStartup::LanguageFor({"quillon"}, true), ELanguage::Japanese);
    EXPECT_EQ(CStartup::LanguageFor({"quillon", "-jpn"}, false), ELanguage::Japanese);
    EXPECT_EQ(CStartup::LanguageFor({"quillon", "x.loc", "-jpn", "-eng"}, true), ELanguage::English);
    EXPECT_EQ(CStartup::LanguageFor({"quillon", "my-english.loc"}, true), ELanguage::English);
    // Only the arguments count, never the program's own path.
    EXPECT_EQ(CStartup::LanguageFor({"/opt/q-eng/quillon"}, true), ELanguage::Japanese);
    EXPECT_EQ(CStartup::LanguageFor({"/opt/q-jpn/quillon"}, false), ELanguage::English);
}

TEST(Startup, LayoutArgumentIsTheFirstThatIsNoSwitch)
{
    EXPECT_EQ(CStartup::LayoutArgument({"quillon", "-eng", "a.loc", "b.loc"}), "a.loc");
    EXPECT_EQ(CStartup::LayoutArgument({"quillon", "-jpn"}), "");
}

TEST(Startup, FoldersAreWrittenForOtherPrograms)
{
    QTemporaryDir dir;
    QSettings profile(dir.filePath("p.ini"), QSettings::IniFormat);
    CStartup::WriteFolders(profile, "/opt/quillon");
    CStartup::WriteBoardFolder(profile, "/opt/quillon/TARGET/atmega328p");
    EXPECT_EQ(profile.value("Folders/Me").toString(), "/opt/quillon/");
    EXPECT_EQ(profile.value("Folders/Work").toString(), "/opt/quillon/Work");
    EXPECT_EQ(profile.value("Folders/Save").toString(), "/opt/quillon/Save");
    EXPECT_EQ(profile.value("Folders/Tools").toString(), "/opt/quillon/Tools");
    EXPECT_EQ(profile.value("Folders/Board").toString(), "/opt/quillon/TARGET/atmega328p");
}

namespace {

// A TARGET folder with the sample board under two names and a broken one.
struct CChooserFixture : testing::Test
{
    QTemporaryDir dir;
    CRecordingMessenger messenger;
    std::unique_ptr<QSettings> profile;

    void SetUp() override
    {
        const QDir target(dir.filePath("TARGET"));
        QDir().mkpath(target.path());
        for (const char* name : {"uno", "uno2"})
            CopyBoardFiles(QStringLiteral(QUILLON_BOARDS "/atmega328p"), target.filePath(QString::fromLatin1(name)));
        QDir().mkpath(target.filePath("broken"));
        profile = std::make_unique<QSettings>(dir.filePath("p.ini"), QSettings::IniFormat);
    }

    QString Choose(const QString& saved, const QByteArray& ini, CBoardInfo& board)
    {
        QFile file(dir.filePath("quillon.ini"));
        file.open(QIODevice::WriteOnly);
        file.write(ini);
        file.close();
        profile->setValue("Settings/Target", saved);
        CSettings settings(profile.get(), dir.filePath("quillon.ini"));
        settings.Load();
        return CBoardChooser(dir.filePath("TARGET"), messenger).Choose(settings, board);
    }
};

} // namespace

TEST_F(CChooserFixture, SavedBoardWinsWhenItReads)
{
    CBoardInfo board;
    EXPECT_EQ(Choose("uno2", "[Quillon]\nTarget1=uno\n", board), dir.filePath("TARGET/uno2"));
    EXPECT_EQ(board.GetFolder(), dir.filePath("TARGET/uno2"));
}

TEST_F(CChooserFixture, BoardsOutsideTheTargetFolderAreNeverRead)
{
    // A board that reads, but beside TARGET rather than in it.
    CopyBoardFiles(QStringLiteral(QUILLON_BOARDS "/atmega328p"), dir.filePath("elsewhere"));
    for (const QString& saved : {dir.filePath("elsewhere"), QStringLiteral("../elsewhere"), QStringLiteral("uno/../../elsewhere")}) {
        CBoardInfo board;
        EXPECT_EQ(Choose(saved, "[Quillon]\nTarget1=../elsewhere\nTarget2=uno\n", board), dir.filePath("TARGET/uno"))
            << saved.toStdString();
    }
}

TEST_F(CChooserFixture, DeletedSavedBoardFallsBackToTheFirstCandidateThatReads)
{
    CBoardInfo board;
    EXPECT_EQ(Choose("gone", "[Quillon]\nTarget1=broken\nTarget2=uno\n", board), dir.filePath("TARGET/uno"));
    EXPECT_TRUE(messenger.Texts.isEmpty());
}

TEST_F(CChooserFixture, NoSavedBoardAndNoCandidateStopsWithAMessage)
{
    CBoardInfo board;
    EXPECT_EQ(Choose("", "[Quillon]\nTarget2=uno\n", board), "");
    EXPECT_EQ(messenger.Texts, QStringList{"Invalid Setting.\nQuillon is stopped."});
}

TEST_F(CChooserFixture, NoCandidateThatReadsEndsSilently)
{
    CBoardInfo board;
    EXPECT_EQ(Choose("", "[Quillon]\nTarget1=broken\nTarget2=missing\n", board), "");
    EXPECT_TRUE(messenger.Texts.isEmpty());
}
