#include "pwmdialoglogic.h"

#include "panels/panelvalues.h"

namespace {

bool InDutyRange(const QString& text)
{
    const int value = LeadingInt(text);
    return value >= 0 && value <= 100;
}

} // namespace

CPwmDialogLogic::CPwmDialogLogic(const QStringList& tokens, const CPortList& ports, int lowFreq,
                                 int highFreq)
{
    if (lowFreq > 0 || highFreq > 0) {
        LowFreq = lowFreq;
        HighFreq = highFreq;
    }
    for (int i = 0; i < ports.GetCount(); ++i)
        Ports.append(ports.GetAt(i));
    // Token 2 of a saved line is its first duty, so only a single port is usually chosen.
    Port = ports.GetCount() == 1 ? 0 : (tokens.size() >= 3 ? ports.IndexOf(tokens[2]) : -1);
    if (tokens.size() > 2)
        Frequency = tokens[1].section(QStringLiteral("Hz"), 0, 0);
    Duties = DescendingDistinct(tokens.mid(2)).mid(0, kDutyFields);
    while (Duties.size() < kDutyFields)
        Duties.append(QString());
}

int CPwmDialogLogic::OutOfRangeField() const
{
    for (int i = 0; i < Duties.size(); ++i)
        if (!Duties[i].trimmed().isEmpty() && !InDutyRange(Duties[i]))
            return i;
    return -1;
}

bool CPwmDialogLogic::IsFrequencyValid() const
{
    if (Frequency.trimmed().isEmpty())
        return false;
    const int frequency = LeadingInt(Frequency);
    return frequency >= LowFreq && frequency <= HighFreq;
}

bool CPwmDialogLogic::IsOkEnabled() const
{
    if (Port < 0 || !IsFrequencyValid() || OutOfRangeField() >= 0)
        return false;
    for (const QString& duty : Duties)
        if (!duty.trimmed().isEmpty())
            return true;
    return false;
}

QStringList CPwmDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    QStringList numbers;
    for (const QString& duty : Duties)
        if (!duty.trimmed().isEmpty() && InDutyRange(duty))
            numbers.append(QString::number(LeadingInt(duty)));
    return QStringList{QStringLiteral("PWM"), Frequency.trimmed() + QStringLiteral("Hz")}
           + DescendingDistinct(numbers);
}
