// Every panel family the sample board offers, built from a layout by the real pipeline
// (quillon-cli, the panel compiler, avr-gcc) and run in the simulator against what
// docs/panels.md says the panel does. Times are simulated; the scan is 1 ms.
#include "firmwaretest.h"
#include "layoutbuilder.h"

#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <vector>

namespace {

// Header pin numbers of the board.
enum EPin
{
    PD2 = 2,
    PD3,
    PD4,
    PD5,
    PD6,
    PD7,
    PB0 = 8,
    PB1,
    PB2,
    PB3,
    PB4,
    PB5,
    PC0 = 14,
    PC1,
    PC2,
    PC3,
    PC4,
    PC5,
};

// Each layout is built once for all the tests that run it.
std::string LayoutHex(const std::string& name)
{
    static std::map<std::string, std::string> built;
    auto found = built.find(name);
    if (found == built.end())
        found = built
                    .emplace(name, BuildLayout(std::string(QUILLON_FIRMWARE_LAYOUTS) + "/" + name +
                                               ".loc"))
                    .first;
    return found->second;
}

#define LOAD_LAYOUT(simulator, name)                                                               \
    do {                                                                                           \
        if (!QUILLON_HAVE_AVR_GCC)                                                                 \
            GTEST_SKIP() << "avr-gcc not found: layouts cannot be built";                          \
        const std::string hex = LayoutHex(name);                                                   \
        ASSERT_FALSE(hex.empty()) << "the layout " << (name) << " did not build";                  \
        ASSERT_TRUE((simulator).Load(hex)) << (simulator).Error();                                 \
    } while (false)

// The changes of a pin after `fromMs`, in ms.
std::vector<std::pair<double, bool>> ChangesAfter(const CAvrSimulator& sim, int pin, double fromMs)
{
    std::vector<std::pair<double, bool>> changes;
    for (const CPinChange& change : sim.Trace(pin).Changes())
        if (change.Cycle >= CAvrSimulator::Ms(fromMs))
            changes.emplace_back(double(change.Cycle) / double(CAvrSimulator::CyclesPerMs),
                                 change.High);
    return changes;
}

// The first change of a pin to `high` at or after `fromMs`.
std::optional<double> EdgeAfter(const CAvrSimulator& sim, int pin, double fromMs, bool high)
{
    for (const auto& [ms, level] : ChangesAfter(sim, pin, fromMs))
        if (level == high)
            return ms;
    return std::nullopt;
}

// Runs the simulation up to an absolute time.
void RunTo(CAvrSimulator& sim, double ms)
{
    ASSERT_GT(ms, sim.NowMs());
    ASSERT_TRUE(sim.RunMs(ms - sim.NowMs())) << sim.Error();
}

// Segments a..g, dp on PD2..PB1 as one byte, bit 0 = a.
int Segments(const CAvrSimulator& sim)
{
    int pattern = 0;
    for (int segment = 0; segment < 8; ++segment)
        if (sim.Level(PD2 + segment))
            pattern |= 1 << segment;
    return pattern;
}

constexpr std::array<int, 16> kFont = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07,
                                       0x7F, 0x6F, 0x77, 0x7C, 0x39, 0x5E, 0x79, 0x71};

// What each digit of the four-digit display shows, read while it is selected (its pin
// low, the other three high); -1 for a digit never seen alone.
std::array<int, 4> FourDigits(CAvrSimulator& sim)
{
    constexpr int kSelect[4] = {PB3, PB4, PB5, PC0};
    std::array<int, 4> digits = {-1, -1, -1, -1};
    for (int sample = 0; sample < 40; ++sample) {
        EXPECT_TRUE(sim.RunUs(230));
        int selected = -1, count = 0;
        for (int digit = 0; digit < 4; ++digit)
            if (!sim.Level(kSelect[digit])) {
                selected = digit;
                ++count;
            }
        if (count != 1)
            continue;
        const int pattern = Segments(sim);
        EXPECT_TRUE(digits[selected] == -1 || digits[selected] == pattern)
            << "digit " << selected << " shows " << pattern << " and " << digits[selected];
        digits[selected] = pattern;
    }
    return digits;
}

} // namespace

