#pragma once

#include "pintrace.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// An ATmega328P at 16 MHz running a HEX file in simulated time, wired as the board is:
// pins by their header number (0-7 PD0-PD7, 8-13 PB0-PB5, 14-19 PC0-PC5), USART0 at
// 1200 bps, the ADC, and an HD44780 display on RS=PB0, E=PB1, D4..D7=PD4..PD7.
// Faults (a HEX file that does not read, a crashed core) are return values with Error().
class CAvrSimulator
{
  public:
    static constexpr std::uint64_t ClockHz = 16000000;
    static constexpr std::uint64_t CyclesPerMs = ClockHz / 1000;
    static constexpr std::uint64_t CyclesPerUs = ClockHz / 1000000;
    static constexpr int PinCount = 20;
    static constexpr int AnalogChannels = 8;
    static constexpr int UartBaud = 1200;

    static constexpr std::uint64_t Ms(double ms)
    {
        return std::uint64_t(ms * double(CyclesPerMs) + 0.5);
    }
    static constexpr std::uint64_t Us(double us)
    {
        return std::uint64_t(us * double(CyclesPerUs) + 0.5);
    }

    CAvrSimulator();
    ~CAvrSimulator();
    CAvrSimulator(const CAvrSimulator&) = delete;
    CAvrSimulator& operator=(const CAvrSimulator&) = delete;

    // A fresh core with the program in its FLASH, at cycle 0, every input floating.
    bool Load(const std::string& hexPath);
    const std::string& Error() const;
    // False before a successful Load and once the core crashed or stopped.
    bool IsRunning() const;

    // Simulated time; false (Error() says why) when the core stops on the way.
    bool RunCycles(std::uint64_t cycles);
    bool RunMs(double ms) { return RunCycles(Ms(ms)); }
    bool RunUs(double us) { return RunCycles(Us(us)); }
    // Runs until done() holds, checked every 100 us; false when it does not within limitMs.
    bool RunUntil(const std::function<bool()>& done, double limitMs);
    std::uint64_t Cycle() const;
    double NowMs() const;

    // Inputs. A floating pin reads high when the firmware turned its pull-up on.
    void SetInput(int pin, bool high);
    void FloatInput(int pin);

    // What the pin reads now: the level the firmware drives on an output, otherwise the
    // level at the input.
    bool Level(int pin) const;
    // Edges of the pins the firmware drives as outputs, timer outputs included.
    const CPinTrace& Trace(int pin) const;
    // The cycle of the last output change, or -1 when there was none.
    std::int64_t LastChange(int pin) const;
    int Pulses(int pin, double fromMs, double toMs) const;
    double Duty(int pin, double fromMs, double toMs) const;
    double Frequency(int pin, double fromMs, double toMs) const;

    // Bytes for the firmware to receive, one frame time (10 bits at 1200 bps) apart,
    // delivered while its receiver is on.
    void SendUart(const std::string& bytes);
    // Every byte the firmware has sent so far.
    const std::string& UartOutput() const;
    void ClearUartOutput();

    // The voltage on ADC channel 0-7 in millivolts, against a 5 V AVcc and AREF.
    void SetAnalogMillivolts(int channel, int millivolts);
    // The voltage that converts to this 10-bit reading against AVcc.
    void SetAnalogReading(int channel, int reading);

    // The text of the display's line 0 or 1, 16 characters.
    std::string LcdLine(int line) const;

    class CImpl;

  private:
    std::unique_ptr<CImpl> m_impl;
};
