// Every panel family the sample board offers, built from a layout by the real pipeline
// (quillon-cli, the panel compiler, avr-gcc) and run in the simulator against what
// docs/panels.md says the panel does. Times are simulated; the scan is 1 ms.
#include "firmwaretest.h"

#include <array>
#include <cmath>
#include <functional>
#include <span>

namespace {

// What each digit of the four-digit display shows, as the engine decodes it from the pins:
// 5 ms shows each digit at least once.
std::array<int, 4> FourDigits(CAvrSimulator& sim)
{
    EXPECT_TRUE(sim.RunMs(5));
    return {sim.Digit(0), sim.Digit(1), sim.Digit(2), sim.Digit(3)};
}

// The distinct values `read` gives, a millisecond apart, over `ms`, starting with the present.
std::vector<int> Sequence(CAvrSimulator& sim, const std::function<int()>& read, int ms)
{
    std::vector<int> seen{read()};
    for (int i = 0; i < ms; ++i) {
        EXPECT_TRUE(sim.RunMs(1));
        if (seen.back() != read())
            seen.push_back(read());
    }
    return seen;
}

// Four coils as one number, the first pin bit 0.
std::function<int()> Coils(CAvrSimulator& sim, int first)
{
    return [&sim, first] {
        int coils = 0;
        for (int coil = 0; coil < 4; ++coil)
            coils |= int(sim.Level(first + coil)) << coil;
        return coils;
    };
}

} // namespace

// Key (debounced), digital input, gates, jumps and an active-low switch and lamp.
TEST(FamilyGates, TruthTablesThroughJumps)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "gates");
    for (const auto& [a, b] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        SCOPED_TRACE(testing::Message() << "a=" << a << " b=" << b);
        sim.SetInput(PD2, a);
        sim.SetInput(PD3, b);
        ASSERT_TRUE(sim.RunMs(30));
        EXPECT_EQ(sim.Level(PB0), a && b) << "AND";
        EXPECT_EQ(sim.Level(PB1), a || b) << "OR";
        EXPECT_EQ(sim.Level(PB2), a != b) << "XOR";
        EXPECT_EQ(sim.Level(PB3), !a) << "NOT R";
        EXPECT_EQ(sim.Level(PC2), !a) << "NOT D";
        EXPECT_TRUE(sim.Level(PB4)) << "ON";
        EXPECT_FALSE(sim.Level(PC1)) << "OFF";
    }
}

TEST(FamilyGates, KeyIsDebouncedFor20Ms)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "gates");
    Play(sim, {{0, PD2, 0}, {0, PD3, 1}}, 50);
    // A bouncing contact never keeps its level for 20 ms: the AND stays off.
    for (int i = 0; i < 6; ++i)
        Pulse(sim, PD2, 15, 3);
    EXPECT_TRUE(sim.Trace(PB0).Changes().empty());
    Play(sim, {{200, PD2, 1}}, 260);
    ExpectEdges(sim, PB0, 200, {{true, 219, 222}});
    // The digital input is not debounced: B off turns the AND off within a scan.
    Play(sim, {{260, PD3, 0}}, 262);
    EXPECT_FALSE(sim.Level(PB0));
}

// The scan reads the pins once a millisecond, so a pulse a little under 20 ms can still be
// seen by 20 reads. Each pulse here starts a quarter of a millisecond before a read: 19.5 ms
// then spans 20 reads and 20.5 ms spans 21, and only the second has held for 20 ms.
TEST(FamilyGates, KeyTakesALevelOnlyAfterItHeld20Ms)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "gates");
    // When the scan reads: the digital input reaches its active-low output (PC3) in the
    // scan that read it, a few microseconds after the read.
    Play(sim, {{0, PD2, 0}, {0, PD3, 1}, {10, PD3, 0}, {15, PD3, 1}}, 16);
    const std::optional<double> read = EdgeAfter(sim, PC3, 10, true);
    ASSERT_TRUE(read);
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
        Play(sim, {{start, PD2, !row.Pressed}, {start + row.Ms, PD2, row.Pressed}},
             start + row.Ms + 30);
        EXPECT_EQ(EdgeAfter(sim, PB0, start, !row.Pressed).has_value(), row.Taken);
    }
}