// Key (debounced), digital input, gates, jumps and an active-low switch and lamp.
TEST(FamilyGates, TruthTablesThroughJumps)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "gates");
    struct
    {
        bool A, B;
    } const cases[] = {{false, false}, {true, false}, {false, true}, {true, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "a=" << c.A << " b=" << c.B);
        sim.SetInput(PD2, c.A);
        sim.SetInput(PD3, c.B);
        ASSERT_TRUE(sim.RunMs(30));
        EXPECT_EQ(sim.Level(PB0), c.A && c.B) << "AND";
        EXPECT_EQ(sim.Level(PB1), c.A || c.B) << "OR";
        EXPECT_EQ(sim.Level(PB2), c.A != c.B) << "XOR";
        EXPECT_EQ(sim.Level(PB3), !c.A) << "NOT R";
        EXPECT_EQ(sim.Level(PC2), !c.A) << "NOT D";
        EXPECT_TRUE(sim.Level(PB4)) << "ON";
        EXPECT_FALSE(sim.Level(PC1)) << "OFF";
    }
}

TEST(FamilyGates, KeyIsDebouncedFor20Ms)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "gates");
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, true);
    RunTo(sim, 50);
    // A bouncing contact never keeps its level for 20 ms: the AND stays off.
    for (int i = 0; i < 6; ++i) {
        sim.SetInput(PD2, true);
        ASSERT_TRUE(sim.RunMs(15));
        sim.SetInput(PD2, false);
        ASSERT_TRUE(sim.RunMs(3));
    }
    EXPECT_EQ(sim.Trace(PB0).Changes().size(), 0u);
    RunTo(sim, 200);
    sim.SetInput(PD2, true);
    RunTo(sim, 260);
    const std::optional<double> on = EdgeAfter(sim, PB0, 200, true);
    ASSERT_TRUE(on);
    EXPECT_GE(*on, 219.0);
    EXPECT_LE(*on, 222.0);
    // The digital input is not debounced: B off turns the AND off within a scan.
    sim.SetInput(PD3, false);
    RunTo(sim, 262);
    EXPECT_FALSE(sim.Level(PB0));
}

// The scan reads the pins once a millisecond, so a pulse a little under 20 ms can still be
// seen by 20 reads. Each pulse here starts a quarter of a millisecond before a read: 19.5 ms
// then spans 20 reads and 20.5 ms spans 21, and only the second has held for 20 ms.
TEST(FamilyGates, KeyTakesALevelOnlyAfterItHeld20Ms)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "gates");
    // When the scan reads: the digital input reaches its active-low output (PC3) in the
    // scan that read it, a few microseconds after the read.
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, true);
    RunTo(sim, 10);
    sim.SetInput(PD3, false);
    RunTo(sim, 15);
    const std::optional<double> read = EdgeAfter(sim, PC3, 10, true);
    ASSERT_TRUE(read);
    sim.SetInput(PD3, true);
    const struct
    {
        const char* Behaviour;
        bool Pressed; // the key's level around the pulse
        double Ms;
        bool Taken;
    } rows[] = {
        {"a 19.5 ms bounce while released", false, 19.5, false},
        {"a 20.5 ms press", false, 20.5, true},
        {"a 19.5 ms bounce while pressed", true, 19.5, false},
        {"a 20.5 ms release", true, 20.5, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        // The AND (PB0) shows the debounced key while the digital input stays on.
        sim.SetInput(PD2, row.Pressed);
        RunTo(sim, sim.NowMs() + 50);
        ASSERT_EQ(sim.Level(PB0), row.Pressed);
        const double start = *read + std::ceil(sim.NowMs() - *read + 1) - 0.25;
        RunTo(sim, start);
        sim.SetInput(PD2, !row.Pressed);
        RunTo(sim, start + row.Ms);
        sim.SetInput(PD2, row.Pressed);
        RunTo(sim, start + row.Ms + 30);
        EXPECT_EQ(EdgeAfter(sim, PB0, start, !row.Pressed).has_value(), row.Taken);
    }
}

TEST(FamilyGates, ActiveLowSwitchWithPullUpDrivesActiveLowLamp)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "gates");
    // The simulator records an output from its first change after the pin became an
    // output, so the lamp is watched through a full off-on cycle.
    RunTo(sim, 5);
    sim.SetInput(PD4, false); // contact closed: on, the low-active lamp pin low
    RunTo(sim, 50);
    sim.FloatInput(PD4); // open contact: the pull-up reads high, off
    RunTo(sim, 100);
    sim.SetInput(PD4, false);
    RunTo(sim, 150);
    const auto changes = ChangesAfter(sim, PB5, 30);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_TRUE(changes[0].second);
    EXPECT_GE(changes[0].first, 69.0) << "debounced";
    EXPECT_LE(changes[0].first, 72.0);
    EXPECT_FALSE(changes[1].second);
    EXPECT_GE(changes[1].first, 119.0);
    EXPECT_LE(changes[1].first, 122.0);
}

