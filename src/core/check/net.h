#pragma once

#include "netpin.h"

#include <vector>

// The pins joined by wires, facing sides and jumps into one signal. A net without a
// driver reads 0.
class CNet
{
  public:
    explicit CNet(std::vector<CNetPin> pins) : m_pins(std::move(pins)) {}

    // Every member in grid order, the sides of wires and jumps included.
    const std::vector<CNetPin>& GetPins() const { return m_pins; }
    std::vector<CNetPin> GetDrivers() const { return Having(EPinRole::Output); }
    std::vector<CNetPin> GetLoads() const { return Having(EPinRole::Input); }

  private:
    std::vector<CNetPin> Having(EPinRole role) const
    {
        std::vector<CNetPin> pins;
        for (const CNetPin& pin : m_pins)
            if (pin.Role == role)
                pins.push_back(pin);
        return pins;
    }

    std::vector<CNetPin> m_pins;
};
