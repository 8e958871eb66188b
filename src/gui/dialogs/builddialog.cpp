#include "builddialog.h"

#include "messenger.h"
#include "stringtable.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

CBuildDialog::CBuildDialog(CBuild build, IMessenger& messenger, QWidget* parent, int startDelayMs)
    : QDialog(parent), m_build(std::move(build)), m_messenger(messenger),
      m_log(new QPlainTextEdit(this))
{
    setWindowTitle(CStringTable::Get(Ids::DlgBuildTitle));
    m_log->setReadOnly(true);
    m_log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_log->setMinimumSize(560, 320);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setText(CStringTable::Get(Ids::BtnOk));
    m_ok->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_log);
    layout->addWidget(buttons);
    QTimer::singleShot(startDelayMs, this, &CBuildDialog::RunBuild);
}

void CBuildDialog::Start(const QString& line)
{
    m_log->setPlainText(line);
    ShowNow();
}

void CBuildDialog::Append(const QString& line)
{
    QString text = line;
    text.replace("\r\n", "\n");
    m_log->appendPlainText(text);
    ShowNow();
}

QString CBuildDialog::LogText() const
{
    return m_log->toPlainText();
}

void CBuildDialog::ShowNow()
{
    m_log->verticalScrollBar()->setValue(m_log->verticalScrollBar()->maximum());
    // The log shows each line at once, also between programs; input waits for the build.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void CBuildDialog::reject()
{
    if (!m_building) {
        QDialog::reject();
        return;
    }
    // The programs run inside this dialog's event loop: hiding it now would let the main
    // window start a second build into the same work folder.
    if (!m_stop.IsRequested() &&
        m_messenger.Message(CStringTable::Get(Ids::MsgStopBuild), EButtons::YesNo,
                            EIcon::Question) == EAnswer::Yes)
        m_stop.Request();
}

void CBuildDialog::RunBuild()
{
    m_ok->setEnabled(false);
    m_building = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_succeeded = m_build && m_build(*this, m_stop);
    QApplication::restoreOverrideCursor();
    m_building = false;
    m_ok->setEnabled(true);
    m_ok->setFocus();
    if (m_succeeded && m_closesOnSuccess)
        accept();
}
