#pragma once

#include "lcddialoglogic.h"
#include "propertydialog.h"

class CPanel;
class QLabel;
class QLineEdit;
class QRadioButton;

// The LCD panel's "LCD Setting".
class CLcdDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CLcdDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CLcdDialogLogic m_logic;
    QRadioButton* m_above;
    QRadioButton* m_below;
    QRadioButton* m_clear;
    QLineEdit* m_text;
    QLabel* m_refused;
};
