#include "targetdialog.h"

#include "messenger.h"
#include "settings.h"
#include "stringtable.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QVBoxLayout>

CTargetDialog::CTargetDialog(const CBoardInfo& inUse, const CSettings& settings,
                             const QString& targetFolder, QWidget* parent)
    : QDialog(parent), m_logic(settings, targetFolder, inUse)
{
    setWindowTitle(CStringTable::Get(Ids::DlgTargetTitle));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    layout->addLayout(form);
    const auto addRow = [this, form](int text, QWidget* field) {
        auto* label = new QLabel(CStringTable::Get(text), this);
        label->setBuddy(field);
        form->addRow(label, field);
        return label;
    };

    m_target = new QComboBox(this);
    m_target->setObjectName("target");
    for (const CTargetSettingsLogic::CCandidate& candidate : m_logic.Candidates())
        m_target->addItem(candidate.DisplayName, candidate.Index);
    m_clock = new QComboBox(this);
    m_clock->setObjectName("clock");
    const auto validator = new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("^(\\d{1,3}\\.){0,3}\\d{0,3}$")), this);
    m_address = new QLineEdit(CTargetSettingsLogic::AddressText(m_logic.IPAddress), this);
    m_address->setObjectName("ipAddress");
    m_address->setValidator(validator);
    m_mask = new QLineEdit(CTargetSettingsLogic::AddressText(m_logic.IPMask), this);
    m_mask->setObjectName("ipMask");
    m_mask->setValidator(validator);
    addRow(Ids::LblTarget, m_target);
    addRow(Ids::LblClockSource, m_clock);
    m_addressLabel = addRow(Ids::LblIpAddress, m_address);
    m_maskLabel = addRow(Ids::LblNetMask, m_mask);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(CStringTable::Get(Ids::BtnOk), QDialogButtonBox::AcceptRole)
        ->setObjectName("ok");
    buttons->addButton(CStringTable::Get(Ids::BtnCancel), QDialogButtonBox::RejectRole)
        ->setObjectName("cancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);

    m_target->setCurrentIndex(m_logic.Target);
    ShowLogic();
    connect(m_target, &QComboBox::currentIndexChanged, this, &CTargetDialog::TargetChosen);
    connect(m_clock, &QComboBox::currentIndexChanged, this,
            [this](int index) { m_logic.Clock = index; });
}

void CTargetDialog::ShowLogic()
{
    const QSignalBlocker quiet(m_clock);
    m_clock->clear();
    m_clock->addItems(m_logic.ClockSources);
    m_clock->setCurrentIndex(m_logic.Clock < m_clock->count() ? m_logic.Clock : -1);
    for (QWidget* widget : {static_cast<QWidget*>(m_addressLabel), static_cast<QWidget*>(m_address),
                            static_cast<QWidget*>(m_maskLabel), static_cast<QWidget*>(m_mask)})
        widget->setVisible(m_logic.ShowsNetwork);
}

void CTargetDialog::TargetChosen(int entry)
{
    m_logic.SelectTarget(entry);
    ShowLogic();
}

bool CTargetDialog::Run(const CBoardInfo& inUse, CSettings& settings, const QString& targetFolder,
                        IMessenger& messenger, QWidget* parent)
{
    CTargetDialog dialog(inUse, settings, targetFolder, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    CTargetSettingsLogic& logic = dialog.m_logic;
    CTargetSettingsLogic::ReadAddress(dialog.m_address->text(), logic.IPAddress);
    CTargetSettingsLogic::ReadAddress(dialog.m_mask->text(), logic.IPMask);
    const bool keep =
        logic.ChangesBoard() && messenger.Message(CStringTable::Get(Ids::MsgRestartForTarget),
                                                  EButtons::YesNo, EIcon::Question) == EAnswer::Yes;
    logic.Apply(settings, keep);
    settings.Save();
    return true;
}
