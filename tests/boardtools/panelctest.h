#pragma once

// What the panel compiler tests share: a layout written the way the editor saves it, and
// the board's programs run in a work folder of the test's own.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// A location file, built panel by panel. Records may come in any order: each names its
// own position.
class CLayoutText
{
  public:
    CLayoutText& In(int row, const QString& line)
    {
        return Add(QStringLiteral("I_%1:").arg(row, 2, 10, QChar(u'0')), line);
    }
    CLayoutText& Out(int row, const QString& line)
    {
        return Add(QStringLiteral("O_%1:").arg(row, 2, 10, QChar(u'0')), line);
    }
    CLayoutText& At(int column, int row, const QString& line)
    {
        return Add(
            QStringLiteral("%1%2:").arg(column, 2, 10, QChar(u'0')).arg(row, 2, 10, QChar(u'0')),
            line);
    }
    // Straight wires from column `from` to the output column.
    CLayoutText& WireToOutput(int row, int from)
    {
        for (int column = from; column <= 16; ++column)
            At(column, row, "LINE\tLR");
        return *this;
    }
    QByteArray Bytes() const
    {
        return ("; Quillon\r\n; PANEL LOCATION\r\n;\r\nINPUT\r\n" + m_records.join("\r\n") + "\r\n")
            .toUtf8();
    }

  private:
    CLayoutText& Add(const QString& prefix, const QString& line)
    {
        m_records.append(prefix + line);
        return *this;
    }
    QStringList m_records;
};

struct CProgramRun
{
    int ExitCode = -1;
    QString Output;
};

inline CProgramRun RunProgram(const QString& program, const QStringList& args,
                              const QString& folder)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(folder);
    process.start(program, args);
    const bool ended =
        process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAll())};
}

// A work folder, the location file in it, and the panel compiler run on it as the build
// runs it.
class CPanelcWork
{
  public:
    explicit CPanelcWork(const QString& compiler = QStringLiteral(QUILLON_PANELC))
        : m_compiler(compiler)
    {
    }

    QString Path(const QString& name) const { return QDir(m_dir.path()).filePath(name); }
    QString Folder() const { return m_dir.path(); }

    CProgramRun Compile(const CLayoutText& layout, int clockSource = 1)
    {
        QFile file(Path("layout.loc"));
        file.open(QIODevice::WriteOnly);
        file.write(layout.Bytes());
        file.close();
        return RunProgram(m_compiler,
                          {Path("layout.loc"), "-o", Folder(), "-w", Folder(), "-x", "16", "-y",
                           "40", QStringLiteral("-c%1").arg(clockSource)},
                          Folder());
    }
    QString Read(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    // The board's command list after the compiler, as its board file states it.
    CProgramRun CompileC() const
    {
        return RunProgram("avr-gcc",
                          {"-mmcu=atmega328p", "-Os", "-std=gnu11", "-ffunction-sections",
                           "-fdata-sections", "-Wl,--gc-sections", "-o", "BASE.elf", "BASE.c",
                           "PANEL.c"},
                          Folder());
    }
    CProgramRun CheckSize() const
    {
        return RunProgram("./PANEL.avrsize",
                          {"BASE.elf", "--flash", "32256", "--ram", "2048", "--stack", "256"},
                          Folder());
    }

  private:
    QTemporaryDir m_dir;
    QString m_compiler;
};
