#include "numberdialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "stringtable.h"

#include <QLabel>
#include <QLineEdit>

CNumberDialog::CNumberDialog(CPanel& panel, CNumberDialogLogic::EKind kind, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(kind, panel.GetTokens(), panel.GetReference())
{
    auto* edit = new QLineEdit(m_logic.GetText(), this);
    edit->setObjectName(QStringLiteral("number"));
    edit->setMaxLength(m_logic.GetMaxLength());
    AddRow(m_logic.GetLabelId(), edit);
    AddNote(m_logic.GetNoteId());
    const auto refresh = [this, edit] {
        SetOkEnabled(m_logic.IsOkEnabled());
        if (m_logic.IsTextWrong()) {
            edit->selectAll();
            edit->setFocus();
        }
    };
    connect(edit, &QLineEdit::textEdited, this, [this, refresh](const QString& text) {
        m_logic.SetText(text);
        refresh();
    });
    refresh();
}

bool CNumberDialog::Run(CPanel& panel, CNumberDialogLogic::EKind kind, QWidget* parent)
{
    return CNumberDialog(panel, kind, parent).exec() == QDialog::Accepted;
}

bool CNumberDialog::Commit()
{
    if (!m_logic.IsOkEnabled())
        return false;
    m_panel->AcceptProperties(m_logic.Tokens(), -1);
    return true;
}
