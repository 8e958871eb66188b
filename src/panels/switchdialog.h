#pragma once

#include "propertydialog.h"
#include "switchdialoglogic.h"

class QComboBox;
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
    CSwitchDialogLogic m_logic;
    QLineEdit* m_name;
    QComboBox* m_port;
    QComboBox* m_level;
};
