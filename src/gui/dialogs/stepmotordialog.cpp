#include "stepmotordialog.h"

#include "paneldialogs.h"
#include "stringtable.h"

#include <QComboBox>
#include <QPushButton>

CStepMotorDialog::CStepMotorDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetTokens())
{
    m_speed = new QComboBox(this);
    m_speed->setObjectName("speed");
    m_speed->addItems(CStepMotorDialogLogic::SpeedTexts());
    m_speed->setCurrentIndex(m_logic.Speed);
    m_mode = new QComboBox(this);
    m_mode->setObjectName("mode");
    m_mode->addItems(CStepMotorDialogLogic::ModeTexts());
    m_mode->setCurrentIndex(m_logic.Mode);
    AddRow(Ids::LblSpeed, m_speed);
    AddRow(Ids::LblDriveMode, m_mode);
    for (QComboBox* box : {m_speed, m_mode})
        connect(box, &QComboBox::currentIndexChanged, this, &CStepMotorDialog::Refresh);
    Refresh();
}

void CStepMotorDialog::Refresh()
{
    m_logic.Speed = m_speed->currentIndex();
    m_logic.Mode = m_mode->currentIndex();
    OkButton()->setEnabled(m_logic.IsOkEnabled());
}

bool CStepMotorDialog::Run(CPanel& panel, QWidget* parent)
{
    return CStepMotorDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CStepMotorDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_panel->GetPortIndex());
    return true;
}
