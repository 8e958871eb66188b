#include "mainframe.h"

#include "boardinfo.h"
#include "builddialog.h"
#include "buildpipeline.h"
#include "layoutdocument.h"
#include "layoutview.h"
#include "paletteentry.h"
#include "panel.h"
#include "panelbar.h"
#include "panelcell.h"
#include "pwmdialog.h"
#include "settings.h"
#include "simoverlay.h"
#include "simtargetof.h"
#include "simulationsession.h"
#include "startup.h"
#include "stringtable.h"
#include "targetdialog.h"
#include "usedportdialog.h"
#include "virtualboard.h"
#include "writeroptiondialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrinter>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

namespace {

QString Text(int id)
{
    return CStringTable::Get(id);
}

} // namespace

CMainFrame::CMainFrame(const CBoardInfo& board, CSettings& settings, IPropertyEditor& editor,
                       QWidget* parent)
    : QMainWindow(parent), m_board(board), m_settings(settings),
      m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    m_messenger.SetParent(this);
    m_document = std::make_unique<CLayoutDocument>(&m_board, m_messenger);
    // The bars come first: the view asks them for the chosen entry as soon as it exists.
    m_inOutBar = new CPanelBar(Text(Ids::BarInOut), m_board.GetInOutPalette(), this);
    m_processBar = new CPanelBar(Text(Ids::BarProcess), m_board.GetPartsPalette(), this);
    m_view = new CLayoutView(*m_document, *this, editor, this);
    setCentralWidget(m_view);
    m_simulation = new CSimulationSession(*this, *m_view, m_document->Grid(), m_board, m_messenger);
    connect(m_simulation, &CSimulationSession::Stopped, this, [this] {
        m_actions.value(Ids::MenuRunSimPause)->setChecked(false);
        UpdateCommands();
    });
    addDockWidget(Qt::LeftDockWidgetArea, m_inOutBar);
    addDockWidget(Qt::LeftDockWidgetArea, m_processBar);
    // One chosen entry across both bars.
    connect(m_inOutBar, &CPanelBar::EntryChosen, m_processBar, &CPanelBar::ClearChoice);
    connect(m_processBar, &CPanelBar::EntryChosen, m_inOutBar, &CPanelBar::ClearChoice);

    CreateActions();
    CreateStatusBar();
    connect(m_view, &CLayoutView::StatusText, this,
            [this](const QString& text) { statusBar()->showMessage(text); });
    connect(m_view, &CLayoutView::PositionText, m_positionPane, &QLabel::setText);
    connect(m_view, &CLayoutView::UsageChanged, this, [this](int percent) {
        m_usePane->setText(CStringTable::Format(Ids::StatusUsed, {percent}));
    });
    connect(m_view, &CLayoutView::Modified, this, [this] {
        UpdateTitle();
        UpdateCommands();
    });
    connect(m_view, &CLayoutView::SelectionChanged, this, &CMainFrame::UpdateCommands);
    connect(m_view, &CLayoutView::ClipboardChanged, this, &CMainFrame::UpdateCommands);

    setAcceptDrops(true);
    Refresh();
    m_view->ClearSelection();
    UpdateTitle();
    UpdateCommands();
    resize(1000, 800);
}

CMainFrame::~CMainFrame()
{
    SetVirtualBoard(false);
}

QAction* CMainFrame::AddAction(QMenu* menu, int text, const QList<QKeySequence>& keys,
                               std::function<void()> handler)
{
    auto* action = new QAction(Text(text), this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, std::move(handler));
    menu->addAction(action);
    m_actions.insert(text, action);
    return action;
}

