#pragma once

#include "panel.h"

// One bit position (0 to 7) of the serial byte, wired on its left side only.
class CSerialBitPanel : public CPanel
{
  public:
    explicit CSerialBitPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    bool EditProperties(IPropertyEditor& editor) override;
};
