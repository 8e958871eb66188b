#pragma once

#include "simcontroller.h"
#include "simmap.h"
#include "simtarget.h"

#include <QObject>

#include <memory>

class CBoardInfo;
class CLayoutView;
class CPanelGrid;
class CSimOverlay;
class CSimSignals;
class CVirtualBoard;
class IMessenger;
class QCheckBox;
class QComboBox;
class QDockWidget;
class QLabel;
class QLineEdit;
class QMainWindow;
class QPlainTextEdit;
class QTimer;

// One simulation as the editor shows it: the controller that runs the HEX file, the overlay
// that animates the grid and takes the inputs, the time in the status bar, the speed on a
// tool bar and the serial line in a dock. The layout stays untouched; Stop takes it all away.
class CSimulationSession : public QObject
{
    Q_OBJECT

  public:
    CSimulationSession(QMainWindow& window, CLayoutView& view, const CPanelGrid& grid,
                       const CBoardInfo& board, IMessenger& messenger);
    ~CSimulationSession() override;

    // Runs the HEX file and map a build just made beside the layout; false, with the reason
    // shown, when they cannot run.
    bool Start(const CSimTarget& target, const QString& layoutPath);
    // Shows the program a virtual board runs, written from the layout: the map beside the
    // layout tells the board where its state lies.
    bool ShowLive(CVirtualBoard& board, const CSimTarget& target, const QString& layoutPath);
    void Stop();
    // A simulation runs, or a live board is shown.
    bool IsRunning() const { return m_source != nullptr; }
    void SetPaused(bool paused) { m_controller.SetPaused(paused); }
    void Step() { m_controller.Step(); }
    CSimController& Controller() { return m_controller; }
    CSimOverlay* Overlay() const { return m_overlay; }

  Q_SIGNALS:
    // The simulation ended, by Stop or because the program stopped.
    void Stopped();

  private:
    // The map beside the layout's HEX file; false, with a message, when it does not read.
    bool ReadMap(const QString& layoutPath);
    void Show(IPanelStateSource& source, const CSimTarget& target, bool timed);
    void Tick();
    void SendTyped();
    bool UsesSerial() const;

    QMainWindow& m_window;
    CLayoutView& m_view;
    const CPanelGrid& m_grid;
    const CBoardInfo& m_board;
    IMessenger& m_messenger;
    CSimController m_controller;
    IPanelStateSource* m_source = nullptr;
    CSimMap m_map;
    std::unique_ptr<CSimSignals> m_signals;
    CSimOverlay* m_overlay = nullptr;
    QTimer* m_timer = nullptr;
    QLabel* m_timePane = nullptr;
    QComboBox* m_speed = nullptr;
    QDockWidget* m_dock = nullptr;
    QPlainTextEdit* m_received = nullptr;
    QLineEdit* m_typed = nullptr;
    QCheckBox* m_hex = nullptr;
};
