#include "elffile.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace {

// The chip's RAM, as the linker places it: data addresses carry this offset so that they
// do not meet flash addresses.
constexpr std::uint32_t kDataSpace = 0x800000, kDataSpaceEnd = 0x810000;
constexpr unsigned kSymbolTable = 2; // SHT_SYMTAB
constexpr std::size_t kHeader = 52, kSection = 40, kSymbol = 16;

class CBytes
{
  public:
    explicit CBytes(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
    }

    std::size_t Size() const { return m_bytes.size(); }
    bool Holds(std::size_t at, std::size_t length) const
    {
        return at <= m_bytes.size() && length <= m_bytes.size() - at;
    }
    // 0 outside the file, so a damaged table reads as empty instead of past the end.
    std::uint32_t Word(std::size_t at) const
    {
        return Holds(at, 4)
                   ? std::uint32_t(m_bytes[at]) | std::uint32_t(m_bytes[at + 1]) << 8 |
                         std::uint32_t(m_bytes[at + 2]) << 16 | std::uint32_t(m_bytes[at + 3]) << 24
                   : 0;
    }
    std::uint32_t Half(std::size_t at) const
    {
        return Holds(at, 2) ? std::uint32_t(m_bytes[at]) | std::uint32_t(m_bytes[at + 1]) << 8 : 0;
    }
    bool Starts(const char* magic, std::size_t length) const
    {
        return Holds(0, length) && std::memcmp(m_bytes.data(), magic, length) == 0;
    }
    // The NUL-terminated text at `at`, cut at the end of the file.
    std::string Text(std::size_t at) const
    {
        if (at >= m_bytes.size())
            return {};
        const char* text = reinterpret_cast<const char*>(&m_bytes[at]);
        return std::string(text, strnlen(text, m_bytes.size() - at));
    }

  private:
    std::vector<unsigned char> m_bytes;
};

} // namespace

std::optional<CElfFile> CElfFile::Read(const std::string& path)
{
    const CBytes bytes(path);
    // ELF magic, 32-bit class, little-endian.
    if (bytes.Size() < kHeader || !bytes.Starts("\x7f"
                                                "ELF\x01\x01",
                                                6))
        return std::nullopt;
    const std::size_t table = bytes.Word(32), entrySize = bytes.Half(46), count = bytes.Half(48),
                      names = bytes.Half(50);
    if (entrySize < kSection || names >= count || !bytes.Holds(table, count * entrySize))
        return std::nullopt;
    const auto section = [&](std::size_t index) { return table + index * entrySize; };
    const std::size_t nameTable = bytes.Word(section(names) + 16);
    CElfFile file;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = section(i);
        if (!bytes.Holds(nameTable + bytes.Word(entry), 1))
            return std::nullopt;
        const std::string name = bytes.Text(nameTable + bytes.Word(entry));
        const long size = long(bytes.Word(entry + 20));
        if (name == ".text" || name == ".data" || name == ".bootloader")
            file.m_flash += size;
        if (name == ".data" || name == ".bss" || name == ".noinit")
            file.m_ram += size;
        if (bytes.Word(entry + 4) != kSymbolTable || bytes.Word(entry + 24) >= count)
            continue;
        // The symbol table names its symbols in the string table its link field gives.
        const std::size_t symbols = bytes.Word(entry + 16), length = bytes.Word(entry + 20),
                          strings = bytes.Word(section(bytes.Word(entry + 24)) + 16);
        if (!bytes.Holds(symbols, length))
            return std::nullopt;
        for (std::size_t at = symbols; at + kSymbol <= symbols + length; at += kSymbol)
            file.m_symbols.push_back({bytes.Text(strings + bytes.Word(at)), bytes.Word(at + 4)});
    }
    return file;
}

std::optional<unsigned> CElfFile::DataAddress(const std::string& name) const
{
    for (const CSymbol& symbol : m_symbols)
        if (symbol.Name == name && symbol.Value >= kDataSpace && symbol.Value < kDataSpaceEnd)
            return symbol.Value - kDataSpace;
    return std::nullopt;
}
