#include "buzzerdialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QCheckBox>
#include <QLineEdit>

CBuzzerDialog::CBuzzerDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList())
{
    auto* name = new QLineEdit(CStringTable::Get(Ids::CantChange), this);
    name->setObjectName(QStringLiteral("name"));
    name->setEnabled(false);
    AddRow(Ids::LblName, name);
    auto* port = new CPortCombo(panel.GetPortList(), m_logic.GetPortIndex(), this);
    AddRow(Ids::LblAssignedPort, port);
    connect(port, &QComboBox::currentIndexChanged, this, [this](int i) {
        m_logic.SetPortIndex(i);
        SetOkEnabled(m_logic.IsOkEnabled());
    });
    static const int texts[] = {Ids::ChkFreq2000, Ids::ChkFreq1000, Ids::ChkFreq500};
    for (int f = 0; f < CBuzzerDialogLogic::FrequencyCount; ++f) {
        const auto frequency = CBuzzerDialogLogic::EFrequency(f);
        auto* box = new QCheckBox(CStringTable::Get(texts[f]), this);
        box->setObjectName(QStringLiteral("freq") + CBuzzerDialogLogic::FrequencyText(frequency));
        box->setChecked(m_logic.IsChecked(frequency));
        AddWidget(box);
        connect(box, &QCheckBox::toggled, this, [this, frequency](bool on) {
            m_logic.SetChecked(frequency, on);
            SetOkEnabled(m_logic.IsOkEnabled());
        });
    }
    SetOkEnabled(m_logic.IsOkEnabled());
}

bool CBuzzerDialog::Run(CPanel& panel, QWidget* parent)
{
    return CBuzzerDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CBuzzerDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_logic.GetPortIndex());
    return true;
}
