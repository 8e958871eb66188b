#pragma once

#include <QString>
#include <QStringList>

class QSettings;

// The user's settings: what the user may change lives in the application profile (sections
// "Settings" and "Folders"); the boards on offer and the folder names come from the
// read-only initialisation file (section "Quillon"). Read once at start, written back whole.
class CSettings
{
  public:
    // Where the application keeps its profile, and the initialisation file's name beside the
    // executable. Every Quillon program shares the one file, so it is not named after each.
    static constexpr const char* kCompany = "Corvel Tools";
    static constexpr const char* kApplication = "Quillon";
    static constexpr const char* kIniFileName = "quillon.ini";
    static QString IniPathIn(const QString& executableFolder);

    // The profile is borrowed and must outlive the settings; tests hand in one of their own.
    CSettings(QSettings* profile, const QString& iniPath);

    // Reads every key; a missing key takes its default.
    void Load();
    // Writes the profile keys back (never the initialisation file); false when the profile
    // could not be written.
    bool Save();

    const QString& GetIniPath() const { return m_iniPath; }

    // Initialisation file.
    const QStringList& GetTargets() const { return m_targets; }
    const QString& GetSaveDir() const { return m_saveDir; }
    const QString& GetWorkDir() const { return m_workDir; }
    const QString& GetMan() const { return m_man; }

    // Profile, section "Settings".
    int GetLoad() const { return m_load; }
    void SetLoad(int value) { m_load = value; }
    int GetFixedIO() const { return m_fixedIO; }
    void SetFixedIO(int value) { m_fixedIO = value; }
    int GetWriteCOM() const { return m_writeCOM; }
    void SetWriteCOM(int value) { m_writeCOM = value; }
    int GetWriteWait() const { return m_writeWait; }
    void SetWriteWait(int value) { m_writeWait = value; }
    int GetClockSource() const { return m_clockSource; }
    void SetClockSource(int value) { m_clockSource = value; }
    int GetSaveBeforeCompile() const { return m_saveBeforeCompile; }
    void SetSaveBeforeCompile(int value) { m_saveBeforeCompile = value; }
    const QString& GetTarget() const { return m_target; }
    void SetTarget(const QString& value) { m_target = value; }
    // Addresses are kept as one 32-bit number, 192.168.0.10 as 0xC0A8000A.
    quint32 GetIPAddress() const { return m_ipAddress; }
    void SetIPAddress(quint32 value) { m_ipAddress = value; }
    quint32 GetIPMask() const { return m_ipMask; }
    void SetIPMask(quint32 value) { m_ipMask = value; }
    int GetSelectWriter() const { return m_selectWriter; }
    void SetSelectWriter(int value) { m_selectWriter = value; }
    const QString& GetWriter() const { return m_writer; }
    void SetWriter(const QString& value) { m_writer = value; }
    const QString& GetWriterOptions() const { return m_writerOptions; }
    void SetWriterOptions(const QString& value) { m_writerOptions = value; }
    // The board writer's serial device where ports have paths (/dev/ttyACM0); "" lets the
    // writer find the board. Windows keeps the COM number in WriteCOM instead.
    const QString& GetWritePort() const { return m_writePort; }
    void SetWritePort(const QString& value) { m_writePort = value; }

    // Profile, section "Folders".
    const QString& GetProject() const { return m_project; }
    void SetProject(const QString& value) { m_project = value; }

    // Profile, section "Recent File List": the layouts opened or saved last, newest first.
    static constexpr int kRecentFiles = 4;
    QStringList GetRecentFiles() const;
    // Puts the path first and writes the list at once, so another window sees it.
    void AddRecentFile(const QString& path);

  private:
    friend struct CSettingKeys;

    void LoadProfile();
    void LoadIni();

    QSettings* m_profile;
    QString m_iniPath;

    QStringList m_targets;
    int m_load;
    int m_fixedIO;
    int m_writeCOM;
    int m_writeWait;
    int m_clockSource;
    int m_saveBeforeCompile;
    quint32 m_ipAddress;
    quint32 m_ipMask;
    int m_selectWriter;
    QString m_target;
    QString m_writer;
    QString m_writerOptions;
    QString m_writePort;
    QString m_project;
    QString m_saveDir;
    QString m_workDir;
    QString m_man;
};
