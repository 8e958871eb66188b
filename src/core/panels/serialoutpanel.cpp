#include "serialoutpanel.h"

CSerialOutPanel::CSerialOutPanel(const QString& line)
    : CPanel(
          {.Area = AreaOutput, .BitmapId = 10087, .Sides = "L", .MinTokens = 1, .Keyword = "UARO"})
{
    Init(line);
}

QString CSerialOutPanel::GetPortName(int) const
{
    return QString();
}

QString CSerialOutPanel::GetPortText() const
{
    return m_portList.GetAt(0);
}

bool CSerialOutPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::SerialOut);
}

void CSerialOutPanel::UpdateCaption()
{
    SetCaptionParts({PortProperty(GetPortText())});
}
