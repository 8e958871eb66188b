#pragma once

#include "portlist.h"

#include <QStringList>

// What the "Pulse Setting" dialog does with a PULS panel's tokens.
class CPulseDialogLogic
{
  public:
    enum ESteps
    {
        NoSteps,
        FiveSteps,
        ThreeSteps
    };

    CPulseDialogLogic(const QStringList& tokens, const CPortList& ports);

    static QStringList Levels() { return {QStringLiteral("H")}; }

    bool IsNameValid() const;
    bool IsOkEnabled() const
    {
        return Port >= 0 && Level >= 0 && Steps != NoSteps && IsNameValid();
    }
    QStringList Tokens() const;

    QString Name;
    QStringList Ports;
    int Port = -1;
    int Level = -1;
    ESteps Steps = NoSteps;
};
