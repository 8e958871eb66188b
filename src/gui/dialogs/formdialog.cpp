#include "formdialog.h"

#include "stringtable.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CFormDialog::CFormDialog(const QString& title, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    m_form = new QFormLayout;
    layout->addLayout(m_form);
    auto* buttons = new QDialogButtonBox(this);
    m_ok = buttons->addButton(CStringTable::Get(Ids::BtnOk), QDialogButtonBox::AcceptRole);
    m_ok->setObjectName("ok");
    QPushButton* cancel = buttons->addButton(CStringTable::Get(Ids::BtnCancel), QDialogButtonBox::RejectRole);
    cancel->setObjectName("cancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void CFormDialog::AddRow(int labelId, QWidget* field)
{
    auto* label = new QLabel(CStringTable::Get(labelId), this);
    label->setBuddy(field);
    m_form->addRow(label, field);
}

void CFormDialog::AddRow(QWidget* field)
{
    m_form->addRow(field);
}

QLabel* CFormDialog::AddRefusal(int textId)
{
    auto* note = new QLabel(CStringTable::Get(textId), this);
    note->setObjectName("refused");
    note->setWordWrap(true);
    note->hide();
    m_form->addRow(note);
    return note;
}
