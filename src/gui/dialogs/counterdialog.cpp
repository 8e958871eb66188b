#include "counterdialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "stringtable.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

CCounterDialog::CCounterDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetTokens())
{
    QList<std::pair<int, int>> entries;
    for (const auto& type : CCounterDialogLogic::Types())
        entries.append({type.TextId, type.Value});
    QComboBox* type = NewChoice(entries, m_logic.GetType());
    type->setObjectName(QStringLiteral("type"));
    AddRow(Ids::LblType, type);
    connect(type, &QComboBox::currentIndexChanged, this, [this, type] {
        m_logic.SetType(ChoiceValue(type));
        Refresh();
    });

    auto* grid = new QWidget(this);
    auto* layout = new QGridLayout(grid);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < CCounterDialogLogic::ValueCount; ++i) {
        QLineEdit* edit = m_values[i] = new QLineEdit(m_logic.GetValue(i), grid);
        edit->setObjectName(QStringLiteral("value") + QString::number(i + 1));
        edit->setMaxLength(CCounterDialogLogic::MaxLength);
        layout->addWidget(edit, i / 5, i % 5);
        connect(edit, &QLineEdit::textEdited, this, [this, i](const QString& text) {
            m_logic.SetValue(i, text);
            Refresh();
        });
    }
    AddRow(Ids::LblCountValue, grid)->setBuddy(m_values[0]);
    Refresh();
}

void CCounterDialog::Refresh()
{
    SetOkEnabled(m_logic.IsOkEnabled());
    // The wrong value is selected so the user sees it and types over it.
    if (const int bad = m_logic.WrongField(); bad >= 0) {
        m_values[bad]->setFocus();
        m_values[bad]->selectAll();
    }
}

bool CCounterDialog::Run(CPanel& panel, QWidget* parent)
{
    return CCounterDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CCounterDialog::Commit()
{
    if (!m_logic.IsOkEnabled())
        return false;
    m_panel->AcceptProperties(m_logic.Tokens(), -1);
    return true;
}
