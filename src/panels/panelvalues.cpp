#include "panelvalues.h"

#include <algorithm>

int LeadingInt(const QString& text)
{
    return LeadingInt(QStringView(text));
}

int LeadingInt(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i].isSpace())
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        negative = text[i++] == u'-';
    qint64 value = 0;
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i)
        value = std::min<qint64>(value * 10 + (text[i].unicode() - u'0'), INT_MAX);
    return int(negative ? -value : value);
}

QStringList DescendingDistinct(const QStringList& values)
{
    QStringList result;
    for (const QString& value : values) {
        if (value.trimmed().isEmpty())
            continue;
        const int n = LeadingInt(value);
        const auto same = [n](const QString& v) { return LeadingInt(v) == n; };
        if (std::none_of(result.begin(), result.end(), same))
            result.append(value);
    }
    std::stable_sort(result.begin(), result.end(),
                     [](const QString& a, const QString& b) { return LeadingInt(a) > LeadingInt(b); });
    return result;
}

QString SecondsText(int seconds, int hundredths)
{
    return QString::number(seconds) + u'.' + QString::number(hundredths).rightJustified(2, u'0');
}
