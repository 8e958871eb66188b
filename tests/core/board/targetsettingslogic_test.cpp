// The target board choice: candidates from the installed folders, a board's defaults on
// choosing it, and what OK stores.
#include "boardinfo.h"
#include "support/boardfolder.h"
#include "settings.h"
#include "targetsettingslogic.h"
#include "core/panels/paneltest.h"
#include "stringtable.h"
#include "support/recordingmessenger.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace {

// A TARGET folder holding the sample board as "uno" and the network board as "net", and
// settings that offer them with a missing board between.
struct TargetSettings : testing::Test
{
    QTemporaryDir dir;
    QString targets = dir.filePath("TARGET");
    std::unique_ptr<QSettings> profile =
        std::make_unique<QSettings>(dir.filePath("profile.ini"), QSettings::IniFormat);
    std::unique_ptr<CSettings> settings;
    CBoardInfo uno;

    void SetUp() override
    {
        CStringTable::SetLanguage(ELanguage::English);
        CopyBoardFiles(QUILLON_BOARDS "/atmega328p", targets + "/uno");
        CopyBoardFiles(QUILLON_TEST_DATA "/boards/netboard", targets + "/net");
        QFile ini(dir.filePath(CSettings::kIniFileName));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[Quillon]\nTarget1=uno\nTarget2=gone\nTarget3=net\n");
        ini.close();
        Reload();
        settings->SetTarget("uno");
        CRecordingMessenger messenger;
        ASSERT_TRUE(uno.Read(targets + "/uno", QString(), messenger));
    }

    void Reload()
    {
        settings = std::make_unique<CSettings>(profile.get(), dir.filePath(CSettings::kIniFileName));
        settings->Load();
    }
};

TEST_F(TargetSettings, MissingFolderIsLeftOutAndIndicesKept)
{
    const CTargetSettingsLogic logic(*settings, targets, uno);
    ASSERT_EQ(logic.Candidates().size(), 2);
    EXPECT_EQ(logic.Candidates()[0].DisplayName, "ATmega328P Uno-class board (16MHz)");
    EXPECT_EQ(logic.Candidates()[0].Index, 0);
    EXPECT_EQ(logic.Candidates()[1].DisplayName, "Network test board");
    EXPECT_EQ(logic.Candidates()[1].Index, 2);
}

TEST_F(TargetSettings, OpensOnTheCurrentBoardWithTheStoredClock)
{
    settings->SetClockSource(0);
    const CTargetSettingsLogic logic(*settings, targets, uno);
    EXPECT_EQ(logic.Target, 0);
    EXPECT_EQ(logic.ClockSources, QStringList{"16MHz crystal"});
    EXPECT_EQ(logic.Clock, 0);
    EXPECT_FALSE(logic.ShowsNetwork);
    EXPECT_FALSE(logic.ChangesBoard());
}

TEST_F(TargetSettings, UnknownCurrentBoardSelectsNothing)
{
    settings->SetTarget("elsewhere");
    const CTargetSettingsLogic logic(*settings, targets, uno);
    EXPECT_EQ(logic.Target, -1);
    EXPECT_FALSE(logic.ChangesBoard());
}

TEST_F(TargetSettings, ChoosingTheNetworkBoardTakesItsDefaults)
{
    CTargetSettingsLogic logic(*settings, targets, uno);
    logic.SelectTarget(1);
    EXPECT_TRUE(logic.ShowsNetwork);
    EXPECT_EQ(logic.Clock, 1);
    EXPECT_TRUE(logic.ClockSources.isEmpty());
    EXPECT_TRUE(logic.ChangesBoard());
    logic.SelectTarget(0);
    EXPECT_FALSE(logic.ShowsNetwork);
    EXPECT_EQ(logic.Clock, 0);
}

TEST_F(TargetSettings, AnsweringNoKeepsTheBoardButStoresTheRest)
{
    CTargetSettingsLogic logic(*settings, targets, uno);
    logic.SelectTarget(1);
    logic.Clock = 2;
    ASSERT_TRUE(CTargetSettingsLogic::ReadAddress("192.168.0.10", logic.IPAddress));
    ASSERT_TRUE(CTargetSettingsLogic::ReadAddress("255.255.255.0", logic.IPMask));
    logic.Apply(*settings, false);
    ASSERT_TRUE(settings->Save());
    profile->sync();
    Reload();
    EXPECT_EQ(settings->GetTarget(), "uno");
    EXPECT_EQ(settings->GetClockSource(), 2);
    EXPECT_EQ(settings->GetIPAddress(), 0xC0A8000Au);
    EXPECT_EQ(settings->GetIPMask(), 0xFFFFFF00u);
}

TEST_F(TargetSettings, AnsweringYesStoresTheCandidateName)
{
    CTargetSettingsLogic logic(*settings, targets, uno);
    logic.SelectTarget(1);
    logic.Apply(*settings, true);
    EXPECT_EQ(settings->GetTarget(), "net");
}

struct AddressCase
{
    const char* Text;
    bool Ok;
    quint32 Value;
};

class TargetAddress : public testing::TestWithParam<AddressCase>
{
};

TEST_P(TargetAddress, ReadsDottedQuads)
{
    quint32 value = 12345;
    EXPECT_EQ(CTargetSettingsLogic::ReadAddress(GetParam().Text, value), GetParam().Ok);
    EXPECT_EQ(value, GetParam().Ok ? GetParam().Value : 12345u);
    if (GetParam().Ok) {
        EXPECT_EQ(CTargetSettingsLogic::AddressText(value), QString(GetParam().Text).trimmed());
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, TargetAddress,
                         testing::Values(AddressCase{"192.168.0.10", true, 0xC0A8000A},
                                         AddressCase{"0.0.0.0", true, 0},
                                         AddressCase{"255.255.255.255", true, 0xFFFFFFFF},
                                         AddressCase{"256.1.1.1", false, 0}, AddressCase{"1.2.3", false, 0},
                                         AddressCase{"1..3.4", false, 0}));

} // namespace
