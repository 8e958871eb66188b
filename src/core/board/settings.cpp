#include "settings.h"

#include "inifile.h"
#include "panelvalues.h"

#include <QDir>
#include <QSettings>

// Every key with its default, once. Load and Save walk these tables, and the constructor
// starts from the same defaults, so a key cannot be written under one name and read under
// another.
struct CSettingKeys
{
    struct CInt
    {
        const char* Key;
        int Default;
        int CSettings::*Field;
    };
    struct CAddress
    {
        const char* Key;
        quint32 Default;
        quint32 CSettings::*Field;
    };
    struct CText
    {
        const char* Key;
        const char* Default;
        QString CSettings::*Field;
    };
    // The initialisation file's values are cut to the buffers they have always been read
    // into, less the terminating zero.
    struct CIniText
    {
        const char* Key;
        const char* Default;
        int Buffer;
        QString CSettings::*Field;
    };

    static constexpr CInt kInts[] = {
        {"Settings/Load", 1, &CSettings::m_load},
        {"Settings/FixedIO", 1, &CSettings::m_fixedIO},
        {"Settings/WriteCOM", 0, &CSettings::m_writeCOM},
        {"Settings/WriteWait", 2, &CSettings::m_writeWait},
        {"Settings/ClockSource", -1, &CSettings::m_clockSource},
        {"Settings/SaveBeforeCompile", 0, &CSettings::m_saveBeforeCompile},
        {"Settings/SelectWriter", 0, &CSettings::m_selectWriter},
    };
    static constexpr CAddress kAddresses[] = {
        {"Settings/IPAddress", 0, &CSettings::m_ipAddress},
        {"Settings/IPMask", 0, &CSettings::m_ipMask},
    };
    static constexpr CText kTexts[] = {
        {"Settings/Target", "", &CSettings::m_target},
        {"Settings/Writer", "", &CSettings::m_writer},
        {"Settings/WriterOptions", "", &CSettings::m_writerOptions},
        {"Settings/WritePort", "", &CSettings::m_writePort},
        {"Folders/Project", "Project", &CSettings::m_project},
    };

    static constexpr const char* kRecentKey = "Recent File List/Files";

    // The initialisation file's one section.
    static constexpr const char* kIniSection = "Quillon";
    static constexpr const char* kTargetKey = "Target%1";
    static constexpr int kTargetBuffer = 1024;
    static constexpr CIniText kIniTexts[] = {
        {"SaveDir", "save", 260, &CSettings::m_saveDir},
        {"WorkDir", "work", 260, &CSettings::m_workDir},
        {"Man", "", 260, &CSettings::m_man},
    };

    static void SetDefaults(CSettings& s)
    {
        for (const CInt& k : kInts)
            s.*k.Field = k.Default;
        for (const CAddress& k : kAddresses)
            s.*k.Field = k.Default;
        for (const CText& k : kTexts)
            s.*k.Field = QString::fromLatin1(k.Default);
        for (const CIniText& k : kIniTexts)
            s.*k.Field = QString::fromLatin1(k.Default);
    }
};

namespace {

// A profile value with a comma comes back as a list; the file means the text as written.
QString ProfileText(const QVariant& value)
{
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',')
                                                    : value.toString();
}

// A profile number read as a 32-bit pattern: addresses written unsigned and numbers written
// signed both come back whole; anything else is read as a lenient decimal.
quint32 ProfileBits(const QVariant& value)
{
    const QString text = ProfileText(value).trimmed();
    bool ok = false;
    const qlonglong whole = text.toLongLong(&ok);
    return ok ? quint32(whole) : quint32(LeadingInt(text));
}

// The value under key, its name matched without regard to case when the profile was edited
// by hand, as a Windows profile matches it.
QVariant ProfileValue(const QSettings& profile, const char* key)
{
    const QString name = QString::fromLatin1(key);
    if (QVariant value = profile.value(name); value.isValid())
        return value;
    for (const QString& other : profile.allKeys())
        if (other.compare(name, Qt::CaseInsensitive) == 0)
            return profile.value(other);
    return QVariant();
}

} // namespace

QString CSettings::IniPathIn(const QString& executableFolder)
{
    return QDir(executableFolder).filePath(QString::fromLatin1(kIniFileName));
}

CSettings::CSettings(QSettings* profile, const QString& iniPath)
    : m_profile(profile), m_iniPath(iniPath)
{
    CSettingKeys::SetDefaults(*this);
}

void CSettings::Load()
{
    CSettingKeys::SetDefaults(*this);
    LoadProfile();
    LoadIni();
}

void CSettings::LoadProfile()
{
    if (!m_profile)
        return;
    for (const CSettingKeys::CInt& k : CSettingKeys::kInts) {
        const QVariant value = ProfileValue(*m_profile, k.Key);
        if (value.isValid())
            this->*k.Field = int(ProfileBits(value));
    }
    for (const CSettingKeys::CAddress& k : CSettingKeys::kAddresses) {
        const QVariant value = ProfileValue(*m_profile, k.Key);
        if (value.isValid())
            this->*k.Field = ProfileBits(value);
    }
    for (const CSettingKeys::CText& k : CSettingKeys::kTexts) {
        const QVariant value = ProfileValue(*m_profile, k.Key);
        if (value.isValid())
            this->*k.Field = ProfileText(value);
    }
}

void CSettings::LoadIni()
{
    const CIniFile ini(m_iniPath);
    const QString section = QString::fromLatin1(CSettingKeys::kIniSection);
    m_targets.clear();
    for (int n = 1;; ++n) {
        const QString target =
            ini.Value(section, QString::fromLatin1(CSettingKeys::kTargetKey).arg(n))
                .left(CSettingKeys::kTargetBuffer - 1);
        if (target.isEmpty())
            break;
        m_targets.append(target);
    }
    for (const CSettingKeys::CIniText& k : CSettingKeys::kIniTexts) {
        const QString key = QString::fromLatin1(k.Key);
        if (ini.Contains(section, key))
            this->*k.Field = ini.Value(section, key).left(k.Buffer - 1);
    }
}

bool CSettings::Save()
{
    if (!m_profile)
        return false;
    for (const CSettingKeys::CInt& k : CSettingKeys::kInts)
        m_profile->setValue(QString::fromLatin1(k.Key), this->*k.Field);
    for (const CSettingKeys::CAddress& k : CSettingKeys::kAddresses)
        m_profile->setValue(QString::fromLatin1(k.Key), this->*k.Field);
    for (const CSettingKeys::CText& k : CSettingKeys::kTexts)
        m_profile->setValue(QString::fromLatin1(k.Key), this->*k.Field);
    m_profile->sync();
    return m_profile->status() == QSettings::NoError;
}

QStringList CSettings::GetRecentFiles() const
{
    return m_profile
               ? m_profile->value(QString::fromLatin1(CSettingKeys::kRecentKey)).toStringList()
               : QStringList();
}

void CSettings::AddRecentFile(const QString& path)
{
    if (!m_profile)
        return;
    QStringList files = GetRecentFiles();
    files.removeAll(path);
    files.prepend(path);
    m_profile->setValue(QString::fromLatin1(CSettingKeys::kRecentKey),
                        QStringList(files.mid(0, kRecentFiles)));
    m_profile->sync();
}
