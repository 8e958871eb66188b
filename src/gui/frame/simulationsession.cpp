#include "simulationsession.h"

#include "buildpipeline.h"
#include "layoutview.h"
#include "messenger.h"
#include "panel.h"
#include "panelcell.h"
#include "panelgrid.h"
#include "simoverlay.h"
#include "simrun.h"
#include "simsignals.h"
#include "stringtable.h"
#include "virtualboard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

// Frames for the view: 30 a second or more.
constexpr int kFrameMs = 25;
const double kSpeeds[] = {0.1, 0.25, 0.5, 1, 2, 5, 10};

QString Text(int id)
{
    return CStringTable::Get(id);
}

} // namespace

CSimulationSession::CSimulationSession(QMainWindow& window, CLayoutView& view,
                                       const CPanelGrid& grid, const CBoardInfo& board,
                                       IMessenger& messenger)
    : QObject(&window), m_window(window), m_view(view), m_grid(grid), m_board(board),
      m_messenger(messenger)
{
}

CSimulationSession::~CSimulationSession()
{
    m_controller.Stop();
}

bool CSimulationSession::ReadMap(const QString& layoutPath)
{
    QString why;
    const QString path = CBuildPipeline::SimulationMapPathFor(layoutPath);
    if (m_map.Read(path, why))
        return true;
    m_messenger.Message(CStringTable::Format(Ids::SimMapFault, {path, why}), EButtons::Ok,
                        EIcon::Error);
    return false;
}

bool CSimulationSession::Start(const CSimTarget& target, const QString& layoutPath)
{
    QString why;
    if (!ReadMap(layoutPath))
        return false;
    const QString hex = CBuildPipeline::HexPathFor(layoutPath);
    if (!m_controller.Start(target, hex, m_map, why)) {
        m_messenger.Message(CStringTable::Format(Ids::SimCannotLoad, {hex, why}), EButtons::Ok,
                            EIcon::Error);
        return false;
    }
    Show(m_controller, target, true);
    return true;
}

bool CSimulationSession::ShowLive(CVirtualBoard& board, const CSimTarget& target,
                                  const QString& layoutPath)
{
    Stop();
    if (!ReadMap(layoutPath))
        return false;
    board.SetMap(m_map);
    Show(board, target, false);
    return true;
}

void CSimulationSession::Show(IPanelStateSource& source, const CSimTarget& target, bool timed)
{
    m_source = &source;
    m_signals = std::make_unique<CSimSignals>(m_grid, m_board, target);
    m_overlay = new CSimOverlay(m_view, m_grid, *m_signals, m_map, source);
    m_overlay->setFocus();
    m_view.setAcceptDrops(false);

    m_timePane = new QLabel(&m_window);
    m_window.statusBar()->insertPermanentWidget(0, m_timePane);

    // A live board runs at real time: only a simulation has a speed.
    if (timed) {
        m_speed = new QComboBox(&m_window);
        m_speed->setToolTip(Text(Ids::SimSpeed));
        for (const double speed : kSpeeds)
            m_speed->addItem(QString::number(speed) + QStringLiteral("×"), speed);
        m_speed->setCurrentIndex(3);
        m_window.statusBar()->insertPermanentWidget(1, m_speed);
        connect(m_speed, &QComboBox::currentIndexChanged, this,
                [this](int index) { m_controller.SetSpeed(m_speed->itemData(index).toDouble()); });
    }

    m_timer = new QTimer(this);
    connect(m_timer, &QTimer::timeout, this, &CSimulationSession::Tick);
    m_timer->start(kFrameMs);
    Tick();

    // The serial line, for a layout that uses it: what the board sends, with its time, and a
    // line to send from.
    if (!UsesSerial())
        return;
    m_dock = new QDockWidget(Text(Ids::SimSerialTitle), &m_window);
    m_dock->setObjectName("SerialDock");
    auto* pane = new QWidget(m_dock);
    auto* layout = new QVBoxLayout(pane);
    m_received = new QPlainTextEdit(pane);
    m_received->setReadOnly(true);
    m_received->setFont(QFont(QStringLiteral("monospace")));
    m_received->setMaximumBlockCount(2000);
    auto* row = new QHBoxLayout;
    m_typed = new QLineEdit(pane);
    m_hex = new QCheckBox(Text(Ids::SimSerialHex), pane);
    auto* send = new QPushButton(Text(Ids::SimSerialSend), pane);
    row->addWidget(m_typed, 1);
    row->addWidget(m_hex);
    row->addWidget(send);
    layout->addWidget(m_received, 1);
    layout->addLayout(row);
    m_dock->setWidget(pane);
    m_window.addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_window.resizeDocks({m_dock}, {160}, Qt::Vertical);
    connect(send, &QPushButton::clicked, this, &CSimulationSession::SendTyped);
    connect(m_typed, &QLineEdit::returnPressed, this, &CSimulationSession::SendTyped);
}

