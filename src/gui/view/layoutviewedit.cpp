// The view's edit commands, and the clipboard shared with other windows.
#include "layoutview.h"

#include "layoutdocument.h"
#include "layoutfile.h"
#include "panelchooser.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

// --- Commands -------------------------------------------------------------------------

void CLayoutView::Changed()
{
    m_document.SetModified(true);
    viewport()->update();
    Q_EMIT Modified();
    EmitUsage();
}

void CLayoutView::EmitUsage()
{
    Q_EMIT UsageChanged((Grid().GetWeightedTotal() + 9) / 10);
}

bool CLayoutView::CanUndo() const
{
    return Grid().CanUndo();
}

void CLayoutView::Undo()
{
    if (!Grid().Undo())
        return;
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::Cut()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    if (!Grid().Cut(first.Column, first.Row, last.Column, last.Row))
        return;
    PublishClipboard();
    Q_EMIT ClipboardChanged();
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::Copy()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    Grid().Copy(first.Column, first.Row, last.Column, last.Row);
    PublishClipboard();
    Q_EMIT ClipboardChanged();
}

void CLayoutView::PublishClipboard()
{
    const CGridClipboard& clipboard = Grid().GetClipboard();
    if (clipboard.IsEmpty())
        return;
    m_publishedClipboard = clipboard.ToText();
    auto* data = new QMimeData;
    data->setText(clipboard.ToPlainText());
    data->setData(QString::fromLatin1(kPanelsMimeType), m_publishedClipboard.toUtf8());
    QGuiApplication::clipboard()->setMimeData(data);
}

void CLayoutView::TakeSystemClipboard()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    const QString format = QString::fromLatin1(kPanelsMimeType);
    if (!data || !data->hasFormat(format))
        return;
    const QString text = QString::fromUtf8(data->data(format));
    if (text == m_publishedClipboard)
        return;
    // The panels are made as loading makes them, with this board's ports, names and weights.
    const CLayoutFile file(m_document.Board(), m_document.Messenger());
    Grid().Clipboard().FromText(text, [&file](const QString& line) { return file.MakeCell(line); });
    m_publishedClipboard = text;
    Q_EMIT ClipboardChanged();
}

bool CLayoutView::CanPaste() const
{
    if (m_selection.IsEmpty())
        return false;
    const CGridPos first = m_selection.TopLeft();
    return Grid().CanPaste(first.Column, first.Row);
}

void CLayoutView::Paste()
{
    if (m_selection.IsEmpty())
        return;
    // Not every system tells of every change to its clipboard.
    TakeSystemClipboard();
    const CGridPos first = m_selection.TopLeft();
    if (!Grid().Paste(first.Column, first.Row))
        return;
    // The pasted block becomes the selection, ready to be moved as a whole.
    const CGridClipboard& clipboard = Grid().GetClipboard();
    const int lastColumn =
        first.Column < 0 ? first.Column : first.Column + clipboard.GetWidth() - 1;
    SetSelection(first.Column, first.Row, lastColumn, first.Row + clipboard.GetHeight() - 1);
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::Delete()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft(), last = m_selection.BottomRight();
    if (Grid().DeleteRange(first.Column, first.Row, last.Column, last.Row)) {
        m_chooser.Refresh();
        Changed();
    }
    viewport()->update();
}

bool CLayoutView::CanRotate() const
{
    if (m_selection.IsEmpty())
        return false;
    const CPanelCell* cell = Grid().GetCell(m_selection.TopLeft());
    return cell && cell->GetPanel() && cell->GetPanel()->CanRotate();
}

void CLayoutView::Rotate()
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft();
    if (Grid().Rotate(first.Column, first.Row))
        Changed();
}

// Every shift may drop a use-limited panel off the grid's edge, which frees its entry.
void CLayoutView::Shifted(bool shifted)
{
    if (!shifted)
        return;
    m_chooser.Refresh();
    Changed();
}

void CLayoutView::ShiftAllUp()
{
    Shifted(Grid().ShiftUp());
}
void CLayoutView::ShiftAllDown()
{
    Shifted(Grid().ShiftDown());
}
void CLayoutView::ShiftAllLeft()
{
    Shifted(Grid().ShiftLeft());
}
void CLayoutView::ShiftAllRight()
{
    Shifted(Grid().ShiftRight());
}

bool CLayoutView::CanFill() const
{
    if (m_selection.IsEmpty())
        return false;
    const CPanelCell* cell = Grid().GetCell(m_selection.TopLeft());
    return cell && cell->GetPanel() && cell->GetHeight() == 1;
}

void CLayoutView::FillInDirection(QChar direction)
{
    if (m_selection.IsEmpty())
        return;
    const CGridPos first = m_selection.TopLeft();
    if (!Grid().Fill(first.Column, first.Row, direction))
        return;
    // Fill succeeds even when no position was free; each copy placed is undoable.
    if (!Grid().CanUndo())
        return;
    m_chooser.Refresh();
    Changed();
}

bool CLayoutView::CanEditSelection() const
{
    if (m_selection.IsEmpty())
        return false;
    const CGridPos first = m_selection.TopLeft();
    const CPanelCell* cell = Grid().GetCell(Grid().TopOf(first.Column, first.Row));
    return cell && cell->GetPanel();
}

void CLayoutView::EditSelection()
{
    if (!CanEditSelection())
        return;
    const CGridPos first = m_selection.TopLeft();
    const CGridPos top = Grid().TopOf(first.Column, first.Row);
    if (!Grid().EditCell(top.Column, top.Row, m_editor))
        return;
    // The dialog may have changed the panel's height.
    SelectPanelAt(top);
    m_chooser.Refresh();
    Changed();
}
