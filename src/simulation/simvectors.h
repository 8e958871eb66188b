#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class CSimSignals;

// Timed input changes and expected outputs for a simulated layout, read from a vectors file
// (docs/vectors.md) or from the command line's --input and --serial-in. Each line is a time
// and what happens then:
//     0.5s   set start=1 stop=0
//     600ms  expect lamp=1 lcd1="Count: 3"
//     1s     serial "Hi\r"
//     2s     expect serial="OK\r\n"
class CSimVectors
{
  public:
    struct CEvent
    {
        enum EKind
        {
            SetLevel,     // Pin to Value
            SetReading,   // analog Channel to Value (0 to 1023)
            SendSerial,   // Text to the firmware
            ExpectLevel,  // Pin reads Value
            ExpectSerial, // the firmware sent Text since the last ExpectSerial
            ExpectLcd,    // display line Value (1 or 2) shows Text
        };
        double Ms = 0;
        EKind Kind = SetLevel;
        QString Name;
        int Pin = -1;
        int Channel = -1;
        int Value = 0;
        QByteArray Text;
        int Line = 0; // where the event was read, for messages
    };

    explicit CSimVectors(const CSimSignals& signals) : m_signals(signals) {}

    // Adds the lines of a vectors file; false with Error() naming source, line and column.
    bool Parse(const QString& text, const QString& source);
    // "start=1@0.5s": one input change, as given after --input.
    bool ParseInput(const QString& change);
    void AddSerial(double ms, const QByteArray& bytes);
    const QString& Error() const { return m_error; }

    // In time order; events at one time keep their order.
    QList<CEvent> Events() const;
    double LastMs() const;

    // "500ms", "1.5s", "250us" in ms; -1 when it is no time.
    static double ParseTime(const QString& text);

  private:
    bool ParseLine(const QString& line, int number, const QString& source);

    const CSimSignals& m_signals;
    QList<CEvent> m_events;
    QString m_error;
};
