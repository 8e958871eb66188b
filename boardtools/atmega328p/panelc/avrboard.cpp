#include "avrboard.h"

#include "boardinfo.h"
#include "panel.h"

namespace {

// The board has one clock source, its crystal.
constexpr long kClockSources[] = {16000000L};

constexpr int kRxd = 0, kTxd = 1;

// Where a panel with a pin keeps its port.
enum class EPortSource
{
    None,
    Token1,
    Token2,
    FirstOfPalette
};

EPortSource SourceOf(const QString& keyword)
{
    static const QStringList token2{"KEY", "SW", "DGI", "LAMP", "DGO", "ANI", "PULS"};
    // Their lines keep no port: the panel takes the first of its palette entry.
    static const QStringList palette{"PWM", "UARI", "UARO", "SMOTO"};
    if (token2.contains(keyword))
        return EPortSource::Token2;
    if (keyword == u"BUZZ")
        return EPortSource::Token1;
    return palette.contains(keyword) ? EPortSource::FirstOfPalette : EPortSource::None;
}

} // namespace

long CAvrBoard::ClockFrequency(int source)
{
    const int count = int(std::size(kClockSources));
    return source >= 1 && source <= count ? kClockSources[source - 1] : 0;
}

int CAvrBoard::Header(const QString& port) const
{
    if (port.isEmpty())
        return -1;
    for (int i = 0; i < m_board.GetPortCount(); ++i)
        if (m_board.GetPort(i).Name == port) {
            bool ok = false;
            const int id = m_board.GetPort(i).Id.toInt(&ok);
            return ok && id >= 0 && id <= 19 ? id : -1;
        }
    return -1;
}

QString CAvrBoard::PortName(int header) const
{
    for (int i = 0; i < m_board.GetPortCount(); ++i)
        if (m_board.GetPort(i).Id == QString::number(header))
            return m_board.GetPort(i).Name;
    return QString();
}

QList<int> CAvrBoard::LcdPins()
{
    return {8, 9, 4, 5, 6, 7}; // RS, E, D4..D7
}

QList<int> CAvrBoard::SegmentPins(bool fourDigits)
{
    QList<int> pins{2, 3, 4, 5, 6, 7, 8, 9}; // a..g, dp
    if (fourDigits)
        pins += {11, 12, 13, 14}; // digits, leftmost first
    return pins;
}

int CAvrBoard::TimerOf(int header)
{
    switch (header) {
    case 9:  // PB1, OC1A
    case 10: // PB2, OC1B
        return 1;
    case 3: // PD3, OC2B; OC2A on PB3 is timer 2's top
        return 2;
    default:
        return 0;
    }
}

QString CAvrBoard::WaveFunction(int header)
{
    return header == 9    ? "q_wave_t1a"
           : header == 10 ? "q_wave_t1b"
           : header == 3  ? "q_wave_t2b"
                          : "";
}

QString CAvrBoard::WaveFeature(int header)
{
    return header == 9    ? "Q_USE_WAVE_T1A"
           : header == 10 ? "Q_USE_WAVE_T1B"
           : header == 3  ? "Q_USE_WAVE_T2B"
                          : "";
}

QList<int> CAvrBoard::TimerPins()
{
    return {3, 9, 10};
}

int CAvrBoard::AdcChannel(int header)
{
    return header >= 14 && header <= 19 ? header - 14 : -1;
}

QString CAvrBoard::PortOf(const CPanel& panel)
{
    switch (SourceOf(panel.GetTokens().value(0))) {
    case EPortSource::Token1:
        return panel.GetTokens().value(1);
    case EPortSource::Token2:
        return panel.GetTokens().value(2);
    case EPortSource::FirstOfPalette:
        return panel.GetPortList().GetAt(0);
    default:
        return QString();
    }
}

std::optional<QList<int>> CAvrBoard::PinsOf(const CPanel& panel) const
{
    const QString keyword = panel.GetTokens().value(0);
    if (keyword == u"LCD")
        return LcdPins();
    if (keyword == u"7SEG" || keyword == u"7SEG4")
        return SegmentPins(panel.GetMode() >= 4);
    if (SourceOf(keyword) == EPortSource::None)
        return QList<int>();
    const int header = Header(PortOf(panel));
    if (header < 0)
        return std::nullopt;
    if ((keyword == u"UARI" && header != kRxd) || (keyword == u"UARO" && header != kTxd) ||
        (keyword == u"ANI" && AdcChannel(header) < 0))
        return std::nullopt;
    if (keyword != u"SMOTO")
        return QList<int>{header};
    // The four coils are the assigned pin and the next three of the header.
    QList<int> coils;
    for (int i = 0; i < 4; ++i) {
        if (PortName(header + i).isEmpty())
            return std::nullopt;
        coils.append(header + i);
    }
    return coils;
}
