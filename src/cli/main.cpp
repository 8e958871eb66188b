// quillon-cli: Quillon's headless commands.

#include "layout/panelcell.h"
#include "res/stringtable.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

QTextStream& Out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& Err()
{
    static QTextStream stream(stderr);
    return stream;
}

int Usage()
{
    Err() << "usage: quillon-cli panels FILE [--lang en|ja]\n"
             "  panels  makes a panel of every definition line in FILE and shows what it is\n";
    return 2;
}

QString Quoted(const QString& text)
{
    QString shown = text;
    shown.replace(QChar(u'\t'), QStringLiteral("\\t"));
    return u'"' + shown + u'"';
}

// Shows each line as the catalogue understands it: the panel's line written back, its
// caption, sides, rows, completeness and picture.
int ShowPanels(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Err() << "cannot read " << path << ": " << file.errorString() << "\n";
        return 2;
    }
    int number = 0;
    while (!file.atEnd()) {
        ++number;
        const QString line = QString::fromUtf8(file.readLine()).remove(u'\r').remove(u'\n');
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        const CPanelCell cell(line);
        const CPanel* panel = cell.GetPanel();
        Out() << number << ": " << Quoted(line) << "\n";
        if (!panel) {
            Out() << "    no panel: unknown keyword\n";
            continue;
        }
        Out() << "    line     " << Quoted(panel->GetLine()) << "\n"
              << "    caption  " << Quoted(panel->GetCaption()) << "\n"
              << "    area " << panel->GetArea() << "  sides " << Quoted(panel->GetSides())
              << "  rows " << cell.GetHeight() << "  bitmap " << cell.GetBitmapId()
              << (panel->IsIncomplete() ? "  incomplete" : "  complete") << "\n";
        for (const CPanelImageItem& item : cell.GetImage().Items)
            Out() << "    picture " << item.BitmapId << " " << Quoted(item.PortText) << " "
                  << Quoted(item.Comment) << "\n";
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    const qsizetype lang = args.indexOf(u"--lang");
    if (lang >= 0) {
        if (lang + 1 >= args.size())
            return Usage();
        CStringTable::SetLanguage(args[lang + 1] == u"ja" ? ELanguage::Japanese : ELanguage::English);
        args.remove(lang, 2);
    }
    if (args.size() == 2 && args[0] == u"panels")
        return ShowPanels(args[1]);
    return Usage();
}
