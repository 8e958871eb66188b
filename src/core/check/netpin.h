#pragma once

#include "gridpos.h"

// What a pin does on its net. Wire and jump sides only carry the signal on.
enum class EPinRole
{
    Input,
    Output,
    Wire
};

// One place where a signal enters or leaves a cell: a side of one row of a panel. A
// multi-row panel has a pin for each row that offers one, so Row counts from its top.
struct CNetPin
{
    CGridPos Pos;  // the panel's top cell
    int Row = 0;   // rows below the top
    char Side = 0; // 'U', 'D', 'L' or 'R'
    EPinRole Role = EPinRole::Wire;

    // The cell the pin sits in.
    CGridPos Cell() const { return {Pos.Column, Pos.Row + Row}; }
    bool operator==(const CNetPin&) const = default;
};
