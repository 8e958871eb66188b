#include "buzzerdialoglogic.h"

CBuzzerDialogLogic::CBuzzerDialogLogic(const QStringList& tokens, const CPortList& ports)
    : m_ports(ports)
{
    // Token 2 is looked up, not the port token 1: a buzzer on a board with several ports
    // therefore opens with none chosen, as it always has.
    if (ports.GetCount() == 1)
        m_portIndex = 0;
    else if (tokens.size() > 2)
        m_portIndex = ports.IndexOf(tokens[2]);
    for (const QString& token : tokens)
        for (int f = 0; f < FrequencyCount; ++f)
            if (token == FrequencyText(EFrequency(f)))
                m_checked[f] = true;
}

QString CBuzzerDialogLogic::FrequencyText(EFrequency frequency)
{
    static const char* const texts[FrequencyCount] = {"2000", "1000", "500"};
    return QLatin1String(texts[frequency]);
}

bool CBuzzerDialogLogic::IsOkEnabled() const
{
    return m_portIndex >= 0 && (m_checked[Freq2000] || m_checked[Freq1000] || m_checked[Freq500]);
}

QStringList CBuzzerDialogLogic::Tokens() const
{
    QStringList tokens = {QStringLiteral("BUZZ"), m_ports.GetAt(m_portIndex)};
    for (int f = 0; f < FrequencyCount; ++f)
        if (m_checked[f])
            tokens.append(FrequencyText(EFrequency(f)));
    return tokens;
}
