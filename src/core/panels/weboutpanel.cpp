#include "weboutpanel.h"

CWebOutPanel::CWebOutPanel(const QString& line)
    : CPanel({.Area = AreaOutput,
              .BitmapId = 10092,
              .Sides = "L",
              .MinTokens = 1,
              .ShowsPorts = false,
              .ShowsComment = false,
              .Keyword = "WEBOUT"})
{
    m_needsProperties = false;
    Init(line);
}

void CWebOutPanel::UpdateCaption()
{
    SetCaptionParts({});
}
