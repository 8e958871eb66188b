#pragma once

#include "numberdialoglogic.h"
#include "propertydialog.h"

// The one-field "Setting" of the serial bit panel and of the jump panels.
class CNumberDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CNumberDialog(CPanel& panel, CNumberDialogLogic::EKind kind, QWidget* parent);
    static bool Run(CPanel& panel, CNumberDialogLogic::EKind kind, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    CNumberDialogLogic m_logic;
};
