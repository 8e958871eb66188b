#include "timedialog.h"

#include "panel.h"
#include "paneldialogs.h"
#include "stringtable.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

CTimeDialog::CTimeDialog(CPanel& panel, QWidget* parent)
    : CPropertyDialog(&panel, CPanelDialogs::TitleFor(panel), parent),
      m_logic(CTimeDialogLogic::ForDelay(panel.GetTokens()))
{
    Build();
}

CTimeDialog::CTimeDialog(const QString& text, QWidget* parent)
    : CPropertyDialog(nullptr, CStringTable::Get(Ids::DlgTimeTitle), parent), m_logic(text)
{
    Build();
}

void CTimeDialog::Build()
{
    static const char* const names[] = {"hours", "minutes", "seconds", "hundredths"};
    // The units after each field; the seconds end in the decimal point.
    const QString units[] = {CStringTable::Get(Ids::LblHours), CStringTable::Get(Ids::LblMinutes),
                             QStringLiteral("."), CStringTable::Get(Ids::LblSeconds)};
    auto* fields = new QWidget(this);
    auto* row = new QHBoxLayout(fields);
    row->setContentsMargins(0, 0, 0, 0);
    for (int f = 0; f < CTimeDialogLogic::FieldCount; ++f) {
        const auto field = CTimeDialogLogic::EField(f);
        QLineEdit* edit = m_edits[f] = new QLineEdit(m_logic.GetField(field), fields);
        edit->setObjectName(QLatin1String(names[f]));
        const int length = m_logic.MaxLength(field);
        edit->setMaxLength(length);
        // A digit to spare beside the longest value, at least three.
        const QString widest(qMax(3, length + 1), u'0');
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(widest) + 12);
        row->addWidget(edit);
        row->addWidget(new QLabel(units[f], fields));
        connect(edit, &QLineEdit::textEdited, this, [this, field](const QString& text) {
            m_logic.SetField(field, text);
            Refresh();
        });
    }
    row->addStretch();
    connect(m_edits[CTimeDialogLogic::Hundredths], &QLineEdit::editingFinished, this, [this] {
        m_logic.FinishHundredths();
        Refresh();
    });
    AddRow(Ids::LblTime, fields)->setBuddy(m_edits[CTimeDialogLogic::Hours]);
    AddNote(Ids::NoteTimeResolution);
    Refresh();
}

void CTimeDialog::Refresh()
{
    QLineEdit* hundredths = m_edits[CTimeDialogLogic::Hundredths];
    const QString text = m_logic.GetField(CTimeDialogLogic::Hundredths);
    if (hundredths->text() != text)
        hundredths->setText(text);
    hundredths->setEnabled(m_logic.IsHundredthsEnabled());
    SetOkEnabled(m_logic.IsOkEnabled());
    if (const int wrong = m_logic.WrongField(); wrong >= 0) {
        m_edits[wrong]->selectAll();
        m_edits[wrong]->setFocus();
    }
}

bool CTimeDialog::Run(CPanel& panel, QWidget* parent)
{
    return CTimeDialog(panel, parent).exec() == QDialog::Accepted;
}

bool CTimeDialog::Commit()
{
    if (m_panel)
        m_panel->AcceptProperties(m_logic.DelayTokens(m_panel->GetTokens()), -1);
    return true;
}
