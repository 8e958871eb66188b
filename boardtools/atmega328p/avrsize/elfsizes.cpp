#include "elfsizes.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

std::uint32_t Word(const std::vector<unsigned char>& bytes, std::size_t at)
{
    return std::uint32_t(bytes[at]) | std::uint32_t(bytes[at + 1]) << 8 |
           std::uint32_t(bytes[at + 2]) << 16 | std::uint32_t(bytes[at + 3]) << 24;
}

std::uint32_t Half(const std::vector<unsigned char>& bytes, std::size_t at)
{
    return std::uint32_t(bytes[at]) | std::uint32_t(bytes[at + 1]) << 8;
}

} // namespace

std::optional<CElfSizes> CElfSizes::Read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(file), {}};
    constexpr std::size_t kHeader = 52, kSection = 40;
    // ELF magic, 32-bit class, little-endian.
    if (bytes.size() < kHeader ||
        std::memcmp(bytes.data(),
                    "\x7f"
                    "ELF",
                    4) != 0 ||
        bytes[4] != 1 || bytes[5] != 1)
        return std::nullopt;
    const std::size_t table = Word(bytes, 32), entrySize = Half(bytes, 46), count = Half(bytes, 48),
                      names = Half(bytes, 50);
    if (entrySize < kSection || names >= count || table + count * entrySize > bytes.size())
        return std::nullopt;
    const std::size_t nameTable = Word(bytes, table + names * entrySize + 16);
    CElfSizes sizes;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = table + i * entrySize;
        const std::size_t nameAt = nameTable + Word(bytes, entry);
        if (nameAt >= bytes.size())
            return std::nullopt;
        const std::string name(
            reinterpret_cast<const char*>(&bytes[nameAt]),
            strnlen(reinterpret_cast<const char*>(&bytes[nameAt]), bytes.size() - nameAt));
        const long size = long(Word(bytes, entry + 20));
        if (name == ".text" || name == ".data" || name == ".bootloader")
            sizes.Flash += size;
        if (name == ".data" || name == ".bss" || name == ".noinit")
            sizes.Ram += size;
    }
    return sizes;
}
