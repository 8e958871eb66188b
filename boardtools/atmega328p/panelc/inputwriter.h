#pragma once

#include "gridpos.h"

#include <QString>

class CPanel;
class CScanCode;

// The input column: keys and switches (debounced), digital and analog inputs, the serial
// receiver. Each samples its pin in the first step of the scan and drives its rows.
class CInputWriter
{
  public:
    static bool Handles(const QString& keyword);
    static void Write(const CPanel& panel, CGridPos pos, CScanCode& code);
};
