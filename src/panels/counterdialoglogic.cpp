#include "counterdialoglogic.h"

#include "panelvalues.h"
#include "res/stringtable.h"

#include <algorithm>

namespace {

bool InRange(const QString& text, int& value)
{
    bool ok = false;
    value = text.trimmed().toInt(&ok);
    return ok && value >= 0 && value <= CCounterDialogLogic::MaxValue;
}

} // namespace

const QList<CCounterDialogLogic::CType>& CCounterDialogLogic::Types()
{
    static const QList<CType> types = {
        {Ids::CounterHold, 1, "H"},
        {Ids::CounterCyclic, 2, "C"},
    };
    return types;
}

CCounterDialogLogic::CCounterDialogLogic(const QStringList& tokens)
{
    QStringList values = tokens.mid(2);
    if (tokens.size() >= 2)
        SetType(tokens[1] == u"H" ? 1 : tokens[1] == u"C" ? 2 : 0);
    values.removeIf([](const QString& v) { return v.startsWith(u';'); });
    values = DescendingDistinct(values);
    for (int i = 0; i < ValueCount && i < values.size(); ++i)
        m_values[i] = values[i];
}

void CCounterDialogLogic::SetType(int value)
{
    m_type = value == 1 || value == 2 ? value : 0;
}

int CCounterDialogLogic::BadValue() const
{
    int value = 0;
    for (int i = 0; i < ValueCount; ++i)
        if (!m_values[i].trimmed().isEmpty() && !InRange(m_values[i], value))
            return i;
    return -1;
}

bool CCounterDialogLogic::IsOkEnabled() const
{
    const bool any = std::any_of(std::begin(m_values), std::end(m_values),
                                 [](const QString& v) { return !v.trimmed().isEmpty(); });
    return m_type != 0 && any && BadValue() < 0;
}

QStringList CCounterDialogLogic::Tokens() const
{
    if (m_type == 0)
        return {};
    QStringList values;
    int value = 0;
    for (const QString& text : m_values)
        if (InRange(text, value))
            values.append(QString::number(value));
    QStringList tokens = {QStringLiteral("CNT"), QLatin1String(Types()[m_type - 1].Letter)};
    return tokens + DescendingDistinct(values);
}
