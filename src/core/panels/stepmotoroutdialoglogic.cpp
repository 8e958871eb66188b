#include "stepmotoroutdialoglogic.h"

#include "panelvalues.h"
#include "stringtable.h"

namespace {

constexpr CFieldRange kSpeedRange{20, 30000};

} // namespace

CStepMotorOutDialogLogic::CStepMotorOutDialogLogic(const QStringList& tokens,
                                                   const CPortList& ports)
{
    for (int i = 0; i < ports.GetCount(); ++i)
        Ports.append(ports.GetAt(i));
    Port = ports.GetCount() == 1 ? 0 : (tokens.size() >= 3 ? ports.IndexOf(tokens[2]) : -1);

    const int mode = tokens.size() >= 2 ? LeadingInt(tokens[1]) : 0;
    Mode = mode == 1 ? 0 : mode == 2 ? 1 : -1;

    Speeds = {QStringLiteral("    20 "), QStringLiteral("    50 "), QStringLiteral("   100 "),
              QStringLiteral("   200 "), QStringLiteral("   500 "), QStringLiteral("  1000 "),
              QStringLiteral(" 10000 "), QStringLiteral(" 30000 ")};
    const int speed = tokens.size() >= 3 ? LeadingInt(tokens[2]) : 0;
    if (speed >= kSpeedRange.Low) {
        const QString text = (QStringLiteral("     ") + QString::number(speed) + u' ').right(7);
        for (int i = 0; i < Speeds.size() && Speed < 0; ++i)
            if (Speeds[i].startsWith(text))
                Speed = i;
        if (Speed < 0) {
            Speeds.append(text);
            Speed = int(Speeds.size()) - 1;
        }
        SpeedText = Speeds[Speed];
    }
}

QStringList CStepMotorOutDialogLogic::ModeTexts()
{
    return {CStringTable::Get(Ids::Excitation12Phase), CStringTable::Get(Ids::Excitation2Phase)};
}

bool CStepMotorOutDialogLogic::IsSpeedValid() const
{
    return SpeedText.isEmpty() ? Speed >= 0 : kSpeedRange.Accepts(SpeedText);
}

bool CStepMotorOutDialogLogic::IsSpeedWrong() const
{
    return kSpeedRange.IsWrong(SpeedText);
}

QStringList CStepMotorOutDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    const QString speed = SpeedText.isEmpty() ? Speeds.value(Speed) : SpeedText;
    return {QStringLiteral("SMOTO"), QString::number(Mode + 1), QString::number(LeadingInt(speed))};
}
