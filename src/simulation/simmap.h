#pragma once

#include "gridpos.h"

#include <QList>
#include <QString>

// Where the running program keeps each panel's state, as the board's compiler wrote it
// beside the HEX file: one line a value, "CELL ITEM ADDRESS BYTES", such as "0201 R 0x0104 1"
// (the net on the right side of process cell 2,1: one byte, not 0 when on) or
// "0301 count 0x0107 2" (a counter's value). Lines starting with ';' are comments.
class CSimMap
{
  public:
    struct CEntry
    {
        CGridPos Cell;
        QString Item; // "L", "R", "U", "D" for a side's net; else what the value is
        quint32 Address = 0;
        int Bytes = 1;
    };

    // False, with the line that does not read, when the file is there but wrong; a missing
    // file is an empty map (the board's compiler may write none).
    bool Read(const QString& path, QString& error);
    const QList<CEntry>& Entries() const { return m_entries; }

    // "0201", "I_05", "O_07" as a position; off the grid when it names none.
    static CGridPos CellOf(const QString& text);

  private:
    QList<CEntry> m_entries;
};
