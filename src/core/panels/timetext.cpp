#include "timetext.h"

#include "panelvalues.h"
#include "stringtable.h"

namespace {

// Hundredths from the digits after a ".": "5" is 50, "05" is 5, "457" is 45.
int FractionHundredths(const QString& fraction)
{
    return LeadingInt((fraction + QStringLiteral("000")).left(3)) / 10;
}

CTimeText FromTotal(int seconds, int hundredths)
{
    return {seconds / 3600, seconds % 3600 / 60, seconds % 60, hundredths};
}

} // namespace

CTimeText CTimeText::FromToken(const QString& token)
{
    QString text = token;
    if (text.endsWith(u'S'))
        text.chop(1);
    const qsizetype dot = text.indexOf(u'.');
    if (dot < 1)
        return FromTotal(qMax(0, LeadingInt(text)), 0);
    return FromTotal(qMax(0, LeadingInt(text.left(dot))), FractionHundredths(text.mid(dot + 1)));
}

CTimeText CTimeText::FromText(const QString& text)
{
    const qsizetype dot = text.indexOf(u'.');
    if (dot < 1 || dot >= text.size() - 1)
        return {};
    const int n = LeadingInt(text.left(dot));
    return {n / 10000, n % 10000 / 100, n % 100, FractionHundredths(text.mid(dot + 1))};
}

QString CTimeText::Text() const
{
    return QString::asprintf("%02d%02d%02d.%02d", Hours, Minutes, Seconds, Hundredths);
}

QString CTimeText::Token() const
{
    const CTimeText t = OnGrid();
    return SecondsText((t.Hours * 60 + t.Minutes) * 60 + t.Seconds, t.Hundredths) + u'S';
}

CTimeText CTimeText::OnGrid() const
{
    return {Hours, Minutes, Seconds, Hundredths / 5 * 5};
}

QString CTimeText::Shown() const
{
    return CStringTable::Format(Ids::TimeShownFormat, {Hours, Minutes, Seconds, Hundredths});
}
