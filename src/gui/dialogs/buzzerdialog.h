#pragma once

#include "buzzerdialoglogic.h"
#include "propertydialog.h"

// "Buzzer Setting": the port and the frequencies.
class CBuzzerDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CBuzzerDialog(CPanel& panel, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    CBuzzerDialogLogic m_logic;
};
