#pragma once

#include <QStringList>

// What the "WEB-in Stting" dialog does with a WEBIN panel's tokens.
class CWebInDialogLogic
{
  public:
    explicit CWebInDialogLogic(const QStringList& tokens);

    static QStringList BitCounts();

    bool IsNameValid() const;
    bool IsOkEnabled() const { return BitCount >= 0 && IsNameValid(); }
    QStringList Tokens() const;

    QString Name;
    int BitCount = -1; // index in BitCounts()

  private:
    QStringList m_tokens;
};
