#include "flashwriterdialog.h"

#include "settings.h"
#include "stringtable.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

CFlashWriterDialog::CFlashWriterDialog(const CSettings& settings, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(CStringTable::Get(Ids::DlgFlashWriterTitle));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    m_program = new QLineEdit(settings.GetWriter(), this);
    m_program->setObjectName("program");
    auto* browse = new QPushButton(CStringTable::Get(Ids::BtnBrowse), this);
    browse->setObjectName("browse");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &CFlashWriterDialog::Browse);
    m_options = new QLineEdit(settings.GetWriterOptions(), this);
    m_options->setObjectName("options");
    auto* programLabel = new QLabel(CStringTable::Get(Ids::LblWriteExecFile), this);
    programLabel->setBuddy(m_program);
    auto* optionsLabel = new QLabel(CStringTable::Get(Ids::LblCommandOptions), this);
    optionsLabel->setBuddy(m_options);
    grid->addWidget(programLabel, 0, 0, 1, 2);
    grid->addWidget(m_program, 1, 0);
    grid->addWidget(browse, 1, 1);
    grid->addWidget(optionsLabel, 2, 0, 1, 2);
    grid->addWidget(m_options, 3, 0, 1, 2);
    m_program->setMinimumWidth(320);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(CStringTable::Get(Ids::BtnOk), QDialogButtonBox::AcceptRole)
        ->setObjectName("ok");
    buttons->addButton(CStringTable::Get(Ids::BtnCancel), QDialogButtonBox::RejectRole)
        ->setObjectName("cancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void CFlashWriterDialog::Browse()
{
#ifdef Q_OS_WIN
    const QString filter = CStringTable::Get(Ids::FilterExecutable);
#else
    // Programs here carry no extension: any file may be the writer.
    const QString filter;
#endif
    const QString path = QFileDialog::getOpenFileName(this, QString(), m_program->text(), filter);
    if (!path.isEmpty())
        m_program->setText(path);
}

bool CFlashWriterDialog::Run(CSettings& settings, QWidget* parent)
{
    CFlashWriterDialog dialog(settings, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    settings.SetWriter(dialog.m_program->text());
    settings.SetWriterOptions(dialog.m_options->text());
    settings.Save();
    return true;
}
