#pragma once

#include "propertydialog.h"
#include "switchdialoglogic.h"

class QComboBox;
class QLabel;
class QLineEdit;

// "Switch Setting" of the switch and the lamp.
class CSwitchDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CSwitchDialog(CPanel& panel, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    void Refresh();

    CSwitchDialogLogic m_logic;
    QLineEdit* m_name;
    QLabel* m_refused;
    QComboBox* m_port;
    QComboBox* m_level;
};
