#include "stepmotoroutdialog.h"

#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CStepMotorOutDialog::CStepMotorOutDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList())
{
    m_port = new CPortCombo(panel.GetPortList(), m_logic.Port, this);
    m_mode = new QComboBox(this);
    m_mode->setObjectName("mode");
    m_mode->addItems(CStepMotorOutDialogLogic::ModeTexts());
    m_mode->setCurrentIndex(m_logic.Mode);
    m_speed = new QComboBox(this);
    m_speed->setObjectName("speed");
    m_speed->setEditable(true);
    m_speed->setInsertPolicy(QComboBox::NoInsert);
    m_speed->addItems(m_logic.Speeds);
    m_speed->setCurrentIndex(m_logic.Speed);
    if (m_logic.Speed < 0)
        m_speed->setEditText(QString());
    AddRow(Ids::LblAssignedPort, m_port);
    AddRow(Ids::LblDriveModeUpper, m_mode);
    AddRow(Ids::LblSpeed, m_speed);
    AddNote(Ids::NoteMotorSpeed);
    connect(m_port, &QComboBox::currentIndexChanged, this, &CStepMotorOutDialog::Refresh);
    connect(m_mode, &QComboBox::currentIndexChanged, this, &CStepMotorOutDialog::Refresh);
    connect(m_speed, &QComboBox::currentIndexChanged, this, &CStepMotorOutDialog::Refresh);
    connect(m_speed, &QComboBox::editTextChanged, this, &CStepMotorOutDialog::Refresh);
    Refresh();
}

void CStepMotorOutDialog::Refresh()
{
    m_logic.Port = m_port->currentIndex();
    m_logic.Mode = m_mode->currentIndex();
    // A typed text that no longer reads as the chosen suggestion stands on its own.
    m_logic.SpeedText = m_speed->currentText();
    m_logic.Speed = m_speed->currentText() == m_speed->itemText(m_speed->currentIndex())
                        ? m_speed->currentIndex()
                        : -1;
    OkButton()->setEnabled(m_logic.IsOkEnabled());
    if (m_logic.IsSpeedWrong()) {
        m_speed->lineEdit()->selectAll();
        m_speed->setFocus();
    }
}

bool CStepMotorOutDialog::Run(CPanel& panel, QWidget* parent)
{
    return CStepMotorOutDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CStepMotorOutDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_panel->GetPortIndex());
    return true;
}
