#pragma once

#include "panel.h"

// Signals sent over the board's network. A layout with a WEB-in panel needs one.
class CWebOutPanel : public CPanel
{
  public:
    explicit CWebOutPanel(const QString& line = QString());

    void UpdateCaption() override;
};
