#include "digitalpanel.h"

#include "stringtable.h"

QString CDigitalPanel::GetPortText() const
{
    return Token(2);
}

bool CDigitalPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    m_bitmapId = BitmapFor(GetKind());
    return true;
}

bool CDigitalPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Switch);
}

void CDigitalPanel::UpdateCaption()
{
    SetCaptionParts(
        {PortProperty(GetPortText()),
         TokenCount() > 1 ? CStringTable::Format(Ids::ActiveFormat, {Token(1)}) : QString()});
}

void CDigitalPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    ResolvePort();
    InvalidateCaption();
}
