#pragma once

#include <QStringList>

// What the "Stepping Mortor Setting" dialog does with a SMOT panel's tokens. A list index
// of -1 is a list without a selection.
class CStepMotorDialogLogic
{
  public:
    explicit CStepMotorDialogLogic(const QStringList& tokens);

    // The list texts, in the order the dialog shows them.
    static QStringList ModeTexts();
    static QStringList SpeedTexts();

    bool IsOkEnabled() const { return Mode >= 0 && Speed >= 0; }
    QStringList Tokens() const;

    int Mode = -1;
    int Speed = -1;
};
