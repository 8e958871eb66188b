#pragma once

#include "panel.h"

// Writes a text of up to 16 characters to the upper ("1") or lower ("2") line of a
// character display, or clears it ("0"), when its input becomes active.
class CLcdPanel : public CPanel
{
  public:
    explicit CLcdPanel(const QString& line = QString());

    QString GetComment(int i) const override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
};
