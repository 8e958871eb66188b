#include "pulsedialog.h"

#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

CPulseDialog::CPulseDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList())
{
    m_name = new QLineEdit(m_logic.Name, this);
    m_name->setObjectName("name");
    m_name->setCursorPosition(int(m_logic.Name.size()));
    m_port = new CPortCombo(panel.GetPortList(), m_logic.Port, this);
    m_level = new QComboBox(this);
    m_level->setObjectName("level");
    m_level->addItems(CPulseDialogLogic::Levels());
    m_level->setCurrentIndex(m_logic.Level);
    AddRow(Ids::LblName, m_name);
    m_refused = AddRefusal(Ids::NoteNameRefused);
    AddRow(Ids::LblAssignedPort, m_port);
    AddRow(Ids::LblActiveLevel, m_level);

    auto* output = new QGroupBox(CStringTable::Get(Ids::TextOutput), this);
    auto* box = new QVBoxLayout(output);
    m_five = new QRadioButton(CStringTable::Get(Ids::RadPulse5Steps), output);
    m_five->setObjectName("five");
    m_three = new QRadioButton(CStringTable::Get(Ids::RadPulse3Steps), output);
    m_three->setObjectName("three");
    auto* steps = new QButtonGroup(this);
    steps->addButton(m_five);
    steps->addButton(m_three);
    m_five->setChecked(m_logic.Steps == CPulseDialogLogic::FiveSteps);
    m_three->setChecked(m_logic.Steps == CPulseDialogLogic::ThreeSteps);
    box->addWidget(m_five);
    box->addWidget(m_three);
    AddWidget(output);

    connect(m_name, &QLineEdit::textEdited, this, &CPulseDialog::Refresh);
    connect(m_port, &QComboBox::currentIndexChanged, this, &CPulseDialog::Refresh);
    connect(m_level, &QComboBox::currentIndexChanged, this, &CPulseDialog::Refresh);
    connect(m_five, &QRadioButton::toggled, this, &CPulseDialog::Refresh);
    connect(m_three, &QRadioButton::toggled, this, &CPulseDialog::Refresh);
    Refresh();
}

void CPulseDialog::Refresh()
{
    m_logic.Name = m_name->text();
    m_logic.Port = m_port->currentIndex();
    m_logic.Level = m_level->currentIndex();
    m_logic.Steps = m_five->isChecked()    ? CPulseDialogLogic::FiveSteps
                    : m_three->isChecked() ? CPulseDialogLogic::ThreeSteps
                                           : CPulseDialogLogic::NoSteps;
    m_refused->setVisible(!m_logic.IsNameValid());
    OkButton()->setEnabled(m_logic.IsOkEnabled());
}

bool CPulseDialog::Run(CPanel& panel, QWidget* parent)
{
    return CPulseDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CPulseDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_logic.Port);
    return true;
}
