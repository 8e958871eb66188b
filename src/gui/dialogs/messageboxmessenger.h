#pragma once

#include "messenger.h"

class QWidget;

// The model's messages and questions as message boxes over the main window.
class CMessageBoxMessenger : public IMessenger
{
  public:
    void SetParent(QWidget* parent) { m_parent = parent; }
    EAnswer Message(const QString& text, EButtons buttons, EIcon icon) override;

  private:
    QWidget* m_parent = nullptr;
};
