#pragma once

#include "gridpos.h"

#include <QString>

class CPanel;
class CScanCode;

// Flip-flops, counters, timers, delays and the process-area stepping motor: each keeps a
// state in the run-time's type, shows it in the second step of the scan and takes its
// inputs in the last, so it answers one scan later and may sit in a loop.
class CStoringWriter
{
  public:
    static bool Handles(const QString& keyword);
    static void Write(const CPanel& panel, CGridPos pos, CScanCode& code);
};
