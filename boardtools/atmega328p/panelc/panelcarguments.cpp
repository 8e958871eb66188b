#include "panelcarguments.h"

bool CPanelcArguments::Parse(const QStringList& args, CPanelcArguments& parsed, QString& error)
{
    parsed = CPanelcArguments();
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        const bool takesValue = arg == u"-o" || arg == u"-w" || arg == u"-x" || arg == u"-y";
        if (takesValue && i + 1 >= args.size()) {
            error = arg + " needs a value";
            return false;
        }
        bool ok = true;
        if (arg == u"-o")
            parsed.OutputFolder = args[++i];
        else if (arg == u"-w")
            parsed.WorkFolder = args[++i];
        else if (arg == u"-x")
            parsed.Columns = args[++i].toInt(&ok);
        else if (arg == u"-y")
            parsed.Rows = args[++i].toInt(&ok);
        else if (arg.startsWith(u"-c"))
            parsed.ClockSource = arg.mid(2).toInt(&ok);
        else if (arg.startsWith(u'-') || !parsed.LocationFile.isEmpty())
            ok = false;
        else
            parsed.LocationFile = arg;
        if (!ok) {
            error = "unexpected argument " + arg;
            return false;
        }
    }
    if (parsed.LocationFile.isEmpty() || parsed.WorkFolder.isEmpty()) {
        error = "a location file and -w are needed";
        return false;
    }
    return true;
}