TEST(FamilyGates, DigitalOutputActiveLowFollowsAJumpWithinAScan)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "gates");
    // DGO L on PC3 fed by the digital input PD3 through a jump: on is a low pin.
    sim.SetInput(PD3, true);
    RunTo(sim, 20);
    sim.SetInput(PD3, false);
    RunTo(sim, 40);
    sim.SetInput(PD3, true);
    RunTo(sim, 60);
    const auto changes = ChangesAfter(sim, PC3, 10);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_TRUE(changes[0].second);
    EXPECT_GE(changes[0].first, 20.0);
    EXPECT_LE(changes[0].first, 21.0);
    EXPECT_FALSE(changes[1].second);
    EXPECT_GE(changes[1].first, 40.0);
    EXPECT_LE(changes[1].first, 41.0);
}

TEST(FamilyWires, CrossingCornersAndBranchesKeepTheirSignals)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "wires");
    struct
    {
        bool A, B, C;
    } const cases[] = {{true, false, false},
                       {false, true, false},
                       {false, false, true},
                       {true, true, true},
                       {false, false, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.A << c.B << c.C);
        sim.SetInput(PD2, c.A);
        sim.SetInput(PD3, c.B);
        sim.SetInput(PD4, c.C);
        ASSERT_TRUE(sim.RunMs(3));
        EXPECT_EQ(sim.Level(PB0), c.A) << "branch L-R-D, run on";
        EXPECT_EQ(sim.Level(PB1), c.B) << "crossing L-R";
        EXPECT_EQ(sim.Level(PB2), c.A) << "crossing U-D, branch U-D-R";
        EXPECT_EQ(sim.Level(PB3), c.A) << "two corners U-R";
        EXPECT_EQ(sim.Level(PB4), c.C) << "two corners L-D, corner U-R";
    }
}

TEST(FamilyTimers, OneShotGivesOnePulseOfTheSetTime)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "timers");
    sim.SetInput(PD2, false);
    RunTo(sim, 10);
    sim.SetInput(PD2, true);
    RunTo(sim, 20);
    sim.SetInput(PD2, false); // the level after the edge does not matter
    RunTo(sim, 100);
    sim.SetInput(PD2, true); // an edge during the pulse is ignored
    RunTo(sim, 110);
    sim.SetInput(PD2, false);
    RunTo(sim, 800);
    const auto changes = ChangesAfter(sim, PB0, 0);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_TRUE(changes[0].second);
    EXPECT_LE(changes[0].first, 12.0);
    // Both edges come at the same point of a scan: whole milliseconds.
    EXPECT_NEAR(changes[1].first - changes[0].first, 500.0, 0.5);
}

TEST(FamilyTimers, RetriggerableOneShotStartsAgainAtEachEdge)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "timers");
    sim.SetInput(PD3, false);
    for (const double edge : {10.0, 300.0}) {
        RunTo(sim, edge);
        sim.SetInput(PD3, true);
        RunTo(sim, edge + 5);
        sim.SetInput(PD3, false);
    }
    RunTo(sim, 900);
    const auto changes = ChangesAfter(sim, PB1, 0);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_NEAR(changes[1].first - changes[0].first, 790.0, 0.5);
}

TEST(FamilyTimers, HoldStaysOnForTheSetTimeAfterTheInput)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "timers");
    sim.SetInput(PD4, false);
    RunTo(sim, 10);
    sim.SetInput(PD4, true);
    RunTo(sim, 200);
    sim.SetInput(PD4, false);
    RunTo(sim, 600);
    const auto changes = ChangesAfter(sim, PB2, 0);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_GE(changes[0].first, 10.0);
    EXPECT_LE(changes[0].first, 12.0);
    // Off the set time after the input turned off, within one scan.
    EXPECT_GE(changes[1].first - 200.0, 300.0);
    EXPECT_LE(changes[1].first - 200.0, 302.0);
}

TEST(FamilyTimers, ToggleFlashesWhileTheInputIsOn)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "timers");
    sim.SetInput(PD5, false);
    RunTo(sim, 10);
    sim.SetInput(PD5, true);
    RunTo(sim, 900);
    sim.SetInput(PD5, false);
    RunTo(sim, 1300);
    const auto changes = ChangesAfter(sim, PB3, 0);
    ASSERT_EQ(changes.size(), 6u);
    EXPECT_TRUE(changes[0].second);
    EXPECT_LE(changes[0].first, 12.0);
    for (std::size_t i = 1; i < 5; ++i)
        EXPECT_NEAR(changes[i].first - changes[i - 1].first, 200.0, 0.5) << i;
    // Off at once when the input turns off, in the middle of an on phase.
    EXPECT_FALSE(changes[5].second);
    EXPECT_GE(changes[5].first, 900.0);
    EXPECT_LE(changes[5].first, 902.0);
}

