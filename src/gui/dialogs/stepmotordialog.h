#pragma once

#include "propertydialog.h"
#include "stepmotordialoglogic.h"

class CPanel;
class QComboBox;

// The SMOT panel's "Stepping Mortor Setting".
class CStepMotorDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CStepMotorDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CStepMotorDialogLogic m_logic;
    QComboBox* m_mode;
    QComboBox* m_speed;
};
