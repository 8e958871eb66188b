#include "folderpath.h"

#include <QDir>
#include <QRegularExpression>

bool StaysInsideFolder(const QString& name)
{
    if (name.isEmpty() || QDir::isAbsolutePath(name) || name.startsWith(u'\\') ||
        (name.size() > 1 && name[1] == u':'))
        return false;
    static const QRegularExpression separators(QStringLiteral("[/\\\\]"));
    for (const QString& part : name.split(separators))
        if (part == u"..")
            return false;
    return true;
}
