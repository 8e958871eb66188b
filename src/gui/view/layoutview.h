#pragma once

#include "gridpos.h"
#include "layoutselection.h"

#include <QAbstractScrollArea>
#include <QChar>
#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>

class CLayoutDocument;
class CPanelCell;
class CPanelGrid;
class IPanelChooser;
class IPropertyEditor;

// The scrolling view of one layout: draws the grid, keeps the selection, and turns mouse,
// keyboard and drops from the panel bars into edits of the grid. Every edit goes through
// the grid's own operations; the view marks the document modified and repaints.
class CLayoutView : public QAbstractScrollArea
{
    Q_OBJECT

  public:
    // The editing state machine. The numbers are the states' long-standing codes; there is
    // no state 3.
    enum class EState
    {
        Idle = 0,
        PressedOutside = 1,  // the button went down off the grid
        Selecting = 2,       // a rectangle follows the mouse
        DraggingFromBar = 4, // the chosen bar entry follows the mouse
        PlacingByClick = 5,  // the chosen bar entry goes where the button comes up
        Moving = 6,          // the selection follows the mouse
        ArmedForMove = 7,    // over a selection of several cells: a press starts moving it
    };

    // Moves shorter than this, in both directions, are not drags.
    static constexpr int kDragThreshold = 10;
    // Room kept above or below a selection scrolled into sight.
    static constexpr int kScrollMargin = 50;

    CLayoutView(CLayoutDocument& document, IPanelChooser& chooser, IPropertyEditor& editor,
                QWidget* parent = nullptr);
    ~CLayoutView() override;

    EState GetState() const { return m_state; }
    const CLayoutSelection& GetSelection() const { return m_selection; }
    // Selects the block, tells the frame where, and scrolls it into sight.
    void SetSelection(int c1, int r1, int c2 = 0, int r2 = 0);
    void ClearSelection() { SetSelection(0, 0); }
    // The grid position under a point of the viewport; column or row 0 off the grid.
    CGridPos HitTest(QPoint point) const;
    // Where a point of the drawing appears in the viewport, after scrolling and zoom.
    QPoint MapFromLogical(QPoint logical) const;
    QPoint MapToLogical(QPoint point) const;
    double GetZoom() const { return m_zoom; }
    // After the document got another layout (New, Open): nothing selected, idle, repainted.
    void Reset();

    // Copied panels also go to the system clipboard in this format (the block's kind and
    // each panel's place and definition line, UTF-8) beside their lines as plain text, so
    // they paste into another layout, another window or a text editor.
    static constexpr const char* kPanelsMimeType = "application/x-quillon-panels";

    // The Edit menu's commands, each with the query that enables it. They work on the
    // selection; Paste, Rotate and Fill on its top-left position.
    bool CanUndo() const;
    void Undo();
    bool HasSelection() const { return !m_selection.IsEmpty(); }
    void Cut();
    void Copy();
    bool CanPaste() const;
    void Paste();
    void Delete();
    bool CanRotate() const;
    void Rotate();
    void ShiftAllUp();
    void ShiftAllDown();
    void ShiftAllLeft();
    void ShiftAllRight();
    bool CanFill() const;
    // 'U', 'D', 'L' or 'R'.
    void FillInDirection(QChar direction);
    // "Show Panel's Property": the dialog of the panel at the selection.
    bool CanEditSelection() const;
    void EditSelection();

  public Q_SLOTS:
    void ZoomIn();
    void ZoomOut();
    void ResetZoom();

  Q_SIGNALS:
    // The caption of the panel under the mouse, for the message pane.
    void StatusText(const QString& text);
    // Where the selection is, for the position pane.
    void PositionText(const QString& text);
    // The weighted panel total as a percentage of the capacity, rounded up.
    void UsageChanged(int percent);
    void Modified();
    void SelectionChanged();
    // Copy or Cut, here or in another window, replaced the grid's clipboard, so Paste may
    // have become possible.
    void ClipboardChanged();
    // The right button asks for the frame's edit menu at this global position.
    void ContextMenuRequested(QPoint globalPos);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    CPanelGrid& Grid();
    const CPanelGrid& Grid() const;

    // Mouse steps of the state machine.
    void ContinueDrag(QMouseEvent* event, CGridPos hit);
    void FinishMove(QPoint point, CGridPos hit);
    void FinishPress();
    void EnterState(EState state);
    void UpdateCursor();
    // Arms a move while the mouse rests over a selection that is more than one panel.
    void ArmOverSelection(CGridPos hit);

    // Selects the whole panel covering the position (or the position when it is empty).
    void SelectPanelAt(CGridPos pos);
    bool IsBlockOfPanels() const;
    void ScrollToSelection();
    // Puts the cell at the position when the cell's area allows it; true when placed.
    bool PlaceAt(CGridPos pos, std::unique_ptr<CPanelCell> cell);
    static bool FitsArea(int area, CGridPos pos);
    void MoveKey(int key, bool ctrl);

    // The grid's clipboard onto the system clipboard, and panels copied elsewhere from it
    // into the grid's clipboard.
    void PublishClipboard();
    void TakeSystemClipboard();

    // After a change of the grid: the document is modified, the frame told, all redrawn.
    void Changed();
    // After a shift: the bars and the document learn of it when it moved anything.
    void Shifted(bool shifted);
    void EmitUsage();
    void ShowDragRect(const QRect& logical);
    void EraseDragRect() { ShowDragRect(QRect()); }
    QRect MapRectFromLogical(const QRect& logical) const;
    void SetZoom(double zoom);
    void UpdateScrollBars();

    CLayoutDocument& m_document;
    IPanelChooser& m_chooser;
    IPropertyEditor& m_editor;
    EState m_state = EState::Idle;
    QPoint m_pressPoint;
    CLayoutSelection m_selection;
    CGridPos m_moveOrigin;
    bool m_movingFromArmed = false;
    bool m_ctrlRectangle = false;
    QRect m_dragRect; // logical; null when none is shown
    double m_zoom = 1.0;
    // What this view last put on the system clipboard, which its own grid holds already.
    QString m_publishedClipboard;
};
