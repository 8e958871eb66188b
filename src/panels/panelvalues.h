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
