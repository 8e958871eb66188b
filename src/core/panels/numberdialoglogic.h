#pragma once

#include "panelvalues.h"

#include <QString>
#include <QStringList>

// The one-field "Setting" dialog: the serial bit panel's bit position (0 to 7) and the
// jump panels' connection id (1 to 99).
class CNumberDialogLogic
{
  public:
    enum EKind
    {
        SerialBit,
        Jump
    };

    // The bit panel starts with its token 1; a jump panel with its id, empty below 1.
    CNumberDialogLogic(EKind kind, const QStringList& tokens, int reference);

    EKind GetKind() const { return m_kind; }
    int GetLabelId() const;
    int GetNoteId() const;
    int GetMaxLength() const { return m_kind == SerialBit ? 1 : 2; }

    QString GetText() const { return m_text; }
    void SetText(const QString& text);
    // A "-" the bit panel opens with (no bit yet) is no number either: a bit is to be typed.
    bool IsOkEnabled() const;
    // Whether the field is to be selected.
    bool IsTextWrong() const;
    // Token 1 the number as "%d"; the bit panel's token 2 "L".
    QStringList Tokens() const;

  private:
    CFieldRange Range() const;

    EKind m_kind;
    QStringList m_tokens;
    QString m_text;
};
