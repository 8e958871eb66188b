#pragma once

#include <cstdint>

// One edge of a pin, at the core's cycle count.
struct CPinChange
{
    std::uint64_t Cycle = 0;
    bool High = false;
};
