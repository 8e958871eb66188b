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
    std::stable_sort(result.begin(), result.end(), [](const QString& a, const QString& b) {
        return LeadingInt(a) > LeadingInt(b);
    });
    return result;
}

QString SecondsText(int seconds, int hundredths)
{
    return QString::number(seconds) + u'.' + QString::number(hundredths).rightJustified(2, u'0');
}

namespace {

// The number a field holds, or -1 when it holds anything but digits between its blanks.
// Values beyond any range are cut to one more than INT_MAX, so they stay beyond it.
qint64 FieldValue(const QString& text)
{
    const QString digits = text.trimmed();
    if (digits.isEmpty())
        return -1;
    qint64 value = 0;
    for (const QChar c : digits) {
        if (c < u'0' || c > u'9')
            return -1;
        value = std::min<qint64>(value * 10 + (c.unicode() - u'0'), qint64(INT_MAX) + 1);
    }
    return value;
}

} // namespace

bool CFieldRange::Accepts(const QString& text) const
{
    const qint64 value = FieldValue(text);
    return value >= 0 && value >= Low && value <= High;
}

bool CFieldRange::IsWrong(const QString& text) const
{
    if (text.trimmed().isEmpty())
        return false;
    const qint64 value = FieldValue(text);
    return value < 0 || value > High;
}

bool CFieldRange::AcceptsValues(const QStringList& fields) const
{
    bool any = false;
    for (const QString& field : fields) {
        if (field.trimmed().isEmpty())
            continue;
        if (!Accepts(field))
            return false;
        any = true;
    }
    return any;
}

int CFieldRange::WrongField(const QStringList& fields) const
{
    for (qsizetype i = 0; i < fields.size(); ++i)
        if (IsWrong(fields[i]))
            return int(i);
    return -1;
}

QStringList CFieldRange::Values(const QStringList& fields) const
{
    QStringList values;
    for (const QString& field : fields)
        if (Accepts(field))
            values.append(QString::number(FieldValue(field)));
    return DescendingDistinct(values);
}

bool FitsInLine(const QString& text, ELineText kind)
{
    for (const QChar c : text)
        if (c == u',' || c.category() == QChar::Other_Control)
            return false;
    return kind == ELineText::Quoted || text.isEmpty() || !text.back().isSpace();
}
