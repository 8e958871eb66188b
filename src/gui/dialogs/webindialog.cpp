#include "webindialog.h"

#include "paneldialogs.h"
#include "stringtable.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CWebInDialog::CWebInDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent), m_logic(panel.GetTokens())
{
    m_name = new QLineEdit(m_logic.Name, this);
    m_name->setObjectName("name");
    m_bits = new QComboBox(this);
    m_bits->setObjectName("bits");
    m_bits->addItems(CWebInDialogLogic::BitCounts());
    m_bits->setCurrentIndex(m_logic.BitCount);
    AddRow(Ids::LblName, m_name);
    m_refused = AddRefusal(Ids::NoteNameRefused);
    AddRow(Ids::LblNumberOfBits, m_bits);
    connect(m_name, &QLineEdit::textEdited, this, &CWebInDialog::Refresh);
    connect(m_bits, &QComboBox::currentIndexChanged, this, &CWebInDialog::Refresh);
    Refresh();
}

void CWebInDialog::Refresh()
{
    m_logic.Name = m_name->text();
    m_logic.BitCount = m_bits->currentIndex();
    m_refused->setVisible(!m_logic.IsNameValid());
    OkButton()->setEnabled(m_logic.IsOkEnabled());
}

bool CWebInDialog::Run(CPanel& panel, QWidget* parent)
{
    return CWebInDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CWebInDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_panel->GetPortIndex());
    return true;
}
