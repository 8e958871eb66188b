#include "serialdeviceportfinder.h"

#include <QSerialPortInfo>

#include <algorithm>

CSerialDevicePortFinder::CSerialDevicePortFinder(CDeviceLister lister)
    : m_lister(lister ? std::move(lister) : CDeviceLister(&SystemDevices))
{
}

QString CSerialDevicePortFinder::FindBoardPort(const QString& interfaceName)
{
    if (interfaceName.isEmpty())
        return QString();
    const QList<CDevice> devices = m_lister();
    auto found = std::find_if(devices.begin(), devices.end(), [&](const CDevice& device) {
        return device.Description == interfaceName;
    });
    // Some adapters report a generic product string and carry the board's name as the
    // manufacturer; a board that names itself in the product string still comes first.
    if (found == devices.end())
        found = std::find_if(devices.begin(), devices.end(), [&](const CDevice& device) {
            return device.Manufacturer == interfaceName;
        });
    return found != devices.end() ? found->SystemLocation : QString();
}

QList<CSerialDevicePortFinder::CDevice> CSerialDevicePortFinder::SystemDevices()
{
    QList<CDevice> devices;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports)
        devices.append({port.description(), port.manufacturer(), port.systemLocation()});
    return devices;
}