void CMainFrame::CreateActions()
{
    QMenu* file = menuBar()->addMenu(Text(Ids::MenuFile));
    AddAction(file, Ids::MenuFileNew, {QKeySequence::New}, [this] { FileNew(); });
    AddAction(file, Ids::MenuFileOpen, {QKeySequence::Open}, [this] { FileOpen(); });
    AddAction(file, Ids::MenuFileSave, {QKeySequence::Save}, [this] { FileSave(); });
    AddAction(file, Ids::MenuFileSaveAs, {QKeySequence::SaveAs}, [this] { FileSaveAs(); });
    file->addSeparator();
    AddAction(file, Ids::MenuFilePrint, {QKeySequence::Print}, [this] { FilePrint(); });
    AddAction(file, Ids::MenuFilePreview, {}, [this] { FilePreview(); });
    AddAction(file, Ids::MenuFilePrintSetup, {}, [this] { FilePrintSetup(); });
    file->addSeparator();
    m_recentMenu = file->addMenu(Text(Ids::MenuFileRecent));
    UpdateRecentMenu();
    file->addSeparator();
    AddAction(file, Ids::MenuFileExit, {QKeySequence::Quit}, [this] { close(); });

    QMenu* edit = menuBar()->addMenu(Text(Ids::MenuEdit));
    AddAction(edit, Ids::MenuEditUndo,
              {QKeySequence::Undo, QKeySequence(Qt::ALT | Qt::Key_Backspace)},
              [this] { Edit(&CLayoutView::Undo); });
    edit->addSeparator();
    AddAction(edit, Ids::MenuEditCut, {QKeySequence::Cut}, [this] { Edit(&CLayoutView::Cut); });
    AddAction(edit, Ids::MenuEditCopy, {QKeySequence::Copy}, [this] { Edit(&CLayoutView::Copy); });
    AddAction(edit, Ids::MenuEditPaste, {QKeySequence::Paste},
              [this] { Edit(&CLayoutView::Paste); });
    AddAction(edit, Ids::MenuEditDelete, {QKeySequence::Delete},
              [this] { Edit(&CLayoutView::Delete); });
    edit->addSeparator();
    AddAction(edit, Ids::MenuEditRotate, {QKeySequence(Qt::CTRL | Qt::Key_R)},
              [this] { Edit(&CLayoutView::Rotate); });
    AddAction(edit, Ids::MenuEditShiftUp, {}, [this] { Edit(&CLayoutView::ShiftAllUp); });
    AddAction(edit, Ids::MenuEditShiftDown, {}, [this] { Edit(&CLayoutView::ShiftAllDown); });
    AddAction(edit, Ids::MenuEditShiftRight, {}, [this] { Edit(&CLayoutView::ShiftAllRight); });
    AddAction(edit, Ids::MenuEditShiftLeft, {}, [this] { Edit(&CLayoutView::ShiftAllLeft); });
    edit->addSeparator();
    AddAction(edit, Ids::MenuEditProperty, {QKeySequence(Qt::Key_F4)},
              [this] { Edit(&CLayoutView::EditSelection); });

    // Alt with an arrow repeats the selected panel into the empty cells that way.
    const struct
    {
        Qt::Key Key;
        char16_t Direction;
    } fills[] = {
        {Qt::Key_Down, u'D'}, {Qt::Key_Up, u'U'}, {Qt::Key_Left, u'L'}, {Qt::Key_Right, u'R'}};
    for (const auto& fill : fills) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(Qt::ALT | fill.Key));
        const QChar direction(fill.Direction);
        connect(action, &QAction::triggered, this, [this, direction] {
            m_view->FillInDirection(direction);
            UpdateCommands();
        });
        addAction(action);
    }

    QMenu* view = menuBar()->addMenu(Text(Ids::MenuView));
    AddAction(view, Ids::MenuViewAssignedPorts, {},
              [this] { CUsedPortDialog::Run(m_document->Grid(), this); });
    QToolBar* tools = addToolBar(Text(Ids::MenuViewToolbar));
    tools->setObjectName("Toolbar");
    QAction* toolbar = tools->toggleViewAction();
    toolbar->setText(Text(Ids::MenuViewToolbar));
    view->addAction(toolbar);
    view->addSeparator();
    AddAction(view, Ids::MenuViewZoomIn,
              {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)},
              [this] { m_view->ZoomIn(); });
    AddAction(view, Ids::MenuViewZoomOut, {QKeySequence::ZoomOut}, [this] { m_view->ZoomOut(); });
    AddAction(view, Ids::MenuViewZoomReset, {QKeySequence(Qt::CTRL | Qt::Key_0)},
              [this] { m_view->ResetZoom(); });

    QMenu* run = menuBar()->addMenu(Text(Ids::MenuRun));
    AddAction(run, Ids::MenuRunBuild, {QKeySequence(Qt::Key_F7)}, [this] { RunBuild(); });
    run->addSeparator();
    QAction* simulate =
        AddAction(run, Ids::MenuRunSimulate, {QKeySequence(Qt::Key_F5)}, [this] { RunSimulate(); });
    // A board that cannot be simulated keeps the command, greyed, and says why.
    simulate->setToolTip(m_board.CanSimulate()
                             ? Text(Ids::TipRunSimulate)
                             : CStringTable::Format(Ids::SimNoSimulator, {m_board.GetBoardName()}));
    simulate->setStatusTip(simulate->toolTip());
    AddAction(run, Ids::MenuRunSimStop, {QKeySequence(Qt::SHIFT | Qt::Key_F5)},
              [this] { m_simulation->Stop(); });
    QAction* pause = AddAction(run, Ids::MenuRunSimPause, {QKeySequence(Qt::Key_F8)}, [] {});
    pause->setCheckable(true);
    connect(pause, &QAction::toggled, this, [this](bool on) { m_simulation->SetPaused(on); });
    AddAction(run, Ids::MenuRunSimStep, {QKeySequence(Qt::Key_F10)},
              [this] { m_simulation->Step(); });
    run->addSeparator();
    QAction* virtualBoard = AddAction(run, Ids::MenuRunVirtualBoard, {}, [] {});
    virtualBoard->setCheckable(true);
    virtualBoard->setToolTip(Text(Ids::TipRunVirtualBoard));
    virtualBoard->setStatusTip(virtualBoard->toolTip());
    connect(virtualBoard, &QAction::toggled, this, &CMainFrame::SetVirtualBoard);

    QMenu* settingsMenu = menuBar()->addMenu(Text(Ids::MenuSettings));
    AddAction(settingsMenu, Ids::MenuSettingsBoard, {}, [this] {
        CTargetDialog::Run(m_board, m_settings,
                           CStartup::TargetFolder(QCoreApplication::applicationDirPath()),
                           m_messenger, this);
    });
    AddAction(settingsMenu, Ids::MenuSettingsWriter, {},
              [this] { CWriterOptionDialog::Run(m_settings, this); });
    // The PWM dialog's frequency range is the board's.
    CPwmDialog::SetFrequencyLimits(m_board.GetPwmLowFreq(), m_board.GetPwmHighFreq());

    QMenu* help = menuBar()->addMenu(Text(Ids::MenuHelp));
    AddAction(help, Ids::MenuHelpManual, {QKeySequence::HelpContents}, [this] { HelpManual(); });
    AddAction(help, Ids::MenuHelpVersion, {}, [this] { HelpVersion(); });

    for (int id : {Ids::MenuFileNew, Ids::MenuFileOpen, Ids::MenuFileSave, Ids::MenuFilePrint})
        tools->addAction(m_actions.value(id));
    tools->addSeparator();
    for (int id : {Ids::MenuEditCut, Ids::MenuEditCopy, Ids::MenuEditPaste, Ids::MenuEditUndo})
        tools->addAction(m_actions.value(id));
    tools->addSeparator();
    for (int id :
         {Ids::MenuRunBuild, Ids::MenuRunSimulate, Ids::MenuRunSimPause, Ids::MenuRunSimStop})
        tools->addAction(m_actions.value(id));
}

