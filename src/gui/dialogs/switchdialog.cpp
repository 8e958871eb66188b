#include "switchdialog.h"

#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

// Only the switch offers its comment as the first name; the lamp starts without one.
QString InitialName(const CPanel& panel)
{
    const EPanelKind kind = panel.GetKind();
    const bool isSwitch =
        kind == EPanelKind::Key || kind == EPanelKind::Switch || kind == EPanelKind::DigitalIn;
    return isSwitch ? panel.GetLineComment() : QString();
}

} // namespace

CSwitchDialog::CSwitchDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList(), InitialName(panel))
{
    m_name = new QLineEdit(m_logic.GetName(), this);
    m_name->setObjectName(QStringLiteral("name"));
    m_name->deselect();
    m_name->home(false);
    m_port = new CPortCombo(panel.GetPortList(), m_logic.GetPortIndex(), this);
    m_level = new QComboBox(this);
    m_level->setObjectName(QStringLiteral("level"));
    m_level->addItems(CSwitchDialogLogic::Levels());
    m_level->setCurrentIndex(m_logic.GetLevelIndex());
    AddRow(Ids::LblName, m_name);
    m_refused = AddRefusal(Ids::NoteNameRefused);
    AddRow(Ids::LblAssignedPort, m_port);
    AddRow(Ids::LblActiveLevel, m_level);
    connect(m_name, &QLineEdit::textChanged, this, [this](const QString& t) {
        m_logic.SetName(t);
        Refresh();
    });
    connect(m_port, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_logic.SetPortIndex(i); });
    connect(m_level, &QComboBox::currentIndexChanged, this,
            [this](int i) { m_logic.SetLevelIndex(i); });
    Refresh();
}

void CSwitchDialog::Refresh()
{
    m_refused->setVisible(!m_logic.IsNameValid());
    SetOkEnabled(m_logic.IsOkEnabled());
}

bool CSwitchDialog::Run(CPanel& panel, QWidget* parent)
{
    return CSwitchDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CSwitchDialog::Commit()
{
    if (!m_logic.IsOkEnabled())
        return false;
    m_panel->AcceptProperties(m_logic.Tokens(), m_logic.GetPortIndex());
    return true;
}
