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
    return BitmapFor(GetKind()) == 0;
}

bool CFlipFlopPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    // An untyped keyword keeps whatever picture the panel had.
    if (const int id = BitmapFor(GetKind()))
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
    if (const int id = BitmapFor(GetKind()))
        m_bitmapId = id;
    InvalidateCaption();
}

int CFlipFlopPanel::BitmapFor(EPanelKind kind)
{
    switch (kind) {
    case EPanelKind::RsFlipFlop:
        return 10023;
    case EPanelKind::DFlipFlop:
        return 10024;
    case EPanelKind::TFlipFlop:
        return 10025;
    default:
        return 0;
    }
}
