#include "storingwriter.h"

#include "linevalues.h"
#include "scancode.h"

#include "panel.h"
#include "panelvalues.h"

#include <algorithm>

namespace {

// The run-time function of each one-bit storing panel, by keyword and kind letter.
QString StepFunction(const QString& keyword, const QString& kind)
{
    if (keyword == u"RSFF")
        return "q_rsff";
    if (keyword == u"D_FF")
        return "q_dff";
    if (keyword == u"T_FF")
        return "q_tff";
    if (keyword == u"DLY")
        return "q_settle";
    if (keyword == u"TIM")
        return kind == u"T" ? "q_timer_toggle" : "q_timer_hold";
    return kind == u"R" ? "q_timer_retrigger" : "q_timer_oneshot";
}

void WriteCounter(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const QList<int> values = CLineValues::From(panel, 2);
    const int largest = values.isEmpty() ? 0 : *std::max_element(values.begin(), values.end());
    const QString state = code.State("q_counter_t", "count");
    for (int row = 0; row < values.size(); ++row)
        code.Drive(CScanCode::Show, pos, row, 'R',
                   values[row] == 0
                       ? QStringLiteral("1") // reached from the start
                       : QStringLiteral("%1.count >= %2u").arg(state).arg(values[row]));
    const QString function = panel.GetTokens().value(1) == u"C" ? "q_count_cyclic" : "q_count_hold";
    code.Add(CScanCode::Update,
             QStringLiteral("%1(&%2, %3, %4, %5u);")
                 .arg(function, state, code.In(pos, 0, 'L'), code.In(pos, 0, 'U'))
                 .arg(largest));
}

void WriteMotor(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    code.Use("Q_USE_MOTOR");
    const QString state = code.State("q_motor_t", "position");
    for (int row = 0; row < 4; ++row)
        code.Drive(CScanCode::Show, pos, row, 'R',
                   QStringLiteral("(%1.out >> %2) & 1").arg(state).arg(row));
    const bool onePhase = panel.GetTokens().value(1) == u"1";
    code.Add(CScanCode::Update, QStringLiteral("q_motor(&%1, %2, %3, %4u, %5, 4);")
                                    .arg(state, code.In(pos, 0, 'U'), code.In(pos, 0, 'L'))
                                    .arg(LeadingInt(panel.GetTokens().value(2)))
                                    .arg(onePhase ? "q_motor_one_phase" : "q_motor_two_phase"));
}

void WriteBit(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const QString keyword = panel.GetTokens().value(0);
    const bool flipFlop = keyword.endsWith(u"FF");
    // A flip-flop holds only its output, which its net shows.
    const QString state =
        flipFlop ? code.State("q_flipflop_t") : code.State("q_timer_t", "elapsed");
    code.Drive(CScanCode::Show, pos, 0, 'R', state + ".out");
    const QString function = StepFunction(keyword, panel.GetTokens().value(1));
    // Flip-flops read both sides; the timers and the delay their L side and a time.
    QString second;
    if (flipFlop) {
        second = code.In(pos, 0, 'U');
    } else {
        const long time =
            CLineValues::Milliseconds(panel.GetTokens().value(keyword == u"DLY" ? 1 : 2));
        if (time > 65535)
            code.Use("Q_USE_LONG_TIMES");
        second = CLineValues::TimeConstant(time);
    }
    code.Add(CScanCode::Update,
             QStringLiteral("%1(&%2, %3, %4);").arg(function, state, code.In(pos, 0, 'L'), second));
}

} // namespace

bool CStoringWriter::Handles(const QString& keyword)
{
    return QStringList{"RSFF", "D_FF", "T_FF", "CNT", "DLY", "TIM", "TIM1", "SMOT"}.contains(
        keyword);
}

void CStoringWriter::Write(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const QString keyword = panel.GetTokens().value(0);
    if (keyword == u"CNT")
        WriteCounter(panel, pos, code);
    else if (keyword == u"SMOT")
        WriteMotor(panel, pos, code);
    else
        WriteBit(panel, pos, code);
}
