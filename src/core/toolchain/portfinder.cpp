#include "portfinder.h"

#ifdef Q_OS_WIN
#include "registryportfinder.h"
#include "windowsregistry.h"
#else
#include "serialdeviceportfinder.h"
#endif

std::unique_ptr<IPortFinder> CreatePlatformPortFinder()
{
#ifdef Q_OS_WIN
    return std::make_unique<CRegistryPortFinder>(std::make_unique<CWindowsRegistry>());
#else
    return std::make_unique<CSerialDevicePortFinder>();
#endif
}
