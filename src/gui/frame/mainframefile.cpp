// The main window's File menu: new, open, save, print and the recent files.
#include "mainframe.h"

#include "layoutdocument.h"
#include "layoutgeometry.h"
#include "layoutpainter.h"
#include "layoutpaintoptions.h"
#include "layoutview.h"
#include "settings.h"
#include "stringtable.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {

QString Text(int id)
{
    return CStringTable::Get(id);
}

QString FileFilter()
{
    return Text(Ids::FilterLocationFiles) + ";;" + Text(Ids::FilterAllFiles);
}

// The printed page: the drawing in printing mode, scaled to fit the page.
void PrintLayout(QPrinter& printer, const CPanelGrid& grid)
{
    QPainter painter(&printer);
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const QSizeF drawing = CLayoutGeometry::DrawingSize();
    const double scale = qMin(page.width() / drawing.width(), page.height() / drawing.height());
    painter.scale(scale, scale);
    CLayoutPaintOptions options;
    options.Printing = true;
    CLayoutPainter::Paint(painter, grid, options);
}

} // namespace

bool CMainFrame::MayDiscard()
{
    if (!m_document->IsModified())
        return true;
    switch (m_messenger.Message(CStringTable::Format(Ids::MsgSaveChanges, {m_document->GetTitle()}),
                                EButtons::YesNoCancel, EIcon::Question)) {
    case EAnswer::Yes:
        return FileSave();
    case EAnswer::No:
        return true;
    default:
        return false;
    }
}

void CMainFrame::FileNew()
{
    if (!MayDiscard())
        return;
    m_document->New();
    m_view->Reset();
    Refresh();
    UpdateTitle();
    UpdateCommands();
}

void CMainFrame::FileOpen()
{
    if (!MayDiscard())
        return;
    const QString path = QFileDialog::getOpenFileName(this, QString(), SaveFolder(), FileFilter());
    if (!path.isEmpty())
        OpenLayout(path);
}

QString CMainFrame::SaveFolder() const
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(m_settings.GetSaveDir());
}

bool CMainFrame::OpenLayout(const QString& path)
{
    if (!m_document->Open(path)) {
        // A file that is no layout gets its own message; one that cannot be read says why.
        const QString error = m_document->ErrorString();
        m_messenger.Message(
            error == Text(Ids::MsgNotLocFile)
                ? error
                : CStringTable::Format(Ids::MsgCantOpen, {QDir::toNativeSeparators(path), error}),
            EButtons::Ok, EIcon::Error);
        return false;
    }
    m_view->Reset();
    AddRecent(m_document->GetPath());
    Refresh();
    UpdateTitle();
    UpdateCommands();
    return true;
}

bool CMainFrame::FileSave()
{
    if (m_document->GetPath().isEmpty())
        return FileSaveAs();
    const bool saved = m_document->Save();
    UpdateTitle();
    return saved;
}

bool CMainFrame::FileSaveAs()
{
    QString path = QFileDialog::getSaveFileName(
        this, QString(), m_document->GetPath().isEmpty() ? SaveFolder() : m_document->GetPath(),
        FileFilter());
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).suffix().isEmpty())
        path += ".loc";
    const bool saved = m_document->SaveAs(path);
    if (saved)
        AddRecent(m_document->GetPath());
    UpdateTitle();
    return saved;
}

void CMainFrame::FilePrint()
{
    QPrintDialog dialog(m_printer.get(), this);
    if (dialog.exec() == QDialog::Accepted)
        PrintLayout(*m_printer, m_document->Grid());
}

void CMainFrame::FilePreview()
{
    QPrintPreviewDialog preview(m_printer.get(), this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* printer) { PrintLayout(*printer, m_document->Grid()); });
    preview.exec();
}

void CMainFrame::FilePrintSetup()
{
    QPageSetupDialog dialog(m_printer.get(), this);
    dialog.exec();
}

void CMainFrame::AddRecent(const QString& path)
{
    m_settings.AddRecentFile(path);
    UpdateRecentMenu();
}

void CMainFrame::UpdateRecentMenu()
{
    m_recentMenu->clear();
    const QStringList files = m_settings.GetRecentFiles();
    for (int i = 0; i < files.size(); ++i) {
        const QString path = files[i];
        QAction* action = m_recentMenu->addAction(
            QStringLiteral("&%1 %2").arg(i + 1).arg(QDir::toNativeSeparators(path)));
        connect(action, &QAction::triggered, this, [this, path] {
            if (MayDiscard())
                OpenLayout(path);
        });
    }
    m_recentMenu->setEnabled(!files.isEmpty());
}
