#include "simulationmap.h"

#include "elffile.h"
#include "sizetext.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace {

enum
{
    IdMapWritten = 61924,
    IdNoCells = 61925,
    IdBadCells = 61926,
    IdNoSymbol = 61927,
    IdMapNotWritten = 61928
};

// The heading the panel compiler gives the cells file, around the layout's name.
const std::string kCellsHead = "; Cells of ", kCellsColumns = ": CELL ITEM SYMBOL OFFSET BYTES";

bool IsNumber(const std::string& text)
{
    return !text.empty() && text.size() <= 5 &&
           text.find_first_not_of("0123456789") == std::string::npos;
}

std::string Hex(unsigned address)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%04x", address);
    return text;
}

} // namespace

bool CSimulationMap::Write(const CElfFile& elf, const std::string& cellsPath,
                           const std::string& mapPath, std::string& message)
{
    std::remove(mapPath.c_str());
    std::ifstream cells(cellsPath, std::ios::binary);
    if (!cells) {
        message = CSizeText::Format(IdNoCells, {cellsPath});
        return false;
    }
    std::string text, line;
    int number = 0, entries = 0;
    while (std::getline(cells, line)) {
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const auto bad = [&] {
            message = CSizeText::Format(IdBadCells, {cellsPath, std::to_string(number)});
            return false;
        };
        if (number == 1) {
            if (line.size() < kCellsHead.size() + kCellsColumns.size() ||
                line.compare(0, kCellsHead.size(), kCellsHead) != 0 ||
                line.compare(line.size() - kCellsColumns.size(), std::string::npos,
                             kCellsColumns) != 0)
                return bad();
            text = "; Simulation map of " +
                   line.substr(kCellsHead.size(),
                               line.size() - kCellsHead.size() - kCellsColumns.size()) +
                   ": CELL ITEM ADDRESS BYTES\r\n";
            continue;
        }
        std::istringstream fields(line);
        const std::vector<std::string> field{std::istream_iterator<std::string>(fields), {}};
        if (field.empty())
            continue;
        if (field.size() != 5 || !IsNumber(field[3]) || !IsNumber(field[4]) ||
            std::stoi(field[4]) == 0)
            return bad();
        const std::optional<unsigned> address = elf.DataAddress(field[2]);
        if (!address) {
            message = CSizeText::Format(IdNoSymbol, {cellsPath, field[2]});
            return false;
        }
        text += field[0] + ' ' + field[1] + ' ' + Hex(*address + std::stoul(field[3])) + ' ' +
                std::to_string(std::stoi(field[4])) + "\r\n";
        ++entries;
    }
    if (number == 0) {
        message = CSizeText::Format(IdBadCells, {cellsPath, "1"});
        return false;
    }
    std::ofstream map(mapPath, std::ios::binary);
    if (!(map << text) || !map.flush()) {
        map.close();
        std::remove(mapPath.c_str());
        message = CSizeText::Format(IdMapNotWritten, {mapPath});
        return false;
    }
    message = CSizeText::Format(IdMapWritten, {std::to_string(entries), mapPath});
    return true;
}
