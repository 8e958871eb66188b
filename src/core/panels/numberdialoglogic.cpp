#include "numberdialoglogic.h"

#include "panelvalues.h"
#include "stringtable.h"

CNumberDialogLogic::CNumberDialogLogic(EKind kind, const QStringList& tokens, int reference)
    : m_kind(kind), m_tokens(tokens)
{
    if (kind == SerialBit)
        m_text = tokens.value(1);
    else if (reference >= 1)
        m_text = QString::number(reference);
}

int CNumberDialogLogic::GetLabelId() const
{
    return m_kind == SerialBit ? Ids::LblBitLocation : Ids::ConnectionId;
}

int CNumberDialogLogic::GetNoteId() const
{
    return m_kind == SerialBit ? Ids::NoteBitRange : Ids::ConnectionIdRange;
}

void CNumberDialogLogic::SetText(const QString& text)
{
    m_text = text;
}

CFieldRange CNumberDialogLogic::Range() const
{
    return m_kind == SerialBit ? CFieldRange{0, 7} : CFieldRange{1, 99};
}

bool CNumberDialogLogic::IsOkEnabled() const
{
    return Range().Accepts(m_text);
}

bool CNumberDialogLogic::IsTextWrong() const
{
    return Range().IsWrong(m_text);
}

QStringList CNumberDialogLogic::Tokens() const
{
    QStringList tokens = m_tokens;
    while (tokens.size() < (m_kind == SerialBit ? 3 : 2))
        tokens.append(QString());
    tokens[1] = QString::number(LeadingInt(m_text));
    if (m_kind == SerialBit)
        tokens[2] = QStringLiteral("L");
    return tokens;
}
