#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A linked program's ELF file, read as far as the board's checks need it: the sizes of its
// sections, counted the way avr-size -C counts them (flash holds .text, .data (its initial
// values) and .bootloader; RAM holds .data, .bss and .noinit), and its symbol table.
class CElfFile
{
  public:
    // nullopt for a file that is no 32-bit little-endian ELF file.
    static std::optional<CElfFile> Read(const std::string& path);

    long Flash() const { return m_flash; }
    long Ram() const { return m_ram; }
    // The chip's data-space address of a variable, static ones included (they are local
    // symbols); nullopt when the symbol table holds no variable of that name.
    std::optional<unsigned> DataAddress(const std::string& name) const;

  private:
    struct CSymbol
    {
        std::string Name;
        std::uint32_t Value = 0;
    };

    long m_flash = 0;
    long m_ram = 0;
    std::vector<CSymbol> m_symbols;
};
