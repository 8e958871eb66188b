// The property dialogs, driven by keys through the grid's edit: a control change reaches the
// rule, OK shows it and the tokens come out in the layout; and the target, writer, build and
// used port dialogs, driven through real key and mouse input offscreen.
#include "boardinfo.h"
#include "builddialog.h"
#include "flashwriterdialog.h"
#include "gui/dialogtest.h"
#include "settings.h"
#include "support/boardfolder.h"
#include "targetdialog.h"
#include "usedportdialog.h"
#include "writeroptiondialog.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

const CText kEveryFamily[] = {
    "SwitchTakesNamePortAndLevel|SW|PD2,PD3|title=Property Settings.(P1)|index:port=-1|"
    "shows:level=H|type:name=start|keys:port=PD3|keys:level=L|=record=SW  \tL,PD3\t\t;start|"
    "=comment=start",
    "NameThatCannotBeStoredIsRefused|KEY\tH,PD2\t\t;old|PD2|hidden:refused=true|type:name=a,b|"
    "ok=off|hidden:refused=false|type:name=a;b|ok=on|hidden:refused=true|"
    "=record=KEY \tH,PD2\t\t;a;b",
    "LampWritesNewNameButKeepsItsComment|LAMP\tH,PD2\t\t;old|PD2,PD3|shows:name=old|type:name=new|"
    "=record=LAMP\tH,PD2\t\t;new|=comment=old",
    "UntypedFlipFlopBecomesT|FF||index:type=-1|ok=off|keys:type=T|ok=on|=record=T_FF|=bitmap=10025",
    "DelayStoresTheTypedTimeOnTheGrid|DLY\t90.45S||shows:minutes=1|shows:seconds=30|"
    "shows:hundredths=45|type:minutes=2|type:seconds=3|type:hundredths=47|=record=DLY \t123.45S",
    "FourHundredthsAreTooShortTwentyMinutesDropThem|DLY||type:hundredths=04|ok=off|"
    "type:hundredths=45|enabled:hundredths=true|type:minutes=20|enabled:hundredths=false|"
    "shows:hundredths=00|ok=on|type:hours=9|ok=off|type:hours=0|=record=DLY \t1200.00S",
    "LongHourValueShowsWholeAndIsSelected|DLY\t360000000.00S||shows:hours=100000|wide:hours|"
    "ok=off|selected:hours=100000|type:hours=8|ok=on|=record=DLY \t28800.00S",
    "TimerTakesKindAndNestedTime|TIM1\tH,1.00S||index:type=-1|ok=off|keys:type=O|ok=on|"
    "nested:set=title=Time Setting;shows:seconds=1;type:minutes=19;type:seconds=59;"
    "type:hundredths=99|shows:time=0h 19m 59.95s|=record=TIM1\tN,1199.95S",
    "BuzzerWithSeveralPortsNeedsOneChosen|BUZZ\tPB1|PB1,PB2|index:port=-1|press:freq500|"
    "press:freq2000|ok=off|keys:port=PB2|ok=on|=record=BUZZ\tPB2,2000,500|=items=2",
    "CounterTypeChoiceEnablesOk|CNT\tX,5||index:type=-1|ok=off|keys:type=C|ok=on|"
    "=record=CNT \tC,5|=mode=2",
    "CounterValueOutOfRangeIsSelected|CNT\tH,1||keys:value2=40000|ok=off|selected:value2=40000|"
    "keys:value2=400|ok=on|=record=CNT \tH,400,1",
    "FourDigitDisplayEditedToBit|7SEG4|PB0|index:port=0|ok=off|keys:type=B|"
    "=record=7SEG4\t\t\t;7SEG4_B|=mode=4",
    "SerialBitTakesItsPosition|UART\t-||type:number=8|ok=off|type:number=5|ok=on|=record=UART\t5,L",
    "JumpWithoutIdStartsEmptyAndTakesOne|JPI\t0,L||shows:number=|ok=off|type:number=42|"
    "=record=JPI \t42,L|=ref=42",
    "CancelLeavesThePanelAlone|CNT\tH,1||type:value1=77|click:cancel",
    "StepMotorSpeedOffTheListMustBeChosen|SMOT\t1,25||index:speed=-1|ok=off|down:speed=2|"
    "=record=SMOT\t1,20",
    "StepMotorOutTakesATypedSpeed|SMOTO\t1,100|PB1|down:mode=1|type:speed=19|ok=off|"
    "type:speed=150|=record=SMOTO\t2,150",
    "SerialInCompareValuesAreSavedDescending|UARI\tX,1|PD0(RxD6)|press:compare|type:value0=5|"
    "type:value1=200|type:value2=5|type:value3=17|type:value4=300|ok=off|type:value0=5|"
    "selected:value4=300|type:value4=|=record=UARI\tC,200,17,5|=items=3",
    "SerialInBitModeOnRxD0|UARI0\tC,1|PD0(RxD0)|type:name=Rx|press:bit|down:bits=3|"
    "=record=UARI0\tB,3\t\t;Rx",
    "SerialOutChangesNothing|UARO|PD1(TxD)|enabled:name=false|shows:name=You can't change this.|"
    "shows:port=PD1(TxD)|=record=UARO",
    "PulseWithTwoLevelsNeedsAStepChoice|PULS\tH,PB2,100,0|PB1,PB2|checked:five=false|"
    "checked:three=false|ok=off|press:three|type:name=Fan|=record=PULS\tH,PB2,100,50,0\t\t;Fan",
    "PwmDutiesAreSavedDescendingWithinTheFrequencyRange|PWM|PB1|type:duty0=50|type:duty1=100|"
    "type:duty2=50|type:duty3=0|type:frequency=9|ok=off|type:frequency=100x|"
    "selected:frequency=100x|type:frequency=500|type:duty4=101|ok=off|type:duty4=|"
    "=record=PWM \t500Hz,100,50,0",
    "PwmRangeIsTheBoards|PWM|PB1|note=(Available 31 to 62500)|type:duty0=20|type:frequency=30|"
    "ok=off|type:frequency=31|=record=PWM \t31Hz,20",
    // The line keeps no port (the build takes the palette's); the panel keeps the choice.
    "PwmWithSeveralPortsKeepsTheChosenOne|PWM\t500Hz,50|PB1,PB2,PB3|index:port=-1|ok=off|"
    "down:port=2|shows:port=PB2|=record=PWM \t500Hz,50|=port=1",
    "WebInWithoutNameStoresLoneSemicolon|WEBIN\t2||down:bits=2|=record=WEBIN\t4\t\t;",
    "LcdClearDisablesTheText|LCD\t1,\"Hi\"||press:clear|enabled:text=false|=record=LCD \t0,\"\"",
    "LcdTextStopsAtSixteenCharacters|LCD\t3,\"\"||ok=off|press:below|type:text=Hi, there|ok=off|"
    "hidden:refused=false|type:text=ABCDEFGHIJKLMNOPQ|=record=LCD \t2,\"ABCDEFGHIJKLMNOP\"",
};

