#pragma once

#include "propertydialog.h"
#include "pulsedialoglogic.h"

class CPanel;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

// The PULS panel's "Pulse Setting".
class CPulseDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CPulseDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CPulseDialogLogic m_logic;
    QLineEdit* m_name;
    QLabel* m_refused;
    QComboBox* m_port;
    QComboBox* m_level;
    QRadioButton* m_five;
    QRadioButton* m_three;
};
