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
    return CTimeDialogLogic(tokens.size() >= 2 ? CTimeText::FromToken(tokens[1]).Text() : QString());
}

void CTimeDialogLogic::SetField(EField field, const QString& text)
{
    m_fields[field] = text;
    Apply();
}

void CTimeDialogLogic::FinishHundredths()
{
    m_fields[Hundredths] = QString::asprintf("%02d", Value(Hundredths));
    Apply();
}

bool CTimeDialogLogic::IsHundredthsEnabled() const
{
    return Value(Hours) < 1 && Value(Minutes) < 20;
}

bool CTimeDialogLogic::IsOkEnabled() const
{
    const int h = Value(Hours), m = Value(Minutes), s = Value(Seconds);
    if (h >= 9 || m >= 60 || s >= 60 || h < 0 || m < 0 || s < 0)
        return false;
    // 0.05 s is the shortest time the grid can hold.
    return h != 0 || m != 0 || s != 0 || Value(Hundredths) >= 5;
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

int CTimeDialogLogic::Value(EField field) const
{
    return LeadingInt(m_fields[field]);
}

void CTimeDialogLogic::Apply()
{
    if (!IsHundredthsEnabled())
        m_fields[Hundredths] = QStringLiteral("00");
}
