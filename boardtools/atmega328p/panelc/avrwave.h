#pragma once

#include <QString>

#include <optional>

// One setting of a hardware timer in fast PWM: the clock select bits and the top count
// that give a frequency, and the levels that give a duty. Timer 1 counts to 65535 with
// the prescalers 1, 8, 64, 256, 1024; timer 2 to 255 with 1, 8, 32, 64, 128, 256, 1024.
class CAvrWave
{
  public:
    // The setting nearest the frequency, using the smallest prescaler that reaches it (the
    // finest duty steps); nullopt when the timer cannot make it.
    static std::optional<CAvrWave> For(int timer, long clock, int frequency);

    int Prescale() const { return m_prescale; }
    int Top() const { return m_top; }
    // High counts of every Top() + 1: 0 is a low pin, Top() + 1 a high one.
    int Level(int percent) const;
    // The arguments of the run-time's wave function for a duty.
    QString Arguments(int percent) const;

  private:
    int m_prescale = 0;
    int m_top = 0;
};
