#include "switchpanel.h"

CSwitchPanel::CSwitchPanel(const QString& line)
    : CDigitalPanel({.Area = AreaInput,
                     .BitmapId = 10076,
                     .Sides = "R",
                     .MinTokens = 3,
                     .ShowsPorts = false,
                     .PortToken = 2,
                     .Keyword = "DGI"})
{
    Init(line);
}

QString CSwitchPanel::GetComment(int i) const
{
    return i == 0 ? CommentName() : QString();
}

void CSwitchPanel::AcceptProperties(const QStringList& tokens, int portIndex)
{
    CDigitalPanel::AcceptProperties(tokens, portIndex);
    // The switch takes its new name at once; the lamp only when its line is next read.
    const QString name = Token(3);
    m_comment = name.startsWith(u';') ? name.mid(1) : name;
}

int CSwitchPanel::BitmapFor(EPanelKind kind) const
{
    return kind == EPanelKind::Key ? 10074 : kind == EPanelKind::Switch ? 10075 : 10076;
}
