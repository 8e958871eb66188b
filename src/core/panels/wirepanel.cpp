#include "wirepanel.h"

namespace {

// The written form of each kind, its picture and the sides it joins. The letter orders
// "DL" and "DLR" are how the sides have always been stored.
struct CWireKind
{
    int BitmapId;
    const char16_t* Form;
    const char16_t* Sides;
};

// In the order GetLine looks a picture up.
constexpr CWireKind kKinds[] = {
    {10004, u"LD", u"DL"},      {10002, u"LR", u"LR"},      {10008, u"LR,LD", u"DLR"},
    {10001, u"UD", u"UD"},      {10006, u"UD,LR", u"UDLR"}, {10003, u"UR", u"UR"},
    {10005, u"UR,LD", u"UDLR"}, {10007, u"UR,UD", u"UDR"},
};

const CWireKind* KindOf(int bitmapId)
{
    for (const CWireKind& kind : kKinds)
        if (kind.BitmapId == bitmapId)
            return &kind;
    return nullptr;
}

int BitmapFor(const QStringList& tokens)
{
    if (tokens.size() == 2) {
        const QString& piece = tokens[1];
        return piece == u"LD" ? 10004 : piece == u"LR" ? 10002 : piece == u"UD" ? 10001
             : piece == u"UR" ? 10003 : CPanel::NoPanel;
    }
    if (tokens.size() == 3) {
        // A two-piece line starting "LR" or "UD" is read loosely: its second piece is
        // taken as the one of the table, and written back so.
        const QString &first = tokens[1], &second = tokens[2];
        if (first == u"LR")
            return 10008;
        if (first == u"UD")
            return 10006;
        if (first == u"UR")
            return second == u"LD" ? 10005 : second == u"UD" ? 10007 : CPanel::NoPanel;
    }
    return CPanel::NoPanel;
}

} // namespace

CWirePanel::CWirePanel(const QString& line)
    : CPanel({.Area = AreaProcess, .ShowsPorts = false, .ShowsComment = false})
{
    m_enabled = false;
    m_option = 0;
    Init(line);
}

bool CWirePanel::IsIncomplete() const
{
    return m_visible;
}

bool CWirePanel::SetLine(const QString& line)
{
    m_bitmapId = NoPanel;
    CPanel::SetLine(line);
    m_bitmapId = BitmapFor(m_tokens);
    const CWireKind* kind = KindOf(m_bitmapId);
    m_sides = kind ? QString::fromUtf16(kind->Sides) : QString();
    if (kind)
        m_visible = false; // the mark of a line that named a valid kind
    return true;
}

QString CWirePanel::GetLine() const
{
    const CWireKind* kind = KindOf(m_bitmapId);
    QString line = QStringLiteral("LINE\t");
    if (kind)
        line += QStringView(kind->Form);
    return line;
}
