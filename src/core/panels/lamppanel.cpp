#include "lamppanel.h"

CLampPanel::CLampPanel(const QString& line)
    : CDigitalPanel({.Area = AreaOutput,
                     .BitmapId = 10084,
                     .Sides = "L",
                     .MinTokens = 3,
                     .ShowsPorts = false,
                     .PortToken = 2,
                     .Keyword = "DGO"})
{
    Init(line);
}

QString CLampPanel::GetPortName(int i) const
{
    return i == 0 ? CommentName() : QString();
}

QString CLampPanel::GetComment(int) const
{
    return QString();
}

int CLampPanel::BitmapFor(EPanelKind kind) const
{
    return kind == EPanelKind::Lamp ? 10083 : 10084;
}
