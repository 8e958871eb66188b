// The settings store: defaults, the profile round trip and the initialisation file.
#include "core/panels/paneltest.h"
#include "settings.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace {

// A profile and an initialisation file of their own in a temporary folder, so no test
// touches the user's real profile.
struct CSettingsPlace
{
    QTemporaryDir Dir;
    std::unique_ptr<QSettings> Profile = Open();

    std::unique_ptr<QSettings> Open() const
    {
        return std::make_unique<QSettings>(Dir.filePath("p.ini"), QSettings::IniFormat);
    }
    QString Ini() const { return Dir.filePath(CSettings::kIniFileName); }
    void WriteIni(const QByteArray& text) const
    {
        QFile file(Ini());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    // The settings as the next start of the program reads them, from a fresh view of the profile.
    CSettings Loaded()
    {
        Profile->sync();
        Profile = Open();
        CSettings settings(Profile.get(), Ini());
        settings.Load();
        return settings;
    }
};

// A key of the profile, how to reach it, and two values.
struct CKey
{
    const char* Key;
    std::function<QString(const CSettings&)> Get;
    std::function<void(CSettings&, const QString&)> Set;
    const char* Default;
    const char* Other; // a value no other key has, so a key read under another's name shows
};

#define SETTINGS_KEY(Key, Name, Type, Default, Other)                                              \
    {                                                                                              \
        Key, [](const CSettings& s) { return QVariant::fromValue(s.Get##Name()).toString(); },     \
            [](CSettings& s, const QString& v) { s.Set##Name(QVariant(v).value<Type>()); },        \
            Default, Other                                                                         \
    }

const CKey kKeys[] = {
    SETTINGS_KEY("Settings/Load", Load, int, "1", "41"),
    SETTINGS_KEY("Settings/FixedIO", FixedIO, int, "1", "42"),
    SETTINGS_KEY("Settings/WriteCOM", WriteCOM, int, "0", "43"),
    SETTINGS_KEY("Settings/WriteWait", WriteWait, int, "2", "44"),
    SETTINGS_KEY("Settings/ClockSource", ClockSource, int, "-1", "45"),
    SETTINGS_KEY("Settings/SaveBeforeCompile", SaveBeforeCompile, int, "0", "46"),
    SETTINGS_KEY("Settings/SelectWriter", SelectWriter, int, "0", "47"),
    SETTINGS_KEY("Settings/IPAddress", IPAddress, quint32, "0",
                 "3232235530"), // above the signed range
    SETTINGS_KEY("Settings/IPMask", IPMask, quint32, "0", "4294967040"),
    SETTINGS_KEY("Settings/Target", Target, QString, "", "atmega328p"),
    SETTINGS_KEY("Settings/Writer", Writer, QString, "", "C:/tools/writer.exe"),
    SETTINGS_KEY("Settings/WriterOptions", WriterOptions, QString, "", "-f %hex% -v"),
    SETTINGS_KEY("Settings/WritePort", WritePort, QString, "", "/dev/ttyUSB1"),
    SETTINGS_KEY("Folders/Project", Project, QString, "Project", "My Project"),
};

QString Value(const CSettings& settings, const char* key)
{
    for (const CKey& k : kKeys)
        if (QString::fromLatin1(k.Key).compare(QLatin1String(key), Qt::CaseInsensitive) == 0)
            return k.Get(settings);
    ADD_FAILURE() << "no such key " << key;
    return QString();
}

} // namespace

TEST(Settings, FirstStartWithoutProfileOrIniTakesEveryDefault)
{
    CSettingsPlace place;
    const CSettings settings = place.Loaded();
    for (const CKey& k : kKeys)
        EXPECT_EQ(k.Get(settings), k.Default) << k.Key;
    EXPECT_TRUE(settings.GetTargets().isEmpty());
    EXPECT_EQ(QStringList({settings.GetSaveDir(), settings.GetWorkDir(), settings.GetMan()}),
              QStringList({"save", "work", ""}));
}

TEST(Settings, EveryKeyIsReadAndSavedUnderItsOwnName)
{
    CSettingsPlace read;
    for (const CKey& k : kKeys)
        read.Profile->setValue(k.Key, k.Other);
    const CSettings loaded = read.Loaded();
    for (const CKey& k : kKeys)
        EXPECT_EQ(k.Get(loaded), k.Other) << k.Key;

    CSettingsPlace saved;
    saved.WriteIni("[Quillon]\r\nTarget1=board\r\n");
    CSettings settings = saved.Loaded();
    for (const CKey& k : kKeys)
        k.Set(settings, k.Other);
    ASSERT_TRUE(settings.Save());
    const CSettings next = saved.Loaded();
    for (const CKey& k : kKeys) {
        EXPECT_EQ(saved.Profile->value(k.Key).toString(), k.Other) << k.Key;
        EXPECT_EQ(k.Get(next), k.Other) << k.Key;
    }
    QFile ini(saved.Ini());
    ASSERT_TRUE(ini.open(QIODevice::ReadOnly));
    EXPECT_EQ(ini.readAll(), "[Quillon]\r\nTarget1=board\r\n")
        << "the initialisation file is never written";
}

TEST(Settings, ProfileValuesAreReadLenientlyUnderNamesInAnyCase)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        // key as written in the profile, its text, the value read
        {"Settings/ClockSource", "3", "3"},
        {"Settings/ClockSource", " -2", "-2"},
        {"Settings/ClockSource", "12abc", "12"},
        {"Settings/ClockSource", "abc", "0"},
        {"Settings/ClockSource", "", "0"},
        {"Settings/IPAddress", "3232235530", "3232235530"},
        {"Settings/IPAddress", "-1062731766", "3232235530"}, // written signed
        {"settings/writeport", "/dev/ttyUSB1", "/dev/ttyUSB1"},
        {"SETTINGS/WRITEWAIT", "7", "7"},
    };
    for (const auto& [key, text, expected] : rows) {
        CSettingsPlace place;
        place.Profile->setValue(key, QString::fromLatin1(text));
        EXPECT_EQ(Value(place.Loaded(), key), expected) << key << "=" << text;
    }
}

TEST(Settings, IniFileIsReadAsAWindowsProfileFileIs)
{
    const std::tuple<const char*, QByteArray, const char*> rows[] = {
        {"targets in order", "Target1=a\nTarget2=b\nTarget3=c\n", "a|b|c"},
        {"a gap ends the targets", "Target1=a\nTarget3=c\n", "a"},
        {"no Target1, no targets", "Target2=b\nTarget3=c\n", ""},
        {"an empty value ends them", "Target1=a\nTarget2=\nTarget3=c\n", "a"},
        {"file order does not matter", "Target2=b\nTarget1=a\n", "a|b"},
        {"other section ignored", "[Other]\nTarget1=x\n[Quillon]\nTarget1=a\n", "a"},
        {"comma and blank kept in the value", "Target1=a,b\nTarget2=a, b\n", "a,b|a, b"},
        {"semicolon kept", "Target1=a;b\nTarget2=c ; d\n", "a;b|c ; d"},
        {"names in any case", "[QUILLON]\r\ntarget1=a\r\nTARGET2 = b\r\n", "a|b"},
        {"quotes enclosing the value", "Target1=\"my board\"\n", "my board"},
        {"the first of two equal keys", "Target1=a\nTarget1=b\n", "a"},
        {"a commented key is no key", ";Target1=x\nTarget1=a\n", "a"},
    };
    for (const auto& [name, ini, targets] : rows) {
        CSettingsPlace place;
        place.WriteIni(ini.startsWith('[') ? ini : "[Quillon]\n" + ini);
        EXPECT_EQ(place.Loaded().GetTargets().join(u'|'), targets) << name;
    }
    // A key present but empty stays empty, only a missing one takes its default; values are
    // cut to their buffers.
    CSettingsPlace place;
    place.WriteIni("[Quillon]\nSaveDir=\nMan=manual.pdf\nWorkDir=" + QByteArray(400, 'w') +
                   "\nTarget1=" + QByteArray(1500, 't'));
    CSettings settings = place.Loaded();
    EXPECT_EQ(QStringList({settings.GetSaveDir(), settings.GetWorkDir(), settings.GetMan(),
                           settings.GetTargets().join(u'|')}),
              QStringList({"", QString(259, u'w'), "manual.pdf", QString(1023, u't')}));
    // Loading again forgets values that are no longer there.
    place.Profile->setValue("Settings/WriteCOM", 4);
    place.WriteIni("[Quillon]\nTarget1=other\n");
    settings.Load();
    ASSERT_EQ(settings.GetWriteCOM(), 4);
    place.Profile->remove("Settings/WriteCOM");
    settings.Load();
    EXPECT_EQ(settings.GetWriteCOM(), 0);
    EXPECT_EQ(QStringList(
                  {settings.GetSaveDir(), settings.GetWorkDir(), settings.GetTargets().join(u'|')}),
              QStringList({"save", "work", "other"}));
}
