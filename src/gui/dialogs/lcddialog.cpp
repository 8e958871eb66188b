#include "lcddialog.h"

#include "paneldialogs.h"
#include "stringtable.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

CLcdDialog::CLcdDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetTokens())
{
    auto* modes = new QWidget(this);
    auto* row = new QHBoxLayout(modes);
    row->setContentsMargins(0, 0, 0, 0);
    auto* group = new QButtonGroup(this);
    const struct
    {
        QRadioButton*& Button;
        int Text;
        CLcdDialogLogic::EMode Mode;
        const char* Name;
    } buttons[] = {{m_above, Ids::RadLcdAbove, CLcdDialogLogic::Above, "above"},
                   {m_below, Ids::RadLcdBelow, CLcdDialogLogic::Below, "below"},
                   {m_clear, Ids::RadLcdClear, CLcdDialogLogic::Clear, "clear"}};
    for (const auto& b : buttons) {
        b.Button = new QRadioButton(CStringTable::Get(b.Text), modes);
        b.Button->setObjectName(b.Name);
        b.Button->setChecked(m_logic.Mode == b.Mode);
        group->addButton(b.Button);
        row->addWidget(b.Button);
    }
    AddRow(Ids::LblDisplayMode, modes);
    m_text = new QLineEdit(m_logic.Text, this);
    m_text->setObjectName("text");
    m_text->setMaxLength(CLcdDialogLogic::kMaxText);
    AddRow(Ids::LblString, m_text);
    m_refused = AddRefusal(Ids::NoteTextRefused);
    for (QRadioButton* button : {m_above, m_below, m_clear})
        connect(button, &QRadioButton::toggled, this, &CLcdDialog::Refresh);
    connect(m_text, &QLineEdit::textEdited, this, &CLcdDialog::Refresh);
    Refresh();
}

void CLcdDialog::Refresh()
{
    m_logic.Mode = m_above->isChecked()   ? CLcdDialogLogic::Above
                   : m_below->isChecked() ? CLcdDialogLogic::Below
                   : m_clear->isChecked() ? CLcdDialogLogic::Clear
                                          : CLcdDialogLogic::NoMode;
    m_logic.Text = m_text->text();
    m_text->setEnabled(m_logic.IsTextEnabled());
    m_refused->setVisible(!m_logic.IsTextValid());
    OkButton()->setEnabled(m_logic.IsOkEnabled());
}

bool CLcdDialog::Run(CPanel& panel, QWidget* parent)
{
    return CLcdDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CLcdDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_panel->GetPortIndex());
    return true;
}
