#include "pwmdialog.h"

#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

// Zero until the application has read the board's limits; the logic then keeps its own.
int g_lowFreq = 0;
int g_highFreq = 0;

} // namespace

void CPwmDialog::SetFrequencyLimits(int lowFreq, int highFreq)
{
    g_lowFreq = lowFreq;
    g_highFreq = highFreq;
}

CPwmDialog::CPwmDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList(), g_lowFreq, g_highFreq)
{
    auto* name = new QLineEdit(CStringTable::Get(Ids::CantChange), this);
    name->setObjectName("name");
    name->setEnabled(false);
    m_port = new CPortCombo(panel.GetPortList(), m_logic.Port, this);
    AddRow(Ids::LblName, name);
    AddRow(Ids::LblAssignedPort, m_port);

    auto* frequency = new QWidget(this);
    auto* row = new QHBoxLayout(frequency);
    row->setContentsMargins(0, 0, 0, 0);
    m_frequency = new QLineEdit(m_logic.Frequency, frequency);
    m_frequency->setObjectName("frequency");
    m_frequency->setMaxLength(5);
    row->addWidget(m_frequency);
    row->addWidget(new QLabel(CStringTable::Get(Ids::UnitHz), frequency));
    row->addWidget(new QLabel(
        CStringTable::Format(Ids::NoteFreqRange, {m_logic.LowFreq, m_logic.HighFreq}), frequency));
    AddRow(Ids::LblFrequency, frequency);
    connect(m_frequency, &QLineEdit::textEdited, this, &CPwmDialog::Refresh);

    auto* duties = new QWidget(this);
    auto* grid = new QGridLayout(duties);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < CPwmDialogLogic::kDutyFields; ++i) {
        auto* field = new QLineEdit(m_logic.Duties[i], duties);
        field->setObjectName(QStringLiteral("duty%1").arg(i));
        field->setMaxLength(3);
        grid->addWidget(new QLabel(CStringTable::Get(Ids::LblDuty), duties), i % 5, (i / 5) * 2);
        grid->addWidget(field, i % 5, (i / 5) * 2 + 1);
        m_duties.append(field);
        connect(field, &QLineEdit::textEdited, this, &CPwmDialog::Refresh);
    }
    AddWidget(duties);
    AddNote(Ids::NoteDutyRange);
    connect(m_port, &QComboBox::currentIndexChanged, this, &CPwmDialog::Refresh);
    Refresh();
}

void CPwmDialog::Refresh()
{
    m_logic.Port = m_port->currentIndex();
    m_logic.Frequency = m_frequency->text();
    for (int i = 0; i < m_duties.size(); ++i)
        m_logic.Duties[i] = m_duties[i]->text();
    OkButton()->setEnabled(m_logic.IsOkEnabled());
    const int duty = m_logic.WrongField();
    QLineEdit* wrong = m_logic.IsFrequencyWrong() ? m_frequency
                       : duty >= 0                ? m_duties[duty]
                                                  : nullptr;
    if (wrong) {
        wrong->selectAll();
        wrong->setFocus();
    }
}

bool CPwmDialog::Run(CPanel& panel, QWidget* parent)
{
    return CPwmDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CPwmDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_logic.Port);
    return true;
}
