#include "flipfloppanel.h"

CFlipFlopPanel::CFlipFlopPanel(const QString& line)
    : CPanel({.Area = AreaProcess,
              .BitmapId = 10022,
              .Sides = "ULR",
              .MinTokens = 1,
              .ShowsPorts = false,
              .ShowsComment = false,
              .Keyword = "FF"})
{
    Init(line);
}

bool CFlipFlopPanel::IsIncomplete() const
{
    return BitmapFor(Token(0)) == 0;
}

bool CFlipFlopPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    // An untyped keyword keeps whatever picture the panel had.
    if (const int id = BitmapFor(Token(0)))
        m_bitmapId = id;
    InvalidateCaption();
    return true;
}

bool CFlipFlopPanel::EditProperties(IPropertyEditor& editor)
{
    return editor.Edit(*this, EPanelDialog::FlipFlop);
}

void CFlipFlopPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    if (const int id = BitmapFor(Token(0)))
        m_bitmapId = id;
    InvalidateCaption();
}

int CFlipFlopPanel::BitmapFor(const QString& keyword)
{
    return keyword == u"RSFF" ? 10023 : keyword == u"D_FF" ? 10024 : keyword == u"T_FF" ? 10025 : 0;
}
