#pragma once

#include "propertydialog.h"
#include "stepmotoroutdialoglogic.h"

class CPanel;
class QComboBox;

// The SMOTO panel's "Stepping Motor Setting".
class CStepMotorOutDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CStepMotorOutDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CStepMotorOutDialogLogic m_logic;
    QComboBox* m_port;
    QComboBox* m_mode;
    QComboBox* m_speed;
};
