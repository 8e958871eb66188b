#pragma once

#include "commandline.h"
#include "paletteinfo.h"
#include "portlist.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

class IMessenger;
class QDomElement;

// How a board's firmware runs in the simulator: the processor by the simulator's name for
// it, the UART that is the board's serial line and its speed, the ports of the analog
// channels in channel order, and the display's wiring as port names ("RS" -> "PB0"; "E",
// "D4".."D7") and the seven-segment display's. A board without it cannot be simulated.
struct CBoardSimulation
{
    QString Mcu;
    QString Uart;
    int Baud = 0;
    QStringList Analog;
    QHash<QString, QString> Lcd;
    // A seven-segment display: segments a..g, dp and the digits' select pins, by port name.
    QStringList Segments;
    QStringList Digits;
    bool DigitSelectHigh = false;
    // The boot loader a virtual board starts with (a HEX file in the board folder, absolute
    // once read) and where the processor starts it; empty when the board names none.
    QString BootLoader;
    quint32 BootAddress = 0;
};

// What one target board offers, read from its folder under TARGET/: the compiler and writer
// entries, the processor's ports, the clock, the network flag and the two palettes. Valid
// only after a Read that answered true.
class CBoardInfo
{
  public:
    // Reads "board_e.xml" (English) or "board.xml" (Japanese) in folder, then the
    // input/output palette and then the process palette it names. ignored is not used.
    // Faults in the board file are not shown (start-up goes on to the next board) but kept
    // in ErrorString(), except nesting deeper than CXmlDepth allows: that and a faulty
    // palette are reported once through messenger. Each read starts from an empty
    // description, so two boards never mix.
    bool Read(const QString& folder, const QString& ignored, IMessenger& messenger);
    // Why the last Read failed, naming the file and, for XML faults, the line.
    const QString& ErrorString() const { return m_error; }

    // Always an absolute path: the board's tools run in the work folder.
    QString GetFolder() const { return m_folder; }
    const QString& GetBoardName() const { return m_boardName; }
    // Matched exactly against the description the board's USB serial adapter announces.
    const QString& GetInterfaceName() const { return m_interfaceName; }

    int GetPwmLowFreq() const { return m_pwmLowFreq; }
    int GetPwmHighFreq() const { return m_pwmHighFreq; }
    // The board's default clock source, an index into its clock-source list: start-up uses
    // it when the ClockSource setting is negative, and the compiler gets it plus one as -c.
    int GetSystemClock() const { return m_systemClock; }
    bool HasNetwork() const { return m_network != 0; }
    // The names of the board's clock sources, in index order; empty when the file lists none.
    const QStringList& GetClockSources() const { return m_clockSources; }
    // The frequency of a clock source in Hz, 0 when the file does not say or out of range.
    qint64 GetClockHz(int source) const { return m_clockHz.value(source); }

    bool CanSimulate() const { return !m_simulation.Mcu.isEmpty(); }
    const CBoardSimulation& GetSimulation() const { return m_simulation; }

    const QString& GetCompilerPanel() const { return m_compilerPanel; }
    const QString& GetCompilerDll() const { return m_compilerDll; }
    const QString& GetCompilerProc() const { return m_compilerProc; }
    // One past the highest command position; numbered commands may leave positions out.
    int GetCommandCount() const { return m_commands.isEmpty() ? 0 : m_commands.lastKey() + 1; }
    // "" for a position the file skipped and out of range.
    QString GetCommand(int position) const { return m_commands.value(position); }
    // The commands in position order, skipped positions left out.
    QStringList GetCommands() const { return m_commands.values(); }
    // The same, each split into its program and arguments once, when the file was read.
    QList<CCommandLine> GetCommandLines() const { return m_commandLines.values(); }

    const QString& GetWriterCommand() const { return m_writerCommand; }
    const QString& GetWriterParam() const { return m_writerParam; }
    // The writer template and its parameter template, split once when the file was read;
    // the writer's program is a path inside the board folder.
    const CCommandLine& GetWriterCommandLine() const { return m_writerCommandLine; }
    const QStringList& GetWriterParamArguments() const { return m_writerParamArguments; }

    const QString& GetInOutFile() const { return m_inOutFile; }
    const QString& GetPartsFile() const { return m_partsFile; }
    const CPaletteInfo& GetInOutPalette() const { return m_inOutPalette; }
    const CPaletteInfo& GetPartsPalette() const { return m_partsPalette; }

    // The port table: id, name and alias of each port, in file order.
    int GetPortCount() const { return m_ports.GetCount(); }
    const CPortEntry& GetPort(int row) const { return m_ports.GetEntry(row); }
    const CPortList& GetPorts() const { return m_ports; }

    // The palette entry whose prototype has this keyword, the input/output palette first;
    // an entry whose picture is also bitmapId wins (each wire kind has an entry of its own).
    const CPaletteEntry* FindEntry(const QString& keyword, int bitmapId = -1) const;
    // Use limit by panel type id (the prototype's BitmapId); entries without a limit are left
    // out. Types that share an id share their count, so the smallest of their limits holds.
    QHash<int, int> UseLimits() const;

  private:
    bool ReadBoardFile(IMessenger& messenger);
    bool Fail(const QString& error);
    // The tag of a numbered command whose number is out of range, "" when all read.
    QString ReadCompiler(const QDomElement& compiler);
    void ReadWriter(const QDomElement& writer);
    void ReadPalette(const QDomElement& palette);
    void ReadCpu(const QDomElement& cpu);
    void ReadSimulation(const QDomElement& simulator);

    int m_pwmLowFreq = 0;
    int m_pwmHighFreq = 0;
    int m_systemClock = 0;
    int m_network = 0;
    QString m_writerParam;
    CPaletteInfo m_inOutPalette;
    CPaletteInfo m_partsPalette;
    QString m_interfaceName;
    QString m_boardName;
    QString m_writerCommand;
    CCommandLine m_writerCommandLine;
    QStringList m_writerParamArguments;
    QMap<int, QString> m_commands;
    QMap<int, CCommandLine> m_commandLines;
    QString m_error;
    QString m_compilerPanel;
    QString m_compilerDll;
    QString m_compilerProc;
    QString m_folder;
    QString m_partsFile;
    QString m_inOutFile;
    CPortList m_ports;
    QStringList m_clockSources;
    QList<qint64> m_clockHz;
    CBoardSimulation m_simulation;
};