// The simulator records an output from its first change after the pin became an output, so
// the active-low lamp is watched through a full off-on cycle.
TEST(FamilyGates, ActiveLowSwitchWithPullUpAndActiveLowOutputs)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "gates");
    // The switch: closed is on (the lamp pin low), open reads high through the pull-up.
    // The digital output (PC3, active low) follows the digital input PD3 through a jump.
    Play(sim, {{0, PD3, 1}, {5, PD4, 0}, {20, PD3, 0}, {40, PD3, 1}, {50, PD4, -1}, {100, PD4, 0}},
         150);
    ExpectEdges(sim, PB5, 30, {{true, 69, 72}, {false, 119, 122}});
    ExpectEdges(sim, PC3, 10, {{true, 20, 21}, {false, 40, 41}});
}

TEST(FamilyWires, CrossingCornersAndBranchesKeepTheirSignals)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "wires");
    for (const auto& [a, b, c] :
         {std::array{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}, {0, 0, 0}}) {
        SCOPED_TRACE(testing::Message() << a << b << c);
        sim.SetInput(PD2, a);
        sim.SetInput(PD3, b);
        sim.SetInput(PD4, c);
        ASSERT_TRUE(sim.RunMs(3));
        EXPECT_EQ(sim.Level(PB0), a) << "branch L-R-D, run on";
        EXPECT_EQ(sim.Level(PB1), b) << "crossing L-R";
        EXPECT_EQ(sim.Level(PB2), a) << "crossing U-D, branch U-D-R";
        EXPECT_EQ(sim.Level(PB3), a) << "two corners U-R";
        EXPECT_EQ(sim.Level(PB4), c) << "two corners L-D, corner U-R";
    }
}

// One-shot (PD2 to PB0), retriggerable one-shot (PD3, PB1), hold (PD4, PB2), toggle
// (PD5, PB3) and delay (PD6, PB4), side by side. Edges come at the same point of a scan, so
// the times between them are whole milliseconds.
TEST(FamilyTimers, EachKindKeepsItsTime)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "timers");
    Play(sim,
         {{0, PD2, 0},   {0, PD3, 0},   {0, PD4, 0},   {0, PD5, 0},   {0, PD6, 0},   {10, PD2, 1},
          {10, PD3, 1},  {10, PD4, 1},  {10, PD5, 1},  {10, PD6, 1},  {15, PD3, 0},  {20, PD2, 0},
          {60, PD6, 0},  {100, PD2, 1}, {110, PD2, 0}, {200, PD4, 0}, {200, PD6, 1}, {300, PD3, 1},
          {305, PD3, 0}, {500, PD6, 0}, {530, PD6, 1}, {700, PD6, 0}, {900, PD5, 0}},
         1300);
    // One pulse of the set time: the level after the edge and an edge during it do not count.
    ExpectEdges(sim, PB0, 0, {{true, 10, 12}, {false, 510, 512}});
    ExpectGaps(sim, PB0, {500});
    // Started again at the second edge.
    ExpectEdges(sim, PB1, 0, {{true, 10, 12}, {false, 800, 802}});
    ExpectGaps(sim, PB1, {790});
    // On for the set time after the input turned off.
    ExpectEdges(sim, PB2, 0, {{true, 10, 12}, {false, 500, 502}});
    // Flashes while the input is on, and is off at once when it turns off mid-phase.
    ExpectEdges(sim, PB3, 0,
                {{true, 10, 12},
                 {false, 210, 212},
                 {true, 410, 412},
                 {false, 610, 612},
                 {true, 810, 812},
                 {false, 900, 902}});
    // Both edges delayed; a 50 ms pulse and a 30 ms gap, shorter than 0.10 s, are dropped.
    ExpectEdges(sim, PB4, 0, {{true, 300, 302}, {false, 800, 802}});
}

