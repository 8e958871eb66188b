// The writer option dialog's lists and what OK stores.
#include "core/panels/paneltest.h"
#include "settings.h"
#include "writeroptionlogic.h"

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
    void SetUp() override { settings.Load(); }
};

TEST_F(WriterOption, DevicesFollowAutoselectAndTheChosenOneIsStoredAsItsPath)
{
    CWriterOptionLogic logic(settings, devices, false);
    QStringList texts;
    for (const auto& port : logic.Ports)
        texts << port.Text;
    EXPECT_EQ(texts, QStringList({"Autoselect", "/dev/ttyUSB0 (USB2.0-Serial)", "/dev/ttyS0"}));
    EXPECT_EQ(logic.Port, 0);
    EXPECT_EQ(logic.Wait, 1) << "the default wait 2";
    logic.Port = 1;
    logic.Wait = 4;
    logic.Apply(settings);
    EXPECT_EQ(std::tuple(settings.GetWritePort(), settings.GetWriteWait(), settings.GetWriteCOM()),
              std::tuple("/dev/ttyUSB0", 5, 0));
}

TEST_F(WriterOption, UnpluggedStoredPortStaysOnOfferAndAWaitOffTheListIsKept)
{
    settings.SetWritePort("/dev/ttyACM3");
    settings.SetWriteWait(7);
    CWriterOptionLogic logic(settings, devices, false);
    ASSERT_EQ(logic.Ports.size(), 4);
    EXPECT_EQ(logic.Port, 3);
    EXPECT_EQ(logic.Ports[3].Value, "/dev/ttyACM3");
    EXPECT_EQ(logic.Wait, -1);
    logic.Apply(settings);
    EXPECT_EQ(settings.GetWriteWait(), 7);
}

TEST_F(WriterOption, ComNumbersSelectByPosition)
{
    for (const int com : {0, 12, 255}) {
        settings.SetWriteCOM(com);
        CWriterOptionLogic logic(settings, {}, true);
        ASSERT_EQ(logic.Ports.size(), 256);
        EXPECT_EQ(logic.Ports[com].Text, com ? QStringLiteral("COM%1").arg(com) : "Autoselect");
        EXPECT_EQ(logic.Port, com);
        logic.Port = 0;
        logic.Apply(settings);
        EXPECT_EQ(settings.GetWriteCOM(), 0);
    }
}

} // namespace
