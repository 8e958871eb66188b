#pragma once

#include "portlist.h"

#include <QStringList>

// What the "Stepping Motor Setting" dialog does with a SMOTO panel's tokens. The speed is a
// list of suggestions that also takes any typed number.
class CStepMotorOutDialogLogic
{
  public:
    CStepMotorOutDialogLogic(const QStringList& tokens, const CPortList& ports);

    static QStringList ModeTexts();

    // A typed speed counts; an empty text counts only while a suggestion is selected.
    bool IsSpeedValid() const;
    // Whether the speed field is to be selected.
    bool IsSpeedWrong() const;
    bool IsOkEnabled() const { return Port >= 0 && Mode >= 0 && IsSpeedValid(); }
    QStringList Tokens() const;

    QStringList Ports;
    int Port = -1;
    int Mode = -1;
    QStringList Speeds;
    int Speed = -1;
    QString SpeedText;
};
