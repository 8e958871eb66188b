#pragma once

#include <optional>
#include <string>

// What a linked program takes of the chip, read from its ELF file the way avr-size -C
// counts it: flash holds .text, .data (its initial values) and .bootloader; RAM holds
// .data, .bss and .noinit.
struct CElfSizes
{
    long Flash = 0;
    long Ram = 0;

    // nullopt for a file that is no 32-bit little-endian ELF file.
    static std::optional<CElfSizes> Read(const std::string& path);
};
