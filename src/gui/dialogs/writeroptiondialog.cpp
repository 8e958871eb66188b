#include "writeroptiondialog.h"

#include "flashwriterdialog.h"
#include "settings.h"
#include "stringtable.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

#ifdef Q_OS_WIN
constexpr bool kComNumbers = true;
#else
constexpr bool kComNumbers = false;
#endif

} // namespace

CWriterOptionDialog::CWriterOptionDialog(CSettings& settings,
                                         const QList<CSerialDevicePortFinder::CDevice>& devices,
                                         QWidget* parent)
    : QDialog(parent), m_settings(settings), m_logic(settings, devices, kComNumbers)
{
    setWindowTitle(CStringTable::Get(Ids::DlgWriterOptionTitle));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    layout->addLayout(form);
    m_port = new QComboBox(this);
    m_port->setObjectName("port");
    for (const CWriterOptionLogic::CItem& item : m_logic.Ports)
        m_port->addItem(item.Text);
    m_port->setCurrentIndex(m_logic.Port);
    m_wait = new QComboBox(this);
    m_wait->setObjectName("wait");
    m_wait->addItems(CWriterOptionLogic::WaitTexts());
    m_wait->setCurrentIndex(m_logic.Wait);
    auto* portLabel = new QLabel(
        CStringTable::Get(kComNumbers ? Ids::LblWriterPort : Ids::LblWriterSerialPort), this);
    portLabel->setBuddy(m_port);
    form->addRow(portLabel, m_port);
    auto* waitLabel = new QLabel(CStringTable::Get(Ids::LblWriterWait), this);
    waitLabel->setBuddy(m_wait);
    form->addRow(waitLabel, m_wait);

    auto* own = new QPushButton(CStringTable::Get(Ids::BtnFlashWriterSettings), this);
    own->setObjectName("flashWriter");
    own->setAutoDefault(false);
    connect(own, &QPushButton::clicked, this,
            [this] { CFlashWriterDialog::Run(m_settings, this); });
    layout->addWidget(own);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(CStringTable::Get(Ids::BtnOk), QDialogButtonBox::AcceptRole)
        ->setObjectName("ok");
    buttons->addButton(CStringTable::Get(Ids::BtnCancel), QDialogButtonBox::RejectRole)
        ->setObjectName("cancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

bool CWriterOptionDialog::Run(CSettings& settings, QWidget* parent)
{
    return Run(settings,
               kComNumbers ? QList<CSerialDevicePortFinder::CDevice>()
                           : CSerialDevicePortFinder::SystemDevices(),
               parent);
}

bool CWriterOptionDialog::Run(CSettings& settings,
                              const QList<CSerialDevicePortFinder::CDevice>& devices,
                              QWidget* parent)
{
    CWriterOptionDialog dialog(settings, devices, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    dialog.m_logic.Port = dialog.m_port->currentIndex();
    dialog.m_logic.Wait = dialog.m_wait->currentIndex();
    dialog.m_logic.Apply(settings);
    settings.Save();
    return true;
}
