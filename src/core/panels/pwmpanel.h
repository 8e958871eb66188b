#pragma once

#include "panel.h"

// A PWM output: a frequency ("1000Hz") within the board's limits and up to fifteen duty
// values in percent, one row each.
class CPwmPanel : public CPanel
{
  public:
    explicit CPwmPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;
    QString GetPortText() const override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;
};
