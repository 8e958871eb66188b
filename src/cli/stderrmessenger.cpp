#include "stderrmessenger.h"

#include <cstdio>

EAnswer CStderrMessenger::Message(const QString& text, EButtons buttons, EIcon)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    switch (buttons) {
    case EButtons::YesNo:
    case EButtons::YesNoCancel:
        return EAnswer::Yes;
    case EButtons::OkCancel:
        return m_okCancel;
    default:
        return EAnswer::Ok;
    }
}
