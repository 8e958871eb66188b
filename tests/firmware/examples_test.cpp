// The beginner's examples under examples/: each builds to a HEX
// file through the real pipeline and does in the simulator what its name promises.
#include "firmwaretest.h"

namespace {

std::string ExamplePath(const std::string& name)
{
    return std::string(QUILLON_EXAMPLES_FOLDER) + "/" + name + ".loc";
}

#define LOAD_EXAMPLE(simulator, name) LOAD_HEX(simulator, LayoutHex(ExamplePath(name)))

} // namespace

// A layout builds only after it passed the layout check, so each example that runs here
// also passes the check on the sample board.
TEST(Example, PushbuttonLampFollowsTheDebouncedKey)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "pushbutton-lamp");
    Play(sim, {{0, PD2, 0}, {10, PD2, 1}, {100, PD2, 0}}, 200);
    ExpectEdges(sim, PB5, 0, {{true, 30, 32}, {false, 120, 122}});
}

TEST(Example, BlinkerHasAOneSecondPeriod)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "blinker");
    ASSERT_TRUE(sim.RunMs(3100));
    ExpectGaps(sim, PB5, {500, 500, 500, 500, 500, 500});
    EXPECT_EQ(EdgeAfter(sim, PB5, 0, true), ChangesAfter(sim, PB5, 0).front().first);
    EXPECT_LT(ChangesAfter(sim, PB5, 0).front().first, 3.0);
}

// Red 3 s, green 3 s, yellow 1 s; exactly one lamp on at any time.
TEST(Example, TrafficLightRedGreenYellow)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "traffic-light");
    ASSERT_TRUE(sim.RunMs(5));
    EXPECT_TRUE(sim.Level(PD2));
    for (int i = 0; i < 150; ++i) {
        ASSERT_TRUE(sim.RunMs(100));
        EXPECT_EQ(int(sim.Level(PD2)) + int(sim.Level(PD3)) + int(sim.Level(PD4)), 1)
            << sim.NowMs();
    }
    // The second cycle, red from 7 s (the first starts a few ms after reset): each lamp's
    // on time and its place in the cycle.
    ExpectEdges(sim, PD2, 6990, {{true, 7002, 7004}, {false, 10002, 10004}, {true, 14002, 14004}});
    ExpectEdges(sim, PD4, 6990, {{true, 10002, 10004}, {false, 13002, 13004}});
    ExpectEdges(sim, PD3, 6990, {{false, 7002, 7004}, {true, 13002, 13004}, {false, 14002, 14004}});
}

TEST(Example, LatchKeepsTheLampOnUntilStop)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "latch");
    Play(sim, {{0, PD2, 0}, {0, PD3, 0}}, 50);
    EXPECT_FALSE(sim.Level(PB5));
    Pulse(sim, PD2, 40, 40);
    RunTo(sim, 600);
    EXPECT_TRUE(sim.Level(PB5)) << "stays on after the start key is released";
    Pulse(sim, PD3, 40, 40);
    EXPECT_FALSE(sim.Level(PB5));
}

TEST(Example, CounterDisplayShowsPressesModuloTen)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "counter-display");
    sim.SetInput(PB2, false);
    RunTo(sim, 30);
    EXPECT_EQ(Segments(sim), kFont[0]);
    for (int presses = 1; presses <= 13; ++presses) {
        Pulse(sim, PB2, 40, 40);
        EXPECT_EQ(Segments(sim), kFont[presses % 10]) << presses;
    }
}

// "1" turns the lamp on, "0" off, any other byte changes nothing.
TEST(Example, SerialLampOnAndOff)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "serial-lamp");
    for (const auto& [ms, bytes] : {std::pair{10, "1"}, {40, "x"}, {70, "0"}, {100, "10"}}) {
        RunTo(sim, ms);
        sim.SendUart(bytes);
    }
    RunTo(sim, 150);
    ExpectLevels(sim, PB5, {{10, false}, {40, true}, {70, true}, {100, false}, {150, false}});
    EXPECT_EQ(sim.Pulses(PB5, 100, 150), 1) << "on for the '1', off for the '0'";
}
