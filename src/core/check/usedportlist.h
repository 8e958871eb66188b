#pragma once

#include <QList>
#include <QString>

class CPanelGrid;

// The "List of Used Port" rows: every panel of the input column, then of the output column,
// each in row order, with the port it is assigned to. Process panels have no port.
class CUsedPortList
{
  public:
    struct CRow
    {
        QString Io;
        QString Location; // 1-based row
        QString Type;     // the type's display name
        QString Name;     // the panel's own name
        QString Assigned;

        bool operator==(const CRow&) const = default;
    };

    static QList<CRow> Rows(const CPanelGrid& grid);
};