// RS (PD2 reset, PD3 set, to PB0), D (PD4 clock, PD5 data, PB1), T (PD6 reset, PD7 toggle, PB2).
TEST(FamilyFlipFlops, EachKindKeepsItsState)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "flipflops");
    Play(sim, {{0, PD2, 0},  {0, PD3, 0},  {0, PD4, 0},  {0, PD5, 1},  {0, PD6, 0},  {0, PD7, 0},
               {10, PD3, 1}, {10, PD7, 1}, {15, PD7, 0}, {20, PD3, 0}, {20, PD4, 1}, {23, PD5, 0},
               {30, PD7, 1}, {35, PD7, 0}, {40, PD2, 1}, {40, PD4, 0}, {45, PD4, 1}, {48, PD5, 1},
               {50, PD2, 0}, {50, PD7, 1}, {55, PD7, 0}, {60, PD2, 1}, {60, PD3, 1}, {70, PD6, 1},
               {73, PD7, 1}, {80, PD2, 0}, {80, PD7, 0}, {85, PD6, 0}, {90, PD7, 1}},
         95);
    // Keeps the set; both on: the reset wins.
    ExpectLevels(sim, PB0, {{10, false}, {40, true}, {60, false}, {80, false}, {83, true}});
    // Takes the data at a rising clock edge only: not before the first edge, not on data
    // changes between edges, not while the clock stays high.
    ExpectLevels(sim, PB1, {{20, false}, {23, true}, {40, true}, {48, false}, {60, false}});
    // Toggles at each rising edge, ignores them during the reset, and starts from off.
    ExpectLevels(
        sim, PB2,
        {{20, true}, {40, false}, {60, true}, {73, false}, {85, false}, {90, false}, {95, true}});
}

// A cyclic counter (PD2 reset, PD3 count; rows of 3 and 2 on PB0, PB1) and a holding one
// (PD4 reset, PD5 count; rows of 4, 2 and 0 on PB2, PB3, PB4), counted side by side.
TEST(FamilyCounter, CyclicWrapsToOneAndHoldStopsAtTheLargestValue)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "counters");
    Play(sim, {{0, PD2, 0}, {0, PD3, 0}, {0, PD4, 0}, {0, PD5, 0}}, 10);
    EXPECT_FALSE(sim.Level(PB0) || sim.Level(PB1));
    EXPECT_TRUE(sim.Level(PB4)) << "a value of 0 is reached from the start";
    int count = 0;
    for (const int cyclic : {1, 2, 3, 1, 2, 3, 1}) {
        sim.SetInput(PD5, true);
        Pulse(sim, PD3, 5, 5);
        sim.SetInput(PD5, false);
        ++count;
        ASSERT_TRUE(sim.RunMs(5));
        EXPECT_EQ(sim.Level(PB0), cyclic >= 3) << cyclic;
        EXPECT_EQ(sim.Level(PB1), cyclic >= 2) << cyclic;
        EXPECT_EQ(sim.Level(PB2), count >= 4) << count;
        EXPECT_EQ(sim.Level(PB3), count >= 2) << count;
        EXPECT_TRUE(sim.Level(PB4));
    }
    sim.SetInput(PD2, true);
    sim.SetInput(PD4, true);
    ASSERT_TRUE(sim.RunMs(3));
    EXPECT_FALSE(sim.Level(PB2) || sim.Level(PB3));
    EXPECT_TRUE(sim.Level(PB4));
    Pulse(sim, PD3, 5, 0); // not counted during reset
    sim.SetInput(PD2, false);
    ASSERT_TRUE(sim.RunMs(5));
    Pulse(sim, PD3, 5, 5);
    Pulse(sim, PD3, 5, 5);
    EXPECT_TRUE(sim.Level(PB1)) << "count 2 after the reset";
    EXPECT_FALSE(sim.Level(PB0));
}

