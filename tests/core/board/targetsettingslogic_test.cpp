// The target board choice: candidates from the installed folders, a board's defaults on
// choosing it, and what OK stores.
#include "boardinfo.h"
#include "core/panels/paneltest.h"
#include "settings.h"
#include "stringtable.h"
#include "support/boardfolder.h"
#include "support/recordingmessenger.h"
#include "targetsettingslogic.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace {

// A TARGET folder holding the sample board as "uno" and the network board as "net", and
// settings that offer them with a missing board between, "uno" chosen.
struct TargetSettings : testing::Test
{
    QTemporaryDir dir;
    QString targets = dir.filePath("TARGET");
    QSettings profile{dir.filePath("profile.ini"), QSettings::IniFormat};
    CSettings settings{&profile, dir.filePath(CSettings::kIniFileName)};
    CBoardInfo uno;

    void SetUp() override
    {
        CopyBoardFiles(QUILLON_BOARDS "/atmega328p", targets + "/uno");
        CopyBoardFiles(QUILLON_TEST_DATA "/boards/netboard", targets + "/net");
        QFile ini(dir.filePath(CSettings::kIniFileName));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[Quillon]\nTarget1=uno\nTarget2=gone\nTarget3=net\n");
        ini.close();
        settings.Load();
        settings.SetTarget("uno");
        CRecordingMessenger messenger;
        ASSERT_TRUE(uno.Read(targets + "/uno", QString(), messenger));
    }
};

TEST_F(TargetSettings, OpensOnTheCurrentBoardAmongTheCandidatesThatRead)
{
    settings.SetClockSource(0);
    const CTargetSettingsLogic logic(settings, targets, uno);
    ASSERT_EQ(logic.Candidates().size(), 2);
    EXPECT_EQ(logic.Candidates()[0].DisplayName, "ATmega328P Uno-class board (16MHz)");
    EXPECT_EQ(logic.Candidates()[1].DisplayName, "Network test board");
    EXPECT_EQ(logic.Candidates()[1].Index, 2) << "the missing board keeps its place";
    EXPECT_EQ(logic.ClockSources, QStringList{"16MHz crystal"});
    EXPECT_EQ(std::tuple(logic.Target, logic.Clock, logic.ShowsNetwork, logic.ChangesBoard()),
              std::tuple(0, 0, false, false));

    settings.SetTarget("elsewhere");
    const CTargetSettingsLogic unknown(settings, targets, uno);
    EXPECT_EQ(unknown.Target, -1);
    EXPECT_FALSE(unknown.ChangesBoard());
}

TEST(TargetAddress, ReadsDottedQuads)
{
    const struct
    {
        const char* Text;
        bool Ok;
        quint32 Value;
    } rows[] = {{"192.168.0.10", true, 0xC0A8000A},
                {"0.0.0.0", true, 0},
                {"255.255.255.255", true, 0xFFFFFFFF},
                {"256.1.1.1", false, 0},
                {"1.2.3", false, 0},
                {"1..3.4", false, 0}};
    for (const auto& row : rows) {
        quint32 value = 12345;
        EXPECT_EQ(CTargetSettingsLogic::ReadAddress(row.Text, value), row.Ok) << row.Text;
        EXPECT_EQ(value, row.Ok ? row.Value : 12345u) << row.Text;
        if (row.Ok) {
            EXPECT_EQ(CTargetSettingsLogic::AddressText(value), row.Text);
        }
    }
}

} // namespace
