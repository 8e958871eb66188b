#pragma once

#include <QString>
#include <QStringList>

// Small readings and writings of panel values that several families share.

// A decimal number read leniently: optional leading blanks and sign, then the leading
// digits; anything after them is ignored and a text without leading digits gives 0.
int LeadingInt(const QString& text);
int LeadingInt(QStringView text);

// The values as distinct numbers in descending order, blanks removed; each value keeps
// the text it came with.
QStringList DescendingDistinct(const QStringList& values);

// Seconds with two decimals, the way time tokens store them: "90.45" for 90 s 45/100.
QString SecondsText(int seconds, int hundredths);

// The one rule by which every numeric field of the property dialogs is read: blanks around
// the digits are allowed, anything else (a sign, a letter, a unit) is not, and the value
// lies from Low to High. Whether an empty field counts is the dialog's to say.
struct CFieldRange
{
    int Low;
    int High;

    bool Accepts(const QString& text) const;
    // A field the dialog selects for the user to type over: no number, or one above High,
    // which no further digit mends. A number below Low is only refused, since "1" may be on
    // its way to "100".
    bool IsWrong(const QString& text) const;

    // A row of value fields (count values, compare values, duties): empty fields are
    // allowed, at least one holds a value, and every value is accepted.
    bool AcceptsValues(const QStringList& fields) const;
    // The first field of the row the dialog selects, -1 when there is none.
    int WrongField(const QStringList& fields) const;
    // The accepted values as plain decimals, distinct and in descending order.
    QStringList Values(const QStringList& fields) const;
};

// Whether a name or text typed into a dialog comes back exactly from its definition line.
// "," ends a token and control characters (TAB, CR, LF) end a token or the line; the blanks
// that end a token are trimmed when it is read, so a name, which ends its token, cannot end
// in one, while a quoted text (the LCD's) can.
enum class ELineText
{
    Name,
    Quoted
};
bool FitsInLine(const QString& text, ELineText kind);