// The buzzer (rows of 2000, 1000 and 500 Hz on PD2, PD4, PD5, sounding on PD3), the PWM
// output (rows of 75 and 25 % on PD6, PD7, 1 kHz on PB2) and the pulse output (rows of 100,
// 75, 50, 25 and 0 % on PB0, PB1, PB3, PB4, PB5, a 4 ms period on PC1), side by side: the
// topmost row that is on chooses, whatever rows below it are on too.
TEST(FamilyWaves, TopmostRowChoosesToneDutyAndPulse)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "waves");
    const int buzzer[] = {PD2, PD4, PD5}, pwm[] = {PD6, PD7}, pulse[] = {PB0, PB1, PB3, PB4, PB5};
    const auto set = [&sim](std::span<const int> pins, const char* levels) {
        for (std::size_t i = 0; i < pins.size(); ++i)
            sim.SetInput(pins[i], levels[i] == '1');
    };
    set(buzzer, "000"), set(pwm, "00"), set(pulse, "00000");
    RunTo(sim, 20);
    EXPECT_EQ(sim.Pulses(PD3, 0, 20), 0) << "silent";
    EXPECT_FALSE(sim.Level(PB2) || sim.Level(PC1)) << "no row on: 0 %, pin low";
    const struct
    {
        const char* Buzzer;
        double Hz;
        const char* Pwm;
        int Percent;
        const char* Pulse;
        int PulsePercent;
    } rows[] = {{"001", 500, "01", 25, "10100", 100}, {"011", 1000, "11", 75, "01010", 75},
                {"111", 2000, "10", 75, "00101", 50}, {"100", 2000, "00", 0, "00010", 25},
                {"010", 1000, "01", 25, "00001", 0},  {"000", 0, "00", 0, "00000", 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.Buzzer << " " << row.Pwm << " " << row.Pulse);
        set(buzzer, row.Buzzer), set(pwm, row.Pwm), set(pulse, row.Pulse);
        const double from = sim.NowMs() + 5;
        ASSERT_TRUE(sim.RunMs(45));
        const double to = sim.NowMs();
        if (row.Hz == 0) {
            EXPECT_EQ(sim.Pulses(PD3, from, to), 0);
        } else {
            EXPECT_NEAR(sim.Frequency(PD3, from, to), row.Hz, row.Hz * 0.005);
            EXPECT_NEAR(sim.Duty(PD3, from, to), 0.5, 0.05);
        }
        EXPECT_NEAR(sim.Duty(PB2, from, to), row.Percent / 100.0, row.Percent ? 0.01 : 0.0);
        if (row.Percent > 0) {
            EXPECT_NEAR(sim.Frequency(PB2, from, to), 1000.0, 1.0);
        }
        EXPECT_NEAR(sim.Duty(PC1, from, to), row.PulsePercent / 100.0, 0.02);
        if (row.PulsePercent > 0 && row.PulsePercent < 100) {
            EXPECT_NEAR(sim.Frequency(PC1, from, to), 250.0, 1.0);
        }
    }
}

TEST(FamilySerialReceive, CompareRowIsOnForExactlyOneScan)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "serialcompare");
    RunTo(sim, 10);
    sim.SendUart(std::string(1, char(200)));
    RunTo(sim, 40);
    ExpectGaps(sim, PB0, {1.0}, 0.05);
    EXPECT_EQ(sim.Pulses(PB1, 0, 40), 0) << "200 is not the row of 17";
    EXPECT_FALSE(sim.Level(PB2));

    sim.SendUart(std::string(1, char(17)));
    RunTo(sim, 200);
    ExpectGaps(sim, PB1, {100.0});

    // 5, 99, 5 a frame apart: 99 matches no row, so the flip-flop stays on for two frames.
    sim.SendUart(std::string("\x05\x63\x05", 3));
    ASSERT_TRUE(sim.RunUntil([&] { return sim.Level(PB2); }, 60));
    const double on = sim.NowMs();
    ASSERT_TRUE(sim.RunUntil([&] { return !sim.Level(PB2); }, 60));
    const double frameMs = 10000.0 / Uno().Baud;
    EXPECT_NEAR(sim.NowMs() - on, 2 * frameMs, 1.2);
    EXPECT_EQ(sim.Pulses(PB0, 40, sim.NowMs()), 0);
    EXPECT_EQ(sim.Pulses(PB1, 200, sim.NowMs()), 0);
}

