#pragma once

#include "portfinder.h"

#include <QList>
#include <QString>

#include <functional>

// Finds the board among the system's serial ports by the names its USB adapter announces,
// and answers the port's device path (/dev/ttyACM0).
class CSerialDevicePortFinder : public IPortFinder
{
  public:
    // What the system tells about one serial port.
    struct CDevice
    {
        QString Description; // the USB product string
        QString Manufacturer;
        QString SystemLocation;
    };
    using CDeviceLister = std::function<QList<CDevice>()>;

    // Without a lister the ports are the system's own (SystemDevices).
    explicit CSerialDevicePortFinder(CDeviceLister lister = {});

    // The first port, in the system's order, whose description equals interfaceName;
    // failing that, the first whose manufacturer does. An empty name finds nothing: every
    // built-in serial port has an empty description, and none of them is the board.
    QString FindBoardPort(const QString& interfaceName) override;

    static QList<CDevice> SystemDevices();

  private:
    CDeviceLister m_lister;
};
