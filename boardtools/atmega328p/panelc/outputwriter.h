#pragma once

#include "gridpos.h"

#include <QByteArray>
#include <QString>

class CPanel;
class CScanCode;

// The output column but the seven-segment display: lamps and digital outputs, pulse,
// PWM and buzzer outputs, the serial sender, the LCD and the stepping motor driver. Each
// writes its pins in the fourth step of the scan.
class COutputWriter
{
  public:
    static bool Handles(const QString& keyword);
    static void Write(const CPanel& panel, CGridPos pos, CScanCode& code);

    // The display's bytes of an LCD text: ASCII as it is, half-width katakana in the
    // display's own codes, anything else "?"; at most 16 characters.
    static QByteArray LcdBytes(const QString& text);
};
