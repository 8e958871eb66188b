#pragma once

#include "avrsimulator.h"
#include "boardinfo.h"
#include "layoutbuilder.h"
#include "recordingmessenger.h"
#include "simtargetof.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Header pin numbers of the board.
constexpr int PD2 = 2, PD3 = 3, PD4 = 4, PD5 = 5, PD6 = 6, PD7 = 7, PB0 = 8, PB1 = 9, PB2 = 10,
              PB3 = 11, PB4 = 12, PB5 = 13, PC0 = 14, PC1 = 15, PC2 = 16, PC3 = 17, PC4 = 18,
              PC5 = 19;

// The sample board as the simulator runs it: everything it knows of the board comes from
// the board's own file.
inline const CSimTarget& Uno()
{
    static const CSimTarget target = [] {
        CRecordingMessenger messenger;
        CBoardInfo board;
        CSimTarget made;
        QString why;
        if (!board.Read(QStringLiteral(QUILLON_BOARD_FOLDER), QString(), messenger) ||
            !SimTargetOf(board, -1, made, why))
            ADD_FAILURE() << "the sample board does not simulate: " << why.toStdString();
        return made;
    }();
    return target;
}

// The HEX file of a program under tests/firmware/programs/, built with avr-gcc.
inline std::string ProgramHex(const std::string& name)
{
    return std::string(QUILLON_FIRMWARE_HEX_DIR) + "/" + name + ".hex";
}

// The HEX file of a layout, built by the real pipeline once for all the tests that run it.
inline std::string LayoutHex(const std::string& path)
{
    static std::map<std::string, std::string> built;
    auto found = built.find(path);
    if (found == built.end())
        found = built.emplace(path, BuildLayout(path)).first;
    return found->second;
}

// Loads a HEX file, or skips the test when the AVR compiler was not found.
#define LOAD_HEX(simulator, hex)                                                                   \
    do {                                                                                           \
        if (!QUILLON_HAVE_AVR_GCC)                                                                 \
            GTEST_SKIP() << "avr-gcc or avr-objcopy not found: nothing was built for the AVR";     \
        const std::string built = (hex);                                                           \
        ASSERT_FALSE(built.empty()) << "the layout did not build";                                 \
        ASSERT_TRUE((simulator).Load(built)) << (simulator).Error();                               \
    } while (false)
#define LOAD_PROGRAM(simulator, name) LOAD_HEX(simulator, ProgramHex(name))
#define LOAD_LAYOUT(simulator, name)                                                               \
    LOAD_HEX(simulator, LayoutHex(std::string(QUILLON_FIRMWARE_LAYOUTS) + "/" + (name) + ".loc"))

// Runs the simulation up to an absolute time.
inline void RunTo(CAvrSimulator& sim, double ms)
{
    ASSERT_GT(ms, sim.NowMs());
    ASSERT_TRUE(sim.RunMs(ms - sim.NowMs())) << sim.Error();
}

// One step of a script: at `Ms`, an input goes low (0), high (1) or is let go (-1).
struct CStep
{
    double Ms;
    int Pin, Level;
};

// Plays steps in time order, then runs to `endMs`.
inline void Play(CAvrSimulator& sim, std::initializer_list<CStep> steps, double endMs)
{
    for (const CStep& step : steps) {
        if (step.Ms > sim.NowMs())
            RunTo(sim, step.Ms);
        if (step.Level < 0)
            sim.FloatInput(step.Pin);
        else
            sim.SetInput(step.Pin, step.Level == 1);
    }
    RunTo(sim, endMs);
}

// Sets an input high for `highMs`, then low for `lowMs`.
inline void Pulse(CAvrSimulator& sim, int pin, double highMs, double lowMs)
{
    sim.SetInput(pin, true);
    ASSERT_TRUE(sim.RunMs(highMs));
    sim.SetInput(pin, false);
    ASSERT_TRUE(sim.RunMs(lowMs));
}

// The changes of a pin after `fromMs`, in ms.
inline std::vector<std::pair<double, bool>> ChangesAfter(const CAvrSimulator& sim, int pin,
                                                         double fromMs)
{
    std::vector<std::pair<double, bool>> changes;
    for (const CPinChange& change : sim.Trace(pin).Changes())
        if (change.Cycle >= sim.Ms(fromMs))
            changes.emplace_back(double(change.Cycle) / double(sim.CyclesPerMs()), change.High);
    return changes;
}

// The first change of a pin to `high` at or after `fromMs`.
inline std::optional<double> EdgeAfter(const CAvrSimulator& sim, int pin, double fromMs, bool high)
{
    for (const auto& [ms, level] : ChangesAfter(sim, pin, fromMs))
        if (level == high)
            return ms;
    return std::nullopt;
}

// A pin's changes after `fromMs` are exactly these: each to its level within [Earliest, Latest].
struct CEdge
{
    bool High;
    double Earliest, Latest;
};
inline void ExpectEdges(const CAvrSimulator& sim, int pin, double fromMs,
                        std::initializer_list<CEdge> edges)
{
    const auto changes = ChangesAfter(sim, pin, fromMs);
    ASSERT_EQ(changes.size(), edges.size()) << "pin " << pin;
    std::size_t i = 0;
    for (const CEdge& edge : edges) {
        const auto& [ms, high] = changes[i++];
        EXPECT_EQ(high, edge.High) << "pin " << pin << ", change " << i;
        EXPECT_GE(ms, edge.Earliest) << "pin " << pin << ", change " << i;
        EXPECT_LE(ms, edge.Latest) << "pin " << pin << ", change " << i;
    }
}

// A pin's recorded level at each {time, level}, as a script checks it afterwards.
inline void ExpectLevels(const CAvrSimulator& sim, int pin,
                         std::initializer_list<std::pair<double, bool>> levels)
{
    for (const auto& [ms, high] : levels)
        EXPECT_EQ(sim.Trace(pin).LevelAt(sim.Ms(ms)), high) << "pin " << pin << " at " << ms;
}

// The times between a pin's changes are these, to `tolerance` ms.
inline void ExpectGaps(const CAvrSimulator& sim, int pin, std::initializer_list<double> gaps,
                       double tolerance = 0.5)
{
    const auto changes = ChangesAfter(sim, pin, 0);
    ASSERT_EQ(changes.size(), gaps.size() + 1) << "pin " << pin;
    std::size_t i = 0;
    for (const double gap : gaps) {
        EXPECT_NEAR(changes[i + 1].first - changes[i].first, gap, tolerance)
            << "pin " << pin << ", gap " << i;
        ++i;
    }
}

// Segments a..g, dp as one byte, bit 0 = a, as the engine reads them from the board's pins.
inline int Segments(const CAvrSimulator& sim)
{
    return sim.Segments();
}

constexpr int kFont[16] = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07,
                           0x7F, 0x6F, 0x77, 0x7C, 0x39, 0x5E, 0x79, 0x71};
