#include "timerdialoglogic.h"

#include "stringtable.h"

const QList<CTimerDialogLogic::CKind>& CTimerDialogLogic::Kinds()
{
    static const QList<CKind> kinds = {
        {Ids::CounterHold, 1, "TIM", "H"},
        {Ids::TimerToggle, 2, "TIM", "T"},
        {Ids::TimerOneShot, 3, "TIM1", "N"},
        {Ids::TimerOneShotRetrigger, 4, "TIM1", "R"},
    };
    return kinds;
}

CTimerDialogLogic::CTimerDialogLogic(const QStringList& tokens)
{
    // The kind needs keyword and letter together: "TIM1" with "H" is no kind of the list.
    if (tokens.size() >= 2)
        for (const CKind& kind : Kinds())
            if (tokens[0] == QLatin1String(kind.Keyword) && tokens[1] == QLatin1String(kind.Letter))
                m_kind = kind.Value;
    if (tokens.size() > 2 && !tokens[2].isEmpty() && tokens[2] != u"S") {
        m_time = CTimeText::FromToken(tokens[2]);
        m_hasTime = true;
    }
}

void CTimerDialogLogic::SetKind(int value)
{
    m_kind = value >= 1 && value <= Kinds().size() ? value : 0;
}

QString CTimerDialogLogic::ShownTime() const
{
    return m_hasTime ? m_time.Shown() : QString();
}

void CTimerDialogLogic::SetTimeDialogText(const QString& text)
{
    m_time = CTimeText::FromText(text).OnGrid();
    m_hasTime = true;
}

QStringList CTimerDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    const CKind& kind = Kinds()[m_kind - 1];
    return {QLatin1String(kind.Keyword), QLatin1String(kind.Letter), m_time.Token()};
}
