#pragma once

#include <QString>
#include <QStringList>

// The command line the build gives the panel compiler:
//   quillon-panelc "<location file>" -o "<out>" -w "<work>" -x 16 -y 40 -c<n>
struct CPanelcArguments
{
    QString LocationFile;
    QString OutputFolder;
    QString WorkFolder;
    int Columns = 16;
    int Rows = 40;
    int ClockSource = 0; // from 1; 0 when -c was not given or was -c0

    // False with `error` set for a line the compiler cannot work from.
    static bool Parse(const QStringList& args, CPanelcArguments& parsed, QString& error);
};
