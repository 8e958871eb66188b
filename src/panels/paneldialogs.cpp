#include "paneldialogs.h"

#include "res/stringtable.h"

// One line a family: its dialog's Run(panel, parent) answers true on OK.
bool CPanelDialogs::Edit(CPanel& panel, EPanelDialog dialog)
{
    switch (dialog) {
    default:
        return false;
    }
}

QString CPanelDialogs::TitleFor(const CPanel& panel)
{
    return CStringTable::Get(Ids::PropertySettings) + u'(' + panel.GetName() + u')';
}
