#pragma once

#include "propertydialog.h"
#include "serialindialoglogic.h"

class CPanel;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

// The receive panel's "UART Setting".
class CSerialInDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CSerialInDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;
    // Reads the controls into the logic and enables OK by it.
    void Refresh();

    CSerialInDialogLogic m_logic;
    QLineEdit* m_name;
    QLabel* m_refused;
    QComboBox* m_port;
    QRadioButton* m_compare;
    QRadioButton* m_bit;
    QList<QLineEdit*> m_values;
    QComboBox* m_bits;
};
