#pragma once

#include "panel.h"

// A stepping motor driver in the output column: two rows, "Enable" and "Dir", with a
// drive mode ("1" 1-2 phase, "2" two-phase excitation) and a speed of 20 to 30000 ms per step.
class CStepMotorOutPanel : public CPanel
{
  public:
    explicit CStepMotorOutPanel(const QString& line = QString());

    QString GetComment(int row) const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
};
