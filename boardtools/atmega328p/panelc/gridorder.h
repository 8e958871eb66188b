#pragma once

#include "gridpos.h"

#include <vector>

class CPanelGrid;

// The top cells of a layout's panels in the order the signals flow and the messages list
// them: the input column, the process columns left to right, the output column, each top
// to bottom.
class CGridOrder
{
  public:
    static std::vector<CGridPos> Panels(const CPanelGrid& grid);
};
