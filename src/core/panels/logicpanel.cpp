#include "logicpanel.h"

#include <algorithm>

namespace {

// Each kind with its picture, the partner of the other orientation, and its wire sides.
// The constants' numbering is irregular (ONR 10018, OFFR 10019, OND 10020, OFFD 10021):
// the ids name the pictures and stay as they are.
struct CGateKind
{
    const char16_t* Key;
    int BitmapId;
    int Turned;
    const char16_t* Sides;
};

constexpr CGateKind kKinds[] = {
    {u"ANDD", 10013, 10012, u"UDL"}, {u"ANDR", 10012, 10013, u"ULR"},
    {u"NOTD", 10011, 10010, u"UD"},  {u"NOTR", 10010, 10011, u"LR"},
    {u"XORD", 10017, 10016, u"UDL"}, {u"XORR", 10016, 10017, u"ULR"},
    {u"ORD", 10015, 10014, u"UDL"},  {u"ORR", 10014, 10015, u"ULR"},
    {u"OND", 10020, 10018, u"D"},    {u"ONR", 10018, 10020, u"R"},
    {u"OFFD", 10021, 10019, u"D"},   {u"OFFR", 10019, 10021, u"R"},
};

const CGateKind* KindOf(int bitmapId)
{
    for (const CGateKind& kind : kKinds)
        if (kind.BitmapId == bitmapId)
            return &kind;
    return nullptr;
}

} // namespace

CLogicPanel::CLogicPanel(const QString& line)
    : CPanel({.Area = AreaProcess, .MinTokens = 2, .ShowsPorts = false, .ShowsComment = false})
{
    m_needsProperties = false;
    m_canRotate = true;
    m_tokens = QStringList{QString()};
    Init(line);
}

bool CLogicPanel::Rotate()
{
    if (const CGateKind* kind = KindOf(m_bitmapId)) {
        const CGateKind* turned = KindOf(kind->Turned);
        m_bitmapId = turned->BitmapId;
        SetToken(1, QStringView(turned->Key).right(1).toString()); // the gate word stays
    }
    UpdateSides();
    return true;
}

void CLogicPanel::UpdateSides()
{
    const CGateKind* kind = KindOf(m_bitmapId);
    m_sides = kind ? QString::fromUtf16(kind->Sides) : QString();
}

bool CLogicPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    if (TokenCount() < 2)
        return false;
    const QString key = Token(0) + Token(1);
    if (key.isEmpty())
        return false;
    const auto it = std::find_if(std::begin(kKinds), std::end(kKinds),
                                 [&](const CGateKind& k) { return key == k.Key; });
    if (it == std::end(kKinds))
        return false;
    m_bitmapId = it->BitmapId;
    UpdateSides();
    InvalidateCaption();
    return true;
}
