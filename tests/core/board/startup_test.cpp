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

TEST(Startup, SwitchesChooseTheLanguageAndTheLayout)
{
    const struct
    {
        QStringList Arguments;
        bool UserIsJapanese;
        ELanguage Language;
    } rows[] = {
        {{"quillon"}, false, ELanguage::English},
        {{"quillon"}, true, ELanguage::Japanese},
        {{"quillon", "-jpn"}, false, ELanguage::Japanese},
        {{"quillon", "x.loc", "-jpn", "-eng"}, true, ELanguage::English}, // English wins
        {{"quillon", "my-english.loc"}, true, ELanguage::English}, // a switch anywhere in one
        // Only the arguments count, never the program's own path.
        {{"/opt/q-eng/quillon"}, true, ELanguage::Japanese},
        {{"/opt/q-jpn/quillon"}, false, ELanguage::English},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CStartup::LanguageFor(row.Arguments, row.UserIsJapanese), row.Language)
            << row.Arguments.join(' ').toStdString();
    EXPECT_EQ(CStartup::LayoutArgument({"quillon", "-eng", "a.loc", "b.loc"}), "a.loc");
    EXPECT_EQ(CStartup::LayoutArgument({"quillon", "-jpn"}), "");
}

TEST(Startup, FoldersAreWrittenForOtherPrograms)
{
    QTemporaryDir dir;
    QSettings profile(dir.filePath("p.ini"), QSettings::IniFormat);
    CStartup::WriteFolders(profile, "/opt/quillon");
    CStartup::WriteBoardFolder(profile, "/opt/quillon/TARGET/atmega328p");
    QStringList written;
    for (const char* key : {"Me", "Work", "Save", "Tools", "Board"})
        written << profile.value(QStringLiteral("Folders/") + key).toString();
    EXPECT_EQ(written, QStringList({"/opt/quillon/", "/opt/quillon/Work", "/opt/quillon/Save",
                                    "/opt/quillon/Tools", "/opt/quillon/TARGET/atmega328p"}));
}

// A TARGET folder with the sample board as "uno" and "uno2", a broken one, and a board that
// reads but lies beside TARGET rather than in it.
TEST(BoardChooser, SavedBoardThenTheFirstCandidateThatReadsAndNothingOutsideTarget)
{
    QTemporaryDir dir;
    const QDir target(dir.filePath("TARGET"));
    for (const char* name : {"uno", "uno2"})
        CopyBoardFiles(QStringLiteral(QUILLON_BOARDS "/atmega328p"), target.filePath(name));
    QDir().mkpath(target.filePath("broken"));
    CopyBoardFiles(QStringLiteral(QUILLON_BOARDS "/atmega328p"), dir.filePath("elsewhere"));
    const QByteArray outside = "Target1=../elsewhere\nTarget2=uno";
    const struct
    {
        const char* Name;
        QString Saved;
        QByteArray Candidates;
        const char* Chosen; // "" for none
        QStringList Messages;
    } rows[] = {
        {"the saved board wins when it reads", "uno2", "Target1=uno", "uno2", {}},
        {"a deleted saved board falls back", "gone", "Target1=broken\nTarget2=uno", "uno", {}},
        {"no saved board and no candidate stop with a message",
         "",
         "Target2=uno",
         "",
         {"Invalid Setting.\nQuillon is stopped."}},
        {"no candidate that reads ends silently", "", "Target1=broken\nTarget2=missing", "", {}},
        {"a board by absolute path is never read", dir.filePath("elsewhere"), outside, "uno", {}},
        {"a board above TARGET is never read", "../elsewhere", outside, "uno", {}},
        {"a board that climbs out is never read", "uno/../../elsewhere", outside, "uno", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        QFile ini(dir.filePath("quillon.ini"));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ini.write("[Quillon]\n" + row.Candidates + "\n");
        ini.close();
        QSettings profile(dir.filePath("p.ini"), QSettings::IniFormat);
        profile.setValue("Settings/Target", row.Saved);
        CSettings settings(&profile, ini.fileName());
        settings.Load();
        CRecordingMessenger messenger;
        CBoardInfo board;
        const QString chosen = *row.Chosen ? target.filePath(row.Chosen) : QString();
        EXPECT_EQ(CBoardChooser(target.path(), messenger).Choose(settings, board), chosen);
        if (*row.Chosen) {
            EXPECT_EQ(board.GetFolder(), chosen);
        }
        EXPECT_EQ(messenger.Texts, row.Messages);
    }
}
