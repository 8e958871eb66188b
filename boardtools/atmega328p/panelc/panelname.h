#pragma once

#include "gridpos.h"

#include <QList>
#include <QString>

class CPanel;
class CPanelGrid;

// A panel as the compiler's messages name it, the way the editor's check does:
// "[Lamp[run]]" in the side columns (name and label), "[Counter(2,1)]" in the process area.
class CPanelName
{
  public:
    static QString Of(const CPanel& panel, CGridPos pos);
    static QString At(const CPanelGrid& grid, CGridPos pos);
    // "A and B", "A, B and C".
    static QString List(const QStringList& names);
};
