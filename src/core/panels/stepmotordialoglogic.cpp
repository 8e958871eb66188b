#include "stepmotordialoglogic.h"

#include "panelvalues.h"
#include "stringtable.h"

namespace {

constexpr int kModes[] = {1, 2};
constexpr int kSpeeds[] = {10, 20, 30, 40, 50, 100};

template <std::size_t N> int IndexOf(const int (&values)[N], int value)
{
    for (std::size_t i = 0; i < N; ++i)
        if (values[i] == value)
            return int(i);
    return -1;
}

} // namespace

CStepMotorDialogLogic::CStepMotorDialogLogic(const QStringList& tokens)
{
    Mode = IndexOf(kModes, tokens.size() >= 2 ? LeadingInt(tokens[1]) : 0);
    Speed = IndexOf(kSpeeds, tokens.size() >= 3 ? LeadingInt(tokens[2]) : 0);
}

QStringList CStepMotorDialogLogic::ModeTexts()
{
    return {CStringTable::Get(Ids::Excitation1Phase), CStringTable::Get(Ids::Excitation2Phase)};
}

QStringList CStepMotorDialogLogic::SpeedTexts()
{
    QStringList texts;
    for (int id : {Ids::SpeedList10, Ids::SpeedList20, Ids::SpeedList30, Ids::SpeedList40,
                   Ids::SpeedList50, Ids::SpeedList100})
        texts.append(CStringTable::Get(id));
    return texts;
}

QStringList CStepMotorDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    return {QStringLiteral("SMOT"), QString::number(kModes[Mode]), QString::number(kSpeeds[Speed])};
}
