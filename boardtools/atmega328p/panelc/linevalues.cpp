#include "linevalues.h"

#include "panel.h"
#include "panelvalues.h"

QList<int> CLineValues::From(const CPanel& panel, int first)
{
    QList<int> values;
    const QStringList& tokens = panel.GetTokens();
    for (qsizetype i = first; i < tokens.size() && !tokens[i].startsWith(u';'); ++i)
        values.append(LeadingInt(tokens[i]));
    return values;
}

bool CLineValues::ActiveLow(const CPanel& panel)
{
    return panel.GetTokens().value(1) == u"L";
}

long CLineValues::Milliseconds(const QString& token)
{
    QString text = token.trimmed();
    if (text.endsWith(u'S'))
        text.chop(1);
    const qsizetype dot = text.indexOf(u'.');
    const long seconds = LeadingInt(dot < 0 ? text : text.left(dot));
    // Read as the timer dialog reads it: "2.5" is 2 s and 50 hundredths.
    const QString fraction = dot < 0 ? QString() : text.mid(dot + 1);
    const long hundredths = LeadingInt((fraction + "000").left(3)) / 10;
    return seconds * 1000 + hundredths * 10;
}

QString CLineValues::TimeConstant(long milliseconds)
{
    return QString::number(milliseconds) + (milliseconds > 65535 ? "UL" : "u");
}