bool CSimulationSession::UsesSerial() const
{
    for (const int column : {CPanelGrid::GetInputColumn(), CPanelGrid::GetOutputColumn()})
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
            const CPanelCell* cell = m_grid.GetCell(column, row);
            const EPanelKind kind =
                cell && cell->GetPanel() ? cell->GetPanel()->GetKind() : EPanelKind::None;
            if (kind == EPanelKind::SerialIn || kind == EPanelKind::SerialIn0 ||
                kind == EPanelKind::SerialOut || kind == EPanelKind::SerialOut0)
                return true;
        }
    return false;
}

void CSimulationSession::SendTyped()
{
    QByteArray bytes;
    if (m_hex->isChecked()) {
        const QString digits = m_typed->text().remove(u' ');
        bytes = QByteArray::fromHex(digits.toLatin1());
        if (digits.size() % 2 != 0 || bytes.size() * 2 != digits.size()) {
            m_messenger.Message(Text(Ids::SimSerialBadHex), EButtons::Ok, EIcon::Warning);
            return;
        }
    } else {
        bytes = m_typed->text().toUtf8();
    }
    m_source->SendSerial(bytes);
    m_typed->clear();
}

void CSimulationSession::Tick()
{
    m_overlay->Refresh();
    const CPanelStateFrame& frame = m_overlay->Frame();
    const QString time = CSimRun::TimeText(frame.Ms);
    m_timePane->setText(
        frame.Paused ? CStringTable::Format(Ids::SimStatusPaused, {time})
                     : CStringTable::Format(Ids::SimStatusTime,
                                            {time, m_speed ? m_speed->currentData().toString()
                                                           : QStringLiteral("1")}));
    for (const auto& [ms, byte] : m_source->TakeSerial()) {
        if (!m_received)
            continue;
        const auto value = static_cast<unsigned char>(byte);
        const QString shown =
            value >= 0x20 && value < 0x7f ? QString(QChar(value)) : QStringLiteral("·");
        m_received->appendPlainText(CSimRun::TimeText(ms) + QStringLiteral("  ") +
                                    QStringLiteral("%1").arg(value, 2, 16, QChar(u'0')).toUpper() +
                                    QStringLiteral("  ") + shown);
    }
    if (!frame.Running && !frame.Error.isEmpty()) {
        const QString error = frame.Error;
        Stop();
        m_messenger.Message(CStringTable::Format(Ids::SimStopped, {time, error}), EButtons::Ok,
                            EIcon::Error);
    }
}

void CSimulationSession::Stop()
{
    m_controller.Stop();
    m_source = nullptr;
    if (m_timer)
        m_timer->stop();
    // Stop may come from the timer's own tick: everything goes once the tick is over.
    for (QObject* part :
         std::initializer_list<QObject*>{m_overlay, m_timePane, m_speed, m_dock, m_timer})
        if (part)
            part->deleteLater();
    m_overlay = nullptr;
    m_timePane = nullptr;
    m_speed = nullptr;
    m_dock = nullptr;
    m_received = nullptr;
    m_timer = nullptr;
    m_view.setAcceptDrops(true);
    m_view.setFocus();
    Q_EMIT Stopped();
}
