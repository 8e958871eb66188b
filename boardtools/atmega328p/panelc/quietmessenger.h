#pragma once

#include "messenger.h"

// The compiler shows no boxes: what the layout file reader would ask or announce is
// answered with its first button, and the faults that matter reach PANEL.err instead.
class CQuietMessenger : public IMessenger
{
  public:
    EAnswer Message(const QString&, EButtons buttons, EIcon) override
    {
        return buttons == EButtons::YesNo || buttons == EButtons::YesNoCancel ? EAnswer::Yes
                                                                              : EAnswer::Ok;
    }
};
