#pragma once

#include "avrsimulator.h"

#include <gtest/gtest.h>

#include <string>

// The HEX file of a program under tests/firmware/programs/, built with avr-gcc.
inline std::string ProgramHex(const std::string& name)
{
    return std::string(QUILLON_FIRMWARE_HEX_DIR) + "/" + name + ".hex";
}

// Loads a test program, or skips the test when the AVR compiler was not found.
#define LOAD_PROGRAM(simulator, name)                                                     \
    do {                                                                                  \
        if (!QUILLON_HAVE_AVR_GCC)                                                        \
            GTEST_SKIP() << "avr-gcc or avr-objcopy not found: the AVR test programs "    \
                            "were not built";                                             \
        ASSERT_TRUE((simulator).Load(ProgramHex(name))) << (simulator).Error();          \
    } while (false)