void CMainFrame::CreateStatusBar()
{
    m_positionPane = new QLabel(this);
    m_usePane = new QLabel(this);
    for (QLabel* pane : {m_positionPane, m_usePane}) {
        pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        statusBar()->addPermanentWidget(pane);
    }
    m_usePane->setText(CStringTable::Format(Ids::StatusUsed, {0}));
    statusBar()->showMessage(Text(Ids::StatusReady));
}

void CMainFrame::Edit(void (CLayoutView::*command)())
{
    (m_view->*command)();
    UpdateTitle();
    UpdateCommands();
}

// The chooser the view asks: the process bar's choice first, then the input/output bar's.
const CPaletteEntry* CMainFrame::Chosen() const
{
    if (const CPaletteEntry* entry = m_processBar->GetChosen())
        return entry;
    return m_inOutBar->GetChosen();
}

std::unique_ptr<CPanelCell> CMainFrame::TakeChosenCell()
{
    const CPaletteEntry* entry = Chosen();
    return entry ? entry->MakeCell() : nullptr;
}

bool CMainFrame::HasChosen() const
{
    return Chosen() != nullptr;
}

int CMainFrame::ChosenArea() const
{
    const CPaletteEntry* entry = Chosen();
    return entry && entry->GetPrototype() ? entry->GetPrototype()->GetArea()
                                          : int(CPanel::AreaNone);
}

