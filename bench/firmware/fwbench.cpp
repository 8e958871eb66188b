// Figures of the sample board's firmware: the panel compiler's time beside avr-gcc's on a
// full layout, the scan period of that layout in simulated cycles, the flash and RAM of
// each example, and the blinker beside the same logic written by hand. Printed only:
// nothing here fails on a slow machine.
#include "avrsimulator.h"
#include "boardinfo.h"
#include "messenger.h"
#include "simcontroller.h"
#include "simtargetof.h"

#include "sim_avr.h"
#include "sim_elf.h"
#include "sim_io.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string Quote(const std::string& text)
{
    return "'" + text + "'";
}

// Milliseconds of wall time of a shell command run in `folder`; -1 when it failed.
double TimedRun(const fs::path& folder, const std::string& command)
{
    const auto start = std::chrono::steady_clock::now();
    const int status = std::system(
        ("cd " + Quote(folder.string()) + " && " + command + " >/dev/null 2>&1").c_str());
    const auto end = std::chrono::steady_clock::now();
    return status == 0 ? std::chrono::duration<double, std::milli>(end - start).count() : -1.0;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? -1.0 : values[values.size() / 2];
}

struct CSizes
{
    long Flash = -1;
    long Ram = -1;
};

// As avr-size -C counts: flash .text + .data, RAM .data + .bss + .noinit.
CSizes SizesOf(const fs::path& elf)
{
    CSizes sizes;
    FILE* pipe = popen(
        (std::string(FWBENCH_AVR_SIZE) + " -A " + Quote(elf.string()) + " 2>/dev/null").c_str(),
        "r");
    if (!pipe)
        return sizes;
    std::map<std::string, long> sections;
    char line[512];
    while (fgets(line, sizeof line, pipe)) {
        std::istringstream fields(line);
        std::string name;
        long size = 0;
        if (fields >> name >> size)
            sections[name] = size;
    }
    if (pclose(pipe) != 0 || !sections.count(".text"))
        return sizes;
    sizes.Flash = sections[".text"] + sections[".data"];
    sizes.Ram = sections[".data"] + sections[".bss"] + sections[".noinit"];
    return sizes;
}

fs::path TempFolder()
{
    std::string pattern = (fs::temp_directory_path() / "quillon-fwbench-XXXXXX").string();
    return mkdtemp(pattern.data()) ? fs::path(pattern) : fs::path();
}

// Builds a layout with quillon-cli into work/BASE.elf; the ELF path or "".
fs::path BuildWithCli(const fs::path& layout, const fs::path& folder)
{
    const fs::path copy = folder / layout.filename();
    fs::copy_file(layout, copy, fs::copy_options::overwrite_existing);
    const std::string command = Quote(FWBENCH_CLI) + " build " + Quote(copy.string()) + " --work " +
                                Quote((folder / "work").string()) + " --board " +
                                Quote(FWBENCH_BOARD);
    if (TimedRun(folder, command) < 0)
        return fs::path();
    return folder / "work" / "BASE.elf";
}

// The chip sleeps between scans: a scan starts when the core wakes and ends when it sleeps
// again, so each one counts the scan and the work after it (display refresh, pulses).
struct CScanProbe
{
    avr_cycle_count_t Longest = 0;
    avr_cycle_count_t Total = 0;
    long Scans = 0;
};

bool MeasureScan(const fs::path& elf, CScanProbe& probe)
{
    elf_firmware_t firmware{};
    if (elf_read_firmware(elf.c_str(), &firmware) != 0)
        return false;
    avr_t* avr = avr_make_mcu_by_name("atmega328p");
    if (!avr)
        return false;
    avr_init(avr);
    avr->frequency = 16000000;
    avr->log = 0;
    avr->sleep = [](avr_t*, avr_cycle_count_t) {};
    avr_load_firmware(avr, &firmware);
    const avr_cycle_count_t warmUp = 16000000 / 5; // 200 ms: the LCD start-up
    const avr_cycle_count_t window = 16000000;     // then 1 s of scans
    bool awake = true;
    avr_cycle_count_t start = 0;
    while (avr->cycle < warmUp + window) {
        const int state = avr_run(avr);
        if (state == cpu_Done || state == cpu_Crashed)
            return false;
        const bool nowAwake = state != cpu_Sleeping;
        if (nowAwake && !awake) {
            start = avr->cycle;
        } else if (!nowAwake && awake && start >= warmUp) {
            probe.Longest = std::max(probe.Longest, avr->cycle - start);
            probe.Total += avr->cycle - start;
            ++probe.Scans;
        }
        awake = nowAwake;
    }
    avr_terminate(avr);
    return probe.Scans > 0;
}

// Simulated seconds per second of wall time of a program run for `seconds` with nothing
// watching it, as a simulation the editor shows would run; -1 when it failed.
double SimulationSpeed(const fs::path& elf, double seconds)
{
    elf_firmware_t firmware{};
    if (elf_read_firmware(elf.c_str(), &firmware) != 0)
        return -1.0;
    avr_t* avr = avr_make_mcu_by_name("atmega328p");
    if (!avr)
        return -1.0;
    avr_init(avr);
    avr->frequency = 16000000;
    avr->log = 0;
    // Simulated time only: a sleeping core jumps to its next timer and must not wait.
    avr->sleep = [](avr_t*, avr_cycle_count_t) {};
    avr_load_firmware(avr, &firmware);
    const auto end = avr_cycle_count_t(seconds * 16000000);
    const auto start = std::chrono::steady_clock::now();
    while (avr->cycle < end) {
        const int state = avr_run(avr);
        if (state == cpu_Done || state == cpu_Crashed)
            return -1.0;
    }
    const double wall =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    avr_terminate(avr);
    return seconds / wall;
}

