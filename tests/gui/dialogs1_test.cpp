#include "layoutdocument.h"
#include "layoutfile.h"
#include "panelcell.h"
#include "counterdialog.h"
#include "paneldialogs.h"
#include "core/panels/paneltest.h"
#include "timedialog.h"
#include "support/recordingmessenger.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

QPushButton* Ok(QWidget* dialog)
{
    return dialog->findChild<QPushButton*>(QStringLiteral("ok"));
}

// Replaces the text of a field the way a user does: select all, then type.
void Retype(QWidget* dialog, const char* name, const QString& text)
{
    auto* edit = dialog->findChild<QLineEdit*>(QLatin1String(name));
    ASSERT_NE(edit, nullptr) << name;
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Delete);
    else
        QTest::keyClicks(edit, text);
}

void Choose(QWidget* dialog, const char* name, const QString& typed)
{
    auto* combo = dialog->findChild<QComboBox*>(QLatin1String(name));
    ASSERT_NE(combo, nullptr) << name;
    QTest::keyClicks(combo, typed);
}

// Drives the modal dialog that the next event loop shows. Whatever the driver does, the
// dialog is closed in the end, so a driver that fails to press OK fails the test instead
// of hanging it.
void DriveNextDialog(std::function<void(QWidget*)> drive, bool* driven)
{
    QTimer::singleShot(0, [drive, driven] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        drive(dialog);
        *driven = true;
        if (dialog->isVisible())
            qobject_cast<QDialog*>(dialog)->reject();
    });
}

struct DialogEditTest : testing::Test
{
    CRecordingMessenger messenger;
    CLayoutDocument document{nullptr, messenger};
    CPanelGrid& grid = document.Grid();
    CPanelDialogs dialogs;

    void Place(int column, int row, const QString& line, const QStringList& ports = {})
    {
        ASSERT_TRUE(grid.Place(column, row, std::make_unique<CPanelCell>(MakePanel(line, ports))));
        grid.ClearJournal();
    }

    // Edits the panel through the editor's dialogs, the dialog driven by drive.
    bool Edit(int column, int row, std::function<void(QWidget*)> drive)
    {
        bool driven = false;
        DriveNextDialog(drive, &driven);
        const bool ok = grid.EditCell(column, row, dialogs);
        EXPECT_TRUE(driven);
        return ok;
    }

    // The record of the saved layout that starts with prefix ("I_01:", "0101:").
    QString Record(const QString& prefix) const
    {
        const QString text = QString::fromUtf8(CLayoutFile::Write(grid));
        for (const QString& line : text.split(QStringLiteral("\r\n")))
            if (line.startsWith(prefix))
                return line;
        return QString();
    }

    CPanel* PanelAt(int column, int row) const { return grid.GetCell(column, row)->GetPanel(); }
};

