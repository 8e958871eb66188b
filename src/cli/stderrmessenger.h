#pragma once

#include "messenger.h"

// Messages of a headless run: written to stderr. Yes/No questions take Yes; OK/Cancel
// questions take the answer the run was given (OK unless told otherwise).
class CStderrMessenger : public IMessenger
{
  public:
    explicit CStderrMessenger(EAnswer okCancel = EAnswer::Ok) : m_okCancel(okCancel) {}
    EAnswer Message(const QString& text, EButtons buttons, EIcon icon) override;

  private:
    EAnswer m_okCancel;
};
