#pragma once

#include "panel.h"

// Carries a signal across the process area without a wire: a jump-in ("JPI") takes it
// from its left or upper neighbour, every jump-out ("JPO") with the same connection id
// gives it out to its right or lower neighbour. Rotate switches the side.
class CJumpPanel : public CPanel
{
  public:
    explicit CJumpPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    bool Rotate() override;
    bool IsIncomplete() const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

  private:
    void UpdateSides();
};
