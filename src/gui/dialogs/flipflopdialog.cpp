#include "flipflopdialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "stringtable.h"

#include <QComboBox>

CFlipFlopDialog::CFlipFlopDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetTokens())
{
    QList<std::pair<int, int>> entries;
    for (const auto& type : CFlipFlopDialogLogic::Types())
        entries.append({type.TextId, type.Value});
    QComboBox* type = NewChoice(entries, m_logic.GetType());
    type->setObjectName(QStringLiteral("type"));
    AddRow(Ids::LblType, type);
    SetOkEnabled(m_logic.IsOkEnabled());
    connect(type, &QComboBox::currentIndexChanged, this, [this, type] {
        m_logic.SetType(ChoiceValue(type));
        SetOkEnabled(m_logic.IsOkEnabled());
    });
}

bool CFlipFlopDialog::Run(CPanel& panel, QWidget* parent)
{
    return CFlipFlopDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CFlipFlopDialog::Commit()
{
    if (!m_logic.IsOkEnabled())
        return false;
    m_panel->AcceptProperties(m_logic.Tokens(), -1);
    return true;
}
