#pragma once

#include <QList>
#include <QString>

#include <optional>

class CBoardInfo;
class CPanel;

// What the compiler knows of the ATmega328P board beyond its board file: the clock
// sources, the pins the LCD and the seven-segment display are wired to, which pins have a
// timer of their own and which an analog channel. Pins are header numbers, the board
// file's PORT ids: 0-7 PD0-PD7, 8-13 PB0-PB5, 14-19 PC0-PC5.
class CAvrBoard
{
  public:
    explicit CAvrBoard(const CBoardInfo& board) : m_board(board) {}

    // F_CPU of a clock source counted from 1, as -c names it; 0 for a source the board
    // has not.
    static long ClockFrequency(int source);

    // -1 for a name the board file does not list.
    int Header(const QString& port) const;
    // "" for a number the board file does not list.
    QString PortName(int header) const;

    static QList<int> LcdPins();
    static QList<int> SegmentPins(bool fourDigits);
    // The hardware timer that makes waves on the pin: 1 or 2, 0 where none is free
    // (timer 0 gives the scan tick).
    static int TimerOf(int header);
    // The run-time function and feature switch of the wave on a timer pin.
    static QString WaveFunction(int header);
    static QString WaveFeature(int header);
    static QList<int> TimerPins();
    // 0 to 5 on PC0..PC5, -1 elsewhere.
    static int AdcChannel(int header);

    // The port a panel's line or palette entry assigns it, "" for panels without one.
    static QString PortOf(const CPanel& panel);
    // Every pin the panel drives or reads; nullopt when it needs a port the board has not.
    std::optional<QList<int>> PinsOf(const CPanel& panel) const;

  private:
    const CBoardInfo& m_board;
};
