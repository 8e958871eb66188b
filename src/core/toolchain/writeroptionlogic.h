#pragma once

#include "serialdeviceportfinder.h"

#include <QList>
#include <QString>
#include <QStringList>

class CSettings;

// What the writer option dialog does with the settings: the board writer's port and wait.
// Windows numbers its ports (WriteCOM); elsewhere the ports are the serial devices present,
// named by path (WritePort).
class CWriterOptionLogic
{
  public:
    struct CItem
    {
        QString Text;
        QString Value; // the COM number or the device path; "" or "0" is Autoselect
    };

    CWriterOptionLogic(const CSettings& settings,
                       const QList<CSerialDevicePortFinder::CDevice>& devices, bool comNumbers);

    static QStringList WaitTexts() { return {"1", "2", "3", "4", "5"}; }

    // Stores what is selected; a list without a selection leaves its setting alone.
    void Apply(CSettings& settings) const;

    QList<CItem> Ports;
    int Port = -1;
    int Wait = -1; // index in WaitTexts()

  private:
    bool m_comNumbers;
};
