#include "pulsedialoglogic.h"

#include "panelvalues.h"

CPulseDialogLogic::CPulseDialogLogic(const QStringList& tokens, const CPortList& ports)
{
    int arguments = int(tokens.size());
    if (arguments >= 2 && tokens.last().startsWith(u';')) {
        Name = tokens.last().mid(1);
        --arguments;
    }
    for (int i = 0; i < ports.GetCount(); ++i)
        Ports.append(ports.GetAt(i));
    Port = ports.GetCount() == 1 ? 0 : (tokens.size() >= 3 ? ports.IndexOf(tokens[2]) : -1);
    Level = tokens.size() >= 2 ? int(Levels().indexOf(tokens[1])) : 0;
    const int levels = arguments - 3;
    Steps = levels == 5 ? FiveSteps : levels == 3 ? ThreeSteps : NoSteps;
}

bool CPulseDialogLogic::IsNameValid() const
{
    return FitsInLine(Name, ELineText::Name);
}

QStringList CPulseDialogLogic::Tokens() const
{
    if (!IsOkEnabled())
        return {};
    QStringList tokens{QStringLiteral("PULS"), Levels().value(Level), Ports.value(Port)};
    if (Steps == FiveSteps)
        tokens << "100"
               << "75"
               << "50"
               << "25"
               << "0";
    else
        tokens << "100"
               << "50"
               << "0";
    if (!Name.isEmpty())
        tokens.append(u';' + Name);
    return tokens;
}