TEST(FamilyDelay, BothEdgesDelayedAndShortPulsesDropped)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "timers");
    sim.SetInput(PD6, false);
    RunTo(sim, 10);
    sim.SetInput(PD6, true); // 50 ms: shorter than 0.10 s
    RunTo(sim, 60);
    sim.SetInput(PD6, false);
    RunTo(sim, 200);
    sim.SetInput(PD6, true);
    RunTo(sim, 500);
    sim.SetInput(PD6, false); // a 30 ms gap does not reach the output either
    RunTo(sim, 530);
    sim.SetInput(PD6, true);
    RunTo(sim, 700);
    sim.SetInput(PD6, false);
    RunTo(sim, 900);
    const auto changes = ChangesAfter(sim, PB4, 0);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_GE(changes[0].first, 300.0);
    EXPECT_LE(changes[0].first, 302.0);
    EXPECT_GE(changes[1].first, 800.0);
    EXPECT_LE(changes[1].first, 802.0);
}

TEST(FamilyFlipFlops, RsResetWins)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "flipflops");
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, false);
    RunTo(sim, 10);
    EXPECT_FALSE(sim.Level(PB0));
    sim.SetInput(PD3, true);
    RunTo(sim, 20);
    sim.SetInput(PD3, false);
    RunTo(sim, 40);
    EXPECT_TRUE(sim.Level(PB0)) << "keeps the set";
    sim.SetInput(PD2, true);
    RunTo(sim, 50);
    sim.SetInput(PD2, false);
    RunTo(sim, 60);
    EXPECT_FALSE(sim.Level(PB0));
    sim.SetInput(PD2, true);
    sim.SetInput(PD3, true);
    RunTo(sim, 80);
    EXPECT_FALSE(sim.Level(PB0)) << "both on: reset wins";
    sim.SetInput(PD2, false);
    RunTo(sim, 83);
    EXPECT_TRUE(sim.Level(PB0));
}

TEST(FamilyFlipFlops, DTakesDataAtTheClockEdge)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "flipflops");
    sim.SetInput(PD4, false);
    sim.SetInput(PD5, true);
    RunTo(sim, 20);
    EXPECT_FALSE(sim.Level(PB1)) << "no edge yet";
    sim.SetInput(PD4, true);
    RunTo(sim, 23);
    EXPECT_TRUE(sim.Level(PB1));
    sim.SetInput(PD5, false);
    RunTo(sim, 40);
    EXPECT_TRUE(sim.Level(PB1)) << "data changes between edges do nothing";
    sim.SetInput(PD4, false);
    RunTo(sim, 45);
    sim.SetInput(PD4, true);
    RunTo(sim, 48);
    EXPECT_FALSE(sim.Level(PB1));
    sim.SetInput(PD5, true);
    RunTo(sim, 60);
    EXPECT_FALSE(sim.Level(PB1)) << "a high clock is no edge";
}

TEST(FamilyFlipFlops, TToggleAndReset)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "flipflops");
    sim.SetInput(PD6, false);
    sim.SetInput(PD7, false);
    const bool expected[] = {true, false, true};
    double t = 10;
    for (const bool level : expected) {
        RunTo(sim, t);
        sim.SetInput(PD7, true);
        RunTo(sim, t + 5);
        sim.SetInput(PD7, false);
        RunTo(sim, t + 10);
        EXPECT_EQ(sim.Level(PB2), level) << t;
        t += 20;
    }
    sim.SetInput(PD6, true);
    RunTo(sim, t + 3);
    EXPECT_FALSE(sim.Level(PB2)) << "reset";
    sim.SetInput(PD7, true);
    RunTo(sim, t + 10);
    sim.SetInput(PD7, false);
    RunTo(sim, t + 15);
    EXPECT_FALSE(sim.Level(PB2)) << "toggle ignored during reset";
    sim.SetInput(PD6, false);
    RunTo(sim, t + 20);
    EXPECT_FALSE(sim.Level(PB2));
    sim.SetInput(PD7, true);
    RunTo(sim, t + 25);
    EXPECT_TRUE(sim.Level(PB2));
}