TEST_F(PropertyDialogs, EveryFamily)
{
    Run(kEveryFamily);
}

TEST(UsedPortDialog, ListsInputsThenOutputsInEitherLanguage)
{
    CRecordingMessenger messenger;
    CPanelGrid grid{messenger};
    grid.Place(CPanelGrid::GetOutputColumn(), 2,
               std::make_unique<CPanelCell>(MakePanel("LAMP\tH,PB5", {"PB5"})));
    grid.Place(CPanelGrid::GetInputColumn(), 7,
               std::make_unique<CPanelCell>(MakePanel("KEY\tH,PD2", {"PD2"})));
    grid.Place(3, 3, std::make_unique<CPanelCell>(MakePanel("AND")));
    CStringTable::SetLanguage(ELanguage::English);
    CUsedPortDialog dialog(grid, nullptr);
    auto* list = dialog.findChild<QTreeWidget*>("ports");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->topLevelItemCount(), 2);
    const QTreeWidgetItem* in = list->topLevelItem(0);
    const QTreeWidgetItem* out = list->topLevelItem(1);
    EXPECT_EQ(in->text(0) + in->text(1) + in->text(4), "IN7PD2");
    EXPECT_EQ(out->text(0) + out->text(4), "OUTPB5");
    EXPECT_EQ(out->textAlignment(1) & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_EQ(out->textAlignment(0) & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    QStringList headings;
    for (int c = 0; c < 5; ++c)
        headings << list->headerItem()->text(c);
    EXPECT_EQ(headings.join(u'|'), "I/O|location|type|name|assigned");
    CStringTable::SetLanguage(ELanguage::Japanese);
    const CUsedPortDialog japanese(grid, nullptr);
    const QTreeWidgetItem* header = japanese.findChild<QTreeWidget*>("ports")->headerItem();
    EXPECT_EQ(header->text(1) + u'|' + header->text(4), QString::fromUtf8("位置|割り当て"));
    CStringTable::SetLanguage(ELanguage::English);
}

// Settings beside a TARGET folder with the sample board as "uno" and the network board as "net".
struct SettingsDialogs : testing::Test
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

    // What the next start of the program reads.
    CSettings NextStart()
    {
        profile.sync();
        QSettings again(dir.filePath("profile.ini"), QSettings::IniFormat);
        CSettings next(&again, dir.filePath(CSettings::kIniFileName));
        next.Load();
        return next;
    }
};

