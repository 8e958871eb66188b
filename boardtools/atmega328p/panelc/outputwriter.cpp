#include "outputwriter.h"

#include "avrwave.h"
#include "linevalues.h"
#include "scancode.h"

#include "gridorder.h"
#include "panel.h"
#include "panelgrid.h"
#include "panelvalues.h"

namespace {

constexpr int kLcdColumns = 16;
constexpr int kPulsePeriod = 4; // ms

void WriteLamp(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const int pin = code.Board().Header(panel.GetTokens().value(2));
    const bool low = CLineValues::ActiveLow(panel);
    code.Setup(QStringLiteral("Q_PIN_OUTPUT(%1, %2);").arg(pin).arg(low ? 1 : 0));
    code.Add(CScanCode::Outputs, QStringLiteral("Q_PIN_WRITE(%1, %2%3);")
                                     .arg(pin)
                                     .arg(low ? "!" : "", code.In(pos, 0, 'L')));
}

// "in0 ? a : in1 ? b : otherwise": the topmost row that is on chooses.
QString TopmostRow(const QStringList& choices, CGridPos pos, CScanCode& code,
                   const QString& otherwise)
{
    QString value;
    for (int row = 0; row < choices.size(); ++row)
        value += code.In(pos, row, 'L') + " ? " + choices[row] + " : ";
    return value + otherwise;
}

void WritePulse(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    code.Use("Q_USE_PULSE");
    code.AfterScan("Q_PULSE_NEXT();");
    const int pin = code.Board().Header(panel.GetTokens().value(2));
    const bool low = CLineValues::ActiveLow(panel);
    code.Setup(QStringLiteral("Q_PIN_OUTPUT(%1, %2);").arg(pin).arg(low ? 1 : 0));
    QStringList onTimes;
    for (const int level : CLineValues::From(panel, 3))
        onTimes.append(QString::number((qBound(0, level, 100) * kPulsePeriod + 50) / 100));
    code.Add(CScanCode::Outputs, QStringLiteral("Q_PIN_WRITE(%1, %2(%3) > q_pulse_phase);")
                                     .arg(pin)
                                     .arg(low ? "!" : "", TopmostRow(onTimes, pos, code, "0")));
}

// PWM and buzzer: one wave setting a row, chosen by the topmost row that is on.
void WriteWave(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const bool buzzer = panel.GetTokens().value(0) == u"BUZZ";
    const int pin = code.Board().Header(CAvrBoard::PortOf(panel));
    const int timer = CAvrBoard::TimerOf(pin);
    code.Use(CAvrBoard::WaveFeature(pin));
    const QString function = CAvrBoard::WaveFunction(pin);
    QStringList settings;
    if (buzzer) {
        for (const int tone : CLineValues::From(panel, 2)) {
            const std::optional<CAvrWave> wave = CAvrWave::For(timer, code.Clock(), tone);
            settings.append(wave ? wave->Arguments(50) : "Q_WAVE_OFF");
        }
    } else {
        const std::optional<CAvrWave> wave =
            CAvrWave::For(timer, code.Clock(), LeadingInt(panel.GetTokens().value(1)));
        for (const int duty : CLineValues::From(panel, 2))
            settings.append(wave ? wave->Arguments(duty) : "Q_WAVE_OFF");
    }
    QString line;
    for (int row = 0; row < settings.size(); ++row)
        line += QStringLiteral("if (%1) %2(%3); else ")
                    .arg(code.In(pos, row, 'L'), function, settings[row]);
    code.Add(CScanCode::Outputs, line + function + "(Q_WAVE_OFF);");
}

// The byte is made at the edge from the serial bit panels: bit n on while the input of a
// bit panel at position n is on.
void WriteSerial(CGridPos pos, CScanCode& code)
{
    code.Use("Q_USE_UART_TX");
    QStringList bits;
    for (const CGridPos at : CGridOrder::Panels(code.Grid())) {
        const CPanel& bit = *code.Grid().GetCell(at)->GetPanel();
        const QString position = bit.GetTokens().value(1);
        if (bit.GetTokens().value(0) != u"UART" || position == u"-" || position.isEmpty())
            continue;
        const int n = LeadingInt(position);
        if (n >= 0 && n <= 7)
            bits.append(QStringLiteral("(%1 ? %2 : 0)").arg(code.In(at, 0, 'L')).arg(1 << n));
    }
    const QString byte = bits.isEmpty() ? "0" : "(uint8_t)(" + bits.join(" | ") + ")";
    const QString state = code.State("uint8_t");
    code.Add(CScanCode::Outputs, QStringLiteral("if (q_rising(&%1, %2)) q_uart_send(%3);")
                                     .arg(state, code.In(pos, 0, 'L'), byte));
}

void WriteLcd(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    code.Use("Q_USE_LCD");
    code.AfterScan("q_lcd_refresh();");
    const int line = qBound(0, LeadingInt(panel.GetTokens().value(1)), 2);
    const QString text = line == 0 ? QStringLiteral("0")
                                   : code.FlashText(COutputWriter::LcdBytes(panel.GetComment(0)));
    const QString state = code.State("uint8_t");
    code.Add(CScanCode::Outputs, QStringLiteral("if (q_rising(&%1, %2)) q_lcd_show(%3, %4);")
                                     .arg(state, code.In(pos, 0, 'L'))
                                     .arg(line)
                                     .arg(text));
}

void WriteMotorDriver(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    code.Use("Q_USE_MOTOR");
    const QList<int> coils = code.Board().PinsOf(panel).value_or(QList<int>());
    for (const int pin : coils)
        code.Setup(QStringLiteral("Q_PIN_OUTPUT(%1, 0);").arg(pin));
    const QString state = code.State("q_motor_t", "position");
    const bool halfSteps = panel.GetTokens().value(1) == u"1";
    code.Add(CScanCode::Outputs,
             QStringLiteral("q_motor(&%1, %2, %3, %4u, %5);")
                 .arg(state, code.In(pos, 0, 'L'), code.In(pos, 1, 'L'))
                 .arg(LeadingInt(panel.GetTokens().value(2)))
                 .arg(halfSteps ? "q_motor_half_step, 8" : "q_motor_two_phase, 4"));
    for (int coil = 0; coil < coils.size(); ++coil)
        code.Add(CScanCode::Outputs, QStringLiteral("Q_PIN_WRITE(%1, (%2.out >> %3) & 1);")
                                         .arg(coils[coil])
                                         .arg(state)
                                         .arg(coil));
}

} // namespace

