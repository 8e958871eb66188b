#pragma once

#include <QStringList>

// What the "LCD Setting" dialog does with an LCD panel's tokens.
class CLcdDialogLogic
{
  public:
    enum EMode
    {
        NoMode,
        Above,
        Below,
        Clear
    };
    static constexpr int kMaxText = 16;

    explicit CLcdDialogLogic(const QStringList& tokens);

    bool IsTextEnabled() const { return Mode != Clear; }
    // The text is not written when the display is cleared.
    bool IsTextValid() const;
    bool IsOkEnabled() const;
    QStringList Tokens() const;

    EMode Mode = NoMode;
    QString Text;
};