// Choosing a board takes its defaults; its other settings are stored whatever the answer to
// the restart question, the board only when the answer keeps it.
TEST_F(SettingsDialogs, TargetShowsNetworkControlsOnlyForTheNetworkBoard)
{
    for (const EAnswer answer : {EAnswer::No, EAnswer::Yes}) {
        settings->SetTarget("uno");
        messenger.Texts.clear();
        messenger.Answers = {answer};
        // The network board lists no clock sources.
        WhenModal([](QDialog& d) {
            Drive(d, "hidden:ipAddress=true|shows:clock=|down:target=1|hidden:ipAddress=false|"
                     "hidden:ipMask=false|count:clock=0|type:ipAddress=10.0.0.7|click:ok");
        });
        ASSERT_TRUE(CTargetDialog::Run(Board("uno"), *settings, targets, messenger, nullptr));
        EXPECT_EQ(messenger.Texts, QStringList{CStringTable::Get(Ids::MsgRestartForTarget)});
        EXPECT_EQ(settings->GetTarget(), answer == EAnswer::Yes ? "net" : "uno");
        EXPECT_EQ(settings->GetClockSource(), 1); // the network board's default
        EXPECT_EQ(settings->GetIPAddress(), 0x0A000007u);
    }
}

TEST_F(SettingsDialogs, TargetShowsTheAddressesOfTheNetworkBoardInUse)
{
    settings->SetTarget("net");
    settings->SetIPAddress(0xC0A8000A);
    WhenModal([](QDialog& d) {
        Drive(d, "hidden:ipAddress=false|shows:ipAddress=192.168.0.10|"
                 "shows:target=Network test board|click:cancel");
    });
    EXPECT_FALSE(CTargetDialog::Run(Board("net"), *settings, targets, messenger, nullptr));
}

TEST_F(SettingsDialogs, WriterOptionsSaveTheChosenDeviceAndKeepsAnUnlistedWait)
{
#ifdef Q_OS_WIN
    GTEST_SKIP() << "Windows lists COM numbers";
#endif
    settings->SetWriteWait(7);
    WhenModal(
        [](QDialog& d) { Drive(d, "index:wait=-1|shows:port=Autoselect|down:port=1|click:ok"); });
    const QList<CSerialDevicePortFinder::CDevice> devices{
        {"USB2.0-Serial", "QinHeng", "/dev/ttyUSB0"}};
    ASSERT_TRUE(CWriterOptionDialog::Run(*settings, devices, nullptr));
    const CSettings saved = NextStart();
    EXPECT_EQ(saved.GetWritePort(), "/dev/ttyUSB0");
    EXPECT_EQ(saved.GetWriteWait(), 7);
}

TEST_F(SettingsDialogs, FlashWriterTakesProgramAndOptions)
{
    settings->SetWriter("/old/writer");
    WhenModal([](QDialog& d) {
        Drive(d, "shows:program=/old/writer|type:program=/usr/bin/avrdude|"
                 "type:options=-U flash:w:%hex%|click:ok");
    });
    ASSERT_TRUE(CFlashWriterDialog::Run(*settings, nullptr));
    const CSettings saved = NextStart();
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
            const auto note = [&](const char* after) {
                seen << QStringLiteral("after %1: visible %2, stop %3")
                            .arg(after)
                            .arg(shown->isVisible())
                            .arg(stop.IsRequested());
            };
            log.Start("started");
            QTest::keyClick(shown, Qt::Key_Escape); // "No": the build goes on
            note("Escape");
            shown->close(); // "Yes": the build is asked to stop, the dialog stays
            note("close");
            return false;
        },
        messenger);
    shown = &dialog;
    dialog.show();
    QTRY_VERIFY_WITH_TIMEOUT(seen.size() == 2 && !dialog.IsBuilding(), 5000);
    EXPECT_EQ(seen.join(u'|'), "after Escape: visible 1, stop 0|after close: visible 1, stop 1");
    EXPECT_EQ(messenger.Texts, QStringList(2, "The build is still running.\nStop it?"));
    EXPECT_TRUE(dialog.isVisible()) << "the log stays to be read";
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible()) << "once the build has ended, Escape closes it";
}
