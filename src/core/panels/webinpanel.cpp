#include "webinpanel.h"

#include "panelvalues.h"
#include "stringtable.h"

CWebInPanel::CWebInPanel(const QString& line)
    : CPanel({.Area = AreaInput,
              .BitmapId = 10091,
              .Sides = "R",
              .MinTokens = 2,
              .ShowsPorts = false,
              .ShowsComment = false,
              .Keyword = "WEBIN"})
{
    Init(line);
}

QString CWebInPanel::GetPortName(int i) const
{
    const int bits = BitCount();
    return i >= 0 && i < bits ? "WEB." + QString::number(bits - 1 - i) : QString();
}

QString CWebInPanel::GetComment(int i) const
{
    return i == 0 ? CommentName() : QString();
}

bool CWebInPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    m_itemCount = qMax(1, BitCount());
    InvalidateCaption();
    return true;
}

bool CWebInPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::WebIn);
}

void CWebInPanel::UpdateCaption()
{
    m_caption = m_name + " : ";
    if (TokenCount() >= 2)
        m_caption += Token(1) + CStringTable::Get(Ids::WebBits);
}

void CWebInPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    m_itemCount = BitCount();
    InvalidateCaption();
}

int CWebInPanel::BitCount() const
{
    return TokenCount() >= 2 ? BoundedRows(LeadingInt(Token(1))) : 0;
}
