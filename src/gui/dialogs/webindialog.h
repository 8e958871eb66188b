#pragma once

#include "propertydialog.h"
#include "webindialoglogic.h"

class CPanel;
class QComboBox;
class QLabel;
class QLineEdit;

// The WEB-in panel's "WEB-in Stting".
class CWebInDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CWebInDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CWebInDialogLogic m_logic;
    QLineEdit* m_name;
    QLabel* m_refused;
    QComboBox* m_bits;
};
