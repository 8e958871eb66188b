#include "rendercommand.h"

#include "layoutgeometry.h"
#include "layoutpainter.h"

#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

namespace {

bool RenderPng(const CPanelGrid& grid, const QString& out, double scale, QString& error)
{
    const QSize logical = CLayoutGeometry::DrawingSize();
    QImage image(QSize(qCeil(logical.width() * scale), qCeil(logical.height() * scale)),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        CLayoutPainter::Paint(painter, grid, CLayoutPaintOptions());
    }
    if (image.save(out, "PNG"))
        return true;
    error = QStringLiteral("cannot write ") + out;
    return false;
}

// The page drawing: printing mode, the whole drawing scaled to fit the page and centred.
bool RenderPdf(const CPanelGrid& grid, const QString& out, QString& error)
{
    QPdfWriter writer(out);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter));
    writer.setTitle(QStringLiteral("Quillon layout"));
    QPainter painter;
    if (!painter.begin(&writer)) {
        error = QStringLiteral("cannot write ") + out;
        return false;
    }
    const QSize drawing = CLayoutGeometry::DrawingSize();
    const QRect page = painter.viewport();
    const double fit =
        qMin(double(page.width()) / drawing.width(), double(page.height()) / drawing.height());
    painter.translate((page.width() - drawing.width() * fit) / 2,
                      (page.height() - drawing.height() * fit) / 2);
    painter.scale(fit, fit);
    CLayoutPainter::Paint(painter, grid, CLayoutPaintOptions::ForPrinting());
    return painter.end();
}

} // namespace

std::unique_ptr<QCoreApplication> CRenderCommand::CreateApplication(int& argc, char** argv)
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

double CRenderCommand::ParseScale(const QString& text)
{
    bool ok = false;
    const double scale = text.toDouble(&ok);
    return ok && scale >= 1 && scale <= 8 ? scale : 0;
}

bool CRenderCommand::Render(const CPanelGrid& grid, const QString& out, double scale,
                            QString& error)
{
    if (out.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        return RenderPdf(grid, out, error);
    return RenderPng(grid, out, scale, error);
}
