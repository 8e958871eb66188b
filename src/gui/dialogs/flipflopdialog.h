#pragma once

#include "flipflopdialoglogic.h"
#include "propertydialog.h"

// "Flipflop Setting": the type of the flip-flop.
class CFlipFlopDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CFlipFlopDialog(CPanel& panel, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    CFlipFlopDialogLogic m_logic;
};
