#include "webindialoglogic.h"

#include "panelvalues.h"

CWebInDialogLogic::CWebInDialogLogic(const QStringList& tokens) : m_tokens(tokens)
{
    if (tokens.size() >= 2 && tokens.last().startsWith(u';'))
        Name = tokens.last().mid(1);
    const int bits = tokens.size() >= 2 ? LeadingInt(tokens[1]) : 0;
    if (bits > 0 && bits <= BitCounts().size())
        BitCount = bits - 1;
}

QStringList CWebInDialogLogic::BitCounts()
{
    return {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
}

bool CWebInDialogLogic::IsNameValid() const
{
    return FitsInLine(Name, ELineText::Name);
}

QStringList CWebInDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    QStringList tokens = m_tokens;
    if (tokens.isEmpty())
        tokens.append(QStringLiteral("WEBIN"));
    while (tokens.size() < 3)
        tokens.append(QString());
    tokens[1] = BitCounts().value(BitCount);
    // The name token is always written, a lone ";" for no name.
    tokens[2] = u';' + Name;
    return tokens;
}
