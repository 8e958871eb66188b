#pragma once

#include "panel.h"

// Holds, toggles or shapes a signal for a set time: "TIM" with "H" (hold) or "T" (toggle),
// "TIM1" with "N" (one-shot) or "R" (retriggerable one-shot), and the time ("1.50S").
class CTimerPanel : public CPanel
{
  public:
    explicit CTimerPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;

    // The caption text of a kind letter, "" for an unknown one.
    static QString KindText(const QString& letter);
};
