#pragma once

#include "buildlog.h"

#include <QDialog>

#include <functional>

class QPlainTextEdit;
class QPushButton;

// The modal "Build" dialog: a read-only log that grows line by line while the build runs.
// The build starts 100 ms after the dialog shows; OK is disabled until it ends, and the
// dialog stays open so the log can be read.
class CBuildDialog : public QDialog, public IBuildLog
{
    Q_OBJECT

public:
    using CBuild = std::function<bool(IBuildLog& log)>;
    CBuildDialog(CBuild build, QWidget* parent = nullptr);

    void Start(const QString& line) override;
    void Append(const QString& line) override;

    QString LogText() const;
    bool Succeeded() const { return m_succeeded; }

private:
    void RunBuild();
    void ShowNow();

    CBuild m_build;
    QPlainTextEdit* m_log;
    QPushButton* m_ok;
    bool m_succeeded = false;
};
