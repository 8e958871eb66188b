#pragma once

#include "netpin.h"

#include <QString>
#include <QStringList>

#include <vector>

class CPanel;

// What a panel offers the netlist: its pins, how it joins them inside itself, and how it
// is evaluated in a scan. Signals flow from the left and the top to the right and the
// bottom: a process panel reads its "U" and "L" sides and drives its "R" and "D" sides.
class CPanelPins
{
  public:
    enum EBehaviour
    {
        None,          // no kind yet: an unfinished wire or gate
        Source,        // input column: sampled at the start of the scan
        Combinational, // gates and constants: their outputs follow their inputs at once
        Storing,       // flip-flops, counters, timers, delays, the motor: keep state between scans
        Sink,          // output column, serial bits, segment decoders: read nets only
        Wire,          // wires and jumps: carry nets, are not evaluated
    };

    // The panel's pins, top to bottom, each side in "UDLR" order. A side-column panel has
    // its pin on every row; a tall process panel reads "U" and "L" on its top row, drives
    // "R" on every row and "D" on its bottom row.
    static std::vector<CNetPin> Of(const CPanel& panel, CGridPos top);
    // The groups of sides the panel joins inside itself: the pieces of a wire ("UR,UD" is
    // one piece "UDR": the run and its branch share the side letters). Empty for others.
    static QStringList PiecesOf(const CPanel& panel);
    // The connection id of a jump panel, 0 for every other panel.
    static int JumpIdOf(const CPanel& panel);
    static EBehaviour BehaviourOf(const CPanel& panel);
};
