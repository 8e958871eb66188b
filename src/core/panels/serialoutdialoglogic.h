#pragma once

#include "portlist.h"

#include <QStringList>

// The send panel's "UART Setting" dialog only shows the port and the fixed line settings.
class CSerialOutDialogLogic
{
  public:
    explicit CSerialOutDialogLogic(const CPortList& ports);

    // The fixed settings as label id and value, in the dialog's order.
    struct CFixed
    {
        int Label;
        QString Value;
    };
    static QList<CFixed> FixedSettings();

    QStringList Ports;
    int Port = -1;
};
