#include "sevensegdialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QComboBox>
#include <QLineEdit>

CSevenSegDialog::CSevenSegDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList(), panel.GetMode())
{
    auto* name = new QLineEdit(CStringTable::Get(Ids::CantChange), this);
    name->setObjectName(QStringLiteral("name"));
    name->setEnabled(false);
    AddRow(Ids::LblName, name);
    auto* port = new CPortCombo(panel.GetPortList(), m_logic.GetPortIndex(), this);
    AddRow(Ids::LblAssignedPortLower, port);
    QList<std::pair<int, int>> entries;
    for (const auto& type : m_logic.Types())
        entries.append({type.TextId, type.Mode});
    QComboBox* type = NewChoice(entries, m_logic.GetMode());
    type->setObjectName(QStringLiteral("type"));
    AddRow(Ids::LblType, type);
    AddNote(Ids::NoteSevenSegReset);
    connect(port, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_logic.SetPortIndex(i); });
    connect(type, &QComboBox::currentIndexChanged, this, [this, type] {
        m_logic.SetMode(ChoiceValue(type));
        SetOkEnabled(m_logic.IsOkEnabled());
    });
    SetOkEnabled(m_logic.IsOkEnabled());
}

bool CSevenSegDialog::Run(CPanel& panel, QWidget* parent)
{
    return CSevenSegDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CSevenSegDialog::Commit()
{
    if (!m_logic.IsOkEnabled())
        return false;
    m_panel->AcceptProperties(m_logic.Tokens(), m_logic.GetPortIndex());
    return true;
}
