#pragma once

#include "panelvalues.h"
#include "timetext.h"

#include <QString>
#include <QStringList>

// "Time Setting": hours, minutes, seconds and hundredths typed as text. Below 20 minutes
// the hundredths count; from 20 minutes on they are forced to "00".
class CTimeDialogLogic
{
  public:
    enum EField
    {
        Hours,
        Minutes,
        Seconds,
        Hundredths,
        FieldCount
    };

    // The text is "HHMMSS.hh" (or with a longer fraction); anything else opens as 0.00 s.
    explicit CTimeDialogLogic(const QString& text);
    // The delay's dialog: its time token read into the dialog's text.
    static CTimeDialogLogic ForDelay(const QStringList& tokens);

    // One character of hours and two of the others, or as many as the field holds when the
    // dialog opens, so that a longer value read from a line shows whole (and is refused).
    int MaxLength(EField field) const;

    QString GetField(EField field) const { return m_fields[field]; }
    // Takes a typed text and runs the rules again.
    void SetField(EField field, const QString& text);

    // The hundredths shown with two digits once the user leaves them: "5" becomes "05".
    void FinishHundredths();

    bool IsHundredthsEnabled() const;
    // Every field empty (read as 0) or a number in its range, and not below 0.05 s.
    bool IsOkEnabled() const;
    // The field to select, -1 when there is none.
    int WrongField() const;

    // "%02d%02d%02d.%02d" of the four fields, as the dialog hands it back.
    QString Text() const;
    // The delay's tokens after OK: token 1 becomes the time on the 0.05 s grid.
    QStringList DelayTokens(const QStringList& tokens) const;

  private:
    static CFieldRange Range(EField field);
    int Value(EField field) const;
    void Apply();

    QString m_fields[FieldCount];
};
