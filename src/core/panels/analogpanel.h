#pragma once

#include "panel.h"

// An analog input pin. It keeps its line and answers with the base behaviour.
class CAnalogPanel : public CPanel
{
  public:
    explicit CAnalogPanel(const QString& line = QString());
};
