#include "inputwriter.h"

#include "linevalues.h"
#include "scancode.h"

#include "panel.h"
#include "panelvalues.h"

namespace {

// A key or switch takes a new level once the pin has kept it for 20 ms. The pin is read
// once a scan, so the first read that sees the level may come up to a scan after the change:
// only a level read 21 times in a row, the last read 20 ms after the first, has surely held
// for 20 ms. Twenty reads let a 19.5 ms bounce through.
constexpr int kDebounceScans = 21;

void WriteDigital(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const int pin = code.Board().Header(panel.GetTokens().value(2));
    const bool low = CLineValues::ActiveLow(panel);
    if (low)
        code.Setup(QStringLiteral("Q_PIN_PULLUP(%1);").arg(pin));
    const QString level = QStringLiteral("%1Q_PIN_READ(%2)").arg(low ? "!" : "").arg(pin);
    if (panel.GetTokens().value(0) == u"DGI") {
        code.Drive(CScanCode::Inputs, pos, 0, 'R', level);
        return;
    }
    const QString state = code.State("q_timer_t");
    code.Add(CScanCode::Inputs,
             QStringLiteral("q_settle(&%1, %2, %3);").arg(state, level).arg(kDebounceScans));
    code.Drive(CScanCode::Inputs, pos, 0, 'R', state + ".out");
}

void WriteAnalog(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    code.Use("Q_USE_ADC");
    const int channel = CAvrBoard::AdcChannel(code.Board().Header(panel.GetTokens().value(2)));
    const QString reading = code.State("uint16_t");
    code.Add(CScanCode::Inputs, QStringLiteral("%1 = q_adc_read(%2);").arg(reading).arg(channel));
    const char* compare = CLineValues::ActiveLow(panel) ? "<" : ">=";
    const QList<int> thresholds = CLineValues::From(panel, 3);
    for (int row = 0; row < thresholds.size(); ++row)
        code.Drive(CScanCode::Inputs, pos, row, 'R',
                   QStringLiteral("%1 %2 %3").arg(reading, compare).arg(thresholds[row]));
}

void WriteSerial(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    if (!code.Uses("Q_USE_UART_RX"))
        code.Add(CScanCode::Inputs, "q_uart_receive();");
    code.Use("Q_USE_UART_RX");
    if (panel.GetTokens().value(1) == u"B") {
        const int bits = qBound(1, LeadingInt(panel.GetTokens().value(2)), 8);
        for (int row = 0; row < bits; ++row)
            code.Drive(CScanCode::Inputs, pos, row, 'R',
                       QStringLiteral("(q_rx_byte >> %1) & 1").arg(7 - row));
        return;
    }
    const QList<int> values = CLineValues::From(panel, 2);
    for (int row = 0; row < values.size(); ++row)
        code.Drive(CScanCode::Inputs, pos, row, 'R',
                   QStringLiteral("q_rx_new && q_rx_byte == %1").arg(values[row]));
}

} // namespace

bool CInputWriter::Handles(const QString& keyword)
{
    return QStringList{"KEY", "SW", "DGI", "ANI", "UARI"}.contains(keyword);
}

void CInputWriter::Write(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const QString keyword = panel.GetTokens().value(0);
    if (keyword == u"ANI")
        WriteAnalog(panel, pos, code);
    else if (keyword == u"UARI")
        WriteSerial(panel, pos, code);
    else
        WriteDigital(panel, pos, code);
}