bool COutputWriter::Handles(const QString& keyword)
{
    return QStringList{"LAMP", "DGO", "PULS", "PWM", "BUZZ", "UARO", "LCD", "SMOTO"}.contains(
        keyword);
}

void COutputWriter::Write(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const QString keyword = panel.GetTokens().value(0);
    if (keyword == u"PULS")
        WritePulse(panel, pos, code);
    else if (keyword == u"PWM" || keyword == u"BUZZ")
        WriteWave(panel, pos, code);
    else if (keyword == u"UARO")
        WriteSerial(pos, code);
    else if (keyword == u"LCD")
        WriteLcd(panel, pos, code);
    else if (keyword == u"SMOTO")
        WriteMotorDriver(panel, pos, code);
    else
        WriteLamp(panel, pos, code);
}

QByteArray COutputWriter::LcdBytes(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text.left(kLcdColumns)) {
        const char16_t u = c.unicode();
        if (u >= 0x20 && u < 0x7F)
            bytes += char(u);
        else if (u >= 0xFF61 && u <= 0xFF9F) // half-width katakana, JIS X 0201 in the display
            bytes += char(u - 0xFF61 + 0xA1);
        else if (u == 0xA5) // the yen sign stands where ASCII has the backslash
            bytes += char(0x5C);
        else
            bytes += '?';
    }
    return bytes;
}
