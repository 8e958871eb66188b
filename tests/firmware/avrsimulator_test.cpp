// The harness on small hand-written programs: does it measure in simulated time what the
// program is known to do?
#include "firmwaretest.h"

#include <filesystem>
#include <fstream>

TEST(AvrSimulator, BlinkHasAOneSecondPeriod)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "blink");
    ASSERT_TRUE(sim.RunMs(3200)) << sim.Error();
    EXPECT_EQ(sim.Cycle() / sim.CyclesPerMs(), 3200u);

    const auto& changes = sim.Trace(PB5).Changes();
    ASSERT_GE(changes.size(), 6u);
    for (std::size_t i = 1; i < changes.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_NE(changes[i].High, changes[i - 1].High);
        EXPECT_NEAR(double(changes[i].Cycle - changes[i - 1].Cycle), double(sim.Ms(500)),
                    double(sim.Ms(1)));
    }
    EXPECT_NEAR(1000.0 / sim.Frequency(PB5, 0, 3200), 1000.0, 1.0);
    EXPECT_NEAR(sim.Duty(PB5, 500, 2500), 0.5, 0.01);
    EXPECT_EQ(sim.Pulses(PB5, 0, 3200), 3);
    EXPECT_EQ(sim.Level(PB5), changes.back().High);
    EXPECT_EQ(sim.LastChange(PB5), std::int64_t(changes.back().Cycle));
    // The other pins are left alone.
    EXPECT_EQ(sim.LastChange(PB1), -1);
    // Time advances exactly, in cycles.
    ASSERT_TRUE(sim.RunUs(250));
    EXPECT_NEAR(double(sim.Cycle()), double(sim.Ms(3200.25)), 4.0);
}

TEST(AvrSimulator, EchoAnswersEachByteAt1200Bps)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "echo");
    ASSERT_TRUE(sim.RunMs(1));
    sim.SendUart(std::string("AZ\x00\xfe", 4));
    // A frame is 10 bits at 1200 bps, 8.33 ms: four bytes cannot be back in under 33 ms.
    ASSERT_TRUE(sim.RunMs(30));
    EXPECT_LT(sim.UartOutput().size(), 4u);
    ASSERT_TRUE(sim.RunUntil([&] { return sim.UartOutput().size() >= 4; }, 100)) << sim.Error();
    EXPECT_EQ(sim.UartOutput(), std::string("B[\x01\xff", 4));

    sim.ClearUartOutput();
    sim.SendUart("0");
    ASSERT_TRUE(sim.RunMs(50));
    EXPECT_EQ(sim.UartOutput(), "1");
}

TEST(AvrSimulator, PwmDutyAndFrequency)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "pwm");
    ASSERT_TRUE(sim.RunMs(50));
    EXPECT_NEAR(sim.Duty(PB1, 10, 50), 0.25, 0.01);
    EXPECT_NEAR(sim.Frequency(PB1, 10, 50), 2000.0, 1.0);
    EXPECT_EQ(sim.Pulses(PB1, 10, 50), 80);
}

TEST(AvrSimulator, InputMirroredWithinAMillisecond)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "mirror");
    ASSERT_TRUE(sim.RunMs(1));
    // Open, the pull-up holds PD2 high.
    EXPECT_TRUE(sim.Level(PD2));
    EXPECT_TRUE(sim.Level(PB5));

    struct CStep
    {
        const char* Behaviour;
        int Drive; // 0 low, 1 high, -1 floating
        bool Expected;
    };
    const CStep steps[] = {
        {"driven low", 0, false},
        {"driven high", 1, true},
        {"low again", 0, false},
        {"released to the pull-up", -1, true},
    };
    for (const CStep& step : steps) {
        SCOPED_TRACE(step.Behaviour);
        const std::uint64_t at = sim.Cycle();
        const std::size_t edges = sim.Trace(PB0).Changes().size();
        if (step.Drive < 0)
            sim.FloatInput(PD2);
        else
            sim.SetInput(PD2, step.Drive == 1);
        // The program writes PORTD all the time; a driven input must stay driven.
        ASSERT_TRUE(sim.RunMs(5));
        EXPECT_EQ(sim.Level(PD2), step.Expected);
        EXPECT_EQ(sim.Level(PB5), step.Expected);
        ASSERT_GE(sim.LastChange(PB5), std::int64_t(at));
        EXPECT_LT(std::uint64_t(sim.LastChange(PB5)) - at, sim.Ms(1));
        // One edge in, one interrupt: the firmware's writes to PORTD make no glitch.
        EXPECT_EQ(sim.Trace(PB0).Changes().size(), edges + 1);
    }
}

