#include "panelname.h"

#include "panelgrid.h"
#include "stringtable.h"

QString CPanelName::Of(const CPanel& panel, CGridPos pos)
{
    // A panel the board's palette does not know has no name but its keyword.
    const QString name = panel.GetName().isEmpty() ? panel.GetTokens().value(0) : panel.GetName();
    if (pos.Column < 1) {
        const QString label = panel.GetTrailingComment();
        return CStringTable::Format(Ids::PanelcSideName,
                                    {name, label.isEmpty() ? QString() : "[" + label + "]"});
    }
    return CStringTable::Format(Ids::PanelcProcessName, {name, pos.Column, pos.Row});
}

QString CPanelName::At(const CPanelGrid& grid, CGridPos pos)
{
    const CPanelCell* cell = grid.GetCell(pos);
    return cell && cell->GetPanel() ? Of(*cell->GetPanel(), pos) : QString();
}

QString CPanelName::List(const QStringList& names)
{
    if (names.size() < 2)
        return names.value(0);
    QString head = names.front();
    for (qsizetype i = 1; i + 1 < names.size(); ++i)
        head = CStringTable::Format(Ids::PanelcListMore, {head, names[i]});
    return CStringTable::Format(Ids::PanelcListTwo, {head, names.back()});
}
