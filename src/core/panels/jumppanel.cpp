#include "jumppanel.h"

#include "panelvalues.h"

CJumpPanel::CJumpPanel(const QString& line)
    : CPanel({.Area = AreaProcess, .BitmapId = 10034, .MinTokens = 3, .ShowsComment = false})
{
    m_canRotate = true;
    m_weight = 0;
    Init(line);
}

QString CJumpPanel::GetPortName(int) const
{
    return TokenCount() >= 2 && LeadingInt(Token(1)) > 0 ? Token(1) : QString();
}

bool CJumpPanel::Rotate()
{
    switch (m_bitmapId) {
    case 10033:
        m_bitmapId = 10034;
        SetToken(2, QStringLiteral("L"));
        break;
    case 10034:
        m_bitmapId = 10033;
        SetToken(2, QStringLiteral("U"));
        break;
    case 10035:
        m_bitmapId = 10036;
        SetToken(2, QStringLiteral("D"));
        break;
    case 10036:
        m_bitmapId = 10035;
        SetToken(2, QStringLiteral("R"));
        break;
    }
    UpdateSides();
    return true;
}

bool CJumpPanel::IsIncomplete() const
{
    if (TokenCount() < 3 || m_sides.isEmpty())
        return true;
    return LeadingInt(Token(1)) < 1;
}

bool CJumpPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    const bool in = GetKind() == EPanelKind::JumpIn;
    if (in || GetKind() == EPanelKind::JumpOut) {
        // The id and the side stand before any comment. Reading drops empty tokens, so a
        // line without them gets an id of 0 (none yet) and the default side, put before the
        // comment, and reads back as it is written.
        const int comment = TokensBeforeComment();
        if (comment < 3) {
            const int id = comment > 1 ? LeadingInt(Token(1)) : 0;
            QStringList tokens{Token(0), QString::number(id),
                               in ? QStringLiteral("L") : QStringLiteral("R")};
            if (comment < m_tokens.size())
                tokens.append(m_tokens[comment]);
            m_tokens = tokens;
        }
        const QString side = Token(2);
        m_bitmapId = in ? (side == u"U" ? 10033 : 10034) : (side == u"D" ? 10036 : 10035);
        m_reference = LeadingInt(Token(1));
    }
    UpdateSides();
    InvalidateCaption();
    return true;
}

bool CJumpPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Jump);
}

void CJumpPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    m_reference = LeadingInt(Token(1));
    InvalidateCaption();
}

void CJumpPanel::UpdateSides()
{
    switch (m_bitmapId) {
    case 10033:
        m_sides = QStringLiteral("U");
        break;
    case 10034:
        m_sides = QStringLiteral("L");
        break;
    case 10035:
        m_sides = QStringLiteral("R");
        break;
    case 10036:
        m_sides = QStringLiteral("D");
        break;
    default:
        m_sides.clear();
    }
}
