#pragma once

#include <QString>

class CPanelGrid;

// The check every build runs first. It never stops early and shows nothing itself: each
// fault is one line of the report, ended by CR LF, and an empty report means it passed.
class CLayoutCheck
{
  public:
    static QString Run(const CPanelGrid& grid);
};
