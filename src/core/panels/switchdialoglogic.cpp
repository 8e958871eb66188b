#include "switchdialoglogic.h"

#include "panelvalues.h"

CSwitchDialogLogic::CSwitchDialogLogic(const QStringList& tokens, const CPortList& ports,
                                       const QString& initialName)
    : m_tokens(tokens), m_ports(ports), m_name(initialName)
{
    if (tokens.size() > 3)
        m_name = tokens[3].startsWith(u';') ? tokens[3].mid(1) : tokens[3];
    if (tokens.size() > 2)
        m_portIndex = ports.IndexOf(tokens[2]);
    if (tokens.size() >= 2)
        m_levelIndex = int(Levels().indexOf(tokens[1]));
}

QStringList CSwitchDialogLogic::Levels()
{
    return {QStringLiteral("H"), QStringLiteral("L")};
}

bool CSwitchDialogLogic::IsNameValid() const
{
    return FitsInLine(m_name, ELineText::Name);
}

QStringList CSwitchDialogLogic::Tokens() const
{
    QStringList tokens = m_tokens;
    while (tokens.size() < 4)
        tokens.append(QString());
    tokens[1] = Levels().value(m_levelIndex);
    tokens[2] = m_ports.GetAt(m_portIndex);
    tokens[3] = u';' + m_name;
    return tokens;
}
