#pragma once

#include "app/messenger.h"

// Messages of a headless run: written to stderr, each question taking its first button.
class CStderrMessenger : public IMessenger
{
public:
    EAnswer Message(const QString& text, EButtons buttons, EIcon icon) override;
};
