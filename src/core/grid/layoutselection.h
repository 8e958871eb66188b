#pragma once

#include "gridpos.h"

#include <QRect>
#include <QString>

// The view's selection: the anchor where the user pressed and the end the drag reached. A
// selection without an end is the anchor alone; an anchor in column 0 is no selection.
// It never spans a side column and anything else, so it is always a block the grid's
// operations take.
class CLayoutSelection
{
  public:
    CLayoutSelection() = default;
    // An end in the wrong area is pulled in: after a side-column anchor the end stays in
    // that column; after a process anchor an end in a side column becomes the nearest
    // process column. A second corner of (0, 0) is no end.
    CLayoutSelection(int c1, int r1, int c2 = 0, int r2 = 0);

    bool IsEmpty() const { return m_anchor.Column == 0; }
    bool HasEnd() const { return m_end.Row != 0; }
    CGridPos Anchor() const { return m_anchor; }
    CGridPos End() const { return m_end; }
    // The corners in order, as the grid's block operations want them.
    CGridPos TopLeft() const;
    CGridPos BottomRight() const;
    bool Contains(CGridPos pos) const;
    // The same selection moved by whole cells.
    CLayoutSelection Offset(int dc, int dr) const;

    // In logical pixels; null when empty.
    QRect Rect() const;
    // The position pane's text: where the anchor lies.
    QString PositionText() const;

    bool operator==(const CLayoutSelection&) const = default;

  private:
    CGridPos m_anchor;
    CGridPos m_end;
};
