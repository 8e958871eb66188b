#include "propertydialog.h"

#include "paneldialogs.h"
#include "stringtable.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CPropertyDialog::CPropertyDialog(CPanel* panel, const QString& title, QWidget* parent)
    : QDialog(parent), m_panel(panel)
{
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    m_form = new QFormLayout;
    layout->addLayout(m_form);
    auto* buttons = new QDialogButtonBox(this);
    m_ok = buttons->addButton(CStringTable::Get(Ids::BtnOk), QDialogButtonBox::AcceptRole);
    m_ok->setObjectName(QStringLiteral("ok"));
    m_ok->setDefault(true);
    QPushButton* cancel =
        buttons->addButton(CStringTable::Get(Ids::BtnCancel), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void CPropertyDialog::accept()
{
    if (m_ok->isEnabled() && Commit())
        QDialog::accept();
}

QLabel* CPropertyDialog::AddRow(int labelId, QWidget* field)
{
    auto* label = new QLabel(CStringTable::Get(labelId), this);
    label->setBuddy(field);
    m_form->addRow(label, field);
    return label;
}

void CPropertyDialog::AddWidget(QWidget* widget)
{
    m_form->addRow(widget);
}

void CPropertyDialog::AddNote(int textId)
{
    // The notes keep the line breaks they were written with.
    auto* note = new QLabel(CStringTable::Get(textId).remove(u'\r'), this);
    m_form->addRow(note);
}

QLabel* CPropertyDialog::AddRefusal(int textId)
{
    auto* note = new QLabel(CStringTable::Get(textId), this);
    note->setObjectName(QStringLiteral("refused"));
    note->setWordWrap(true);
    note->hide();
    m_form->addRow(note);
    return note;
}

void CPropertyDialog::SetOkEnabled(bool enabled)
{
    m_ok->setEnabled(enabled);
}

QComboBox* CPropertyDialog::NewChoice(const QList<std::pair<int, int>>& textAndValue,
                                      int selectedValue)
{
    auto* combo = new QComboBox(this);
    for (const auto& [textId, value] : textAndValue)
        combo->addItem(CStringTable::Get(textId), value);
    combo->setCurrentIndex(combo->findData(selectedValue));
    return combo;
}

int CPropertyDialog::ChoiceValue(const QComboBox* combo)
{
    return combo->currentIndex() < 0 ? 0 : combo->currentData().toInt();
}
