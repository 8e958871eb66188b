#pragma once

#include <QList>
#include <QString>

class CPanel;

// The values of a panel's line as the generated code needs them.
class CLineValues
{
  public:
    // The numbers from token `first` up to the line's comment, in line order.
    static QList<int> From(const CPanel& panel, int first);
    // True for the active level "L" in token 1.
    static bool ActiveLow(const CPanel& panel);
    // A time token ("90.45S": seconds, two digits of hundredths, "S") in milliseconds.
    static long Milliseconds(const QString& token);
    // A time as a C constant of the run-time's q_time_t.
    static QString TimeConstant(long milliseconds);
};