TEST(FamilyCounter, CyclicWrapsToOne)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "counters");
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, false);
    RunTo(sim, 10);
    EXPECT_FALSE(sim.Level(PB0));
    EXPECT_FALSE(sim.Level(PB1));
    // values 3 and 2: counts 1, 2, 3, 1, 2, 3, 1
    const int counts[] = {1, 2, 3, 1, 2, 3, 1};
    for (const int count : counts) {
        sim.SetInput(PD3, true);
        ASSERT_TRUE(sim.RunMs(5));
        sim.SetInput(PD3, false);
        ASSERT_TRUE(sim.RunMs(5));
        EXPECT_EQ(sim.Level(PB0), count >= 3) << count;
        EXPECT_EQ(sim.Level(PB1), count >= 2) << count;
    }
    sim.SetInput(PD2, true);
    ASSERT_TRUE(sim.RunMs(3));
    sim.SetInput(PD3, true); // not counted during reset
    ASSERT_TRUE(sim.RunMs(5));
    sim.SetInput(PD3, false);
    sim.SetInput(PD2, false);
    ASSERT_TRUE(sim.RunMs(5));
    for (int i = 0; i < 2; ++i) {
        sim.SetInput(PD3, true);
        ASSERT_TRUE(sim.RunMs(5));
        sim.SetInput(PD3, false);
        ASSERT_TRUE(sim.RunMs(5));
    }
    EXPECT_TRUE(sim.Level(PB1)) << "count 2 after the reset";
    EXPECT_FALSE(sim.Level(PB0));
}

TEST(FamilyCounter, HoldStopsAtTheLargestValue)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "counters");
    sim.SetInput(PD4, false);
    sim.SetInput(PD5, false);
    RunTo(sim, 10);
    EXPECT_TRUE(sim.Level(PB4)) << "a value of 0 is reached from the start";
    for (int count = 1; count <= 7; ++count) {
        sim.SetInput(PD5, true);
        ASSERT_TRUE(sim.RunMs(5));
        sim.SetInput(PD5, false);
        ASSERT_TRUE(sim.RunMs(5));
        EXPECT_EQ(sim.Level(PB2), count >= 4) << count;
        EXPECT_EQ(sim.Level(PB3), count >= 2) << count;
        EXPECT_TRUE(sim.Level(PB4));
    }
    sim.SetInput(PD4, true);
    ASSERT_TRUE(sim.RunMs(3));
    EXPECT_FALSE(sim.Level(PB2));
    EXPECT_FALSE(sim.Level(PB3));
    EXPECT_TRUE(sim.Level(PB4));
}

TEST(FamilyBuzzer, TopmostRowChoosesTheTone)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "waves");
    for (const int pin : {PD2, PD4, PD5})
        sim.SetInput(pin, false);
    RunTo(sim, 20);
    EXPECT_EQ(sim.Pulses(PD3, 0, 20), 0) << "silent";
    struct
    {
        bool R2000, R1000, R500;
        double Hz;
    } const cases[] = {{false, false, true, 500},
                       {false, true, true, 1000},
                       {true, true, true, 2000},
                       {true, false, false, 2000},
                       {false, true, false, 1000}};
    for (const auto& c : cases) {
        sim.SetInput(PD2, c.R2000);
        sim.SetInput(PD4, c.R1000);
        sim.SetInput(PD5, c.R500);
        const double from = sim.NowMs() + 5;
        ASSERT_TRUE(sim.RunMs(45));
        EXPECT_NEAR(sim.Frequency(PD3, from, sim.NowMs()), c.Hz, c.Hz * 0.005) << c.Hz;
        EXPECT_NEAR(sim.Duty(PD3, from, sim.NowMs()), 0.5, 0.05);
    }
    for (const int pin : {PD2, PD4, PD5})
        sim.SetInput(pin, false);
    ASSERT_TRUE(sim.RunMs(5));
    const double quiet = sim.NowMs();
    ASSERT_TRUE(sim.RunMs(20));
    EXPECT_EQ(sim.Pulses(PD3, quiet, sim.NowMs()), 0);
}

TEST(FamilyPwm, TopmostRowChoosesTheDuty)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "waves");
    sim.SetInput(PD6, false);
    sim.SetInput(PD7, false);
    RunTo(sim, 20);
    EXPECT_FALSE(sim.Level(PB2)) << "no row on: 0 %, pin low";
    struct
    {
        bool R75, R25;
        double Duty;
    } const cases[] = {{false, true, 0.25}, {true, true, 0.75}, {true, false, 0.75}};
    for (const auto& c : cases) {
        sim.SetInput(PD6, c.R75);
        sim.SetInput(PD7, c.R25);
        const double from = sim.NowMs() + 5;
        ASSERT_TRUE(sim.RunMs(25));
        EXPECT_NEAR(sim.Duty(PB2, from, sim.NowMs()), c.Duty, 0.01);
        EXPECT_NEAR(sim.Frequency(PB2, from, sim.NowMs()), 1000.0, 1.0);
    }
    sim.SetInput(PD6, false);
    ASSERT_TRUE(sim.RunMs(5));
    const double off = sim.NowMs();
    ASSERT_TRUE(sim.RunMs(10));
    EXPECT_EQ(sim.Duty(PB2, off, sim.NowMs()), 0.0);
}

