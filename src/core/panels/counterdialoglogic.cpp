#include "counterdialoglogic.h"

#include "panelvalues.h"
#include "stringtable.h"

namespace {

constexpr CFieldRange kValueRange{0, CCounterDialogLogic::MaxValue};

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

int CCounterDialogLogic::WrongField() const
{
    return kValueRange.WrongField(Values());
}

bool CCounterDialogLogic::IsOkEnabled() const
{
    return m_type != 0 && kValueRange.AcceptsValues(Values());
}

QStringList CCounterDialogLogic::Tokens() const
{
    if (m_type == 0)
        return {};
    QStringList tokens = {QStringLiteral("CNT"), QLatin1String(Types()[m_type - 1].Letter)};
    return tokens + kValueRange.Values(Values());
}

QStringList CCounterDialogLogic::Values() const
{
    return QStringList(std::begin(m_values), std::end(m_values));
}
