#include "serialoutdialog.h"

#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

CSerialOutDialog::CSerialOutDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetPortList())
{
    auto* name = new QLineEdit(CStringTable::Get(Ids::CantChange), this);
    name->setObjectName("name");
    name->setEnabled(false);
    m_port = new CPortCombo(panel.GetPortList(), m_logic.Port, this);
    AddRow(Ids::LblName, name);
    AddRow(Ids::LblAssignedPort, m_port);
    for (const CSerialOutDialogLogic::CFixed& fixed : CSerialOutDialogLogic::FixedSettings())
        AddRow(fixed.Label, new QLabel(fixed.Value, this));
}

bool CSerialOutDialog::Run(CPanel& panel, QWidget* parent)
{
    return CSerialOutDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CSerialOutDialog::Commit()
{
    // Nothing here is the panel's to change.
    m_panel->AcceptProperties(m_panel->GetTokens(), m_panel->GetPortIndex());
    return true;
}
