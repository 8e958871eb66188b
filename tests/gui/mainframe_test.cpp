// The editor's window, offscreen: its title, which commands it offers, its recent files.
#include "boardinfo.h"
#include "settings.h"
#include "mainframe.h"
#include "layoutdocument.h"
#include "layoutfile.h"
#include "layoutview.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

struct MainFrameTest : testing::Test
{
    QTemporaryDir dir;
    std::unique_ptr<QSettings> profile;
    std::unique_ptr<CSettings> settings;
    CBoardInfo board;
    CFakeEditor editor;
    std::unique_ptr<CMainFrame> frame;

    void SetUp() override
    {
        // The recent file list lives in the user's profile: here, in the test's own folder.
        for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
            QSettings::setPath(format, QSettings::UserScope, dir.path());
        profile = std::make_unique<QSettings>(dir.filePath("profile.ini"), QSettings::IniFormat);
        settings = std::make_unique<CSettings>(profile.get(), dir.filePath("quillon.ini"));
        CRecordingMessenger messenger;
        ASSERT_TRUE(board.Read(QStringLiteral(QUILLON_DIALOG_BOARDS "/atmega328p"), QString(), messenger));
        frame = std::make_unique<CMainFrame>(board, *settings, editor);
    }

    void TearDown() override
    {
        frame.reset();
        QApplication::clipboard()->clear();
        const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
        for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
            QSettings::setPath(format, QSettings::UserScope, home);
    }

    QAction* Action(int id) const
    {
        for (QAction* action : frame->findChildren<QAction*>())
            if (action->text() == CStringTable::Get(id))
                return action;
        ADD_FAILURE() << "no action " << id;
        return nullptr;
    }

    // The Edit commands that are enabled, in menu order.
    QStringList Enabled() const
    {
        QStringList enabled;
        for (int id : {Ids::MenuEditUndo, Ids::MenuEditCut, Ids::MenuEditCopy, Ids::MenuEditPaste,
                       Ids::MenuEditDelete, Ids::MenuEditRotate, Ids::MenuEditProperty})
            if (QAction* action = Action(id); action && action->isEnabled())
                enabled.append(CStringTable::Get(id));
        return enabled;
    }

    QStringList RecentFiles() const
    {
        QStringList files;
        for (QMenu* menu : frame->findChildren<QMenu*>())
            if (menu->title() == CStringTable::Get(Ids::MenuFileRecent))
                for (QAction* action : menu->actions())
                    files.append(action->text());
        return files;
    }

    QString SaveLayout(const QString& name, const QString& text)
    {
        const QString path = dir.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        return QFileInfo(path).absoluteFilePath();
    }
};

} // namespace

TEST_F(MainFrameTest, TitleNamesTheLayoutAndMarksAChange)
{
    EXPECT_EQ(frame->windowTitle(), "Untitled[*] - Quillon");
    EXPECT_FALSE(frame->isWindowModified());
    ASSERT_TRUE(frame->OpenLayout(SaveLayout("blink.loc", "; PANEL LOCATION\r\n0303:AND\tR\r\n")));
    EXPECT_EQ(frame->windowTitle(), "blink.loc[*] - Quillon");
    EXPECT_FALSE(frame->isWindowModified());
    frame->View().SetSelection(3, 3);
    Action(Ids::MenuEditCut)->trigger();
    EXPECT_TRUE(frame->isWindowModified());
}

TEST_F(MainFrameTest, EditCommandsFollowTheSelectionTheClipboardAndTheLastStep)
{
    ASSERT_TRUE(frame->OpenLayout(SaveLayout("gate.loc", "; PANEL LOCATION\r\n0303:AND\tR\r\n")));
    const QString undo = CStringTable::Get(Ids::MenuEditUndo), cut = CStringTable::Get(Ids::MenuEditCut),
                  copy = CStringTable::Get(Ids::MenuEditCopy), paste = CStringTable::Get(Ids::MenuEditPaste),
                  del = CStringTable::Get(Ids::MenuEditDelete), rotate = CStringTable::Get(Ids::MenuEditRotate),
                  property = CStringTable::Get(Ids::MenuEditProperty);
    EXPECT_EQ(Enabled(), QStringList());
    frame->View().SetSelection(3, 3);
    EXPECT_EQ(Enabled(), (QStringList{cut, copy, del, rotate, property}));
    Action(Ids::MenuEditCopy)->trigger();
    EXPECT_EQ(Enabled(), (QStringList{cut, copy, paste, del, rotate, property}));
    frame->View().SetSelection(8, 8);
    EXPECT_EQ(Enabled(), (QStringList{cut, copy, paste, del}));
    Action(Ids::MenuEditPaste)->trigger();
    EXPECT_EQ(Enabled(), (QStringList{undo, cut, copy, paste, del, rotate, property}));
}

TEST_F(MainFrameTest, RecentFilesKeepTheLastFourOpenedNewestFirst)
{
    QStringList paths;
    for (const char* name : {"a.loc", "b.loc", "c.loc", "d.loc", "e.loc"}) {
        paths.prepend(SaveLayout(QString::fromLatin1(name), "; PANEL LOCATION\r\n"));
        ASSERT_TRUE(frame->OpenLayout(paths.first()));
    }
    ASSERT_TRUE(frame->OpenLayout(paths[2])); // opened again, it moves to the top
    QStringList expected;
    for (const QString& path : {paths[2], paths[0], paths[1], paths[3]})
        expected.append(QStringLiteral("&%1 %2").arg(expected.size() + 1).arg(QDir::toNativeSeparators(path)));
    EXPECT_EQ(RecentFiles(), expected);
}
