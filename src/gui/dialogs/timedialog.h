#pragma once

#include "propertydialog.h"
#include "timedialoglogic.h"

class QLineEdit;

// "Time Setting": the delay's own dialog, and the timer's nested one.
class CTimeDialog : public CPropertyDialog
{
    Q_OBJECT

  public:
    // The delay's dialog, on its time token; OK writes the token back.
    CTimeDialog(CPanel& panel, QWidget* parent);
    // The timer's nested dialog on a "HHMMSS.hh" text; OK leaves the result in Text().
    CTimeDialog(const QString& text, QWidget* parent);
    static bool Run(CPanel& panel, QWidget* parent);

    QString Text() const { return m_logic.Text(); }

  protected:
    bool Commit() override;

  private:
    void Build();
    void Refresh();

    CTimeDialogLogic m_logic;
    QLineEdit* m_edits[CTimeDialogLogic::FieldCount] = {};
};
