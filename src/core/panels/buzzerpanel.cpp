#include "buzzerpanel.h"

#include "stringtable.h"

CBuzzerPanel::CBuzzerPanel(const QString& line)
    : CPanel({.Area = AreaOutput,
              .BitmapId = 10085,
              .Sides = "L",
              .MinTokens = 3,
              .ShowsPorts = false,
              .FixedTokens = 2,
              .Keyword = "BUZZ"})
{
    Init(line);
}

QString CBuzzerPanel::GetPortName(int) const
{
    return QString();
}

QString CBuzzerPanel::GetComment(int i) const
{
    const QString token = Token(i + 2);
    return token.isEmpty() || token.startsWith(u';') ? QString() : token + "Hz";
}

QString CBuzzerPanel::GetPortText() const
{
    return Token(1);
}

bool CBuzzerPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    // A port and a lone comment count no frequency at all, unlike the base's minimum of one.
    m_itemCount = TokenCount() < 3 ? 1 : TokenCount() - 2 - (EndsWithComment() ? 1 : 0);
    InvalidateCaption();
    return true;
}

bool CBuzzerPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Buzzer);
}

void CBuzzerPanel::UpdateCaption()
{
    QStringList frequencies;
    for (int i = 0; i < 3; ++i)
        if (const QString f = GetComment(i); !f.isEmpty())
            frequencies.append(f);
    SetCaptionParts({PortProperty(GetPortText()),
                     frequencies.isEmpty()
                         ? QString()
                         : CStringTable::Format(Ids::FreqFormat, {frequencies.join(u'/')})});
}

void CBuzzerPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    m_itemCount = TokenCount() - 2;
    InvalidateCaption();
}
