#pragma once

#include "gridpos.h"

#include <QString>

class CPanel;
class CScanCode;

// The gates and constants: one C expression each, written in the netlist's evaluation
// order so that a chain of gates settles within one scan.
class CGateWriter
{
  public:
    static bool Handles(const QString& keyword);
    static void Write(const CPanel& panel, CGridPos pos, CScanCode& code);
};
