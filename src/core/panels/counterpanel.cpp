#include "counterpanel.h"

#include "stringtable.h"

CCounterPanel::CCounterPanel(const QString& line)
    : CPanel({.Area = AreaProcess,
              .BitmapId = 10026,
              .Sides = "ULR",
              .MinTokens = 3,
              .ShowsComment = false,
              .FixedTokens = 2,
              .Keyword = "CNT"})
{
    Init(line);
}

QString CCounterPanel::GetPortName(int) const
{
    switch (GetMode()) {
    case 1:
        return CStringTable::Get(Ids::CaptionHold);
    case 2:
        return CStringTable::Get(Ids::CaptionCyclic);
    default:
        return QString();
    }
}

int CCounterPanel::GetMode() const
{
    const QString type = Token(1);
    return type == u"H" ? 1 : type == u"C" ? 2 : 0;
}

bool CCounterPanel::MakeImage(CPanelImage& image)
{
    image.Reset(32, 32);
    if (m_itemCount < 1)
        return false;
    if (m_itemCount == 1) {
        image.Add(m_bitmapId, QString(), Token(2), QString());
        return true;
    }
    for (int i = 0; i < m_itemCount; ++i) {
        const int id = i == 0 ? 10029 : i == m_itemCount - 1 ? 10031 : 10030;
        image.Add(id, QString(), Token(i + 2), QString());
    }
    return true;
}

bool CCounterPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Counter);
}

void CCounterPanel::UpdateCaption()
{
    const QString type = GetPortName(0);
    SetCaptionParts({type.isEmpty() ? QString() : CStringTable::Format(Ids::TypeFormat, {type})});
}

void CCounterPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    m_itemCount = TokenCount() - 2;
    InvalidateCaption();
}