// Receiving: bits 7, 6 and 5 of the last byte on PB0, PB1, PB2, kept until the next byte.
// Sending: bit 0 on PD2, bit 7 on PD3, bit 3 on PD5 ORed with a bit 3 fed by ON; PD4 sends.
TEST(FamilySerialBits, RowsShowTheLastByteAndEachRisingEdgeSendsOne)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "serialbits");
    Play(sim, {{0, PD4, 0}, {0, PD2, 1}, {0, PD3, 0}, {0, PD5, 0}}, 10);
    EXPECT_EQ(sim.UartOutput(), "");
    sim.SendUart(std::string(1, char(0xA0)));
    Play(sim, {{10, PD4, 1}, {40, PD4, 0}, {40, PD2, 0}, {40, PD3, 1}, {40, PD5, 1}}, 60);
    EXPECT_EQ(sim.UartOutput(), "\x09") << "a falling edge sends nothing";
    // Two edges a byte time apart: two bytes, each with the bits at its own edge.
    sim.ClearUartOutput();
    Pulse(sim, PD4, 5, 5);
    sim.SetInput(PD2, true);
    Pulse(sim, PD4, 5, 5);
    RunTo(sim, 100);
    EXPECT_EQ(sim.UartOutput(), "\x88\x89");
    sim.SendUart(std::string(1, char(0x5F)));
    RunTo(sim, 130);
    ExpectLevels(sim, PB0, {{40, true}, {100, true}, {130, false}});
    ExpectLevels(sim, PB1, {{40, false}, {130, true}});
    ExpectLevels(sim, PB2, {{40, true}, {100, true}, {130, false}});
}

TEST(FamilyLcd, TextAppearsWithin34MsOfTheEdge)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "lcd");
    Play(sim, {{0, PD2, 0}}, 150);
    EXPECT_EQ(sim.LcdLine(1), std::string(16, ' '));
    Play(sim, {{150, PD2, 1}}, 152);
    EXPECT_NE(sim.LcdLine(1), "Hello Quillon 16") << "one character a millisecond";
    // The lower line's last column is the refresh's last position before it starts over.
    RunTo(sim, 186);
    EXPECT_EQ(sim.LcdLine(1), "Hello Quillon 16");
    EXPECT_EQ(sim.LcdLine(0), std::string(16, ' '));
}

// Decoders on PB2..PB5 of a one-digit display, each row its inputs and the segments shown.
TEST(FamilySevenSegment, OneDigitDecoders)
{
    const struct
    {
        const char* Layout;
        const char* Behaviour;
        std::vector<std::pair<std::array<int, 4>, int>> Rows;
    } layouts[] = {
        // Digits 3, 7, a bit decoder and a 12; the largest digit wins, the others do nothing.
        {"sevenseg-digit",
         "digit decoders, largest wins",
         {{{0, 0, 0, 0}, 0},
          {{1, 0, 0, 0}, kFont[3]},
          {{1, 1, 0, 0}, kFont[7]},
          {{0, 0, 1, 0}, 0},
          {{0, 0, 0, 1}, 0},
          {{0, 1, 1, 1}, kFont[7]}}},
        // Segments a, g, dp and a digit 8 that a segment display ignores: they add up.
        {"sevenseg-segment",
         "segment decoders add up",
         {{{0, 0, 0, 0}, 0},
          {{1, 0, 0, 0}, 0x01},
          {{1, 1, 0, 0}, 0x41},
          {{1, 1, 1, 0}, 0xC1},
          {{0, 0, 0, 1}, 0}}},
    };
    for (const auto& layout : layouts) {
        SCOPED_TRACE(layout.Behaviour);
        CAvrSimulator sim(Uno());
        LOAD_LAYOUT(sim, layout.Layout);
        for (const auto& [inputs, pattern] : layout.Rows) {
            for (int input = 0; input < 4; ++input)
                sim.SetInput(PB2 + input, inputs[input]);
            ASSERT_TRUE(sim.RunMs(5));
            EXPECT_EQ(Segments(sim), pattern) << inputs[0] << inputs[1] << inputs[2] << inputs[3];
        }
    }
}

