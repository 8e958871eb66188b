#include "analogpanel.h"

CAnalogPanel::CAnalogPanel(const QString& line)
    : CPanel({.Area = AreaInput,
              .BitmapId = 10077,
              .Sides = "R",
              .MinTokens = 4,
              .FixedTokens = 3,
              .PortToken = 2,
              .Keyword = "ANI"})
{
    Init(line);
}
