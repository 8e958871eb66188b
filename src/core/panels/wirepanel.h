#pragma once

#include "panel.h"

// A piece of wiring in one process cell: a run, a corner, or two pieces (a crossing, a
// branch, two corners), named by the cell sides each piece joins.
class CWirePanel : public CPanel
{
  public:
    explicit CWirePanel(const QString& line = QString());

    // True for a wire whose line named no kind of the table.
    bool IsIncomplete() const override;
    bool SetLine(const QString& line) override;
    QString GetLine() const override;
    // The separate pieces of wire in the cell, each the sides it joins; none for a wire of
    // no kind.
    QStringList GetPieces() const;

  private:
    // Once a line named a kind, a later line that names none leaves the wire complete.
    bool m_kindNamed = false;
};