TEST(FamilySevenSegment, FourDigitsByBitShowLeadingZeros)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "sevenseg4-bit");
    // bits 0, 2, 5, 15 on PB2, PC1, PC2, PC3
    Play(sim, {{0, PB2, 1}, {0, PC1, 0}, {0, PC2, 1}, {0, PC3, 0}}, 20);
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{kFont[0], kFont[0], kFont[2], kFont[1]}))
        << "0x0021";
    Play(sim, {{0, PB2, 0}, {0, PC1, 1}, {0, PC2, 0}, {0, PC3, 1}}, sim.NowMs() + 5);
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
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "sevenseg4-digit");
    // 7S4_D 1234 on PB2, 7S4_D 7 on PC1, a segment decoder on PC2
    Play(sim, {{0, PB2, 0}, {0, PC1, 1}, {0, PC2, 1}}, 20);
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{0, 0, 0, kFont[7]}));
    Play(sim, {{0, PB2, 1}}, sim.NowMs() + 5);
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{kFont[1], kFont[2], kFont[3], kFont[4]}));
    Play(sim, {{0, PB2, 0}, {0, PC1, 0}}, sim.NowMs() + 5);
    EXPECT_EQ(FourDigits(sim), (std::array<int, 4>{0, 0, 0, 0})) << "no digit decoder on: blank";
}

TEST(FamilySteppingMotor, OnePhaseStepsEverySpeedMs)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "motors");
    const auto coils = Coils(sim, PB0);
    Play(sim, {{0, PD2, 0}, {0, PD3, 0}}, 10);
    EXPECT_EQ(coils(), 0);
    Play(sim, {{10, PD2, 1}}, 13);
    EXPECT_EQ(coils(), 0x1) << "A at once";
    // Forward: A, B, A', B', A, one step every 10 ms.
    const std::vector<int> forward = Sequence(sim, coils, 45);
    EXPECT_EQ(forward, (std::vector<int>{0x1, 0x2, 0x4, 0x8, 0x1}));
    const auto changes = ChangesAfter(sim, PB0, 0);
    ASSERT_GE(changes.size(), 3u);
    EXPECT_NEAR(changes[2].first - changes[0].first, 40.0, 0.5) << "A again after four steps";
    Play(sim, {{0, PD2, 0}}, sim.NowMs() + 3);
    EXPECT_EQ(coils(), 0);
    Play(sim, {{0, PD3, 1}, {0, PD2, 1}}, sim.NowMs() + 3);
    EXPECT_EQ(coils(), forward.back()) << "goes on from where it stopped";
    EXPECT_EQ(Sequence(sim, coils, 35), (std::vector<int>{0x1, 0x8, 0x4, 0x2})) << "backward";
}

TEST(FamilyMotorDriver, TwoPhaseCoilsOnA2ToA5)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "motordriver");
    const auto coils = Coils(sim, PC2);
    Play(sim, {{0, PD4, 0}, {0, PD5, 0}}, 10);
    EXPECT_EQ(coils(), 0);
    Play(sim, {{10, PD4, 1}}, 12);
    EXPECT_EQ(coils(), 0x3) << "AB in the same scan";
    EXPECT_EQ(Sequence(sim, coils, 90), (std::vector<int>{0x3, 0x6, 0xC, 0x9, 0x3}));
    ExpectGaps(sim, PC4, {40}); // A' on at step 2, off at step 4
    sim.SetInput(PD5, true);
    EXPECT_EQ(Sequence(sim, coils, 45), (std::vector<int>{0x3, 0x9, 0xC})) << "backward";
    sim.SetInput(PD4, false);
    ASSERT_TRUE(sim.RunMs(2));
    EXPECT_EQ(coils(), 0) << "coils off while Enable is off";
}

TEST(FamilyAnalogInput, ThresholdRows)
{
    CAvrSimulator sim(Uno());
    LOAD_LAYOUT(sim, "analog");
    // Readings of channels 0 and 1; rows "above 800" and "above 300" of channel 0 on PB0, PB1
    // and "below 512" of channel 1 on PB2.
    for (const auto& [reading0, reading1, above800, above300, below512] :
         {std::array{500, 511, 0, 1, 1},
          {800, 512, 1, 1, 0},
          {799, 0, 0, 1, 1},
          {299, 1023, 0, 0, 0},
          {300, 100, 0, 1, 1}}) {
        SCOPED_TRACE(testing::Message() << reading0 << ", " << reading1);
        sim.SetAnalogReading(0, reading0);
        sim.SetAnalogReading(1, reading1);
        ASSERT_TRUE(sim.RunMs(4));
        EXPECT_EQ(sim.Level(PB0), above800);
        EXPECT_EQ(sim.Level(PB1), above300);
        EXPECT_EQ(sim.Level(PB2), below512);
    }
}