TEST(FamilyPulse, DutyStepsInA4MsPeriod)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "waves");
    const int rows[] = {PB0, PB1, PB3, PB4, PB5};
    const double duties[] = {1.0, 0.75, 0.5, 0.25, 0.0};
    for (const int pin : rows)
        sim.SetInput(pin, false);
    RunTo(sim, 20);
    EXPECT_FALSE(sim.Level(PC1));
    for (int row = 0; row < 5; ++row) {
        for (int other = 0; other < 5; ++other)
            sim.SetInput(rows[other], other == row);
        // A lower row on beside it must not matter: the topmost wins.
        if (row < 3)
            sim.SetInput(rows[row + 2], true);
        ASSERT_TRUE(sim.RunMs(4));
        const double from = sim.NowMs();
        ASSERT_TRUE(sim.RunMs(40));
        EXPECT_NEAR(sim.Duty(PC1, from, sim.NowMs()), duties[row], 0.02) << row;
        if (duties[row] > 0 && duties[row] < 1) {
            EXPECT_NEAR(sim.Frequency(PC1, from, sim.NowMs()), 250.0, 1.0) << row;
        }
    }
}

TEST(FamilySerialReceive, CompareRowIsOnForExactlyOneScan)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "serialcompare");
    RunTo(sim, 10);
    sim.SendUart(std::string(1, char(200)));
    RunTo(sim, 40);
    const auto changes = ChangesAfter(sim, PB0, 0);
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_NEAR(changes[1].first - changes[0].first, 1.0, 0.05);
    EXPECT_EQ(sim.Pulses(PB1, 0, 40), 0) << "200 is not the row of 17";
    EXPECT_FALSE(sim.Level(PB2));

    sim.SendUart(std::string(1, char(17)));
    RunTo(sim, 200);
    const auto pulse = ChangesAfter(sim, PB1, 40);
    ASSERT_EQ(pulse.size(), 2u);
    EXPECT_NEAR(pulse[1].first - pulse[0].first, 100.0, 0.5);

    // 5, 99, 5 a frame apart: 99 matches no row, so the flip-flop stays on for two frames.
    sim.SendUart(std::string("\x05\x63\x05", 3));
    ASSERT_TRUE(sim.RunUntil([&] { return sim.Level(PB2); }, 60));
    const double on = sim.NowMs();
    ASSERT_TRUE(sim.RunUntil([&] { return !sim.Level(PB2); }, 60));
    const double frameMs = 10000.0 / CAvrSimulator::UartBaud;
    EXPECT_NEAR(sim.NowMs() - on, 2 * frameMs, 1.2);
    EXPECT_EQ(sim.Pulses(PB0, 40, sim.NowMs()), 0);
    EXPECT_EQ(sim.Pulses(PB1, 200, sim.NowMs()), 0);
}

TEST(FamilySerialReceive, BitRowsShowTheLastByte)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "serialbits");
    RunTo(sim, 10);
    sim.SendUart(std::string(1, char(0xA0)));
    RunTo(sim, 40);
    EXPECT_TRUE(sim.Level(PB0)) << "bit 7";
    EXPECT_FALSE(sim.Level(PB1)) << "bit 6";
    EXPECT_TRUE(sim.Level(PB2)) << "bit 5";
    RunTo(sim, 100);
    EXPECT_TRUE(sim.Level(PB0)) << "kept until the next byte";
    sim.SendUart(std::string(1, char(0x5F)));
    RunTo(sim, 130);
    EXPECT_FALSE(sim.Level(PB0));
    EXPECT_TRUE(sim.Level(PB1));
    EXPECT_FALSE(sim.Level(PB2));
}

TEST(FamilySerialSend, ByteFromTheBitPanelsAtEachRisingEdge)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "serialbits");
    sim.SetInput(PD4, false);
    sim.SetInput(PD2, true);  // bit 0
    sim.SetInput(PD3, false); // bit 7
    sim.SetInput(PD5, false); // bit 3, ORed with the bit 3 fed by ON
    RunTo(sim, 10);
    EXPECT_EQ(sim.UartOutput(), "");
    sim.SetInput(PD4, true);
    RunTo(sim, 40);
    EXPECT_EQ(sim.UartOutput(), std::string("\x09", 1));
    sim.SetInput(PD4, false);
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, true);
    sim.SetInput(PD5, true);
    RunTo(sim, 60);
    EXPECT_EQ(sim.UartOutput(), std::string("\x09", 1)) << "a falling edge sends nothing";
    // Two edges a byte time apart: two bytes, each with the bits at its own edge.
    sim.ClearUartOutput();
    for (int i = 0; i < 2; ++i) {
        sim.SetInput(PD4, true);
        ASSERT_TRUE(sim.RunMs(5));
        sim.SetInput(PD4, false);
        ASSERT_TRUE(sim.RunMs(5));
        sim.SetInput(PD2, true); // the second byte has bit 0
    }
    RunTo(sim, 120);
    EXPECT_EQ(sim.UartOutput(), std::string("\x88\x89", 2));
}

