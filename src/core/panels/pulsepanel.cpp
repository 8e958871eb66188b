#include "pulsepanel.h"

CPulsePanel::CPulsePanel(const QString& line)
    : CPanel(
          {.Area = AreaOutput, .BitmapId = 10089, .Sides = "L", .MinTokens = 4, .Keyword = "PULS"})
{
    Init(line);
}

QString CPulsePanel::GetPortName(int i) const
{
    return i == 0 ? CommentName() : QString();
}

QString CPulsePanel::GetComment(int i) const
{
    const QString level = Token(i + 3);
    return level.isEmpty() || level.startsWith(u';') ? QString() : level + u'%';
}

QString CPulsePanel::GetPortText() const
{
    return Token(2);
}

bool CPulsePanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    m_itemCount = qMax(1, LevelCount());
    InvalidateCaption();
    return true;
}

bool CPulsePanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Pulse);
}

void CPulsePanel::UpdateCaption()
{
    SetCaptionParts({PortProperty(GetPortText())});
}

void CPulsePanel::AcceptProperties(const QStringList& tokens, int portIndex)
{
    m_tokens = tokens;
    m_portIndex = portIndex;
    m_itemCount = LevelCount();
    InvalidateCaption();
}

int CPulsePanel::LevelCount() const
{
    return qMax(0, ArgumentCount() - 3);
}
