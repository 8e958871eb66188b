#include "simmap.h"

#include "layoutfile.h"
#include "panelgrid.h"

#include <QFile>
#include <QRegularExpression>

CGridPos CSimMap::CellOf(const QString& text)
{
    const CGridPos pos = CLayoutFile::PositionOf(text);
    const bool onGrid = pos.Row >= 1 && pos.Row <= CPanelGrid::GetRowCount() &&
                        (pos.Column == CPanelGrid::GetInputColumn() ||
                         pos.Column == CPanelGrid::GetOutputColumn() ||
                         (pos.Column >= 1 && pos.Column <= CPanelGrid::GetColumnCount()));
    return text.size() == 4 && onGrid ? pos : CGridPos();
}

bool CSimMap::Read(const QString& path, QString& error)
{
    m_entries.clear();
    QFile file(path);
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly)) {
        error = path + QStringLiteral(": ") + file.errorString();
        return false;
    }
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    int number = 0;
    while (!file.atEnd()) {
        ++number;
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.isEmpty() || line.startsWith(u';'))
            continue;
        const QStringList fields = line.split(blanks);
        bool addressOk = false, bytesOk = false;
        CEntry entry;
        entry.Cell = CellOf(fields.value(0));
        entry.Item = fields.value(1);
        entry.Address = fields.value(2).toUInt(&addressOk, 0);
        entry.Bytes = fields.value(3).toInt(&bytesOk);
        if (fields.size() != 4 || !entry.Cell.IsOnGrid() || !addressOk || !bytesOk ||
            entry.Bytes < 1 || entry.Bytes > 4) {
            error = path + QStringLiteral(", line ") + QString::number(number);
            return false;
        }
        m_entries.append(entry);
    }
    return true;
}
