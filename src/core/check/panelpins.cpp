#include "panelpins.h"

#include "panel.h"
#include "wirepanel.h"

namespace {

EPinRole RoleOf(const CPanel& panel, QChar side)
{
    switch (panel.GetArea()) {
    case CPanel::AreaInput:
        return EPinRole::Output;
    case CPanel::AreaOutput:
        return EPinRole::Input;
    default:
        if (CPanelPins::BehaviourOf(panel) == CPanelPins::Wire)
            return EPinRole::Wire;
        return side == u'U' || side == u'L' ? EPinRole::Input : EPinRole::Output;
    }
}

bool HasPinOnRow(const CPanel& panel, QChar side, int row)
{
    if (panel.GetArea() != CPanel::AreaProcess)
        return true;
    if (side == u'R')
        return true;
    if (side == u'D')
        return row == panel.GetHeight() - 1;
    return row == 0;
}

} // namespace

std::vector<CNetPin> CPanelPins::Of(const CPanel& panel, CGridPos top)
{
    std::vector<CNetPin> pins;
    const QString sides = panel.GetSides();
    for (int row = 0; row < panel.GetHeight(); ++row)
        for (const QChar side : QStringLiteral("UDLR"))
            if (sides.contains(side) && HasPinOnRow(panel, side, row))
                pins.push_back({top, row, char(side.unicode()), RoleOf(panel, side)});
    return pins;
}

QStringList CPanelPins::PiecesOf(const CPanel& panel)
{
    return panel.GetKind() == EPanelKind::Wire ? static_cast<const CWirePanel&>(panel).GetPieces()
                                               : QStringList();
}

int CPanelPins::JumpIdOf(const CPanel& panel)
{
    return IsJump(panel.GetKind()) ? qMax(panel.GetReference(), 0) : 0;
}

CPanelPins::EBehaviour CPanelPins::BehaviourOf(const CPanel& panel)
{
    if (panel.GetSides().isEmpty())
        return None;
    switch (panel.GetArea()) {
    case CPanel::AreaInput:
        return Source;
    case CPanel::AreaOutput:
        return Sink;
    default:
        break;
    }
    const EPanelKind kind = panel.GetKind();
    if (kind == EPanelKind::Wire || IsJump(kind))
        return Wire;
    if (IsGate(kind))
        return Combinational;
    if (kind == EPanelKind::SerialBit || kind == EPanelKind::SerialBit0 || IsDecoder(kind))
        return Sink;
    return Storing;
}
