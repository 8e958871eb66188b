// quillon: the editor.

#include "boardchooser.h"
#include "boardinfo.h"
#include "layoutview.h"
#include "mainframe.h"
#include "messageboxmessenger.h"
#include "paneldialogs.h"
#include "settings.h"
#include "startup.h"

#include <QApplication>
#include <QLocale>
#include <QSettings>
#include <QTimer>

namespace {

// Ends the program after the first paint of the widget it watches.
class CQuitAfterPaint : public QObject
{
  public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QString::fromLatin1(CSettings::kCompany));
    QApplication::setApplicationName(QString::fromLatin1(CSettings::kApplication));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillon"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLON_VERSION));

    QStringList arguments = QApplication::arguments();
    // "--screenshot FILE" saves a picture of the window once it has painted, then ends:
    // the documentation's screenshots are made this way, also headless (offscreen).
    QString screenshot;
    if (const qsizetype at = arguments.indexOf(QStringLiteral("--screenshot"));
        at > 0 && at + 1 < arguments.size()) {
        screenshot = arguments[at + 1];
        arguments.remove(at, 2);
    }
    // "--quit-after-paint" ends the program once the window has painted: the start-up
    // benchmark times it.
    const bool quitAfterPaint = arguments.removeAll(QStringLiteral("--quit-after-paint")) > 0;
    CStringTable::SetLanguage(
        CStartup::LanguageFor(arguments, QLocale::system().language() == QLocale::Japanese));

    const QString programs = QApplication::applicationDirPath();
    QSettings profile;
    CStartup::WriteFolders(profile, programs);
    CSettings settings(&profile, CSettings::IniPathIn(programs));
    settings.Load();

    CMessageBoxMessenger messenger;
    CBoardInfo board;
    const QString boardFolder =
        CBoardChooser(CStartup::TargetFolder(programs), messenger).Choose(settings, board);
    if (boardFolder.isEmpty())
        return 1;
    if (settings.GetClockSource() < 0)
        settings.SetClockSource(board.GetSystemClock());
    CStartup::WriteBoardFolder(profile, boardFolder);

    CPanelDialogs dialogs;
    CMainFrame frame(board, settings, dialogs);
    dialogs.SetParent(&frame);
    const QString layout = CStartup::LayoutArgument(arguments);
    if (!layout.isEmpty() && !frame.OpenLayout(layout))
        return 1;
    frame.show();
    CQuitAfterPaint quitter;
    if (quitAfterPaint)
        frame.View().viewport()->installEventFilter(&quitter);
    if (!screenshot.isEmpty())
        QTimer::singleShot(500, &frame, [&frame, screenshot] {
            const bool saved = frame.grab().save(screenshot);
            QApplication::exit(saved ? 0 : 1);
        });
    return QApplication::exec();
}
