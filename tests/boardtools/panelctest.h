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

// A location file from records separated by '|', each a place, a blank and the panel's line.
// The place is "I<row>" or "O<row>" for the side columns, "<column>,<row>" inside, and
// "W<row>,<column>" alone stands for straight wires from that column to the output column.
// Records may come in any order: each names its own position.
inline QByteArray LayoutText(const QString& records)
{
    const auto two = [](int n) { return QStringLiteral("%1").arg(n, 2, 10, QChar(u'0')); };
    QString text = "; Quillon\r\n; PANEL LOCATION\r\n;\r\nINPUT\r\n";
    for (const QString& record : records.split(u'|', Qt::SkipEmptyParts)) {
        const QString place = record.section(u' ', 0, 0), line = record.section(u' ', 1);
        const QStringList at = place.mid(place[0].isDigit() ? 0 : 1).split(u',');
        if (place[0] == u'W') {
            for (int column = at[1].toInt(); column <= 16; ++column)
                text += two(column) + two(at[0].toInt()) + ":LINE\tLR\r\n";
        } else {
            text += (place[0].isDigit() ? two(at[0].toInt()) + two(at[1].toInt())
                                        : place[0] + QStringLiteral("_") + two(at[0].toInt())) +
                    u':' + line + "\r\n";
        }
    }
    return text.toUtf8();
}

// A gate, a wire crossing another, a timer, a counter and a stepping motor whose second
// row drives a lamp: every kind of entry of the simulation map.
inline const char* const kMappedLayout =
    "I1 DGI \tH,PD2|I2 DGI \tH,PD3|1,1 LINE\tLD|1,2 LINE\tUD,LR|1,3 AND \tR|2,2 CNT \tH,3|"
    "2,3 TIM \tT,0.20S|3,3 SMOT\t1,10|W4,4|O4 LAMP\tH,PB5";

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

    CProgramRun Compile(const QString& records, int clockSource = 1)
    {
        Write("layout.loc", LayoutText(records));
        const QString folder = m_dir.path();
        return RunProgram(m_compiler,
                          {Path("layout.loc"), "-o", folder, "-w", folder, "-x", "16", "-y", "40",
                           QStringLiteral("-c%1").arg(clockSource)},
                          folder);
    }
    void Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    QString Read(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    // The board's command list after the compiler, as its board file states it.
    CProgramRun Run(const QString& program, const QString& args) const
    {
        return RunProgram(program, args.split(u' '), m_dir.path());
    }
    CProgramRun CompileC(const QString& sources = "BASE.c PANEL.c") const
    {
        return Run("avr-gcc", "-mmcu=atmega328p -Os -std=gnu11 -ffunction-sections "
                              "-fdata-sections -Wl,--gc-sections -o BASE.elf " +
                                  sources);
    }
    CProgramRun CheckSize() const
    {
        return Run("./PANEL.avrsize", "BASE.elf --flash 32256 --ram 2048 --stack 256");
    }

  private:
    QTemporaryDir m_dir;
    QString m_compiler;
};
