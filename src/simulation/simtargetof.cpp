#include "simtargetof.h"

#include "boardinfo.h"
#include "stringtable.h"

bool SimTargetOf(const CBoardInfo& board, int clockSource, CSimTarget& target, QString& why)
{
    const CBoardSimulation& simulation = board.GetSimulation();
    const qint64 hz = board.GetClockHz(clockSource < 0 ? board.GetSystemClock() : clockSource);
    if (!board.CanSimulate() || hz <= 0) {
        why = CStringTable::Format(Ids::SimNoSimulator, {board.GetBoardName()});
        return false;
    }
    target = CSimTarget();
    target.Mcu = simulation.Mcu.toStdString();
    target.ClockHz = std::uint64_t(hz);
    for (int row = 0; row < board.GetPortCount(); ++row) {
        const std::optional<CSimTarget::CPin> pin =
            CSimTarget::PinOf(board.GetPort(row).Name.toStdString());
        if (!pin) {
            why = CStringTable::Format(Ids::SimNoSuchPin,
                                       {board.GetBoardName(), board.GetPort(row).Name});
            return false;
        }
        target.Pins.push_back(*pin);
    }
    target.Uart = simulation.Uart.isEmpty() ? 0 : char(simulation.Uart[0].unicode());
    target.Baud = simulation.Baud;
    const auto lcdPin = [&](const char* role) {
        return target.PinNamed(simulation.Lcd.value(QString::fromLatin1(role)).toStdString());
    };
    target.LcdRs = lcdPin("RS");
    target.LcdE = lcdPin("E");
    for (int bit = 0; bit < 4; ++bit)
        target.LcdData[bit] = lcdPin(QByteArray("D" + QByteArray::number(4 + bit)).constData());
    for (int segment = 0; segment < 8; ++segment)
        target.SegmentPins[segment] =
            target.PinNamed(simulation.Segments.value(segment).toStdString());
    for (const QString& name : simulation.Digits)
        target.DigitPins.push_back(target.PinNamed(name.toStdString()));
    target.DigitSelectHigh = simulation.DigitSelectHigh;
    for (const QString& name : simulation.Analog)
        target.AnalogPins.push_back(target.PinNamed(name.toStdString()));
    return true;
}
