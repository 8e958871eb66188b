// The output and serial families' property dialogs, the target, writer and used port
// dialogs, driven through real key and mouse input offscreen.
#include "boardinfo.h"
#include "support/boardfolder.h"
#include "settings.h"
#include "targetdialog.h"
#include "builddialog.h"
#include "flashwriterdialog.h"
#include "usedportdialog.h"
#include "writeroptiondialog.h"
#include "layoutfile.h"
#include "panelcell.h"
#include "panelgrid.h"
#include "paneldialogs.h"
#include "core/panels/paneltest.h"
#include "pwmdialog.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <functional>

namespace {

// Screenshots for the documentation are written only when a folder is named.
void Shoot(QWidget* widget, const char* name)
{
    const QString folder = qEnvironmentVariable("QUILLON_SCREENSHOTS");
    if (!folder.isEmpty())
        widget->grab().save(QDir(folder).filePath(QString::fromLatin1(name)));
}

// Runs steps on the modal dialog that the call after it opens; a dialog the steps leave
// open is cancelled, so a failing test cannot hang.
void WhenModal(std::function<void(QDialog&)> steps)
{
    QTimer::singleShot(0, [steps] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        steps(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
}

template <class T>
T* Find(QDialog& dialog, const char* name)
{
    T* widget = dialog.findChild<T*>(QString::fromLatin1(name));
    EXPECT_TRUE(widget) << name;
    return widget;
}

void Type(QDialog& dialog, const char* field, const QString& text)
{
    auto* edit = Find<QLineEdit>(dialog, field);
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Backspace);
    else
        QTest::keyClicks(edit, text);
}

void Choose(QDialog& dialog, const char* list, int downs)
{
    auto* box = Find<QComboBox>(dialog, list);
    box->setFocus();
    for (int i = 0; i < downs; ++i)
        QTest::keyClick(box, Qt::Key_Down);
}

void Click(QDialog& dialog, const char* button)
{
    QTest::mouseClick(Find<QAbstractButton>(dialog, button), Qt::LeftButton);
}

// Radio buttons by key: a click at a wide button's centre can miss its label.
void Check(QDialog& dialog, const char* radio)
{
    auto* button = Find<QAbstractButton>(dialog, radio);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
}

bool OkEnabled(QDialog& dialog)
{
    return Find<QPushButton>(dialog, "ok")->isEnabled();
}

struct PanelDialogs : testing::Test
{
    CRecordingMessenger messenger;
    CPanelGrid grid{messenger};
    CPanelDialogs dialogs;

    void SetUp() override
    {
        CStringTable::SetLanguage(ELanguage::English);
        CPwmDialog::SetFrequencyLimits(0, 0);
    }
    void TearDown() override { CStringTable::SetLanguage(ELanguage::English); }

    void Place(int column, int row, const QString& line, const QStringList& ports = {})
    {
        std::unique_ptr<CPanel> panel = MakePanel(line, ports);
        ASSERT_TRUE(panel);
        panel->SetName("P1");
        ASSERT_TRUE(grid.Place(column, row, std::make_unique<CPanelCell>(std::move(panel))));
    }

    // The record the layout file holds for the position, without its line end.
    QString Record(const QString& prefix) const
    {
        for (const QString& line : QString::fromUtf8(CLayoutFile::Write(grid)).split("\r\n"))
            if (line.startsWith(prefix))
                return line;
        return QString();
    }
};

TEST_F(PanelDialogs, StepMotorSpeedOffTheListMustBeChosen)
{
    Place(3, 1, "SMOT\t1,25");
    bool wasEnabled = true;
    WhenModal([&](QDialog& d) {
        EXPECT_EQ(d.windowTitle(), "Property Settings.(P1)");
        EXPECT_EQ(Find<QComboBox>(d, "speed")->currentIndex(), -1);
        wasEnabled = OkEnabled(d);
        Choose(d, "speed", 2);
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(3, 1, dialogs));
    EXPECT_FALSE(wasEnabled);
    EXPECT_EQ(Record("0301:"), "0301:SMOT\t1,20");
}

TEST_F(PanelDialogs, StepMotorOutTakesATypedSpeed)
{
    Place(CPanelGrid::GetOutputColumn(), 2, "SMOTO\t1,100", {"PB1"});
    bool tooSlowEnabled = true;
    WhenModal([&](QDialog& d) {
        Choose(d, "mode", 1);
        QComboBox* speed = Find<QComboBox>(d, "speed");
        speed->setFocus();
        QTest::keyClick(speed, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(speed, "19");
        tooSlowEnabled = OkEnabled(d);
        QTest::keyClick(speed, Qt::Key_Backspace);
        QTest::keyClicks(speed, "50");
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 2, dialogs));
    EXPECT_FALSE(tooSlowEnabled);
    EXPECT_EQ(Record("O_02:"), "O_02:SMOTO\t2,150");
}

TEST_F(PanelDialogs, SerialInCompareValuesAreSavedDescending)
{
    Place(CPanelGrid::GetInputColumn(), 1, "UARI\tX,1", {"PD0(RxD6)"});
    bool outOfRangeEnabled = true;
    bool outOfRangeFocused = false;
    WhenModal([&](QDialog& d) {
        Check(d, "compare");
        Type(d, "value0", "5");
        Type(d, "value1", "200");
        Type(d, "value2", "5");
        Type(d, "value3", "17");
        Type(d, "value4", "300");
        outOfRangeEnabled = OkEnabled(d);
        Type(d, "value0", "5"); // the wrong field takes the focus back
        auto* wrong = Find<QLineEdit>(d, "value4");
        outOfRangeFocused = d.focusWidget() == wrong && wrong->selectedText() == "300";
        QTest::keyClick(wrong, Qt::Key_Backspace);
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetInputColumn(), 1, dialogs));
    EXPECT_FALSE(outOfRangeEnabled);
    EXPECT_TRUE(outOfRangeFocused);
    EXPECT_EQ(Record("I_01:"), "I_01:UARI\tC,200,17,5");
    EXPECT_EQ(grid.GetCell(CPanelGrid::GetInputColumn(), 1)->GetHeight(), 3);
}

TEST_F(PanelDialogs, SerialInBitModeOnRxD0)
{
    Place(CPanelGrid::GetInputColumn(), 5, "UARI0\tC,1", {"PD0(RxD0)"});
    WhenModal([&](QDialog& d) {
        Type(d, "name", "Rx");
        Check(d, "bit");
        Choose(d, "bits", 3);
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetInputColumn(), 5, dialogs));
    EXPECT_EQ(Record("I_05:"), "I_05:UARI0\tB,3\t\t;Rx");
}

TEST_F(PanelDialogs, SerialOutChangesNothing)
{
    Place(CPanelGrid::GetOutputColumn(), 3, "UARO", {"PD1(TxD)"});
    WhenModal([&](QDialog& d) {
        auto* name = Find<QLineEdit>(d, "name");
        EXPECT_FALSE(name->isEnabled());
        EXPECT_EQ(name->text(), "You can't change this.");
        EXPECT_EQ(Find<QComboBox>(d, "port")->currentText(), "PD1(TxD)");
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 3, dialogs));
    EXPECT_EQ(Record("O_03:"), "O_03:UARO");
}

TEST_F(PanelDialogs, PulseWithTwoLevelsNeedsAStepChoice)
{
    Place(CPanelGrid::GetOutputColumn(), 5, "PULS\tH,PB2,100,0", {"PB1", "PB2"});
    bool wasEnabled = true;
    WhenModal([&](QDialog& d) {
        EXPECT_FALSE(Find<QRadioButton>(d, "five")->isChecked());
        EXPECT_FALSE(Find<QRadioButton>(d, "three")->isChecked());
        wasEnabled = OkEnabled(d);
        Check(d, "three");
        Type(d, "name", "Fan");
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 5, dialogs));
    EXPECT_FALSE(wasEnabled);
    EXPECT_EQ(Record("O_05:"), "O_05:PULS\tH,PB2,100,50,0\t\t;Fan");
}

TEST_F(PanelDialogs, PwmDutiesAreSavedDescendingWithinTheFrequencyRange)
{
    Place(CPanelGrid::GetOutputColumn(), 10, "PWM", {"PB1"});
    bool lowEnabled = true;
    bool overEnabled = true;
    WhenModal([&](QDialog& d) {
        Type(d, "duty0", "50");
        Type(d, "duty1", "100");
        Type(d, "duty2", "50");
        Type(d, "duty3", "0");
        Type(d, "frequency", "9");
        lowEnabled = OkEnabled(d);
        Type(d, "frequency", "100x");
        EXPECT_EQ(Find<QLineEdit>(d, "frequency")->selectedText(), "100x");
        Type(d, "frequency", "500");
        Type(d, "duty4", "101");
        overEnabled = OkEnabled(d);
        QTest::keyClick(Find<QLineEdit>(d, "duty4"), Qt::Key_Backspace);
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 10, dialogs));
    EXPECT_FALSE(lowEnabled);
    EXPECT_FALSE(overEnabled);
    EXPECT_EQ(Record("O_10:"), "O_10:PWM \t500Hz,100,50,0");
}

TEST_F(PanelDialogs, PwmWithSeveralPortsKeepsTheChosenOne)
{
    Place(CPanelGrid::GetOutputColumn(), 10, "PWM\t500Hz,50", {"PB1", "PB2", "PB3"});
    bool noPortEnabled = true;
    WhenModal([&](QDialog& d) {
        EXPECT_EQ(Find<QComboBox>(d, "port")->currentIndex(), -1);
        noPortEnabled = OkEnabled(d);
        Choose(d, "port", 2);
        EXPECT_EQ(Find<QComboBox>(d, "port")->currentText(), "PB2");
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 10, dialogs));
    EXPECT_FALSE(noPortEnabled);
    // The line keeps no port (the build takes the palette's); the panel keeps the choice.
    EXPECT_EQ(Record("O_10:"), "O_10:PWM \t500Hz,50");
    EXPECT_EQ(grid.GetCell(CPanelGrid::GetOutputColumn(), 10)->GetPanel()->GetPortIndex(), 1);
}

TEST_F(PanelDialogs, PwmRangeIsTheBoards)
{
    CPwmDialog::SetFrequencyLimits(31, 62500);
    Place(CPanelGrid::GetOutputColumn(), 10, "PWM", {"PB1"});
    bool belowEnabled = true;
    WhenModal([&](QDialog& d) {
        bool noted = false;
        for (const QLabel* label : d.findChildren<QLabel*>())
            noted = noted || label->text() == "(Available 31 to 62500)";
        EXPECT_TRUE(noted);
        Type(d, "duty0", "20");
        Type(d, "frequency", "30");
        belowEnabled = OkEnabled(d);
        Type(d, "frequency", "31");
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 10, dialogs));
    EXPECT_FALSE(belowEnabled);
    EXPECT_EQ(Record("O_10:"), "O_10:PWM \t31Hz,20");
}

TEST_F(PanelDialogs, WebInWithoutNameStoresLoneSemicolon)
{
    Place(CPanelGrid::GetInputColumn(), 12, "WEBIN\t2");
    WhenModal([&](QDialog& d) {
        Choose(d, "bits", 2);
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetInputColumn(), 12, dialogs));
    EXPECT_EQ(Record("I_12:"), "I_12:WEBIN\t4\t\t;");
}

TEST_F(PanelDialogs, LcdClearStoresEmptyQuotes)
{
    Place(CPanelGrid::GetOutputColumn(), 20, "LCD\t1,\"Hi\"");
    bool textEnabled = true;
    WhenModal([&](QDialog& d) {
        Check(d, "clear");
        textEnabled = Find<QLineEdit>(d, "text")->isEnabled();
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 20, dialogs));
    EXPECT_FALSE(textEnabled);
    EXPECT_EQ(Record("O_20:"), "O_20:LCD \t0,\"\"");
}

TEST_F(PanelDialogs, LcdTextStopsAtSixteenCharacters)
{
    Place(CPanelGrid::GetOutputColumn(), 20, "LCD\t3,\"\"");
    bool wasEnabled = true;
    bool commaEnabled = true;
    bool commaNoted = false;
    WhenModal([&](QDialog& d) {
        wasEnabled = OkEnabled(d);
        Check(d, "below");
        Type(d, "text", "Hi, there");
        commaEnabled = OkEnabled(d);
        commaNoted = !Find<QLabel>(d, "refused")->isHidden();
        Type(d, "text", "ABCDEFGHIJKLMNOPQ");
        Click(d, "ok");
    });
    ASSERT_TRUE(grid.EditCell(CPanelGrid::GetOutputColumn(), 20, dialogs));
    EXPECT_FALSE(wasEnabled);
    EXPECT_FALSE(commaEnabled);
    EXPECT_TRUE(commaNoted);
    EXPECT_EQ(Record("O_20:"), "O_20:LCD \t2,\"ABCDEFGHIJKLMNOP\"");
}

TEST_F(PanelDialogs, CancelLeavesThePanel)
{
    Place(CPanelGrid::GetOutputColumn(), 20, "LCD\t1,\"Hi\"");
    WhenModal([&](QDialog& d) {
        Check(d, "clear");
        Click(d, "cancel");
    });
    EXPECT_FALSE(grid.EditCell(CPanelGrid::GetOutputColumn(), 20, dialogs));
    EXPECT_EQ(Record("O_20:"), "O_20:LCD \t1,\"Hi\"");
}

TEST_F(PanelDialogs, JapaneseScreenshots)
{
    if (qEnvironmentVariableIsEmpty("QUILLON_SCREENSHOTS"))
        GTEST_SKIP() << "no screenshot folder named";
    CStringTable::SetLanguage(ELanguage::Japanese);
    Place(CPanelGrid::GetInputColumn(), 1, "UARI\tC,200,17,5\t\t;Rx", {"PD0(RxD6)"});
    Place(CPanelGrid::GetOutputColumn(), 10, "PWM\t1000Hz,100,50,0", {"PB1"});
    const struct
    {
        int Column;
        int Row;
        const char* File;
    } shots[] = {{CPanelGrid::GetInputColumn(), 1, "uart-setting-ja.png"},
                 {CPanelGrid::GetOutputColumn(), 10, "pwm-setting-ja.png"}};
    for (const auto& shot : shots) {
        WhenModal([&](QDialog& d) { Shoot(&d, shot.File); });
        grid.EditCell(shot.Column, shot.Row, dialogs);
    }
}

TEST_F(PanelDialogs, UsedPortListShowsInputsThenOutputs)
{
    Place(CPanelGrid::GetOutputColumn(), 2, "LAMP\tH,PB5", {"PB5"});
    Place(CPanelGrid::GetInputColumn(), 7, "KEY\tH,PD2", {"PD2"});
    Place(3, 3, "AND");
    CUsedPortDialog dialog(grid, nullptr);
    auto* list = dialog.findChild<QTreeWidget*>("ports");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(list->topLevelItem(0)->text(0), "IN");
    EXPECT_EQ(list->topLevelItem(0)->text(1), "7");
    EXPECT_EQ(list->topLevelItem(0)->text(4), "PD2");
    EXPECT_EQ(list->topLevelItem(1)->text(0), "OUT");
    EXPECT_EQ(list->topLevelItem(1)->text(4), "PB5");
    EXPECT_EQ(list->topLevelItem(1)->textAlignment(1) & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_EQ(list->topLevelItem(1)->textAlignment(0) & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    const int widths[] = {30, 50, 80, 100, 200};
    const char* headings[] = {"I/O", "location", "type", "name", "assigned"};
    for (int c = 0; c < 5; ++c) {
        EXPECT_EQ(list->columnWidth(c), widths[c]) << c;
        EXPECT_EQ(list->headerItem()->text(c), headings[c]) << c;
    }
    EXPECT_EQ(list->selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_EQ(list->editTriggers(), QAbstractItemView::NoEditTriggers);
    dialog.show();
    Shoot(&dialog, "used-ports-en.png");
}

TEST_F(PanelDialogs, UsedPortHeadingsInJapanese)
{
    CStringTable::SetLanguage(ELanguage::Japanese);
    CUsedPortDialog dialog(grid, nullptr);
    auto* list = dialog.findChild<QTreeWidget*>("ports");
    ASSERT_TRUE(list);
    EXPECT_EQ(list->topLevelItemCount(), 0);
    EXPECT_EQ(list->headerItem()->text(1), QString::fromUtf8("位置"));
    EXPECT_EQ(list->headerItem()->text(4), QString::fromUtf8("割り当て"));
    EXPECT_EQ(list->columnWidth(4), 200);
}

// A TARGET folder with the sample board as "uno" and the network board as "net".
struct TargetDialog : testing::Test
{
    QTemporaryDir dir;
    QString targets = dir.filePath("TARGET");
    QSettings profile{dir.filePath("profile.ini"), QSettings::IniFormat};
    std::unique_ptr<CSettings> settings;
    CRecordingMessenger messenger;

    void SetUp() override
    {
        CStringTable::SetLanguage(ELanguage::English);
        CopyBoardFiles(QUILLON_DIALOG_BOARDS "/atmega328p", targets + "/uno");
        CopyBoardFiles(QUILLON_DIALOG_TEST_DATA "/boards/netboard", targets + "/net");
        QFile ini(dir.filePath(CSettings::kIniFileName));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[Quillon]\nTarget1=uno\nTarget2=net\n");
        ini.close();
        settings = std::make_unique<CSettings>(&profile, dir.filePath(CSettings::kIniFileName));
        settings->Load();
    }

    CBoardInfo Board(const char* name)
    {
        CBoardInfo board;
        EXPECT_TRUE(board.Read(targets + "/" + name, QString(), messenger));
        return board;
    }
};

TEST_F(TargetDialog, NetworkControlsOnlyForTheNetworkBoard)
{
    settings->SetTarget("uno");
    const CBoardInfo uno = Board("uno");
    bool unoShows = true;
    bool netShows = false;
    int clock = -2;
    messenger.Answers = {EAnswer::No};
    WhenModal([&](QDialog& d) {
        unoShows = !Find<QLineEdit>(d, "ipAddress")->isHidden();
        EXPECT_EQ(Find<QComboBox>(d, "clock")->currentText(), "");
        Choose(d, "target", 1);
        netShows = !Find<QLineEdit>(d, "ipAddress")->isHidden() && !Find<QLineEdit>(d, "ipMask")->isHidden();
        clock = Find<QComboBox>(d, "clock")->count();
        Type(d, "ipAddress", "10.0.0.7");
        Click(d, "ok");
    });
    ASSERT_TRUE(CTargetDialog::Run(uno, *settings, targets, messenger, nullptr));
    EXPECT_FALSE(unoShows);
    EXPECT_TRUE(netShows);
    EXPECT_EQ(clock, 0); // the network board lists no clock sources
    ASSERT_EQ(messenger.Texts.size(), 1);
    EXPECT_EQ(messenger.Texts[0], CStringTable::Get(Ids::MsgRestartForTarget));
    EXPECT_EQ(settings->GetTarget(), "uno");
    EXPECT_EQ(settings->GetClockSource(), 1); // the network board's default
    EXPECT_EQ(settings->GetIPAddress(), 0x0A000007u);
}

TEST_F(TargetDialog, NetworkBoardInUseShowsItsAddresses)
{
    settings->SetTarget("net");
    settings->SetIPAddress(0xC0A8000A);
    const CBoardInfo net = Board("net");
    bool shows = false;
    QString address;
    WhenModal([&](QDialog& d) {
        shows = !Find<QLineEdit>(d, "ipAddress")->isHidden();
        address = Find<QLineEdit>(d, "ipAddress")->text();
        EXPECT_EQ(Find<QComboBox>(d, "target")->currentText(), "Network test board");
        Click(d, "cancel");
    });
    EXPECT_FALSE(CTargetDialog::Run(net, *settings, targets, messenger, nullptr));
    EXPECT_TRUE(shows);
    EXPECT_EQ(address, "192.168.0.10");
}

TEST_F(TargetDialog, JapaneseScreenshot)
{
    if (qEnvironmentVariableIsEmpty("QUILLON_SCREENSHOTS"))
        GTEST_SKIP() << "no screenshot folder named";
    CStringTable::SetLanguage(ELanguage::Japanese);
    settings->SetTarget("uno");
    settings->SetClockSource(0);
    const CBoardInfo uno = Board("uno");
    WhenModal([&](QDialog& d) { Shoot(&d, "target-setting-ja.png"); });
    CTargetDialog::Run(uno, *settings, targets, messenger, nullptr);
    CStringTable::SetLanguage(ELanguage::English);
}

struct WriterDialogs : testing::Test
{
    QTemporaryDir dir;
    QSettings profile{dir.filePath("profile.ini"), QSettings::IniFormat};
    CSettings settings{&profile, dir.filePath("quillon.ini")};

    void SetUp() override
    {
        CStringTable::SetLanguage(ELanguage::English);
        settings.Load();
    }

    // What the next start of the program reads.
    CSettings Saved()
    {
        profile.sync();
        QSettings again(dir.filePath("profile.ini"), QSettings::IniFormat);
        CSettings next(&again, dir.filePath("quillon.ini"));
        next.Load();
        return next;
    }
};

TEST_F(WriterDialogs, OptionDialogSavesTheChosenDeviceAndKeepsAnUnlistedWait)
{
#ifdef Q_OS_WIN
    GTEST_SKIP() << "Windows lists COM numbers";
#endif
    settings.SetWriteWait(7);
    int waitShown = 0;
    QString firstPort;
    WhenModal([&](QDialog& d) {
        waitShown = Find<QComboBox>(d, "wait")->currentIndex();
        firstPort = Find<QComboBox>(d, "port")->itemText(0);
        Choose(d, "port", 1);
        Click(d, "ok");
    });
    ASSERT_TRUE(CWriterOptionDialog::Run(settings, {{"USB2.0-Serial", "QinHeng", "/dev/ttyUSB0"}}, nullptr));
    EXPECT_EQ(waitShown, -1);
    EXPECT_EQ(firstPort, "Autoselect");
    const CSettings saved = Saved();
    EXPECT_EQ(saved.GetWritePort(), "/dev/ttyUSB0");
    EXPECT_EQ(saved.GetWriteWait(), 7);
}

TEST_F(WriterDialogs, FlashWriterTakesProgramAndOptions)
{
    settings.SetWriter("/old/writer");
    QString shown;
    WhenModal([&](QDialog& d) {
        shown = Find<QLineEdit>(d, "program")->text();
        Type(d, "program", "/usr/bin/avrdude");
        Type(d, "options", "-U flash:w:%hex%");
        Click(d, "ok");
    });
    ASSERT_TRUE(CFlashWriterDialog::Run(settings, nullptr));
    EXPECT_EQ(shown, "/old/writer");
    const CSettings saved = Saved();
    EXPECT_EQ(saved.GetWriter(), "/usr/bin/avrdude");
    EXPECT_EQ(saved.GetWriterOptions(), "-U flash:w:%hex%");
}

} // namespace

TEST(BuildDialog, StaysOpenWhileTheBuildRunsAndStopsItOnlyWhenTheUserSays)
{
    CRecordingMessenger messenger;
    messenger.Answers = {EAnswer::No, EAnswer::Yes};
    CBuildDialog* shown = nullptr;
    QStringList seen;
    CBuildDialog dialog(
        [&](IBuildLog& log, CStopRequest& stop) {
            log.Start("started");
            QTest::keyClick(shown, Qt::Key_Escape); // "No": the build goes on
            seen << QStringLiteral("after Escape: visible %1, stop %2").arg(shown->isVisible()).arg(stop.IsRequested());
            shown->close(); // "Yes": the build is asked to stop, the dialog stays
            seen << QStringLiteral("after close: visible %1, stop %2").arg(shown->isVisible()).arg(stop.IsRequested());
            return false;
        },
        messenger);
    shown = &dialog;
    dialog.show();
    QTRY_VERIFY_WITH_TIMEOUT(seen.size() == 2 && !dialog.IsBuilding(), 5000);
    EXPECT_EQ(seen, (QStringList{"after Escape: visible 1, stop 0", "after close: visible 1, stop 1"}));
    EXPECT_EQ(messenger.Texts, (QStringList{"The build is still running.\nStop it?", "The build is still running.\nStop it?"}));
    EXPECT_TRUE(dialog.isVisible()) << "the log stays to be read";
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible()) << "once the build has ended, Escape closes it";
}