void CMainFrame::ClearChoice()
{
    m_processBar->ClearChoice();
    m_inOutBar->ClearChoice();
}

void CMainFrame::Refresh()
{
    m_processBar->Refresh(m_document->Grid());
    m_inOutBar->Refresh(m_document->Grid());
}

void CMainFrame::UpdateTitle()
{
    setWindowTitle(CStringTable::Format(Ids::TitleFormat, {m_document->GetTitle() + "[*]"}));
    setWindowModified(m_document->IsModified());
}

void CMainFrame::UpdateCommands()
{
    const auto enable = [this](int id, bool on) {
        if (QAction* action = m_actions.value(id))
            action->setEnabled(on);
    };
    const bool selected = !m_view->GetSelection().IsEmpty();
    enable(Ids::MenuEditUndo, m_view->CanUndo());
    enable(Ids::MenuEditCut, selected);
    enable(Ids::MenuEditCopy, selected);
    enable(Ids::MenuEditPaste, m_view->CanPaste());
    enable(Ids::MenuEditDelete, selected);
    enable(Ids::MenuEditRotate, m_view->CanRotate());
    enable(Ids::MenuEditProperty, m_view->CanEditSelection());
    // Wired up with their dialogs.
    enable(Ids::MenuViewAssignedPorts, true);
    enable(Ids::MenuSettingsBoard, true);
    enable(Ids::MenuSettingsWriter, true);

    // While a simulation runs the layout is locked: only the simulation's own commands,
    // zoom and help stay.
    const bool simulating = m_simulation && m_simulation->IsRunning();
    static const QList<int> kWhileSimulating = {
        Ids::MenuRunSimStop, Ids::MenuRunSimPause, Ids::MenuRunSimStep,
        Ids::MenuViewZoomIn, Ids::MenuViewZoomOut, Ids::MenuViewZoomReset,
        Ids::MenuHelpManual, Ids::MenuHelpVersion, Ids::MenuViewAssignedPorts};
    if (simulating) {
        for (QAction* action : findChildren<QAction*>(Qt::FindDirectChildrenOnly))
            if (action->isEnabled() && !kWhileSimulating.contains(m_actions.key(action, -1))) {
                action->setEnabled(false);
                m_locked.append(action);
            }
    } else {
        for (QAction* action : std::exchange(m_locked, {}))
            action->setEnabled(true);
    }
    for (int id : kWhileSimulating.mid(0, 3))
        enable(id, simulating);
    enable(Ids::MenuRunSimulate, !simulating && m_board.CanSimulate());
    enable(Ids::MenuRunVirtualBoard,
           !simulating && !m_board.GetSimulation().BootLoader.isEmpty() && m_board.CanSimulate());
    m_inOutBar->setEnabled(!simulating);
    m_processBar->setEnabled(!simulating);
}

void CMainFrame::BuildInDialog(int notSaved, bool write, const CSimTarget* simulated)
{
    if (m_document->GetPath().isEmpty()) {
        m_messenger.Message(Text(notSaved), EButtons::Ok, EIcon::Warning);
        return;
    }
    if (m_settings.GetSaveBeforeCompile() && m_document->IsModified())
        FileSave();
    CBuildSettings settings =
        CBuildSettings::From(m_settings, m_board, QCoreApplication::applicationDirPath());
    // A virtual board that runs takes the program instead of a board on a cable.
    if (m_virtualBoard)
        settings.Writer.Port = m_virtualBoard->Port();
    const QString path = m_document->GetPath();
    CBuildDialog dialog(
        [this, settings, path, write](IBuildLog& log, CStopRequest& stop) {
            const std::unique_ptr<IPortFinder> finder = CreatePlatformPortFinder();
            CBuildPipeline pipeline(m_document->Grid(), m_board, settings, log, m_messenger,
                                    *finder);
            pipeline.SetStopRequest(&stop);
            return write ? pipeline.Build(path) : pipeline.Make(path);
        },
        // A build that only prepares a simulation starts at once and closes when it succeeds.
        m_messenger, this, write ? 100 : 0);
    dialog.SetClosesOnSuccess(!write);
    dialog.exec();
    // The build's programs may have taken the focus to windows of their own.
    raise();
    activateWindow();
    // The simulation, or the program written into the virtual board, runs on the grid.
    const bool shown =
        dialog.Succeeded() &&
        (simulated
             ? m_simulation->Start(*simulated, path)
             : m_virtualBoard && m_simulation->ShowLive(*m_virtualBoard, m_virtualTarget, path));
    if (shown) {
        m_view->ClearSelection();
        UpdateCommands();
    }
}

