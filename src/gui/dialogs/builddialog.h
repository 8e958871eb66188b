#pragma once

#include "buildlog.h"
#include "processrunner.h"

#include <QDialog>

#include <functional>

class QPlainTextEdit;
class QPushButton;

class IMessenger;

// The modal "Build" dialog: a read-only log that grows line by line while the build runs.
// The build starts 100 ms after the dialog shows; OK is disabled until it ends, and the
// dialog stays open so the log can be read. While the build runs, Escape or closing the
// window asks whether to stop it; the dialog itself stays until the build has ended, so no
// second build can start beside it.
class CBuildDialog : public QDialog, public IBuildLog
{
    Q_OBJECT

  public:
    using CBuild = std::function<bool(IBuildLog& log, CStopRequest& stop)>;
    // The build starts startDelayMs after the dialog is made; the dialog shows each log line
    // as it comes, so a build that only prepares a simulation starts at once.
    CBuildDialog(CBuild build, IMessenger& messenger, QWidget* parent = nullptr,
                 int startDelayMs = 100);

    void Start(const QString& line) override;
    void Append(const QString& line) override;

    QString LogText() const;
    bool Succeeded() const { return m_succeeded; }
    bool IsBuilding() const { return m_building; }
    // A build that only prepares something else (a simulation) closes the dialog when it
    // succeeds; a failed one stays, so its log can be read.
    void SetClosesOnSuccess(bool closes) { m_closesOnSuccess = closes; }

    void reject() override;

  private:
    void RunBuild();
    void ShowNow();

    CBuild m_build;
    IMessenger& m_messenger;
    CStopRequest m_stop;
    bool m_building = false;
    QPlainTextEdit* m_log;
    QPushButton* m_ok;
    bool m_succeeded = false;
    bool m_closesOnSuccess = false;
};
