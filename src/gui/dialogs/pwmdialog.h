#pragma once

#include "propertydialog.h"
#include "pwmdialoglogic.h"

class CPanel;
class QComboBox;
class QLineEdit;

// The PWM panel's "PWM Setting"; the frequency limits are the board's.
class CPwmDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);
    // The board's frequency range, once the application has read the board.
    static void SetFrequencyLimits(int lowFreq, int highFreq);

  private:
    CPwmDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CPwmDialogLogic m_logic;
    QComboBox* m_port;
    QLineEdit* m_frequency;
    QList<QLineEdit*> m_duties;
};