void CMainFrame::RunSimulate()
{
    CSimTarget target;
    QString why;
    if (!SimTargetOf(m_board, m_settings.GetClockSource(), target, why)) {
        m_messenger.Message(why, EButtons::Ok, EIcon::Warning);
        return;
    }
    // The HEX file Build && Write would write, made the same way, without writing it.
    BuildInDialog(Ids::MsgNotSavedCantSimulate, false, &target);
}

void CMainFrame::RunBuild()
{
    BuildInDialog(Ids::MsgNotSavedCantBuild, true, nullptr);
}

void CMainFrame::SetVirtualBoard(bool on)
{
    if (m_virtualBoard) {
        m_simulation->Stop();
        m_stopVirtualBoard = true;
        m_virtualThread.join();
        m_virtualBoard.reset();
        delete m_virtualPane;
        m_virtualPane = nullptr;
    }
    if (!on)
        return;
    QString why;
    auto board = std::make_unique<CVirtualBoard>();
    const CBoardSimulation& simulation = m_board.GetSimulation();
    if (!SimTargetOf(m_board, m_settings.GetClockSource(), m_virtualTarget, why) ||
        !board->Open(m_virtualTarget, simulation.BootLoader, simulation.BootAddress, why)) {
        m_messenger.Message(CStringTable::Format(Ids::MsgVirtualBoardFailed, {why}), EButtons::Ok,
                            EIcon::Warning);
        const QSignalBlocker quiet(m_actions.value(Ids::MenuRunVirtualBoard));
        m_actions.value(Ids::MenuRunVirtualBoard)->setChecked(false);
        return;
    }
    m_virtualBoard = std::move(board);
    m_stopVirtualBoard = false;
    m_virtualThread = std::thread([board = m_virtualBoard.get(), this] {
        QString ignored;
        board->Run(m_stopVirtualBoard, -1, nullptr, ignored);
    });
    m_virtualPane =
        new QLabel(CStringTable::Format(Ids::StatusVirtualBoard, {m_virtualBoard->Port()}), this);
    statusBar()->addPermanentWidget(m_virtualPane);
}

void CMainFrame::HelpManual()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    QString manual = programs.filePath(m_settings.GetMan());
    // The Japanese manual stands beside the English one with "_ja" before its extension.
    if (CStringTable::GetLanguage() == ELanguage::Japanese) {
        const QFileInfo info(manual);
        const QString japanese =
            info.dir().filePath(info.completeBaseName() + "_ja." + info.suffix());
        if (QFileInfo::exists(japanese))
            manual = japanese;
    }
    if (m_settings.GetMan().isEmpty() || !QFileInfo::exists(manual) ||
        !QDesktopServices::openUrl(QUrl::fromLocalFile(manual)))
        m_messenger.Message(
            CStringTable::Format(Ids::MsgManualMissing, {QDir::toNativeSeparators(manual)}),
            EButtons::Ok, EIcon::Warning);
}

void CMainFrame::HelpVersion()
{
    QMessageBox::about(this, Text(Ids::AboutTitle),
                       CStringTable::Format(Ids::AboutText, {QCoreApplication::applicationVersion(),
                                                             m_board.GetBoardName()}));
}

void CMainFrame::closeEvent(QCloseEvent* event)
{
    m_simulation->Stop();
    SetVirtualBoard(false);
    if (MayDiscard())
        event->accept();
    else
        event->ignore();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event)
{
    // A layout file dropped on the window is opened as File > Open opens it.
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty() || !urls.first().isLocalFile())
        return;
    event->acceptProposedAction();
    if (MayDiscard())
        OpenLayout(urls.first().toLocalFile());
}
