#pragma once

#include "gridpos.h"

#include <QString>

class CPanel;
class CScanCode;

// The seven-segment display and its decoders. The display, in the output column, reads
// every decoder of its type (bit, digit or segment) in the process area and shows what
// they add up to while its own input is on; the decoders write nothing themselves.
class CSevenSegWriter
{
  public:
    static bool Handles(const QString& keyword);
    static void Write(const CPanel& panel, CGridPos pos, CScanCode& code);
};
