#pragma once

#include "gridpos.h"

#include <vector>

// A wiring fault the compiler refuses, as data: the editor words it and marks the panels.
struct CNetFault
{
    enum EKind
    {
        TwoDrivers, // two or more outputs on one net
        Loop,       // a cycle through panels none of which stores state
    };

    EKind Kind = TwoDrivers;
    int Net = -1;                 // the net for TwoDrivers, -1 for a loop
    std::vector<CGridPos> Panels; // the driving panels, or the panels of the loop, in grid order
};
