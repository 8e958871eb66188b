#pragma once

#include "pintrace.h"
#include "simtarget.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// A board's processor running a HEX file in simulated time, wired as the target says: its
// pins by the board's numbers, the serial line, the ADC, and an HD44780 display decoded from
// the pins. Faults (a HEX file that does not read or fit, a processor simavr does not know,
// a crashed core) are return values with Error().
class CAvrSimulator
{
  public:
    static constexpr int AnalogChannels = 8;

    explicit CAvrSimulator(CSimTarget target);
    ~CAvrSimulator();
    CAvrSimulator(const CAvrSimulator&) = delete;
    CAvrSimulator& operator=(const CAvrSimulator&) = delete;

    const CSimTarget& Target() const;
    std::uint64_t CyclesPerMs() const { return Target().ClockHz / 1000; }
    std::uint64_t Ms(double ms) const
    {
        return std::uint64_t(ms * double(Target().ClockHz) / 1000.0 + 0.5);
    }
    std::uint64_t Us(double us) const { return Ms(us / 1000.0); }

    // A fresh core with the program in its FLASH, at cycle 0, every input floating.
    bool Load(const std::string& hexPath);
    const std::string& Error() const;
    // False before a successful Load and once the core crashed or stopped.
    bool IsRunning() const;

    // Where the core starts after a reset: a boot loader's first address (the fuses' job on
    // a real chip). Takes effect at once.
    void SetResetAddress(std::uint32_t address);
    // The reset pin pulled: the program starts again at the reset address with the reset
    // flags saying so; the FLASH, the time and the pins' traces stay.
    void ResetExternal();

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
    // Every pin's trace forgets what lies before the cycle (CPinTrace::ForgetBefore).
    void ForgetBefore(std::uint64_t cycle);
    // The cycle of the last output change, or -1 when there was none.
    std::int64_t LastChange(int pin) const;
    int Pulses(int pin, double fromMs, double toMs) const;
    double Duty(int pin, double fromMs, double toMs) const;
    double Frequency(int pin, double fromMs, double toMs) const;

    // A little-endian value of 1 to 4 bytes of the data space; 0 beyond its end.
    std::uint32_t ReadRam(std::uint32_t address, int bytes) const;

    // Bytes for the firmware to receive, one frame time (10 bits at the target's speed) apart,
    // delivered while its receiver is on.
    void SendUart(const std::string& bytes);
    // Every byte the firmware has sent so far.
    const std::string& UartOutput() const;
    void ClearUartOutput();

    // The voltage on ADC channel 0-7 in millivolts, against a 5 V AVcc and AREF.
    void SetAnalogMillivolts(int channel, int millivolts);
    // The voltage that converts to this 10-bit reading against AVcc.
    void SetAnalogReading(int channel, int reading);

    // The seven-segment display as a person sees it, bit 0 = segment a: the segments now
    // (a display of one digit), and each digit of a multiplexed one as it was last shown.
    std::uint8_t Segments() const;
    std::uint8_t Digit(int digit) const;

    // The text of the display's line 0 or 1, 16 characters.
    std::string LcdLine(int line) const;

    class CImpl;

  private:
    std::unique_ptr<CImpl> m_impl;
};