TEST(FamilyLcd, TextAppearsWithin34MsOfTheEdge)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "lcd");
    sim.SetInput(PD2, false);
    RunTo(sim, 150);
    EXPECT_EQ(sim.LcdLine(1), std::string(16, ' '));
    sim.SetInput(PD2, true);
    RunTo(sim, 152);
    EXPECT_NE(sim.LcdLine(1), "Hello Quillon 16") << "one character a millisecond";
    // The lower line's last column is the refresh's last position before it starts over.
    RunTo(sim, 186);
    EXPECT_EQ(sim.LcdLine(1), "Hello Quillon 16");
    EXPECT_EQ(sim.LcdLine(0), std::string(16, ' '));
}

TEST(FamilySevenSegment, DigitDecodersLargestWins)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "sevenseg-digit");
    struct
    {
        bool D3, D7, Bit1, D12;
        int Pattern;
    } const cases[] = {
        {false, false, false, false, 0},
        {true, false, false, false, kFont[3]},
        {true, true, false, false, kFont[7]},
        {false, false, true, false, 0}, // a bit decoder on a digit display does nothing
        {false, false, false, true, 0}, // 12 is no digit of a one-digit display
        {false, true, true, true, kFont[7]}};
    for (const auto& c : cases) {
        sim.SetInput(PB2, c.D3);
        sim.SetInput(PB3, c.D7);
        sim.SetInput(PB4, c.Bit1);
        sim.SetInput(PB5, c.D12);
        ASSERT_TRUE(sim.RunMs(5));
        EXPECT_EQ(Segments(sim), c.Pattern) << c.D3 << c.D7 << c.Bit1 << c.D12;
    }
}

TEST(FamilySevenSegment, SegmentDecodersAddUp)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "sevenseg-segment");
    struct
    {
        bool A, G, Dp, D8;
        int Pattern;
    } const cases[] = {{false, false, false, false, 0},
                       {true, false, false, false, 0x01},
                       {true, true, false, false, 0x41},
                       {true, true, true, false, 0xC1},
                       {false, false, false, true, 0}};
    for (const auto& c : cases) {
        sim.SetInput(PB2, c.A);
        sim.SetInput(PB3, c.G);
        sim.SetInput(PB4, c.Dp);
        sim.SetInput(PB5, c.D8);
        ASSERT_TRUE(sim.RunMs(5));
        EXPECT_EQ(Segments(sim), c.Pattern) << c.A << c.G << c.Dp << c.D8;
    }
}

TEST(FamilySevenSegment, FourDigitsByBitShowLeadingZeros)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "sevenseg4-bit");
    // bits 0, 2, 5, 15 on PB2, PC1, PC2, PC3
    sim.SetInput(PB2, true);
    sim.SetInput(PC1, false);
    sim.SetInput(PC2, true);
    sim.SetInput(PC3, false);
    RunTo(sim, 20);
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{kFont[0], kFont[0], kFont[2], kFont[1]}))
        << "0x0021";
    sim.SetInput(PB2, false);
    sim.SetInput(PC1, true);
    sim.SetInput(PC2, false);
    sim.SetInput(PC3, true);
    ASSERT_TRUE(sim.RunMs(5));
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{kFont[8], kFont[0], kFont[0], kFont[4]}))
        << "0x8004";
    // Each digit is selected one millisecond in four.
    const double from = sim.NowMs();
    ASSERT_TRUE(sim.RunMs(40));
    for (const int select : {PB3, PB4, PB5, PC0})
        EXPECT_NEAR(1.0 - sim.Duty(select, from, sim.NowMs()), 0.25, 0.02) << select;
}

TEST(FamilySevenSegment, FourDigitsByNumberRightAligned)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "sevenseg4-digit");
    // 7S4_D 1234 on PB2, 7S4_D 7 on PC1, a segment decoder on PC2
    sim.SetInput(PB2, false);
    sim.SetInput(PC1, true);
    sim.SetInput(PC2, true);
    RunTo(sim, 20);
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{0, 0, 0, kFont[7]}));
    sim.SetInput(PB2, true);
    ASSERT_TRUE(sim.RunMs(5));
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{kFont[1], kFont[2], kFont[3], kFont[4]}));
    sim.SetInput(PB2, false);
    sim.SetInput(PC1, false);
    ASSERT_TRUE(sim.RunMs(5));
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{0, 0, 0, 0})) << "no digit decoder on: blank";
}

