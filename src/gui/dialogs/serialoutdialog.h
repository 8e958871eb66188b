#pragma once

#include "propertydialog.h"
#include "serialoutdialoglogic.h"

class CPanel;
class QComboBox;

// The send panel's "UART Setting": shows the port and the fixed line settings.
class CSerialOutDialog : public CPropertyDialog
{
  public:
    // Answers true on OK, after handing the tokens to the panel.
    static bool Run(CPanel& panel, QWidget* parent);

  private:
    CSerialOutDialog(CPanel& panel, QWidget* parent);
    bool Commit() override;

    CSerialOutDialogLogic m_logic;
    QComboBox* m_port;
};
