#pragma once

#include "timetext.h"

#include <QList>
#include <QString>
#include <QStringList>

// "Timer Setting": the kind from a list and the time, typed in the nested "Time Setting".
class CTimerDialogLogic
{
  public:
    struct CKind
    {
        int TextId;
        int Value;
        const char* Keyword;
        const char* Letter;
    };
    // In list order; item values 1 to 4.
    static const QList<CKind>& Kinds();

    explicit CTimerDialogLogic(const QStringList& tokens);

    // 0 when the keyword and letter of the line are no pair of the list.
    int GetKind() const { return m_kind; }
    void SetKind(int value);
    bool HasTime() const { return m_hasTime; }
    // "%dh %dm %d.%02ds", "" while the line gave no time.
    QString ShownTime() const;
    // What "Set..." hands to the time dialog.
    QString TimeDialogText() const { return m_time.Text(); }
    // The time dialog's text after its OK, kept on the 0.05 s grid.
    void SetTimeDialogText(const QString& text);

    bool IsOkEnabled() const { return m_kind > 0 && m_hasTime; }
    // Keyword, letter, time; empty while OK is disabled.
    QStringList Tokens() const;

  private:
    int m_kind = 0;
    bool m_hasTime = false;
    CTimeText m_time;
};