TEST(FamilySteppingMotor, OnePhaseStepsEverySpeedMs)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "motors");
    auto coils = [&] {
        return int(sim.Level(PB0)) | int(sim.Level(PB1)) << 1 | int(sim.Level(PB2)) << 2 |
               int(sim.Level(PB3)) << 3;
    };
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, false);
    RunTo(sim, 10);
    EXPECT_EQ(coils(), 0);
    sim.SetInput(PD2, true);
    RunTo(sim, 13);
    EXPECT_EQ(coils(), 0x1) << "A at once";
    // Forward: A, B, A', B', A, one step every 10 ms.
    std::vector<int> seen;
    for (int i = 0; i < 45; ++i) {
        ASSERT_TRUE(sim.RunMs(1));
        if (seen.empty() || seen.back() != coils())
            seen.push_back(coils());
    }
    EXPECT_EQ(seen, (std::vector<int>{0x1, 0x2, 0x4, 0x8, 0x1}));
    const auto changes = ChangesAfter(sim, PB0, 0);
    ASSERT_GE(changes.size(), 3u);
    EXPECT_NEAR(changes[2].first - changes[0].first, 40.0, 0.5) << "A again after four steps";
    sim.SetInput(PD2, false);
    ASSERT_TRUE(sim.RunMs(3));
    EXPECT_EQ(coils(), 0);
    const int stopped = seen.back();
    sim.SetInput(PD3, true);
    sim.SetInput(PD2, true);
    ASSERT_TRUE(sim.RunMs(3));
    EXPECT_EQ(coils(), stopped) << "goes on from where it stopped";
    seen.assign(1, coils());
    for (int i = 0; i < 35; ++i) {
        ASSERT_TRUE(sim.RunMs(1));
        if (seen.back() != coils())
            seen.push_back(coils());
    }
    EXPECT_EQ(seen, (std::vector<int>{0x1, 0x8, 0x4, 0x2})) << "backward";
}

TEST(FamilyMotorDriver, TwoPhaseCoilsOnA2ToA5)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "motordriver");
    auto coils = [&] {
        return int(sim.Level(PC2)) | int(sim.Level(PC3)) << 1 | int(sim.Level(PC4)) << 2 |
               int(sim.Level(PC5)) << 3;
    };
    sim.SetInput(PD4, false);
    sim.SetInput(PD5, false);
    RunTo(sim, 10);
    EXPECT_EQ(coils(), 0);
    sim.SetInput(PD4, true);
    RunTo(sim, 12);
    EXPECT_EQ(coils(), 0x3) << "AB in the same scan";
    std::vector<int> seen{coils()};
    for (int i = 0; i < 90; ++i) {
        ASSERT_TRUE(sim.RunMs(1));
        if (seen.back() != coils())
            seen.push_back(coils());
    }
    EXPECT_EQ(seen, (std::vector<int>{0x3, 0x6, 0xC, 0x9, 0x3}));
    const auto changes = ChangesAfter(sim, PC4, 0); // A' on at step 2, off at step 4
    ASSERT_GE(changes.size(), 2u);
    EXPECT_NEAR(changes[1].first - changes[0].first, 40.0, 0.5);
    sim.SetInput(PD5, true);
    seen.assign(1, coils());
    for (int i = 0; i < 45; ++i) {
        ASSERT_TRUE(sim.RunMs(1));
        if (seen.back() != coils())
            seen.push_back(coils());
    }
    EXPECT_EQ(seen, (std::vector<int>{0x3, 0x9, 0xC})) << "backward";
    sim.SetInput(PD4, false);
    ASSERT_TRUE(sim.RunMs(2));
    EXPECT_EQ(coils(), 0) << "coils off while Enable is off";
}

TEST(FamilyAnalogInput, ThresholdRows)
{
    CAvrSimulator sim;
    LOAD_LAYOUT(sim, "analog");
    struct
    {
        int Reading0, Reading1;
        bool Above800, Above300, Below512;
    } const cases[] = {{500, 511, false, true, true},
                       {800, 512, true, true, false},
                       {799, 0, false, true, true},
                       {299, 1023, false, false, false},
                       {300, 100, false, true, true}};
    for (const auto& c : cases) {
        sim.SetAnalogReading(0, c.Reading0);
        sim.SetAnalogReading(1, c.Reading1);
        ASSERT_TRUE(sim.RunMs(4));
        EXPECT_EQ(sim.Level(PB0), c.Above800) << c.Reading0;
        EXPECT_EQ(sim.Level(PB1), c.Above300) << c.Reading0;
        EXPECT_EQ(sim.Level(PB2), c.Below512) << c.Reading1;
    }
}
