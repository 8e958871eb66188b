// The editor's window, offscreen: its title, which commands it offers, its recent files.
#include "boardinfo.h"
#include "builddialog.h"
#include "core/grid/gridtest.h"
#include "layoutdocument.h"
#include "layoutgeometry.h"
#include "layoutview.h"
#include "mainframe.h"
#include "panelgrid.h"
#include "settings.h"
#include "simoverlay.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

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
        ASSERT_TRUE(
            board.Read(QStringLiteral(QUILLON_DIALOG_BOARDS "/atmega328p"), QString(), messenger));
        frame = std::make_unique<CMainFrame>(board, *settings, editor);
    }

    void TearDown() override
    {
        frame.reset();
        QApplication::clipboard()->clear();
        const QString home =
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
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

    // The Edit commands that are enabled, in menu order, by their first words.
    QString Enabled() const
    {
        QString enabled;
        for (int id : {Ids::MenuEditUndo, Ids::MenuEditCut, Ids::MenuEditCopy, Ids::MenuEditPaste,
                       Ids::MenuEditDelete, Ids::MenuEditRotate, Ids::MenuEditProperty})
            if (QAction* action = Action(id); action && action->isEnabled())
                enabled += CStringTable::Get(id).section(u'(', 0, 0).section(u' ', 0, 0) + u' ';
        return enabled.trimmed();
    }

    // The editor on the built sample board, whose tools build for real, with its work folder
    // here, and an example opened from this folder: the example's bytes, or none.
    QByteArray OpenOnTheSampleBoard(const QString& example)
    {
        CRecordingMessenger messenger;
        QFile ini(dir.filePath("quillon.ini"));
        QFile source(QUILLON_RENDER_EXAMPLES "/" + example + ".loc");
        if (!board.Read(QUILLON_SAMPLE_BOARD, QString(), messenger) ||
            !ini.open(QIODevice::WriteOnly) || !source.open(QIODevice::ReadOnly))
            return {};
        ini.write("[Quillon]\r\nWorkDir=" + dir.filePath("work").toUtf8() + "\r\n");
        ini.close();
        settings->Load();
        frame = std::make_unique<CMainFrame>(board, *settings, editor);
        const QByteArray text = source.readAll();
        return Open(example + ".loc", text) ? text : QByteArray();
    }

    bool Open(const QString& name, const QByteArray& text)
    {
        if (QFile file(dir.filePath(name)); file.open(QIODevice::WriteOnly))
            file.write(text);
        return frame->OpenLayout(dir.filePath(name));
    }
};

} // namespace

// A used-up panel type is disabled in its bar too.
TEST_F(MainFrameTest, TitleEditCommandsAndBarsFollowTheLayoutTheSelectionAndTheClipboard)
{
    const auto disabled = [this] {
        int count = 0;
        for (QListWidget* list : frame->findChildren<QListWidget*>())
            for (int i = 0; i < list->count(); ++i)
                count += list->item(i)->flags() == Qt::NoItemFlags;
        return count;
    };
    EXPECT_EQ(frame->windowTitle(), "Untitled[*] - Quillon");
    ASSERT_EQ(disabled(), 0);
    ASSERT_TRUE(Open("gate.loc", "; PANEL LOCATION\r\n0303:AND\tR\r\nO_01:SMOTO\t1,100\r\n"));
    EXPECT_EQ(frame->windowTitle(), "gate.loc[*] - Quillon");
    EXPECT_EQ(disabled(), 1);
    EXPECT_EQ(Enabled(), "");
    frame->View().SetSelection(3, 3);
    EXPECT_EQ(Enabled(), "Cut Copy Delete Rotate Show");
    Action(Ids::MenuEditCopy)->trigger();
    EXPECT_EQ(Enabled(), "Cut Copy Paste Delete Rotate Show");
    frame->View().SetSelection(8, 8);
    EXPECT_EQ(Enabled(), "Cut Copy Paste Delete");
    EXPECT_FALSE(frame->isWindowModified());
    Action(Ids::MenuEditPaste)->trigger();
    EXPECT_EQ(Enabled(), "Undo Cut Copy Paste Delete Rotate Show");
    EXPECT_TRUE(frame->isWindowModified());
}

TEST_F(MainFrameTest, RecentFilesKeepTheLastFourOpenedNewestFirst)
{
    for (const char* name : {"a.loc", "b.loc", "c.loc", "d.loc", "e.loc", "c.loc"})
        ASSERT_TRUE(Open(name, "; PANEL LOCATION\r\n"));
    QStringList files;
    for (QMenu* menu : frame->findChildren<QMenu*>())
        if (menu->title() == CStringTable::Get(Ids::MenuFileRecent))
            for (QAction* action : menu->actions())
                files.append(action->text());
    QStringList expected;
    for (const char* name : {"c.loc", "e.loc", "d.loc", "b.loc"})
        expected << QStringLiteral("&%1 %2")
                        .arg(expected.size() + 1)
                        .arg(QDir::toNativeSeparators(dir.filePath(name)));
    EXPECT_EQ(files, expected);
}

