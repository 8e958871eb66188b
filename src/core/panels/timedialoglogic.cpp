#include "timedialoglogic.h"

#include "panelvalues.h"

CTimeDialogLogic::CTimeDialogLogic(const QString& text)
{
    const CTimeText time = CTimeText::FromText(text);
    m_fields[Hours] = QString::number(time.Hours);
    m_fields[Minutes] = QString::number(time.Minutes);
    m_fields[Seconds] = QString::number(time.Seconds);
    m_fields[Hundredths] = QString::asprintf("%02d", time.Hundredths);
    Apply();
}

CTimeDialogLogic CTimeDialogLogic::ForDelay(const QStringList& tokens)
{
    return CTimeDialogLogic(tokens.size() >= 2 ? CTimeText::FromToken(tokens[1]).Text()
                                               : QString());
}

void CTimeDialogLogic::SetField(EField field, const QString& text)
{
    m_fields[field] = text;
    Apply();
}

int CTimeDialogLogic::MaxLength(EField field) const
{
    return qMax(field == Hours ? 1 : 2, int(m_fields[field].size()));
}

void CTimeDialogLogic::FinishHundredths()
{
    // Only a number is reformatted: "x" would otherwise turn into an accepted "00".
    if (Range(Hundredths).Accepts(m_fields[Hundredths]))
        m_fields[Hundredths] = QString::asprintf("%02d", Value(Hundredths));
    Apply();
}

bool CTimeDialogLogic::IsHundredthsEnabled() const
{
    return Value(Hours) < 1 && Value(Minutes) < 20;
}

bool CTimeDialogLogic::IsOkEnabled() const
{
    for (int f = 0; f < FieldCount; ++f)
        if (!m_fields[f].trimmed().isEmpty() && !Range(EField(f)).Accepts(m_fields[f]))
            return false;
    // 0.05 s is the shortest time the grid can hold.
    return Value(Hours) != 0 || Value(Minutes) != 0 || Value(Seconds) != 0 ||
           Value(Hundredths) >= 5;
}

int CTimeDialogLogic::WrongField() const
{
    for (int f = 0; f < FieldCount; ++f)
        if (Range(EField(f)).IsWrong(m_fields[f]))
            return f;
    return -1;
}

QString CTimeDialogLogic::Text() const
{
    return CTimeText{Value(Hours), Value(Minutes), Value(Seconds), Value(Hundredths)}.Text();
}

QStringList CTimeDialogLogic::DelayTokens(const QStringList& tokens) const
{
    QStringList result = tokens;
    while (result.size() < 2)
        result.append(QString());
    result[1] = CTimeText::FromText(Text()).Token();
    return result;
}

CFieldRange CTimeDialogLogic::Range(EField field)
{
    static const CFieldRange ranges[FieldCount] = {{0, 8}, {0, 59}, {0, 59}, {0, 99}};
    return ranges[field];
}

int CTimeDialogLogic::Value(EField field) const
{
    return LeadingInt(m_fields[field]);
}

void CTimeDialogLogic::Apply()
{
    if (!IsHundredthsEnabled())
        m_fields[Hundredths] = QStringLiteral("00");
}
