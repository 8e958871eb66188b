#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

// One moment of a running board, as the grid's animation shows it: the time, every pin's
// level, each value of the simulation map (in the map's order) and the display's text.
struct CPanelStateFrame
{
    double Ms = 0;
    std::vector<bool> Pins;
    // Over the last kWindowMs, by pin: the share of the time it was high, and the rate of
    // its rising edges in Hz (a PWM output's duty, a buzzer's tone).
    static constexpr double kWindowMs = 200;
    std::vector<float> Duty;
    std::vector<float> Hz;
    std::vector<quint32> Values;
    std::string Lcd[2];
    // The seven-segment display, bit 0 = segment a: as it is now, and each digit of a
    // multiplexed one as last shown.
    quint8 Segments = 0;
    quint8 Digits[4] = {};
    bool Running = false;
    bool Paused = false;
    // Why the board stopped, when it did on its own.
    QString Error;
};

class CAvrSimulator;
class CSimMap;

// The frame of a running engine now, its values at the map's addresses; the pins' traces
// keep only the frame's window from then on.
CPanelStateFrame MakePanelStateFrame(CAvrSimulator& sim, const CSimMap& map);

// Where the animation's states come from: today the simulator; a board that reports its
// state over its serial line can feed the same view. Inputs go back the same way.
class IPanelStateSource
{
  public:
    virtual ~IPanelStateSource() = default;

    // The newest frame; taking it is cheap and never waits for the board.
    virtual CPanelStateFrame Frame() const = 0;
    virtual void SetInput(int pin, bool high) = 0;
    virtual void SetReading(int channel, int reading) = 0;
    virtual void SendSerial(const QByteArray& bytes) = 0;
    // The bytes the board sent since the last call, each with the time it came, in ms.
    virtual QList<QPair<double, char>> TakeSerial() = 0;
};

// What passes between an engine's thread and the view, from either side at any time: the
// view's commands one way, the newest frame and the bytes the board sent the other.
class CStateExchange : public IPanelStateSource
{
  public:
    CPanelStateFrame Frame() const override;
    void SetInput(int pin, bool high) override;
    void SetReading(int channel, int reading) override;
    void SendSerial(const QByteArray& bytes) override;
    QList<QPair<double, char>> TakeSerial() override;

    // The engine's side: runs the commands the view gave since the last call.
    void RunCommands(CAvrSimulator& sim);
    // The engine's side: a new frame, and what the board has sent so far (which starts
    // afresh when the board was reset); the bytes not yet seen take the frame's time.
    void Publish(CPanelStateFrame frame, const std::string& sent);
    // A new run: no frame, no commands, no bytes.
    void Reset();

  private:
    mutable std::mutex m_lock; // guards everything below
    std::deque<std::function<void(CAvrSimulator&)>> m_commands;
    CPanelStateFrame m_frame;
    QList<QPair<double, char>> m_serial;
    std::size_t m_serialSeen = 0;
};
