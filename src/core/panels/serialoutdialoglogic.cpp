#include "serialoutdialoglogic.h"

#include "stringtable.h"

CSerialOutDialogLogic::CSerialOutDialogLogic(const CPortList& ports)
{
    for (int i = 0; i < ports.GetCount(); ++i)
        Ports.append(ports.GetAt(i));
    // Only a single port is shown as chosen: with several, the panel keeps whichever it has.
    Port = ports.GetCount() == 1 ? 0 : -1;
}

QList<CSerialOutDialogLogic::CFixed> CSerialOutDialogLogic::FixedSettings()
{
    return {{Ids::LblBaudRate, CStringTable::Get(Ids::UartBaudRate)},
            {Ids::LblStopBit, QStringLiteral("1")},
            {Ids::LblParity, CStringTable::Get(Ids::UartParityNone)},
            {Ids::LblCharacter, CStringTable::Get(Ids::UartCharacter)}};
}
