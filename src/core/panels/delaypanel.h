#pragma once

#include "panel.h"

// Passes its input on after a set time, kept as seconds with two decimals ("90.45S").
class CDelayPanel : public CPanel
{
  public:
    explicit CDelayPanel(const QString& line = QString());

    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
};
