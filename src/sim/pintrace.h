#pragma once

#include "pinchange.h"

#include <cstdint>
#include <optional>
#include <vector>

// The recorded level of one pin over time, and what can be measured from it. Windows are
// [from, to) in cycles; the pin is low before its first change.
class CPinTrace
{
  public:
    // Ignored when the level does not change, so a repeated write is not an edge.
    void Record(std::uint64_t cycle, bool high);

    bool Level() const { return m_level; }
    bool LevelAt(std::uint64_t cycle) const;
    std::optional<std::uint64_t> LastChange() const;
    const std::vector<CPinChange>& Changes() const { return m_changes; }

    // Drops the changes before the cycle that no level from it on depends on, so a pin that
    // toggles for hours does not fill the memory.
    void ForgetBefore(std::uint64_t cycle);

    // Rising edges inside the window.
    int Pulses(std::uint64_t from, std::uint64_t to) const;
    // The share of the window the pin was high, 0 to 1.
    double Duty(std::uint64_t from, std::uint64_t to) const;
    // Whole periods between the first and the last rising edge in the window, in Hz at
    // the given clock; 0 with fewer than two rising edges.
    double Frequency(std::uint64_t from, std::uint64_t to, double clockHz) const;

  private:
    bool m_level = false;
    std::vector<CPinChange> m_changes;
};
