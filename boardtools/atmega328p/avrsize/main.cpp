// quillon-avrsize: the size check of the ATmega328P board's command list. The panel
// compiler copies it into the work folder as PANEL.avrsize; the board file runs it there:
//   ./PANEL.avrsize BASE.elf --flash 32256 --ram 2048 --stack 256 [--lang ja]
// It prints what the program takes and exits 0, or says what does not fit and exits 1, so
// that no HEX file is made of a program the chip cannot hold. Exit 2: usage or no ELF file.
// Its second task gives the simulator the RAM address of every cell's state:
//   ./PANEL.avrsize BASE.elf --map BASE.cells BASE.simmap [--lang ja]
// writes BASE.simmap and exits 0, or says why it cannot and exits 2, leaving no map.
#include "elffile.h"
#include "simulationmap.h"
#include "sizetext.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

enum
{
    ExitFits = 0,
    ExitTooBig = 1,
    ExitUsage = 2
};
enum
{
    IdUsed = 61920,
    IdFlashFull = 61921,
    IdRamFull = 61922,
    IdNoElf = 61923
};

std::string Number(long n)
{
    return std::to_string(n);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    std::string elf, cells, map;
    long flash = -1, ram = -1, stack = 0;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const bool hasValue = i + 1 < args.size();
        if (args[i] == "--flash" && hasValue)
            flash = std::atol(args[++i].c_str());
        else if (args[i] == "--ram" && hasValue)
            ram = std::atol(args[++i].c_str());
        else if (args[i] == "--stack" && hasValue)
            stack = std::atol(args[++i].c_str());
        else if (args[i] == "--map" && i + 2 < args.size())
            cells = args[i + 1], map = args[i + 2], i += 2;
        else if (args[i] == "--lang" && hasValue)
            CSizeText::SetJapanese(args[++i] == "ja");
        else if (elf.empty() && args[i].rfind("--", 0) != 0)
            elf = args[i];
        else
            elf.clear(), flash = -1;
    }
    if (elf.empty() || (map.empty() && (flash < 0 || ram < 0))) {
        std::fprintf(stderr, "usage: quillon-avrsize ELF --flash BYTES --ram BYTES [--stack BYTES] "
                             "[--lang en|ja]\n"
                             "       quillon-avrsize ELF --map CELLS MAP [--lang en|ja]\n");
        return ExitUsage;
    }
    const std::optional<CElfFile> program = CElfFile::Read(elf);
    if (!program) {
        std::printf("%s\n", CSizeText::Format(IdNoElf, {elf}).c_str());
        return ExitUsage;
    }
    if (!map.empty()) {
        std::string message;
        const bool written = CSimulationMap::Write(*program, cells, map, message);
        std::printf("%s\n", message.c_str());
        return written ? ExitFits : ExitUsage;
    }
    // Both faults are told at once, so a layout is not cut down twice.
    bool fits = true;
    if (program->Flash() > flash) {
        std::printf(
            "%s\n",
            CSizeText::Format(IdFlashFull, {Number(program->Flash()), Number(flash)}).c_str());
        fits = false;
    }
    if (program->Ram() > ram - stack) {
        std::printf("%s\n", CSizeText::Format(IdRamFull, {Number(program->Ram()),
                                                          Number(ram - stack), Number(stack)})
                                .c_str());
        fits = false;
    }
    if (fits)
        std::printf("%s\n",
                    CSizeText::Format(IdUsed, {Number(program->Flash()), Number(flash),
                                               Number(program->Ram()), Number(ram), Number(stack)})
                        .c_str());
    return fits ? ExitFits : ExitTooBig;
}
