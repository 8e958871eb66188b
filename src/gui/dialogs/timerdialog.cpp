#include "timerdialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "stringtable.h"
#include "timedialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CTimerDialog::CTimerDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetTokens())
{
    QList<std::pair<int, int>> entries;
    for (const auto& kind : CTimerDialogLogic::Kinds())
        entries.append({kind.TextId, kind.Value});
    QComboBox* kind = NewChoice(entries, m_logic.GetKind());
    kind->setObjectName(QStringLiteral("type"));
    AddRow(Ids::LblTypeSpaced, kind);

    auto* timeRow = new QWidget(this);
    auto* row = new QHBoxLayout(timeRow);
    row->setContentsMargins(0, 0, 0, 0);
    m_time = new QLineEdit(timeRow);
    m_time->setObjectName(QStringLiteral("time"));
    m_time->setReadOnly(true);
    auto* set = new QPushButton(CStringTable::Get(Ids::BtnSet), timeRow);
    set->setObjectName(QStringLiteral("set"));
    set->setAutoDefault(false);
    row->addWidget(m_time);
    row->addWidget(set);
    AddRow(Ids::LblTimeSetting, timeRow)->setBuddy(m_time);

    connect(kind, &QComboBox::currentIndexChanged, this, [this, kind] {
        m_logic.SetKind(ChoiceValue(kind));
        Refresh();
    });
    connect(set, &QPushButton::clicked, this, &CTimerDialog::EditTime);
    Refresh();
}

void CTimerDialog::EditTime()
{
    CTimeDialog time(m_logic.TimeDialogText(), this);
    if (time.exec() != QDialog::Accepted)
        return;
    m_logic.SetTimeDialogText(time.Text());
    Refresh();
}

void CTimerDialog::Refresh()
{
    m_time->setText(m_logic.ShownTime());
    SetOkEnabled(m_logic.IsOkEnabled());
}

bool CTimerDialog::Run(CPanel& panel, QWidget* parent)
{
    return CTimerDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CTimerDialog::Commit()
{
    if (!m_logic.IsOkEnabled())
        return false;
    m_panel->AcceptProperties(m_logic.Tokens(), -1);
    return true;
}
