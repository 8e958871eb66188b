#include "gatewriter.h"

#include "scancode.h"

#include "panel.h"

bool CGateWriter::Handles(const QString& keyword)
{
    return QStringList{"AND", "OR", "XOR", "NOT", "ON", "OFF"}.contains(keyword);
}

void CGateWriter::Write(const CPanel& panel, CGridPos pos, CScanCode& code)
{
    const QString sides = panel.GetSides();
    const char output = sides.contains(u'R') ? 'R' : 'D';
    // A gate reads whichever of its U and L sides it has: NOT has one, ON and OFF none.
    QStringList inputs;
    for (const char side : {'U', 'L'})
        if (sides.contains(QLatin1Char(side)))
            inputs.append(code.In(pos, 0, side));
    const QString keyword = panel.GetTokens().value(0);
    QString value;
    if (keyword == u"ON")
        value = "1";
    else if (keyword == u"OFF")
        value = "0";
    else if (keyword == u"NOT")
        value = "!" + inputs.value(0, "0");
    else
        value = inputs.value(0, "0") +
                (keyword == u"AND"  ? " & "
                 : keyword == u"OR" ? " | "
                                    : " ^ ") +
                inputs.value(1, "0");
    code.Drive(CScanCode::Gates, pos, 0, output, value);
}
