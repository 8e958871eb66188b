#include "serialindialog.h"

#include "paneldialogs.h"
#include "portcombo.h"
#include "stringtable.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

CSerialInDialog::CSerialInDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(panel.GetTokens(), panel.GetPortList())
{
    m_name = new QLineEdit(m_logic.Name, this);
    m_name->setObjectName("name");
    m_name->setMaxLength(100);
    m_name->setCursorPosition(int(m_logic.Name.size()));
    m_port = new CPortCombo(panel.GetPortList(), m_logic.Port, this);
    AddRow(Ids::LblName, m_name);
    m_refused = AddRefusal(Ids::NoteNameRefused);
    AddRow(Ids::LblAssignedPort, m_port);

    m_compare = new QRadioButton(CStringTable::Get(Ids::RadCompareMode), this);
    m_compare->setObjectName("compare");
    m_bit = new QRadioButton(CStringTable::Get(Ids::RadBitMode), this);
    m_bit->setObjectName("bit");
    // Neither button is checked for a line of no known mode.
    auto* modes = new QButtonGroup(this);
    modes->addButton(m_compare);
    modes->addButton(m_bit);
    m_compare->setChecked(m_logic.Mode == CSerialInDialogLogic::Compare);
    m_bit->setChecked(m_logic.Mode == CSerialInDialogLogic::Bit);
    AddWidget(m_compare);

    auto* values = new QWidget(this);
    auto* grid = new QGridLayout(values);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < CSerialInDialogLogic::kValueFields; ++i) {
        auto* field = new QLineEdit(m_logic.Values[i], values);
        field->setObjectName(QStringLiteral("value%1").arg(i));
        field->setMaxLength(3);
        grid->addWidget(new QLabel(CStringTable::Get(Ids::LblValue), values), i % 5, (i / 5) * 2);
        grid->addWidget(field, i % 5, (i / 5) * 2 + 1);
        m_values.append(field);
        connect(field, &QLineEdit::textEdited, this, &CSerialInDialog::Refresh);
    }
    AddWidget(values);
    AddNote(Ids::NoteByteRange);
    AddWidget(m_bit);
    m_bits = new QComboBox(this);
    m_bits->setObjectName("bits");
    m_bits->addItems(CSerialInDialogLogic::BitCounts());
    m_bits->setCurrentIndex(m_logic.BitCount);
    AddRow(Ids::LblNumberOfBits, m_bits);

    connect(m_name, &QLineEdit::textEdited, this, &CSerialInDialog::Refresh);
    connect(m_port, &QComboBox::currentIndexChanged, this, &CSerialInDialog::Refresh);
    connect(m_bits, &QComboBox::currentIndexChanged, this, &CSerialInDialog::Refresh);
    connect(m_compare, &QRadioButton::toggled, this, &CSerialInDialog::Refresh);
    connect(m_bit, &QRadioButton::toggled, this, &CSerialInDialog::Refresh);
    Refresh();
}

void CSerialInDialog::Refresh()
{
    m_logic.Name = m_name->text();
    m_logic.Port = m_port->currentIndex();
    m_logic.Mode = m_compare->isChecked() ? CSerialInDialogLogic::Compare
                   : m_bit->isChecked()   ? CSerialInDialogLogic::Bit
                                          : CSerialInDialogLogic::NoMode;
    for (int i = 0; i < m_values.size(); ++i) {
        m_logic.Values[i] = m_values[i]->text();
        m_values[i]->setEnabled(m_logic.Mode == CSerialInDialogLogic::Compare);
    }
    m_bits->setEnabled(m_logic.Mode == CSerialInDialogLogic::Bit);
    m_logic.BitCount = m_bits->currentIndex();
    m_refused->setVisible(!m_logic.IsNameValid());
    OkButton()->setEnabled(m_logic.IsOkEnabled());
    if (m_logic.Mode == CSerialInDialogLogic::Compare) {
        const int wrong = m_logic.WrongField();
        if (wrong >= 0) {
            m_values[wrong]->selectAll();
            m_values[wrong]->setFocus();
        }
    }
}

bool CSerialInDialog::Run(CPanel& panel, QWidget* parent)
{
    return CSerialInDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CSerialInDialog::Commit()
{
    m_panel->AcceptProperties(m_logic.Tokens(), m_panel->GetPortIndex());
    return true;
}
