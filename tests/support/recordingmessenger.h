#pragma once

#include "messenger.h"

#include <QList>
#include <QStringList>

// Records every message and answers questions from a script; an exhausted script answers
// with the question's first button.
class CRecordingMessenger : public IMessenger
{
  public:
    EAnswer Message(const QString& text, EButtons buttons, EIcon) override
    {
        Texts.append(text);
        if (!Answers.isEmpty())
            return Answers.takeFirst();
        switch (buttons) {
        case EButtons::YesNo:
        case EButtons::YesNoCancel:
            return EAnswer::Yes;
        default:
            return EAnswer::Ok;
        }
    }

    QStringList Texts;
    QList<EAnswer> Answers;
};
