#include "lcdpanel.h"

#include "stringtable.h"

CLcdPanel::CLcdPanel(const QString& line)
    : CPanel({.Area = AreaOutput,
              .BitmapId = 10090,
              .Sides = "L",
              .MinTokens = 3,
              .ShowsPorts = false,
              .ShowsComment = false,
              .Keyword = "LCD"})
{
    Init(line);
}

QString CLcdPanel::GetComment(int) const
{
    if (TokenCount() < 3)
        return QString();
    // Only one quote at each end belongs to the storage; quotes the user typed stay.
    QString text = Token(2);
    if (text.endsWith(u'"'))
        text.chop(1);
    if (text.startsWith(u'"'))
        text.remove(0, 1);
    return text;
}

bool CLcdPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Lcd);
}

void CLcdPanel::UpdateCaption()
{
    m_caption = m_name + ": "; // no blank before the colon, unlike the other panels
    if (TokenCount() < 2)
        return;
    const QString mode = Token(1);
    if (mode == u"0")
        m_caption += CStringTable::Get(Ids::LcdClear);
    else if (mode == u"1" || mode == u"2")
        m_caption += CStringTable::Get(Ids::LcdLine) + mode + ", " + Token(2);
}
