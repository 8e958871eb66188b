#pragma once

#include "panel.h"

// A buzzer on one port, sounding at any of 2000, 1000 and 500 Hz: one row a frequency.
class CBuzzerPanel : public CPanel
{
  public:
    explicit CBuzzerPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;
    QString GetPortText() const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;
};
