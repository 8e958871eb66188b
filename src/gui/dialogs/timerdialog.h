#pragma once

#include "propertydialog.h"
#include "timerdialoglogic.h"

class QLineEdit;

// "Timer Setting": the kind, and the time through the nested "Time Setting".
class CTimerDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    CTimerDialog(CPanel& panel, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

  protected:
    bool Commit() override;

  private:
    void EditTime();
    void Refresh();

    CTimerDialogLogic m_logic;
    QLineEdit* m_time;
};