TEST(AvrSimulator, AnalogReadingsConvertAsSet)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "adc");
    ASSERT_TRUE(sim.RunMs(1));
    const auto Convert = [&]() {
        sim.ClearUartOutput();
        sim.SendUart("?");
        const bool answered = sim.RunUntil([&] { return sim.UartOutput().size() >= 2; }, 100);
        const std::string& out = sim.UartOutput();
        return answered ? int(std::uint8_t(out[0])) << 8 | std::uint8_t(out[1]) : -1;
    };
    for (int reading : {0, 1, 2, 511, 512, 700, 1022, 1023}) {
        SCOPED_TRACE(reading);
        sim.SetAnalogReading(3, reading);
        EXPECT_EQ(Convert(), reading);
    }
    struct CRow
    {
        int Millivolts;
        int Reading;
    };
    for (const CRow row : {CRow{0, 0}, CRow{2500, 511}, CRow{5000, 1023}, CRow{9000, 1023}}) {
        SCOPED_TRACE(row.Millivolts);
        sim.SetAnalogMillivolts(3, row.Millivolts);
        EXPECT_EQ(Convert(), row.Reading);
    }
    // Another channel does not reach the one the program reads.
    sim.SetAnalogReading(3, 100);
    sim.SetAnalogReading(2, 900);
    EXPECT_EQ(Convert(), 100);
}

TEST(AvrSimulator, CrashedCoreIsAFault)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "crash");
    EXPECT_FALSE(sim.RunMs(10));
    EXPECT_FALSE(sim.IsRunning());
    EXPECT_NE(sim.Error().find("crashed"), std::string::npos) << sim.Error();
    EXPECT_NE(sim.Error().find("out of ram"), std::string::npos) << sim.Error();
    // It stays stopped rather than running on.
    const std::uint64_t at = sim.Cycle();
    EXPECT_FALSE(sim.RunMs(10));
    EXPECT_EQ(sim.Cycle(), at);
}

TEST(AvrSimulator, UnreadableHexFilesAreFaults)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / "quillon-avrsim-test";
    std::filesystem::create_directories(folder);
    struct CRow
    {
        const char* Behaviour;
        const char* Name;
        const char* Content; // nullptr: no file
        const char* Message;
    };
    const CRow rows[] = {
        {"missing", "missing.hex", nullptr, "no HEX file"},
        {"not Intel HEX", "text.hex", "hello\n", "does not read as Intel HEX"},
        {"bad checksum", "checksum.hex", ":0400000001020304F0\n:00000001FF\n",
         "does not read as Intel HEX"},
        // 16 bytes at 0x7ff8, past the 32 KiB of FLASH.
        {"larger than the FLASH", "large.hex",
         ":107FF8000000000000000000000000000000000079\n:00000001FF\n", "does not fit"},
    };
    for (const CRow& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        const std::filesystem::path path = folder / row.Name;
        std::filesystem::remove(path);
        if (row.Content)
            std::ofstream(path) << row.Content;
        CAvrSimulator sim(Uno());
        EXPECT_FALSE(sim.Load(path.string()));
        EXPECT_FALSE(sim.IsRunning());
        EXPECT_NE(sim.Error().find(row.Message), std::string::npos) << sim.Error();
        EXPECT_FALSE(sim.RunMs(1));
        EXPECT_FALSE(sim.Level(PB5));
        EXPECT_EQ(sim.LcdLine(0), std::string(16, ' '));
    }
    std::filesystem::remove_all(folder);
}

TEST(AvrSimulator, ReloadingStartsAfresh)
{
    CAvrSimulator sim(Uno());
    LOAD_PROGRAM(sim, "blink");
    ASSERT_TRUE(sim.RunMs(600));
    ASSERT_FALSE(sim.Trace(PB5).Changes().empty());
    LOAD_PROGRAM(sim, "echo");
    EXPECT_EQ(sim.Cycle(), 0u);
    EXPECT_TRUE(sim.Trace(PB5).Changes().empty());
    ASSERT_TRUE(sim.RunMs(1));
    sim.SendUart("a");
    ASSERT_TRUE(sim.RunMs(30));
    EXPECT_EQ(sim.UartOutput(), "b");
    // Pins outside the header are ignored.
    sim.SetInput(-1, true);
    sim.SetInput(Uno().PinCount(), true);
    sim.FloatInput(99);
    EXPECT_FALSE(sim.Level(Uno().PinCount()));
    EXPECT_EQ(sim.LastChange(-1), -1);
    EXPECT_TRUE(sim.RunMs(1));
}
