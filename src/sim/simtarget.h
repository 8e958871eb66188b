#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the engine must know of a board to run its firmware: the processor by the name
// simavr gives it, the clock, and how the board's pins, serial line and display are wired.
// The board file says all of it; the engine knows no board of its own.
struct CSimTarget
{
    // A pin of the board by the processor's port letter and bit ("PD2" is 'D', 2).
    struct CPin
    {
        char Port = 0;
        int Bit = 0;
    };

    std::string Mcu;
    std::uint64_t ClockHz = 0;
    // The board's pins in its own numbering: a pin number is an index here.
    std::vector<CPin> Pins;
    // The serial line: the processor's UART by simavr's name ('0') and its speed, which
    // paces the bytes sent to the firmware. No UART when Uart is 0.
    char Uart = 0;
    int Baud = 0;
    // A character display on a 4-bit bus, as pin numbers; -1 where the board has none.
    int LcdRs = -1, LcdE = -1;
    int LcdData[4] = {-1, -1, -1, -1};
    // A seven-segment display: the pins of segments a..g and dp, and the select pin of each
    // digit of a multiplexed one, leftmost first, selected at the given level.
    int SegmentPins[8] = {-1, -1, -1, -1, -1, -1, -1, -1};
    std::vector<int> DigitPins;
    bool DigitSelectHigh = false;
    // The pin of each analog channel, in channel order.
    std::vector<int> AnalogPins;
    int AnalogReferenceMv = 5000;

    int PinCount() const { return int(Pins.size()); }
    // The analog channel a pin is read by, -1 for none.
    int ChannelOf(int pin) const
    {
        for (int channel = 0; channel < int(AnalogPins.size()); ++channel)
            if (AnalogPins[channel] == pin)
                return channel;
        return -1;
    }
    // "PB5" as a pin number, -1 when the board has no such pin.
    int PinNamed(const std::string& name) const
    {
        const std::optional<CPin> place = PinOf(name);
        for (int pin = 0; place && pin < PinCount(); ++pin)
            if (Pins[pin].Port == place->Port && Pins[pin].Bit == place->Bit)
                return pin;
        return -1;
    }
    // "PD2" as a port letter and bit; nullopt for a name that is none.
    static std::optional<CPin> PinOf(const std::string& name)
    {
        if (name.size() != 3 || name[0] != 'P' || name[1] < 'A' || name[1] > 'Z' || name[2] < '0' ||
            name[2] > '7')
            return std::nullopt;
        return CPin{name[1], name[2] - '0'};
    }
};
