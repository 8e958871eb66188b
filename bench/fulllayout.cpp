#include "fulllayout.h"

// Side columns of three-row receivers, two-row buzzers and single panels; a process area
// of four-row motors, three-row counters and single-cell panels of every kind.
QString FullLayoutText()
{
    QString text = QStringLiteral("; Quillon\r\n; PANEL LOCATION\r\n;\r\nINPUT\r\n");
    const auto two = [](int n) { return QString::number(n).rightJustified(2, u'0'); };
    for (int row = 1; row <= 40;) {
        if (row % 10 == 1 && row + 2 <= 40) {
            text += "I_" + two(row) + ":UARI\tC,200,17,5\t\t;rx\r\n";
            row += 3;
        } else {
            text += "I_" + two(row) + ":KEY \tH,PD2\t\t;key" + QString::number(row) + "\r\n";
            ++row;
        }
    }
    text += ";\r\nPROCESS\r\n";
    static const char* const singles[] = {"AND \tR", "LINE\tLR",  "DLY \t1.00S", "TIM1\tN,0.50S",
                                          "T_FF",    "JPI \t3,L", "JPO \t3,R",   "OR  \tD"};
    for (int column = 1; column <= 16; ++column)
        for (int row = 1; row <= 40;) {
            const QString at = two(column) + two(row) + ":";
            if (row % 8 == 1 && row + 3 <= 40) {
                text += at + "SMOT\t2,20\r\n";
                row += 4;
            } else if (row % 8 == 5 && row + 2 <= 40) {
                text += at + "CNT \tC,300,10,5\r\n";
                row += 3;
            } else {
                text += at + QString::fromLatin1(singles[(row + column) % 8]) + "\r\n";
                ++row;
            }
        }
    text += ";\r\nOUTPUT\r\n";
    for (int row = 1; row <= 40;) {
        if (row % 4 == 1 && row + 1 <= 40) {
            text += "O_" + two(row) + ":BUZZ\tPB1,2000,500\r\n";
            row += 2;
        } else {
            text += "O_" + two(row) + ":LAMP\tH,PB5\t\t;lamp\r\n";
            ++row;
        }
    }
    return text;
}
