#pragma once

#include "counterdialoglogic.h"
#include "propertydialog.h"

class QLineEdit;

// "Counter Setting": hold or cyclic, and fifteen count values.
class CCounterDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CCounterDialog(CPanel& panel, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    void Refresh();

    CCounterDialogLogic m_logic;
    QLineEdit* m_values[CCounterDialogLogic::ValueCount] = {};
};
