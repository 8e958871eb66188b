#pragma once

// A grid position: 1-based column and row. Column -1 is the input column, -2 the output
// column, 1 to 16 the process area.
struct CGridPos
{
    int Column = 0;
    int Row = 0;

    // Column or row 0 is off the grid, as a hit test off the grid says.
    bool IsOnGrid() const { return Column != 0 && Row != 0; }

    bool operator==(const CGridPos&) const = default;
};
