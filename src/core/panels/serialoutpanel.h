#pragma once

#include "panel.h"

// The serial send line. Its dialog shows the port and the fixed settings only.
class CSerialOutPanel : public CPanel
{
  public:
    explicit CSerialOutPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetPortText() const override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
};
