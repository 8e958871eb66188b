#include "serialbitpanel.h"

CSerialBitPanel::CSerialBitPanel(const QString& line)
    : CPanel({.Area = AreaProcess,
              // The bare line "UART0" has a picture of its own.
              .BitmapId = line == u"UART0" ? 275 : 10037,
              .Sides = "L",
              .MinTokens = 2,
              .ShowsComment = false})
{
    Init(line);
}

QString CSerialBitPanel::GetPortName(int) const
{
    return TokenCount() >= 2 && Token(1) != "-" ? "bit" + Token(1) : QString();
}

bool CSerialBitPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::SerialBit);
}
