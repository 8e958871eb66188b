#include "layoutselection.h"

#include "layoutgeometry.h"
#include "panelgrid.h"
#include "stringtable.h"

#include <algorithm>

CLayoutSelection::CLayoutSelection(int c1, int r1, int c2, int r2) : m_anchor{c1, r1}, m_end{c2, r2}
{
    if (c1 == 0 || r1 == 0) {
        *this = CLayoutSelection();
        return;
    }
    if (c2 == 0 && r2 == 0)
        return;
    if (c1 < 0)
        m_end.Column = c1;
    else if (c2 == CPanelGrid::GetInputColumn())
        m_end.Column = 1;
    else if (c2 == CPanelGrid::GetOutputColumn())
        m_end.Column = CPanelGrid::GetColumnCount();
    if (m_end.Column == 0)
        m_end.Column = c1;
    if (m_end.Row == 0)
        m_end.Row = r1;
}

CGridPos CLayoutSelection::TopLeft() const
{
    if (!HasEnd())
        return m_anchor;
    return {std::min(m_anchor.Column, m_end.Column), std::min(m_anchor.Row, m_end.Row)};
}

CGridPos CLayoutSelection::BottomRight() const
{
    if (!HasEnd())
        return m_anchor;
    return {std::max(m_anchor.Column, m_end.Column), std::max(m_anchor.Row, m_end.Row)};
}

bool CLayoutSelection::Contains(CGridPos pos) const
{
    if (IsEmpty())
        return false;
    const CGridPos first = TopLeft(), last = BottomRight();
    // Side columns are negative, so only the same side column lies between them.
    if (first.Column < 0)
        return pos.Column == first.Column && pos.Row >= first.Row && pos.Row <= last.Row;
    return pos.Column >= first.Column && pos.Column <= last.Column && pos.Row >= first.Row &&
           pos.Row <= last.Row;
}

CLayoutSelection CLayoutSelection::Offset(int dc, int dr) const
{
    if (IsEmpty())
        return *this;
    if (!HasEnd())
        return CLayoutSelection(m_anchor.Column + dc, m_anchor.Row + dr);
    return CLayoutSelection(m_anchor.Column + dc, m_anchor.Row + dr, m_end.Column + dc,
                            m_end.Row + dr);
}

QRect CLayoutSelection::Rect() const
{
    if (IsEmpty())
        return QRect();
    const CGridPos first = TopLeft(), last = BottomRight();
    return CLayoutGeometry::BlockRect(first.Column, first.Row, last.Column, last.Row);
}

QString CLayoutSelection::PositionText() const
{
    if (IsEmpty())
        return CStringTable::Get(Ids::PosNone);
    if (m_anchor.Column == CPanelGrid::GetInputColumn())
        return CStringTable::Format(Ids::PosInput, {m_anchor.Row});
    if (m_anchor.Column == CPanelGrid::GetOutputColumn())
        return CStringTable::Format(Ids::PosOutput, {m_anchor.Row});
    return CStringTable::Format(Ids::PosProcess, {m_anchor.Column, m_anchor.Row});
}