// A board whose file names no simulator keeps Simulate greyed, with the reason as its tip.
TEST_F(MainFrameTest, SimulateIsGreyedWithItsReasonOnABoardThatCannotSimulate)
{
    EXPECT_TRUE(Action(Ids::MenuRunSimulate)->isEnabled());
    CRecordingMessenger messenger;
    ASSERT_TRUE(board.Read(QUILLON_DIALOG_TEST_DATA "/boards/netboard", QString(), messenger));
    frame = std::make_unique<CMainFrame>(board, *settings, editor);
    EXPECT_FALSE(Action(Ids::MenuRunSimulate)->isEnabled());
    EXPECT_TRUE(Action(Ids::MenuRunSimulate)->toolTip().contains("cannot be simulated"));
}

// F5 builds the layout and runs it: the grid shows the board, a click on a key presses it,
// nothing can be edited, and Stop gives back the layout exactly as it was.
TEST_F(MainFrameTest, SimulationAnimatesTakesInputsLocksEditingAndStopsCleanly)
{
    if (!QUILLON_HAVE_AVR_GCC)
        GTEST_SKIP() << "avr-gcc not found";
    const QByteArray layout = OpenOnTheSampleBoard("latch");
    ASSERT_FALSE(layout.isEmpty());

    Action(Ids::MenuRunSimulate)->trigger();
    auto* overlay = frame->findChild<CSimOverlay*>();
    ASSERT_NE(overlay, nullptr) << "the build failed or the program did not start";
    for (int id : {Ids::MenuEditPaste, Ids::MenuFileSave, Ids::MenuFileOpen, Ids::MenuRunBuild,
                   Ids::MenuRunSimulate})
        EXPECT_FALSE(Action(id)->isEnabled()) << id;
    EXPECT_TRUE(Action(Ids::MenuRunSimStop)->isEnabled());

    // The start key (input row 2) held for 60 ms turns the lamp on (PB5, pin 13).
    const auto lampOn = [&] {
        overlay->Refresh();
        return overlay->Frame().Pins.size() > 13 && overlay->Frame().Pins[13];
    };
    const QPoint start = frame->View().MapFromLogical(
        CLayoutGeometry::CellRect(CPanelGrid::GetInputColumn(), 2).center());
    QTRY_VERIFY_WITH_TIMEOUT(overlay->Frame().Ms > 20 || (overlay->Refresh(), false), 5000);
    EXPECT_FALSE(lampOn());
    QTest::mousePress(overlay, Qt::LeftButton, {}, start);
    QTest::qWait(100);
    QTest::mouseRelease(overlay, Qt::LeftButton, {}, start);
    QTRY_VERIFY_WITH_TIMEOUT(lampOn(), 5000);
    QTest::keyClick(overlay, Qt::Key_Delete);

    Action(Ids::MenuRunSimStop)->trigger();
    QTRY_VERIFY(frame->findChild<CSimOverlay*>() == nullptr);
    EXPECT_TRUE(Action(Ids::MenuRunSimulate)->isEnabled());
    EXPECT_TRUE(Action(Ids::MenuFileSave)->isEnabled());
    EXPECT_FALSE(Action(Ids::MenuRunSimStop)->isEnabled());
    EXPECT_FALSE(frame->isWindowModified());
    QFile saved(dir.filePath("latch.loc"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), layout);
}

// Without a board: Build && Write writes into the virtual board with the board's own
// writer, and the grid then shows the program the board runs.
TEST_F(MainFrameTest, BuildAndWriteIntoTheVirtualBoardAndWatchItRun)
{
    if (!QUILLON_HAVE_AVR_GCC || !QFile::exists(QUILLON_SAMPLE_BOARD "/bootloader.hex"))
        GTEST_SKIP() << "no avr-gcc or boot loader";
    ASSERT_FALSE(OpenOnTheSampleBoard("blinker").isEmpty());

    Action(Ids::MenuRunVirtualBoard)->setChecked(true);
    // The question before writing is answered Yes, and the build window closed at its end.
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible())
                box->button(QMessageBox::Ok)->click();
            if (auto* build = qobject_cast<CBuildDialog*>(widget);
                build && build->isVisible() && !build->IsBuilding() && !build->LogText().isEmpty())
                build->accept();
        }
    });
    answer.start(50);
    Action(Ids::MenuRunBuild)->trigger();
    answer.stop();
    auto* overlay = frame->findChild<CSimOverlay*>();
    ASSERT_NE(overlay, nullptr) << "the program was not written";
    // The blinker's lamp (PB5, pin 13) turns over every 0.5 s on the virtual board.
    const auto lamp = [&] {
        overlay->Refresh();
        return overlay->Frame().Pins.size() > 13 && overlay->Frame().Pins[13];
    };
    QTRY_VERIFY_WITH_TIMEOUT(lamp(), 3000);
    QTRY_VERIFY_WITH_TIMEOUT(!lamp(), 3000);
    Action(Ids::MenuRunSimStop)->trigger();
    Action(Ids::MenuRunVirtualBoard)->setChecked(false);
    QTRY_VERIFY(frame->findChild<CSimOverlay*>() == nullptr);
}
