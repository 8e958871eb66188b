#include "sevensegpanel.h"

#include "stringtable.h"

CSevenSegPanel::CSevenSegPanel(const QString& line)
    : CPanel({.Area = AreaOutput,
              .BitmapId = 10088,
              .Sides = "L",
              .MinTokens = 2,
              .ShowsComment = false,
              .Keyword = "7SEG"})
{
    Init(line);
}

int CSevenSegPanel::GetMode() const
{
    if (TokenCount() < 2)
        return 0;
    // The type token alone decides, whatever the keyword says.
    static const struct
    {
        const char16_t* Type;
        int Mode;
    } kTypes[] = {{u"7SEG_B", 1},  {u"7SEG_S", 3},  {u"7SEG_D", 2},
                  {u"7SEG4_B", 4}, {u"7SEG4_S", 6}, {u"7SEG4_D", 5}};
    const QString type = Token(1).mid(1);
    for (const auto& t : kTypes)
        if (type == t.Type)
            return t.Mode;
    return 0;
}

QString CSevenSegPanel::GetPortName(int) const
{
    return ModeLabel(GetMode());
}

bool CSevenSegPanel::IsIncomplete() const
{
    return GetMode() == 0;
}

bool CSevenSegPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::SevenSeg);
}

void CSevenSegPanel::UpdateCaption()
{
    const QString label = GetPortName(0);
    SetCaptionParts({label.isEmpty() ? QString() : CStringTable::Format(Ids::TypeFormat, {label})});
}

QString CSevenSegPanel::ModeLabel(int mode)
{
    switch (mode) {
    case 1:
    case 4:
        return CStringTable::Get(Ids::CaptionBit);
    case 2:
    case 5:
        return CStringTable::Get(Ids::CaptionDigit);
    case 3:
    case 6:
        return CStringTable::Get(Ids::CaptionSegment);
    default:
        return QString();
    }
}
