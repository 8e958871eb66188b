#include "stderrmessenger.h"

#include <cstdio>

EAnswer CStderrMessenger::Message(const QString& text, EButtons buttons, EIcon)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    return buttons == EButtons::YesNo || buttons == EButtons::YesNoCancel ? EAnswer::Yes : EAnswer::Ok;
}