struct CQuiet : IMessenger
{
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

// The product's own engine on a HEX file: as the command line runs it (one run), and as the
// editor runs it (the controller's thread, unpaced, while this thread takes 30 frames a
// second as the view does). Simulated seconds per wall second.
std::pair<double, double> EngineSpeeds(const fs::path& hex, double seconds)
{
    CQuiet quiet;
    CBoardInfo board;
    CSimTarget target;
    QString why;
    if (!board.Read(QStringLiteral(FWBENCH_BOARD), QString(), quiet) ||
        !SimTargetOf(board, -1, target, why))
        return {-1.0, -1.0};
    CAvrSimulator sim(target);
    if (!sim.Load(hex.string()))
        return {-1.0, -1.0};
    auto start = std::chrono::steady_clock::now();
    if (!sim.RunMs(seconds * 1000))
        return {-1.0, -1.0};
    const double cli =
        seconds / std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    CSimController controller;
    CSimMap map;
    QString mapWhy;
    map.Read(QString::fromStdString(hex.string()).chopped(3) + "simmap", mapWhy);
    if (!controller.Start(target, QString::fromStdString(hex.string()), map, why, false))
        return {cli, -1.0};
    start = std::chrono::steady_clock::now();
    while (controller.Frame().Ms < seconds * 1000)
        std::this_thread::sleep_for(std::chrono::milliseconds(33));
    const double editor =
        controller.Frame().Ms / 1000 /
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    controller.Stop();
    return {cli, editor};
}

} // namespace

int main()
{
    const fs::path folder = TempFolder();
    if (folder.empty()) {
        std::puts("no temporary folder");
        return 0;
    }

    // The panel compiler and avr-gcc on the full layout, as the build runs them.
    std::puts("== Full layout (every family but the seven-segment display)");
    const fs::path work = folder / "full";
    fs::create_directories(work);
    fs::copy_file(FWBENCH_FULL_LAYOUT, work / "full.loc");
    const std::string panelc = Quote(std::string(FWBENCH_BOARD) + "/quillon-panelc") +
                               " full.loc -o . -w . -x 16 -y 40 -c1";
    const std::string gcc = Quote(FWBENCH_AVR_GCC) +
                            " -mmcu=atmega328p -Os -std=gnu11 -ffunction-sections -fdata-sections "
                            "-Wl,--gc-sections -o BASE.elf BASE.c PANEL.c";
    std::vector<double> panelcTimes, gccTimes;
    for (int run = 0; run < 5; ++run) {
        panelcTimes.push_back(TimedRun(work, panelc));
        gccTimes.push_back(TimedRun(work, gcc));
    }
    std::printf("panel compiler      %8.1f ms (median of 5)\n", Median(panelcTimes));
    std::printf("avr-gcc compile+link%8.1f ms (median of 5)\n", Median(gccTimes));
    const CSizes full = SizesOf(work / "BASE.elf");
    std::printf("flash %ld bytes, RAM %ld bytes\n", full.Flash, full.Ram);

    CScanProbe probe;
    if (MeasureScan(work / "BASE.elf", probe))
        std::printf("scan period: longest %llu cycles (%.3f ms at 16 MHz), mean %.0f cycles over "
                    "%ld scans; goal <= 16000\n",
                    (unsigned long long)probe.Longest, double(probe.Longest) / 16000.0,
                    double(probe.Total) / double(probe.Scans), probe.Scans);
    else
        std::puts("scan period: the simulation failed");
    std::printf("simavr alone, as this bench loops it: %.2f simulated s per wall s (5 s "
                "simulated)\n",
                SimulationSpeed(work / "BASE.elf", 5.0));
    TimedRun(work, Quote(FWBENCH_AVR_OBJCOPY) + " -O ihex -R .eeprom BASE.elf BASE.hex");
    const auto [cli, editor] = EngineSpeeds(work / "BASE.hex", 10.0);
    std::printf("Quillon's engine: %.2f simulated s per wall s headless (goal >= 10), %.2f on the "
                "editor's thread with 30 frames a second (10 s simulated)\n",
                cli, editor);

    std::puts("\n== Examples, built with quillon-cli (flash and RAM as avr-size -C counts)");
    long blinkerFlash = -1;
    for (const char* name : {"blinker", "traffic-light", "latch", "counter-display", "serial-lamp",
                             "pushbutton-lamp"}) {
        const fs::path exampleFolder = folder / name;
        fs::create_directories(exampleFolder);
        const fs::path elf =
            BuildWithCli(fs::path(FWBENCH_EXAMPLES) / (std::string(name) + ".loc"), exampleFolder);
        const CSizes sizes = elf.empty() ? CSizes() : SizesOf(elf);
        std::printf("%-18s flash %5ld bytes   RAM %4ld bytes\n", name, sizes.Flash, sizes.Ram);
        if (std::string(name) == "blinker") {
            blinkerFlash = sizes.Flash;
            std::printf("%-18s simulation speed %.2f simulated s per wall s (5 s simulated)\n", "",
                        elf.empty() ? -1.0 : SimulationSpeed(elf, 5.0));
        }
    }

    const CSizes hand = SizesOf(FWBENCH_HAND_ELF);
    std::printf("\n== Blinker beside bench/firmware/blinker_hand.c\nlayout %ld bytes, by hand %ld "
                "bytes: %.2fx (goal <= 1.30x)\n",
                blinkerFlash, hand.Flash,
                hand.Flash > 0 ? double(blinkerFlash) / double(hand.Flash) : 0.0);

    std::error_code error;
    fs::remove_all(folder, error);
    return 0;
}
