// The settings store: defaults, the profile round trip and the initialisation file.
#include "settings.h"
#include "core/panels/paneltest.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace {

// A profile and an initialisation file of their own in a temporary folder, so no test
// touches the user's real profile.
class CSettingsPlace
{
  public:
    CSettingsPlace()
        : m_profile(
              std::make_unique<QSettings>(m_dir.filePath("profile.ini"), QSettings::IniFormat))
    {
    }

    QSettings& Profile() { return *m_profile; }
    QString IniPath() const { return m_dir.filePath(CSettings::kIniFileName); }

    void WriteIni(const QByteArray& text) const
    {
        QFile file(IniPath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QByteArray IniBytes() const
    {
        QFile file(IniPath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    CSettings Loaded()
    {
        CSettings settings(m_profile.get(), IniPath());
        settings.Load();
        return settings;
    }

    // A fresh view of the same profile file, as the next start of the program sees it.
    void Reopen()
    {
        m_profile->sync();
        m_profile =
            std::make_unique<QSettings>(m_dir.filePath("profile.ini"), QSettings::IniFormat);
    }

  private:
    QTemporaryDir m_dir;
    std::unique_ptr<QSettings> m_profile;
};

struct CIntRow
{
    const char* Key;
    std::function<qint64(const CSettings&)> Get;
    qint64 Default;
};

const CIntRow kIntRows[] = {
    {"Settings/Load", [](const CSettings& s) { return s.GetLoad(); }, 1},
    {"Settings/FixedIO", [](const CSettings& s) { return s.GetFixedIO(); }, 1},
    {"Settings/WriteCOM", [](const CSettings& s) { return s.GetWriteCOM(); }, 0},
    {"Settings/WriteWait", [](const CSettings& s) { return s.GetWriteWait(); }, 2},
    {"Settings/ClockSource", [](const CSettings& s) { return s.GetClockSource(); }, -1},
    {"Settings/SaveBeforeCompile", [](const CSettings& s) { return s.GetSaveBeforeCompile(); }, 0},
    {"Settings/IPAddress", [](const CSettings& s) { return s.GetIPAddress(); }, 0},
    {"Settings/IPMask", [](const CSettings& s) { return s.GetIPMask(); }, 0},
    {"Settings/SelectWriter", [](const CSettings& s) { return s.GetSelectWriter(); }, 0},
};

struct CTextRow
{
    const char* Key;
    std::function<QString(const CSettings&)> Get;
    const char* Default;
};

const CTextRow kTextRows[] = {
    {"Settings/Target", [](const CSettings& s) { return s.GetTarget(); }, ""},
    {"Settings/Writer", [](const CSettings& s) { return s.GetWriter(); }, ""},
    {"Settings/WriterOptions", [](const CSettings& s) { return s.GetWriterOptions(); }, ""},
    {"Settings/WritePort", [](const CSettings& s) { return s.GetWritePort(); }, ""},
    {"Folders/Project", [](const CSettings& s) { return s.GetProject(); }, "Project"},
};

} // namespace

TEST(Settings, FirstStartWithoutProfileOrIniTakesEveryDefault)
{
    CSettingsPlace place;
    const CSettings settings = place.Loaded();
    for (const CIntRow& row : kIntRows)
        EXPECT_EQ(row.Get(settings), row.Default) << row.Key;
    for (const CTextRow& row : kTextRows)
        EXPECT_EQ(row.Get(settings), row.Default) << row.Key;
    EXPECT_TRUE(settings.GetTargets().isEmpty());
    EXPECT_EQ(settings.GetSaveDir(), "save");
    EXPECT_EQ(settings.GetWorkDir(), "work");
    EXPECT_EQ(settings.GetMan(), "");
}

TEST(Settings, EveryProfileKeyIsReadUnderItsOwnName)
{
    // Each key gets a value of its own, so a key read under another's name shows.
    CSettingsPlace place;
    int n = 40;
    for (const CIntRow& row : kIntRows)
        place.Profile().setValue(row.Key, ++n);
    for (const CTextRow& row : kTextRows)
        place.Profile().setValue(row.Key, QString::fromLatin1(row.Key) + "!");
    place.Reopen();

    const CSettings settings = place.Loaded();
    n = 40;
    for (const CIntRow& row : kIntRows)
        EXPECT_EQ(row.Get(settings), ++n) << row.Key;
    for (const CTextRow& row : kTextRows)
        EXPECT_EQ(row.Get(settings), QString::fromLatin1(row.Key) + "!");
}

TEST(Settings, SaveWritesEveryProfileKeyAndTheNextStartReadsItBack)
{
    CSettingsPlace place;
    place.WriteIni("[Quillon]\r\nTarget1=board\r\n");
    const QByteArray ini = place.IniBytes();

    CSettings settings = place.Loaded();
    settings.SetLoad(0);
    settings.SetFixedIO(0);
    settings.SetWriteCOM(7);
    settings.SetWriteWait(0);
    settings.SetClockSource(2);
    settings.SetSaveBeforeCompile(1);
    settings.SetTarget("atmega328p");
    settings.SetIPAddress(0xC0A8000A); // 192.168.0.10, above the signed range
    settings.SetIPMask(0xFFFFFF00);
    settings.SetSelectWriter(1);
    settings.SetWriter("C:/tools/writer.exe");
    settings.SetWriterOptions("-f %hex% -v");
    settings.SetProject("My Project");
    ASSERT_TRUE(settings.Save());
    place.Reopen();

    EXPECT_EQ(place.Profile().value("Settings/ClockSource").toInt(), 2);
    EXPECT_EQ(place.Profile().value("Folders/Project").toString(), "My Project");
    const CSettings next = place.Loaded();
    EXPECT_EQ(next.GetLoad(), 0);
    EXPECT_EQ(next.GetFixedIO(), 0);
    EXPECT_EQ(next.GetWriteCOM(), 7);
    EXPECT_EQ(next.GetWriteWait(), 0);
    EXPECT_EQ(next.GetClockSource(), 2);
    EXPECT_EQ(next.GetSaveBeforeCompile(), 1);
    EXPECT_EQ(next.GetTarget(), "atmega328p");
    EXPECT_EQ(next.GetIPAddress(), 0xC0A8000Au);
    EXPECT_EQ(next.GetIPMask(), 0xFFFFFF00u);
    EXPECT_EQ(next.GetSelectWriter(), 1);
    EXPECT_EQ(next.GetWriter(), "C:/tools/writer.exe");
    EXPECT_EQ(next.GetWriterOptions(), "-f %hex% -v");
    EXPECT_EQ(next.GetProject(), "My Project");
    EXPECT_EQ(place.IniBytes(), ini) << "the initialisation file is never written";
}

TEST(Settings, ProfileNumbersAreReadLeniently)
{
    const struct
    {
        const char* Text;
        int ClockSource;
    } rows[] = {
        {"3", 3}, {" -2", -2}, {"12abc", 12}, {"abc", 0}, {"", 0},
    };
    for (const auto& row : rows) {
        CSettingsPlace place;
        place.Profile().setValue("Settings/ClockSource", QString::fromLatin1(row.Text));
        place.Reopen();
        EXPECT_EQ(place.Loaded().GetClockSource(), row.ClockSource) << row.Text;
    }
}

TEST(Settings, ProfileNamesAreMatchedInAnyCase)
{
    CSettingsPlace place;
    place.Profile().setValue("settings/writeport", "/dev/ttyUSB1");
    place.Profile().setValue("SETTINGS/WRITEWAIT", 7);
    place.Reopen();
    const CSettings settings = place.Loaded();
    EXPECT_EQ(settings.GetWritePort(), "/dev/ttyUSB1");
    EXPECT_EQ(settings.GetWriteWait(), 7);
}

TEST(Settings, AddressIsReadWholeWhetherWrittenSignedOrUnsigned)
{
    for (const char* text : {"3232235530", "-1062731766"}) {
        CSettingsPlace place;
        place.Profile().setValue("Settings/IPAddress", QString::fromLatin1(text));
        place.Reopen();
        EXPECT_EQ(place.Loaded().GetIPAddress(), 0xC0A8000Au) << text;
    }
}

TEST(Settings, TargetListStopsAtTheFirstMissingOrEmptyKey)
{
    const struct
    {
        const char* Name;
        QByteArray Ini;
        QStringList Targets;
    } rows[] = {
        {"in order", "[Quillon]\nTarget1=a\nTarget2=b\nTarget3=c\n", {"a", "b", "c"}},
        {"gap after the first", "[Quillon]\nTarget1=a\nTarget3=c\n", {"a"}},
        {"no Target1", "[Quillon]\nTarget2=b\nTarget3=c\n", {}},
        {"empty value ends it", "[Quillon]\nTarget1=a\nTarget2=\nTarget3=c\n", {"a"}},
        {"file order does not matter", "[Quillon]\nTarget2=b\nTarget1=a\n", {"a", "b"}},
        {"other section ignored", "[Other]\nTarget1=x\n[Quillon]\nTarget1=a\n", {"a"}},
        {"comma kept in the value", "[Quillon]\nTarget1=a,b\n", {"a,b"}},
        // Read as a Windows profile file is: values verbatim, names in any case.
        {"comma and blank kept", "[Quillon]\nTarget1=a, b\n", {"a, b"}},
        {"semicolon kept", "[Quillon]\nTarget1=a;b\nTarget2=c ; d\n", {"a;b", "c ; d"}},
        {"names in any case", "[QUILLON]\r\ntarget1=a\r\nTARGET2 = b\r\n", {"a", "b"}},
        {"quotes enclosing the value", "[Quillon]\nTarget1=\"my board\"\n", {"my board"}},
        {"the first of two equal keys", "[Quillon]\nTarget1=a\nTarget1=b\n", {"a"}},
        {"a commented key is no key", "[Quillon]\n;Target1=x\nTarget1=a\n", {"a"}},
    };
    for (const auto& row : rows) {
        CSettingsPlace place;
        place.WriteIni(row.Ini);
        EXPECT_EQ(place.Loaded().GetTargets(), row.Targets) << row.Name;
    }
}

TEST(Settings, IniFoldersTakeTheirDefaultsOnlyWhenMissing)
{
    CSettingsPlace place;
    place.WriteIni("[Quillon]\nSaveDir=\nMan=manual.pdf\n");
    const CSettings settings = place.Loaded();
    EXPECT_EQ(settings.GetWorkDir(), "work");
    EXPECT_EQ(settings.GetSaveDir(), "") << "a key that is present but empty stays empty";
    EXPECT_EQ(settings.GetMan(), "manual.pdf");
}

TEST(Settings, IniValuesAreCutToTheirBuffers)
{
    CSettingsPlace place;
    const QByteArray longTarget(1500, 't');
    const QByteArray longDir(400, 'w');
    place.WriteIni("[Quillon]\nTarget1=" + longTarget + "\nWorkDir=" + longDir + "\n");
    const CSettings settings = place.Loaded();
    ASSERT_EQ(settings.GetTargets().size(), 1);
    EXPECT_EQ(settings.GetTargets()[0].size(), 1023);
    EXPECT_EQ(settings.GetWorkDir().size(), 259);
}

TEST(Settings, LoadForgetsValuesThatAreNoLongerThere)
{
    CSettingsPlace place;
    place.WriteIni("[Quillon]\nTarget1=a\n");
    place.Profile().setValue("Settings/WriteCOM", 4);
    CSettings settings = place.Loaded();
    ASSERT_EQ(settings.GetWriteCOM(), 4);

    place.Profile().remove("Settings/WriteCOM");
    place.WriteIni("[Quillon]\nTarget1=other\n");
    settings.Load();
    EXPECT_EQ(settings.GetWriteCOM(), 0);
    EXPECT_EQ(settings.GetTargets(), QStringList{"other"});
}

TEST(Settings, IniLivesBesideTheExecutable)
{
    EXPECT_EQ(CSettings::IniPathIn("/opt/quillon/bin"), "/opt/quillon/bin/quillon.ini");
}
