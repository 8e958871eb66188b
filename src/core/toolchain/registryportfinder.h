#pragma once

#include "portfinder.h"
#include "registry.h"
#include "serenumportfinder.h"

#include <memory>

// The board's COM number from the serial enumerator's registry entries, as the writer's
// "/C" option wants it.
class CRegistryPortFinder : public IPortFinder
{
  public:
    explicit CRegistryPortFinder(std::unique_ptr<IRegistry> registry);

    // The COM number in decimal; "" when the search finds nothing or a number below 1,
    // which names no port.
    QString FindBoardPort(const QString& interfaceName) override;

  private:
    std::unique_ptr<IRegistry> m_registry;
    CSerenumPortFinder m_finder;
};
