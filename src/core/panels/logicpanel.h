#pragma once

#include "panel.h"

// The gates AND, OR, XOR and NOT and the constants ON and OFF. The line is the gate word
// and the side its output leaves by ("R" or "D"); Rotate flips that side.
class CLogicPanel : public CPanel
{
  public:
    explicit CLogicPanel(const QString& line = QString());

    bool Rotate() override;
    // Refuses (false) a line that names no gate and side; the panel keeps its kind.
    bool SetLine(const QString& line) override;

  private:
    void UpdateSides();
};
