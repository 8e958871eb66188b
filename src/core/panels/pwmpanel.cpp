#include "pwmpanel.h"

CPwmPanel::CPwmPanel(const QString& line)
    : CPanel({.Area = AreaOutput,
              .BitmapId = 10086,
              .Sides = "L",
              .MinTokens = 3,
              .FixedTokens = 2,
              .Keyword = "PWM"})
{
    Init(line);
}

QString CPwmPanel::GetPortName(int i) const
{
    return i == 0 ? Token(1) : QString();
}

QString CPwmPanel::GetComment(int i) const
{
    const QString duty = Token(i + 2);
    return duty.isEmpty() || duty.startsWith(u';') ? QString() : duty + u'%';
}

QString CPwmPanel::GetPortText() const
{
    return m_portList.GetAt(0);
}

bool CPwmPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Pwm);
}

void CPwmPanel::UpdateCaption()
{
    SetCaptionParts({});
}

void CPwmPanel::AcceptProperties(const QStringList& tokens, int portIndex)
{
    m_tokens = tokens;
    m_portIndex = portIndex;
    m_itemCount = TokenCount() - 2;
    InvalidateCaption();
}
