#include "delaypanel.h"

#include "stringtable.h"

CDelayPanel::CDelayPanel(const QString& line)
    : CPanel({.Area = AreaProcess,
              .BitmapId = 10027,
              .Sides = "LR",
              .MinTokens = 2,
              .ShowsPorts = false,
              .ShowsComment = false,
              .FixedTokens = 2,
              .Keyword = "DLY"})
{
    Init(line);
}

bool CDelayPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::Delay);
}

void CDelayPanel::UpdateCaption()
{
    SetCaptionParts(
        {TokenCount() > 1 ? CStringTable::Format(Ids::TimeFormat, {Token(1)}) : QString()});
}
