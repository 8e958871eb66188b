#include "timerpanel.h"

#include "stringtable.h"

CTimerPanel::CTimerPanel(const QString& line)
    : CPanel(
          {.Area = AreaProcess, .BitmapId = 10028, .Sides = "LR", .MinTokens = 3, .Keyword = "TIM"})
{
    Init(line);
}

QString CTimerPanel::GetPortName(int) const
{
    return QString();
}

QString CTimerPanel::GetComment(int) const
{
    return Token(1); // the picture shows the kind letter
}

bool CTimerPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Timer);
}

void CTimerPanel::UpdateCaption()
{
    const QString kind = KindText(Token(1));
    SetCaptionParts(
        {kind.isEmpty() ? QString() : CStringTable::Format(Ids::TypeFormat, {kind}),
         TokenCount() > 2 ? CStringTable::Format(Ids::TimeFormat, {Token(2)}) : QString()});
}

QString CTimerPanel::KindText(const QString& letter)
{
    if (letter == u"H")
        return CStringTable::Get(Ids::CaptionHold);
    if (letter == u"T")
        return CStringTable::Get(Ids::CaptionToggle);
    if (letter == u"N")
        return CStringTable::Get(Ids::CaptionOneShot);
    if (letter == u"R")
        return CStringTable::Get(Ids::CaptionOneShotRetrigger);
    return QString();
}
