#include "lcddialoglogic.h"

#include "panelvalues.h"

CLcdDialogLogic::CLcdDialogLogic(const QStringList& tokens)
{
    if (tokens.size() > 2) {
        // One quote at each end is the wrapping; quotes the user typed stay.
        Text = tokens[2];
        if (Text.startsWith(u'"'))
            Text.remove(0, 1);
        if (Text.endsWith(u'"'))
            Text.chop(1);
    }
    if (tokens.size() > 1) {
        const QString mode = tokens[1];
        Mode = mode == u"0" ? Clear : mode == u"1" ? Above : mode == u"2" ? Below : NoMode;
    }
}

bool CLcdDialogLogic::IsTextValid() const
{
    return Mode == Clear || FitsInLine(Text, ELineText::Quoted);
}

bool CLcdDialogLogic::IsOkEnabled() const
{
    return Mode == Clear || ((Mode == Above || Mode == Below) && !Text.isEmpty() && IsTextValid());
}

QStringList CLcdDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    if (Mode == Clear)
        return {QStringLiteral("LCD"), QStringLiteral("0"), QStringLiteral("\"\"")};
    return {QStringLiteral("LCD"), Mode == Above ? QStringLiteral("1") : QStringLiteral("2"),
            u'"' + Text + u'"'};
}
