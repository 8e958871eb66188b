#pragma once

#include "panel.h"

// Counts pulses, hold ("H") or cyclic ("C"), with up to fifteen count values: one
// stacked 32 x 32 picture a value.
class CCounterPanel : public CPanel
{
  public:
    explicit CCounterPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    int GetMode() const override;
    bool MakeImage(CPanelImage& image) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;
};
