#include "commandline.h"

#include <QProcess>

CCommandLine CCommandLine::Split(const QString& text)
{
    QStringList parts = QProcess::splitCommand(text);
    CCommandLine command;
    if (!parts.isEmpty())
        command.Program = parts.takeFirst();
    command.Arguments = parts;
    return command;
}

QString CCommandLine::Text() const
{
    // Shown to the user, never run: arguments with blanks or quotes are quoted so the
    // line reads as one would type it.
    QStringList shown;
    for (const QString& part : QStringList{Program} + Arguments) {
        if (!part.isEmpty() && !part.contains(u' ') && !part.contains(u'"'))
            shown.append(part);
        else
            shown.append(u'"' + QString(part).replace(u'"', QStringLiteral("\"\"")) + u'"');
    }
    return shown.join(u' ');
}

bool CCommandLine::Substitute(const QString& placeholder, const QString& value)
{
    for (QString& argument : Arguments) {
        const qsizetype at = argument.indexOf(placeholder);
        if (at >= 0) {
            argument.replace(at, placeholder.size(), value);
            return true;
        }
    }
    return false;
}