TEST_F(DialogEditTest, SwitchTakesNamePortAndLevel)
{
    Place(CPanelGrid::GetInputColumn(), 1, QStringLiteral("SW"), {"PD2", "PD3"});
    const QString title = CPanelDialogs::TitleFor(*PanelAt(CPanelGrid::GetInputColumn(), 1));
    ASSERT_TRUE(Edit(CPanelGrid::GetInputColumn(), 1, [&](QWidget* d) {
        EXPECT_EQ(d->windowTitle(), title);
        EXPECT_TRUE(title.startsWith(QStringLiteral("Property Settings.(")));
        EXPECT_EQ(d->findChild<QComboBox*>("port")->currentIndex(), -1);
        EXPECT_EQ(d->findChild<QComboBox*>("level")->currentText(), "H");
        Retype(d, "name", "start");
        Choose(d, "port", "PD3");
        Choose(d, "level", "L");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("I_01:"), "I_01:SW  \tL,PD3\t\t;start");
    // The switch takes its new name at once.
    EXPECT_EQ(PanelAt(CPanelGrid::GetInputColumn(), 1)->GetLineComment(), "start");
}

TEST_F(DialogEditTest, NameThatCannotBeStoredIsRefused)
{
    Place(CPanelGrid::GetInputColumn(), 1, QStringLiteral("KEY\tH,PD2\t\t;old"), {"PD2"});
    ASSERT_TRUE(Edit(CPanelGrid::GetInputColumn(), 1, [](QWidget* d) {
        auto* refused = d->findChild<QLabel*>("refused");
        ASSERT_NE(refused, nullptr);
        EXPECT_TRUE(refused->isHidden());
        Retype(d, "name", "a,b");
        EXPECT_FALSE(Ok(d)->isEnabled());
        EXPECT_FALSE(refused->isHidden());
        Retype(d, "name", "a;b");
        EXPECT_TRUE(Ok(d)->isEnabled());
        EXPECT_TRUE(refused->isHidden());
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("I_01:"), "I_01:KEY \tH,PD2\t\t;a;b");
}

TEST_F(DialogEditTest, LampWritesNewNameButKeepsItsComment)
{
    Place(CPanelGrid::GetOutputColumn(), 1, QStringLiteral("LAMP\tH,PD2\t\t;old"), {"PD2", "PD3"});
    ASSERT_TRUE(Edit(CPanelGrid::GetOutputColumn(), 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QLineEdit*>("name")->text(), "old");
        Retype(d, "name", "new");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("O_01:"), "O_01:LAMP\tH,PD2\t\t;new");
    EXPECT_EQ(PanelAt(CPanelGrid::GetOutputColumn(), 1)->GetLineComment(), "old");
}

TEST_F(DialogEditTest, UntypedFlipFlopBecomesT)
{
    Place(1, 1, QStringLiteral("FF"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QComboBox*>("type")->currentIndex(), -1);
        EXPECT_FALSE(Ok(d)->isEnabled());
        Choose(d, "type", "T");
        EXPECT_TRUE(Ok(d)->isEnabled());
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:T_FF");
    EXPECT_EQ(PanelAt(1, 1)->GetBitmapId(), 10025);
}

TEST_F(DialogEditTest, DelayStoresTheTypedTimeOnTheGrid)
{
    Place(1, 1, QStringLiteral("DLY\t90.45S"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QLineEdit*>("minutes")->text(), "1");
        EXPECT_EQ(d->findChild<QLineEdit*>("seconds")->text(), "30");
        EXPECT_EQ(d->findChild<QLineEdit*>("hundredths")->text(), "45");
        Retype(d, "minutes", "2");
        Retype(d, "seconds", "3");
        Retype(d, "hundredths", "47");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:DLY \t123.45S");
}

TEST_F(DialogEditTest, TimerTakesKindAndNestedTime)
{
    Place(1, 1, QStringLiteral("TIM1\tH,1.00S"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        // "TIM1" with "H" is no kind of the list.
        EXPECT_EQ(d->findChild<QComboBox*>("type")->currentIndex(), -1);
        EXPECT_FALSE(Ok(d)->isEnabled());
        Choose(d, "type", "O");
        EXPECT_TRUE(Ok(d)->isEnabled());
        bool nested = false;
        DriveNextDialog(
            [](QWidget* t) {
                EXPECT_EQ(t->windowTitle(), "Time Setting");
                EXPECT_EQ(t->findChild<QLineEdit*>("seconds")->text(), "1");
                Retype(t, "minutes", "19");
                Retype(t, "seconds", "59");
                Retype(t, "hundredths", "99");
                QTest::mouseClick(Ok(t), Qt::LeftButton);
            },
            &nested);
        QTest::mouseClick(d->findChild<QPushButton*>("set"), Qt::LeftButton);
        EXPECT_TRUE(nested);
        EXPECT_EQ(d->findChild<QLineEdit*>("time")->text(), "0h 19m 59.95s");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:TIM1\tN,1199.95S");
}

TEST_F(DialogEditTest, BuzzerWithSeveralPortsNeedsOneChosen)
{
    Place(CPanelGrid::GetOutputColumn(), 1, QStringLiteral("BUZZ\tPB1"), {"PB1", "PB2"});
    ASSERT_TRUE(Edit(CPanelGrid::GetOutputColumn(), 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QComboBox*>("port")->currentIndex(), -1);
        QTest::keyClick(d->findChild<QCheckBox*>("freq500"), Qt::Key_Space);
        QTest::keyClick(d->findChild<QCheckBox*>("freq2000"), Qt::Key_Space);
        EXPECT_FALSE(Ok(d)->isEnabled());
        Choose(d, "port", "PB2");
        EXPECT_TRUE(Ok(d)->isEnabled());
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("O_01:"), "O_01:BUZZ\tPB2,2000,500");
    EXPECT_EQ(PanelAt(CPanelGrid::GetOutputColumn(), 1)->GetItemCount(), 2);
}

TEST_F(DialogEditTest, CounterValuesAreSortedDownOnceEach)
{
    Place(1, 1, QStringLiteral("CNT\tH,1"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        Retype(d, "value1", "10");
        Retype(d, "value2", "300");
        Retype(d, "value3", "10");
        Retype(d, "value4", "5");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:CNT \tH,300,10,5");
    EXPECT_EQ(PanelAt(1, 1)->GetItemCount(), 3);
}

TEST_F(DialogEditTest, CounterTypeChoiceEnablesOkAndIsWritten)
{
    Place(1, 1, QStringLiteral("CNT\tX,5"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QComboBox*>("type")->currentIndex(), -1);
        EXPECT_FALSE(Ok(d)->isEnabled());
        Choose(d, "type", "C");
        EXPECT_TRUE(Ok(d)->isEnabled());
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:CNT \tC,5");
    EXPECT_EQ(PanelAt(1, 1)->GetMode(), 2);
}

TEST_F(DialogEditTest, FourDigitDisplayEditedToBit)
{
    Place(CPanelGrid::GetOutputColumn(), 1, QStringLiteral("7SEG4"), {"PB0"});
    ASSERT_TRUE(Edit(CPanelGrid::GetOutputColumn(), 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QComboBox*>("port")->currentIndex(), 0);
        EXPECT_FALSE(Ok(d)->isEnabled());
        Choose(d, "type", "B");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("O_01:"), "O_01:7SEG4\t\t\t;7SEG4_B");
    EXPECT_EQ(PanelAt(CPanelGrid::GetOutputColumn(), 1)->GetMode(), 4);
}

TEST_F(DialogEditTest, SerialBitTakesItsPosition)
{
    Place(1, 1, QStringLiteral("UART\t-"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        Retype(d, "number", "8");
        EXPECT_FALSE(Ok(d)->isEnabled());
        Retype(d, "number", "5");
        EXPECT_TRUE(Ok(d)->isEnabled());
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:UART\t5,L");
}

TEST_F(DialogEditTest, JumpWithoutIdStartsEmptyAndTakesOne)
{
    Place(1, 1, QStringLiteral("JPI\t0,L"));
    ASSERT_TRUE(Edit(1, 1, [](QWidget* d) {
        EXPECT_EQ(d->findChild<QLineEdit*>("number")->text(), "");
        EXPECT_FALSE(Ok(d)->isEnabled());
        Retype(d, "number", "42");
        QTest::mouseClick(Ok(d), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:JPI \t42,L");
    EXPECT_EQ(PanelAt(1, 1)->GetReference(), 42);
}

TEST_F(DialogEditTest, CancelLeavesThePanelAlone)
{
    Place(1, 1, QStringLiteral("CNT\tH,1"));
    EXPECT_FALSE(Edit(1, 1, [](QWidget* d) {
        Retype(d, "value1", "77");
        QTest::mouseClick(d->findChild<QPushButton*>("cancel"), Qt::LeftButton);
    }));
    EXPECT_EQ(Record("0101:"), "0101:CNT \tH,1");
}

TEST(CounterDialog, TypingAValueOutOfRangeSelectsIt)
{
    auto panel = MakePanel(QStringLiteral("CNT\tH,1"));
    CCounterDialog dialog(*panel, nullptr);
    dialog.show();
    auto* second = dialog.findChild<QLineEdit*>("value2");
    QTest::keyClicks(second, "40000");
    EXPECT_FALSE(Ok(&dialog)->isEnabled());
    EXPECT_EQ(second->selectedText(), "40000");
    EXPECT_EQ(dialog.focusWidget(), second);
    QTest::keyClicks(second, "400");
    EXPECT_TRUE(Ok(&dialog)->isEnabled());
    dialog.accept();
    EXPECT_EQ(panel->GetTokens(), QStringList({"CNT", "H", "400", "1"}));
}

TEST(TimeDialog, FourHundredthsAreTooShort)
{
    CTimeDialog dialog(QString(), nullptr);
    dialog.show();
    Retype(&dialog, "hundredths", "04");
    EXPECT_FALSE(Ok(&dialog)->isEnabled());
    Retype(&dialog, "hundredths", "05");
    EXPECT_TRUE(Ok(&dialog)->isEnabled());
    dialog.accept();
    EXPECT_EQ(dialog.Text(), "000000.05");
}

TEST(TimeDialog, TwentyMinutesDropTheHundredths)
{
    CTimeDialog dialog(QStringLiteral("000000.00"), nullptr);
    dialog.show();
    Retype(&dialog, "hundredths", "45");
    auto* hundredths = dialog.findChild<QLineEdit*>("hundredths");
    EXPECT_TRUE(hundredths->isEnabled());
    Retype(&dialog, "minutes", "20");
    EXPECT_FALSE(hundredths->isEnabled());
    EXPECT_EQ(hundredths->text(), "00");
    EXPECT_TRUE(Ok(&dialog)->isEnabled());
    Retype(&dialog, "hours", "9");
    EXPECT_FALSE(Ok(&dialog)->isEnabled());
}

TEST(TimeDialog, LongHourValueShowsWholeAndIsSelected)
{
    auto panel = MakePanel(QStringLiteral("DLY\t360000000.00S"));
    CTimeDialog dialog(*panel, nullptr);
    dialog.show();
    auto* hours = dialog.findChild<QLineEdit*>("hours");
    EXPECT_EQ(hours->text(), "100000");
    EXPECT_GE(hours->width(), hours->fontMetrics().horizontalAdvance(hours->text()) + 12);
    EXPECT_FALSE(Ok(&dialog)->isEnabled());
    EXPECT_EQ(hours->selectedText(), "100000");
    Retype(&dialog, "hours", "8");
    EXPECT_TRUE(Ok(&dialog)->isEnabled());
}

} // namespace
