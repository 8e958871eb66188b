#pragma once

#include <QString>

// A time as the time dialog edits it: hours, minutes, seconds and hundredths. The delay and
// the timer hand it to the dialog as "HHMMSS.hh" and store it as seconds on a 0.05 s grid.
struct CTimeText
{
    int Hours = 0;
    int Minutes = 0;
    int Seconds = 0;
    int Hundredths = 0;

    // A stored time such as "90.45S"; a text without a "." after its first character is
    // whole seconds, and anything that is no number reads as 0.
    static CTimeText FromToken(const QString& token);
    // The dialog's text ("%02d%02d%02d.%02d", a longer fraction is cut to hundredths);
    // zero when the text has no "." between its first and last character.
    static CTimeText FromText(const QString& text);

    // "%02d%02d%02d.%02d".
    QString Text() const;
    // Whole seconds, two decimals on the 0.05 s grid and "S": 1.47 s gives "1.45S".
    QString Token() const;
    // The same time with the hundredths cut down to the 0.05 s grid.
    CTimeText OnGrid() const;
    // "%dh %dm %d.%02ds" in the current language.
    QString Shown() const;
};
