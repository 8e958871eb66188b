#pragma once

#include "propertydialog.h"
#include "sevensegdialoglogic.h"

// "7Segment-LED Setting": the display type.
class CSevenSegDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CSevenSegDialog(CPanel& panel, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    CSevenSegDialogLogic m_logic;
};
