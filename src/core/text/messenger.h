#pragma once

#include <QString>

// The answers and button sets of a message. A question's first button is its default.
enum class EButtons
{
    Ok,
    OkCancel,
    YesNo,
    YesNoCancel
};
enum class EAnswer
{
    Ok,
    Cancel,
    Yes,
    No
};
enum class EIcon
{
    Information,
    Warning,
    Error,
    Question,
    Stop
};

// Every message box and question of the model goes through here: the editor shows boxes,
// the command line writes to stderr and takes the default answer, tests script answers.
class IMessenger
{
  public:
    virtual ~IMessenger() = default;
    virtual EAnswer Message(const QString& text, EButtons buttons = EButtons::Ok,
                            EIcon icon = EIcon::Information) = 0;
};
