// Figures for the editor: the time from start to the first painted window next to a bare Qt
// window started the same way, and a full-grid repaint at 1x. Figures, not a test.
#include "bench/fulllayout.h"

#include "boardinfo.h"
#include "layoutfile.h"
#include "layoutgeometry.h"
#include "layoutpainter.h"
#include "layoutpaintoptions.h"
#include "messenger.h"
#include "panelgrid.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

struct CSilent : IMessenger
{
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

double MedianStartMs(const QString& program, const QStringList& args, int runs)
{
    std::vector<double> times;
    const QTemporaryDir profile; // no user's profile, and none left behind
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.insert("XDG_CONFIG_HOME", profile.path());
        process.setProcessEnvironment(env);
        QElapsedTimer timer;
        timer.start();
        process.start(program, args);
        process.waitForFinished(30000);
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a runtime folder Qt makes one in the temporary folder and leaves it there; the
    // editors this bench starts inherit this one.
    const QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    QGuiApplication app(argc, argv);
    CSilent messenger;
    CBoardInfo board;
    board.Read(QStringLiteral(QUILLON_BOARDS "/atmega328p"), QString(), messenger);
    CPanelGrid grid(messenger);
    CLayoutFile(&board, messenger).Read(grid, FullLayoutText());

    QImage image(CLayoutGeometry::DrawingSize(), QImage::Format_ARGB32_Premultiplied);
    CLayoutPaintOptions options = CLayoutPaintOptions::ForPrinting();
    options.Printing = false; // the screen drawing, with its frames and crosses
    std::vector<double> paints;
    for (int i = 0; i < 100; ++i) {
        QElapsedTimer timer;
        timer.start();
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        CLayoutPainter::Paint(painter, grid, options);
        painter.end();
        paints.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(paints.begin(), paints.end());

    const QString bin = QCoreApplication::applicationDirPath();
    const double bare = MedianStartMs(bin + "/quillon-barewindow", {}, 7);
    // The editor on the example a user starts with (a full layout would stop at the
    // capacity message first).
    const double editor = MedianStartMs(
        bin + "/quillon",
        {QStringLiteral(QUILLON_EXAMPLES "/pushbutton-lamp.loc"), "-eng", "--quit-after-paint"}, 7);

    std::printf("full-grid repaint at 1x: median %.2f ms  (goal < 5 ms)\n",
                paints[paints.size() / 2]);
    std::printf("start to first paint: editor on the example %.0f ms, bare Qt window %.0f ms, "
                "%.2f times  (goal <= 1.5)\n",
                editor, bare, editor / bare);
    return 0;
}
