#include "numberdialoglogic.h"

#include "panelvalues.h"
#include "res/stringtable.h"

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
    m_edited = true;
}

bool CNumberDialogLogic::IsOkEnabled() const
{
    if (m_text.trimmed().isEmpty())
        return false;
    // The bit panel's own line is taken as it stands until the user types; a "-" there
    // (no bit yet) is then saved as bit 0.
    if (m_kind == SerialBit && !m_edited)
        return true;
    const int value = LeadingInt(m_text);
    return m_kind == SerialBit ? value >= 0 && value <= 7 : value >= 1 && value <= 99;
}

QStringList CNumberDialogLogic::Tokens() const
{
    QStringList tokens = m_tokens;
    while (tokens.size() < (m_kind == SerialBit ? 3 : 2))
        tokens.append(QString());
    if (m_kind == SerialBit) {
        tokens[1] = QString::number(LeadingInt(m_text.trimmed()));
        tokens[2] = QStringLiteral("L");
    } else {
        tokens[1] = m_text.trimmed();
    }
    return tokens;
}
