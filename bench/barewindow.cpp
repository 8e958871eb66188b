// A bare Qt window started the way the editor starts, with the menu bar and status bar
// every desktop window has (so it loads its fonts too): the yardstick of the start-up figure.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>

namespace {

class CQuitAfterPaint : public QObject
{
  public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        return false;
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Open"));
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    window.resize(1000, 800);
    CQuitAfterPaint quitter;
    window.installEventFilter(&quitter);
    window.show();
    return QApplication::exec();
}
