// The writer option dialog's lists and what OK stores.
#include "boardinfo.h"
#include "settings.h"
#include "buildpipeline.h"
#include "writeroptionlogic.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"

#include <QSettings>
#include <QTemporaryDir>

namespace {

struct WriterOption : testing::Test
{
    QTemporaryDir dir;
    QSettings profile{dir.filePath("profile.ini"), QSettings::IniFormat};
    CSettings settings{&profile, dir.filePath("quillon.ini")};
    const QList<CSerialDevicePortFinder::CDevice> devices{
        {"USB2.0-Serial", "QinHeng", "/dev/ttyUSB0"}, {"", "", "/dev/ttyS0"}};

    void SetUp() override
    {
        CStringTable::SetLanguage(ELanguage::English);
        settings.Load();
    }
};

TEST_F(WriterOption, DevicesFollowAutoselectWithTheirDescriptions)
{
    const CWriterOptionLogic logic(settings, devices, false);
    ASSERT_EQ(logic.Ports.size(), 3);
    EXPECT_EQ(logic.Ports[0].Text, "Autoselect");
    EXPECT_EQ(logic.Ports[1].Text, "/dev/ttyUSB0 (USB2.0-Serial)");
    EXPECT_EQ(logic.Ports[2].Text, "/dev/ttyS0");
    EXPECT_EQ(logic.Port, 0);
    EXPECT_EQ(logic.Wait, 1); // the default wait 2
}

TEST_F(WriterOption, ChosenDeviceIsStoredAsItsPath)
{
    CWriterOptionLogic logic(settings, devices, false);
    logic.Port = 1;
    logic.Wait = 4;
    logic.Apply(settings);
    EXPECT_EQ(settings.GetWritePort(), "/dev/ttyUSB0");
    EXPECT_EQ(settings.GetWriteWait(), 5);
    EXPECT_EQ(settings.GetWriteCOM(), 0);
}

TEST_F(WriterOption, UnpluggedStoredPortStaysOnOffer)
{
    settings.SetWritePort("/dev/ttyACM3");
    const CWriterOptionLogic logic(settings, devices, false);
    ASSERT_EQ(logic.Ports.size(), 4);
    EXPECT_EQ(logic.Port, 3);
    EXPECT_EQ(logic.Ports[3].Value, "/dev/ttyACM3");
}

TEST_F(WriterOption, WaitOffTheListLeavesNoSelectionAndIsKept)
{
    settings.SetWriteWait(7);
    CWriterOptionLogic logic(settings, devices, false);
    EXPECT_EQ(logic.Wait, -1);
    logic.Apply(settings);
    EXPECT_EQ(settings.GetWriteWait(), 7);
}

TEST_F(WriterOption, ComNumbersSelectByPosition)
{
    settings.SetWriteCOM(12);
    CWriterOptionLogic logic(settings, {}, true);
    ASSERT_EQ(logic.Ports.size(), 256);
    EXPECT_EQ(logic.Ports[255].Text, "COM255");
    EXPECT_EQ(logic.Port, 12);
    logic.Port = 0;
    logic.Apply(settings);
    EXPECT_EQ(settings.GetWriteCOM(), 0);
}

TEST_F(WriterOption, BuildTakesTheStoredDevice)
{
    settings.SetWritePort("/dev/ttyUSB0");
    settings.SetWriteCOM(3);
    const CBuildSettings build = CBuildSettings::From(settings, CBoardInfo(), dir.path());
#ifdef Q_OS_WIN
    EXPECT_EQ(build.Writer.Port, "3");
#else
    EXPECT_EQ(build.Writer.Port, "/dev/ttyUSB0");
#endif
}

TEST_F(WriterOption, WritePortSurvivesARestart)
{
    settings.SetWritePort("/dev/ttyACM0");
    ASSERT_TRUE(settings.Save());
    profile.sync();
    QSettings again(dir.filePath("profile.ini"), QSettings::IniFormat);
    CSettings next(&again, dir.filePath("quillon.ini"));
    next.Load();
    EXPECT_EQ(next.GetWritePort(), "/dev/ttyACM0");
}

} // namespace
