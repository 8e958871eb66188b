#pragma once

#include "panel.h"

// A stepping motor driven from the process area: four rows, a drive mode ("1" one-phase,
// "2" two-phase excitation) and a speed in ms per step.
class CStepMotorPanel : public CPanel
{
  public:
    explicit CStepMotorPanel(const QString& line = QString());

    bool MakeImage(CPanelImage& image) override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
};
