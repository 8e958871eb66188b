// Measuring a recorded pin: edges, duty and frequency over a window. (A pin stuck high and
// levels written again are measured in the simulator tests.)
#include "pintrace.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

// A pin that rises at each of the given cycles and falls `high` cycles later.
CPinTrace Pulsed(std::initializer_list<std::uint64_t> rises, std::uint64_t high)
{
    CPinTrace trace;
    for (std::uint64_t rise : rises) {
        trace.Record(rise, true);
        trace.Record(rise + high, false);
    }
    return trace;
}

} // namespace

TEST(AvrSimPinTrace, LevelAtATime)
{
    const CPinTrace trace = Pulsed({100}, 50);
    struct CRow
    {
        std::uint64_t Cycle;
        bool High;
    };
    for (const CRow row : {CRow{0, false}, CRow{99, false}, CRow{100, true}, CRow{149, true},
                           CRow{150, false}, CRow{1000, false}}) {
        SCOPED_TRACE(row.Cycle);
        EXPECT_EQ(trace.LevelAt(row.Cycle), row.High);
    }
    EXPECT_FALSE(CPinTrace().LastChange().has_value());
}

TEST(AvrSimPinTrace, Measures)
{
    // 25 high of every 100 cycles, from cycle 0 to 1000.
    const CPinTrace pwm = Pulsed({0, 100, 200, 300, 400, 500, 600, 700, 800, 900}, 25);
    struct CRow
    {
        const char* Behaviour;
        std::uint64_t From, To;
        int Pulses;
        double Duty;
        double Frequency; // at a 1000 Hz clock: one cycle a millisecond
    };
    const CRow rows[] = {
        {"whole periods", 0, 1000, 10, 0.25, 10.0},
        {"a window starting while high", 10, 110, 1, 0.25, 0.0},
        {"a window inside a high phase", 5, 20, 0, 1.0, 0.0},
        {"a window inside a low phase", 30, 90, 0, 0.0, 0.0},
        {"the end is not in the window", 0, 100, 1, 0.25, 0.0},
        {"two rises make one period", 0, 101, 2, 26.0 / 101, 10.0},
        {"an empty window", 500, 500, 0, 0.0, 0.0},
        {"after the last fall", 2000, 3000, 0, 0.0, 0.0},
    };
    for (const CRow& row : rows) {
        SCOPED_TRACE(row.Behaviour);
        EXPECT_EQ(pwm.Pulses(row.From, row.To), row.Pulses);
        EXPECT_NEAR(pwm.Duty(row.From, row.To), row.Duty, 1e-9);
        EXPECT_NEAR(pwm.Frequency(row.From, row.To, 1000.0), row.Frequency, 1e-9);
    }
}

// The editor keeps only a window of each trace: what it forgets leaves every level and
// measure from the cut on as it was.
TEST(AvrSimPinTrace, ForgettingKeepsTheLevelsAfterTheCut)
{
    CPinTrace trace = Pulsed({0, 100, 200, 300}, 25);
    trace.ForgetBefore(210);
    EXPECT_EQ(trace.Changes().size(), 4u) << "the fall at 225 and its rise at 200 stay";
    for (const std::uint64_t cycle : {210, 224, 225, 300, 330})
        EXPECT_EQ(trace.LevelAt(cycle), Pulsed({0, 100, 200, 300}, 25).LevelAt(cycle)) << cycle;
    EXPECT_DOUBLE_EQ(trace.Duty(210, 310), 0.25);
    trace.ForgetBefore(1000);
    EXPECT_EQ(trace.Changes().size(), 1u);
    EXPECT_FALSE(trace.LevelAt(1000));
}
