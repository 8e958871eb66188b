#include "wirepanel.h"

namespace {

// The written form of each kind, its picture, the sides it joins and the separate pieces
// of wire that join them ("," between pieces): a crossing and two corners are two pieces, a
// branch is one. The letter orders "DL" and "DLR" are how the sides have always been stored.
struct CWireKind
{
    int BitmapId;
    const char16_t* Form;
    const char16_t* Sides;
    const char16_t* Pieces;
};

// In the order GetLine looks a picture up.
constexpr CWireKind kKinds[] = {
    {10004, u"LD", u"DL", u"LD"},         {10002, u"LR", u"LR", u"LR"},
    {10008, u"LR,LD", u"DLR", u"LRD"},    {10001, u"UD", u"UD", u"UD"},
    {10006, u"UD,LR", u"UDLR", u"UD,LR"}, {10003, u"UR", u"UR", u"UR"},
    {10005, u"UR,LD", u"UDLR", u"UR,LD"}, {10007, u"UR,UD", u"UDR", u"UDR"},
};

const CWireKind* KindOf(int bitmapId)
{
    for (const CWireKind& kind : kKinds)
        if (kind.BitmapId == bitmapId)
            return &kind;
    return nullptr;
}

// Only the arguments before a comment name the kind.
int BitmapFor(const QStringList& tokens)
{
    const QString form = tokens.mid(1).join(u',');
    for (const CWireKind& kind : kKinds)
        if (form == QStringView(kind.Form))
            return kind.BitmapId;
    // A two-piece line starting "LR" or "UD" is read loosely: its second piece is taken as
    // the one of the table, and written back so.
    if (tokens.size() == 3 && (tokens[1] == u"LR" || tokens[1] == u"UD"))
        for (const CWireKind& kind : kKinds)
            if (QStringView(kind.Form).startsWith(tokens[1] + u','))
                return kind.BitmapId;
    return CPanel::NoPanel;
}

} // namespace

CWirePanel::CWirePanel(const QString& line)
    : CPanel({.Area = AreaProcess, .ShowsPorts = false, .ShowsComment = false})
{
    m_needsProperties = false;
    m_weight = 0;
    Init(line);
}

bool CWirePanel::IsIncomplete() const
{
    return !m_kindNamed;
}

bool CWirePanel::SetLine(const QString& line)
{
    m_bitmapId = NoPanel;
    CPanel::SetLine(line);
    m_bitmapId = BitmapFor(m_tokens.mid(0, TokensBeforeComment()));
    const CWireKind* kind = KindOf(m_bitmapId);
    m_sides = kind ? QString::fromUtf16(kind->Sides) : QString();
    if (kind)
        m_kindNamed = true;
    return true;
}

QString CWirePanel::GetLine() const
{
    const CWireKind* kind = KindOf(m_bitmapId);
    // A line that names no kind is written as it was read, so a save loses nothing; a
    // comment straight after the keyword ends the line, and such a line has nothing to keep.
    if (!kind && TokensBeforeComment() > 1)
        return CPanel::GetLine();
    QString line = QStringLiteral("LINE\t");
    if (kind)
        line += QStringView(kind->Form);
    return line;
}

QStringList CWirePanel::GetPieces() const
{
    const CWireKind* kind = KindOf(m_bitmapId);
    return kind ? QString::fromUtf16(kind->Pieces).split(u',') : QStringList();
}
