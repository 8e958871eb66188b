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
    const auto& changes = sim.Trace(PB5).Changes();
    ASSERT_GE(changes.size(), 6u);
    EXPECT_TRUE(changes[0].High);
    EXPECT_LT(changes[0].Cycle, CAvrSimulator::Ms(3));
    for (std::size_t i = 1; i < changes.size(); ++i)
        EXPECT_NEAR(double(changes[i].Cycle - changes[i - 1].Cycle) / CAvrSimulator::CyclesPerMs,
                    500.0, 0.5)
            << i;
    EXPECT_NEAR(sim.Frequency(PB5, 0, 3100), 1.0, 0.002);
}

TEST(Example, TrafficLightRedGreenYellow)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "traffic-light");
    // Red 3 s, green 3 s, yellow 1 s; exactly one lamp on at any time.
    ASSERT_TRUE(sim.RunMs(5));
    EXPECT_TRUE(sim.Level(PD2));
    for (int i = 0; i < 170; ++i) {
        ASSERT_TRUE(sim.RunMs(100));
        EXPECT_EQ(int(sim.Level(PD2)) + int(sim.Level(PD3)) + int(sim.Level(PD4)), 1)
            << sim.NowMs();
    }
    // The steady state from the second cycle: the on times of each lamp.
    struct
    {
        int Pin;
        double OnMs;
    } const lamps[] = {{PD2, 3000}, {PD4, 3000}, {PD3, 1000}};
    for (const auto& lamp : lamps) {
        const auto& changes = sim.Trace(lamp.Pin).Changes();
        int periods = 0;
        for (std::size_t i = 1; i < changes.size(); ++i) {
            if (changes[i].High || !changes[i - 1].High ||
                changes[i - 1].Cycle < CAvrSimulator::Ms(7000))
                continue;
            EXPECT_NEAR(double(changes[i].Cycle - changes[i - 1].Cycle) /
                            CAvrSimulator::CyclesPerMs,
                        lamp.OnMs, 1.0)
                << lamp.Pin;
            ++periods;
        }
        EXPECT_GE(periods, 1) << lamp.Pin;
        EXPECT_NEAR(sim.Duty(lamp.Pin, 7002, 14002), lamp.OnMs / 7000.0, 0.001) << lamp.Pin;
    }
}

TEST(Example, LatchKeepsTheLampOnUntilStop)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "latch");
    sim.SetInput(PD2, false);
    sim.SetInput(PD3, false);
    RunTo(sim, 50);
    EXPECT_FALSE(sim.Level(PB5));
    Pulse(sim, PD2, 40, 40);
    RunTo(sim, 600);
    EXPECT_TRUE(sim.Level(PB5)) << "stays on after the start key is released";
    Pulse(sim, PD3, 40, 40);
    EXPECT_FALSE(sim.Level(PB5));
    // A bounce shorter than the debounce time does not start it.
    Pulse(sim, PD2, 10, 50);
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

TEST(Example, SerialLampOnAndOff)
{
    CAvrSimulator sim;
    LOAD_EXAMPLE(sim, "serial-lamp");
    RunTo(sim, 10);
    EXPECT_FALSE(sim.Level(PB5));
    sim.SendUart("1");
    RunTo(sim, 40);
    EXPECT_TRUE(sim.Level(PB5));
    sim.SendUart("x");
    RunTo(sim, 70);
    EXPECT_TRUE(sim.Level(PB5)) << "another byte changes nothing";
    sim.SendUart("0");
    RunTo(sim, 100);
    EXPECT_FALSE(sim.Level(PB5));
    sim.SendUart("10");
    RunTo(sim, 150);
    EXPECT_FALSE(sim.Level(PB5));
    EXPECT_EQ(sim.Pulses(PB5, 100, 150), 1) << "on for the '1', off for the '0'";
}
