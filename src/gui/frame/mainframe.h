#pragma once

#include "messageboxmessenger.h"
#include "panelchooser.h"

#include <QMainWindow>

#include "simtarget.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

class CBoardInfo;
class CPaletteEntry;
class QPrinter;
class CLayoutDocument;
class CLayoutView;
class CPanelBar;
class CSettings;
class CSimulationSession;
class CVirtualBoard;
class IPropertyEditor;
class QAction;
class QLabel;
class QMenu;

// The editor's window: menus, tool bar, the two panel bars, the layout view and the status
// bar with its message, position and use panes. It owns the one open layout.
class CMainFrame : public QMainWindow, public IPanelChooser
{
    Q_OBJECT

  public:
    CMainFrame(const CBoardInfo& board, CSettings& settings, IPropertyEditor& editor,
               QWidget* parent = nullptr);
    ~CMainFrame() override;

    CLayoutDocument& Document() { return *m_document; }
    CLayoutView& View() { return *m_view; }

    // Opens a layout as File > Open does; false and a message when it is no layout.
    bool OpenLayout(const QString& path);

    // IPanelChooser: the process bar's choice first, then the input/output bar's.
    std::unique_ptr<CPanelCell> TakeChosenCell() override;
    bool HasChosen() const override;
    int ChosenArea() const override;
    void ClearChoice() override;
    void Refresh() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void CreateActions();
    void CreateStatusBar();
    QAction* AddAction(QMenu* menu, int text, const QList<QKeySequence>& keys,
                       std::function<void()> handler);
    // Runs one of the view's edit commands, then brings title and commands up to date.
    void Edit(void (CLayoutView::*command)());
    const CPaletteEntry* Chosen() const;
    QString SaveFolder() const;
    // Asks to save a modified layout; false when the user cancels.
    bool MayDiscard();
    void UpdateTitle();
    void UpdateCommands();
    void AddRecent(const QString& path);
    void UpdateRecentMenu();

    void FileNew();
    void FileOpen();
    bool FileSave();
    bool FileSaveAs();
    void FilePrint();
    void FilePreview();
    void FilePrintSetup();
    void RunBuild();
    // Builds the saved layout in the build dialog (notSaved: the message when it is not
    // saved), writing it or not, then runs it: in the simulator for a target, in the
    // virtual board's view after a write into one.
    void BuildInDialog(int notSaved, bool write, const CSimTarget* simulated);
    // Builds the layout as Build && Write does, without writing, and runs the HEX file in
    // the simulated board over the locked grid.
    void RunSimulate();
    // Starts or stops the virtual board that Build && Write then writes into.
    void SetVirtualBoard(bool on);
    void HelpManual();
    void HelpVersion();

    const CBoardInfo& m_board;
    CSettings& m_settings;
    CMessageBoxMessenger m_messenger;
    std::unique_ptr<QPrinter> m_printer;
    std::unique_ptr<CLayoutDocument> m_document;
    CLayoutView* m_view = nullptr;
    CPanelBar* m_inOutBar = nullptr;
    CPanelBar* m_processBar = nullptr;
    QLabel* m_positionPane = nullptr;
    QLabel* m_usePane = nullptr;
    QMenu* m_recentMenu = nullptr;
    QHash<int, QAction*> m_actions; // by text id
    CSimulationSession* m_simulation = nullptr;
    // The commands a running simulation has turned off.
    QList<QAction*> m_locked;
    std::unique_ptr<CVirtualBoard> m_virtualBoard;
    CSimTarget m_virtualTarget;
    std::thread m_virtualThread;
    std::atomic<bool> m_stopVirtualBoard{false};
    QLabel* m_virtualPane = nullptr;
};
