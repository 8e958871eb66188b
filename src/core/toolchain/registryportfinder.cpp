#include "registryportfinder.h"

CRegistryPortFinder::CRegistryPortFinder(std::unique_ptr<IRegistry> registry)
    : m_registry(std::move(registry)), m_finder(*m_registry)
{
}

QString CRegistryPortFinder::FindBoardPort(const QString& interfaceName)
{
    const int port = m_finder.FindBoardComPort(interfaceName);
    return port >= 1 ? QString::number(port) : QString();
}
