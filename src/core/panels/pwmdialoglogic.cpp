#include "pwmdialoglogic.h"

#include "panelvalues.h"

namespace {

constexpr CFieldRange kDutyRange{0, 100};

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

int CPwmDialogLogic::WrongField() const
{
    return kDutyRange.WrongField(Duties);
}

bool CPwmDialogLogic::IsFrequencyValid() const
{
    return CFieldRange{LowFreq, HighFreq}.Accepts(Frequency);
}

bool CPwmDialogLogic::IsFrequencyWrong() const
{
    return CFieldRange{LowFreq, HighFreq}.IsWrong(Frequency);
}

bool CPwmDialogLogic::IsOkEnabled() const
{
    return Port >= 0 && IsFrequencyValid() && kDutyRange.AcceptsValues(Duties);
}

QStringList CPwmDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    const QString frequency = QString::number(LeadingInt(Frequency)) + QStringLiteral("Hz");
    return QStringList{QStringLiteral("PWM"), frequency} + kDutyRange.Values(Duties);
}
