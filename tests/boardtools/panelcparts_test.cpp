// The panel compiler's parts that decide numbers and texts, without running it.
#include "avrwave.h"
#include "linevalues.h"
#include "outputwriter.h"
#include "panelcarguments.h"
#include "panelname.h"

#include <gtest/gtest.h>

TEST(AvrWave, TheSmallestPrescalerThatReachesTheFrequency)
{
    const struct
    {
        const char* Name;
        int Timer;
        int Frequency;
        int Prescale; // clock select bits; 0: not reachable
        int Top;
    } cases[] = {
        {"highest PWM frequency, full 8-bit steps", 1, 62500, 1, 255},
        {"1 kHz on timer 1 without prescaling", 1, 1000, 1, 15999},
        {"lowest PWM frequency needs clock/8", 1, 31, 2, 64515},
        {"below what clock/1024 reaches on timer 1", 1, 0, 0, 0},
        {"buzzer tones on timer 2 are exact: 2000 Hz, clock/32", 2, 2000, 3, 249},
        {"1000 Hz, clock/64", 2, 1000, 4, 249},
        {"500 Hz, clock/128", 2, 500, 5, 249},
        {"timer 2 cannot go below 61 Hz", 2, 31, 0, 0},
        {"too fast for any duty", 1, 5000000, 0, 0},
        {"timer 0 gives the tick, not waves", 0, 1000, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        const std::optional<CAvrWave> wave = CAvrWave::For(c.Timer, 16000000L, c.Frequency);
        ASSERT_EQ(wave.has_value(), c.Prescale != 0);
        if (wave) {
            EXPECT_EQ(std::pair(wave->Prescale(), wave->Top()), std::pair(c.Prescale, c.Top));
        }
    }
}

TEST(AvrWave, DutyLevelsKeepTheEndsExact)
{
    const CAvrWave wave = *CAvrWave::For(2, 16000000L, 1000); // top 249
    const std::pair<int, int> levels[] = {{0, 0},   {100, 250}, {50, 125},
                                          {25, 63}, {1, 3},     {99, 248}};
    for (const auto& [percent, level] : levels)
        EXPECT_EQ(wave.Level(percent), level) << percent << "%";
    EXPECT_EQ(wave.Arguments(50), "4, 249, 125");
    // A duty that rounds to nothing still shows, one that rounds to all still drops.
    const CAvrWave fast = *CAvrWave::For(1, 16000000L, 62500); // top 255
    EXPECT_EQ(fast.Level(0), 0);
    EXPECT_GE(fast.Level(1), 1);
    EXPECT_LE(fast.Level(99), fast.Top());
}

TEST(LineValues, TimesAreReadTheWayTheTimerDialogReadsThem)
{
    const struct
    {
        const char* Token;
        long Milliseconds;
    } cases[] = {{"1.50S", 1500}, {"90.45S", 90450},       {"0.05S", 50}, {"2.5S", 2500},
                 {"3", 3000},     {"32399.00S", 32399000}, {"", 0},       {"1199.95S", 1199950}};
    for (const auto& c : cases)
        EXPECT_EQ(CLineValues::Milliseconds(c.Token), c.Milliseconds) << c.Token;
    EXPECT_EQ(CLineValues::TimeConstant(65535), "65535u");
    EXPECT_EQ(CLineValues::TimeConstant(65536), "65536UL");
}

TEST(PanelcArguments, TheBuildsCommandLineAndWhatIsRefused)
{
    const struct
    {
        const char* Name;
        const char* Args;
        int Clock; // -1: refused
    } rows[] = {
        {"as the build gives it", "/w/a.loc -o /out -w /w -x 16 -y 40 -c1", 1},
        {"no clock source", "/w/a.loc -w /w", 0},
        {"unset clock source", "/w/a.loc -w /w -c0", 0},
        {"no work folder", "/w/a.loc -o /out", -1},
        {"no location file", "-w /w", -1},
        {"two location files", "/w/a.loc /w/b.loc -w /w", -1},
        {"an option without its value", "/w/a.loc -w", -1},
        {"a clock that is no number", "/w/a.loc -w /w -cx", -1},
        {"an unknown option", "/w/a.loc -w /w -z", -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        CPanelcArguments parsed;
        QString error;
        EXPECT_EQ(CPanelcArguments::Parse(QString(row.Args).split(u' '), parsed, error),
                  row.Clock >= 0);
        EXPECT_EQ(error.isEmpty(), row.Clock >= 0);
        if (row.Clock >= 0) {
            EXPECT_EQ(QStringList({parsed.LocationFile, parsed.WorkFolder,
                                   QString::number(parsed.ClockSource)}),
                      QStringList({"/w/a.loc", "/w", QString::number(row.Clock)}));
        }
    }
}

TEST(PanelName, ListsReadAsASentence)
{
    EXPECT_EQ(CPanelName::List({"[A(1,1)]"}), "[A(1,1)]");
    EXPECT_EQ(CPanelName::List({"[A(1,1)]", "[B(2,1)]"}), "[A(1,1)] and [B(2,1)]");
    EXPECT_EQ(CPanelName::List({"[A]", "[B]", "[C]", "[D]"}), "[A], [B], [C] and [D]");
}

TEST(LcdBytes, WhatTheDisplaysCharacterSetCanShow)
{
    const std::pair<const char*, QByteArray> rows[] = {
        {"Hello, 1+1=2", "Hello, 1+1=2"},            // ASCII as it is
        {"ｱｲｳﾟ", "\xB1\xB2\xB3\xDF"},                // half-width katakana in the display's codes
        {"¥100", QByteArray("\x5C") + "100"},        // the yen sign where ASCII has the backslash
        {"é漢", "??"},                               // what the display lacks
        {"0123456789abcdefXYZ", "0123456789abcdef"}, // sixteen characters at most
    };
    for (const auto& [text, bytes] : rows)
        EXPECT_EQ(COutputWriter::LcdBytes(QString::fromUtf8(text)), bytes) << text;
}
