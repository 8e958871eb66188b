#pragma once

#include "gridpos.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class CPanelCell;

class CBoardInfo;
class CPanelGrid;
class IMessenger;

// Reads and writes a layout, the "*.loc" file that is also the location file the board's
// compiler reads. Writing gives the same bytes for the same grid, CR LF after every line.
class CLayoutFile
{
  public:
    // The board's palettes give each loaded panel its ports, name and weight before it
    // reads its line; without a board the panels keep what their line alone says.
    CLayoutFile(const CBoardInfo* board, IMessenger& messenger);

    // Places every panel of the file it can. False when the file cannot be read or is no
    // layout at all; ErrorString() then says why. A line that is not placed as it stands is
    // never lost unseen: after the whole file one message names every such line, without a
    // question per line. Lines may end with CR LF, LF or a bare CR.
    bool Load(CPanelGrid& grid, const QString& path);
    // The text of a layout file, checked to be a layout; false as Load answers it.
    bool ReadText(const QString& path, QString& text);
    // Writes so that a failure keeps the old file (CSafeSave); on failure the message names
    // the file and the system's reason, ErrorString() holds the reason and the result is false.
    bool Save(const CPanelGrid& grid, const QString& path);

    static QByteArray Write(const CPanelGrid& grid);
    // Text of a file: UTF-8, or, when the bytes are not valid UTF-8, the Japanese Windows
    // code page that layouts made on Japanese Windows are written in.
    static QString Decode(const QByteArray& bytes);
    void Read(CPanelGrid& grid, const QString& text);
    // The cell of a record's panel as loading makes it: the factory reads the line, then the
    // board's entry for its keyword gives the ports, name and weight. Null for a keyword the
    // factory does not know.
    std::unique_ptr<CPanelCell> MakeCell(const QString& record) const;

    const QString& ErrorString() const { return m_error; }

    // A position as a record's prefix names it: "I_05", "0201", "O_07".
    static QString PositionText(CGridPos pos);
    // The position a record's first four characters name, read as loading reads them; the
    // caller checks it lies on the grid.
    static CGridPos PositionOf(QStringView prefix);

  private:
    void ReadRecord(CPanelGrid& grid, QStringView line, int number);
    void AddFault(int number, int why, std::initializer_list<QVariant> args = {});
    void ReportFaults();

    const CBoardInfo* m_board;
    IMessenger& m_messenger;
    QString m_error;
    // While reading: the faults to show, how many there were, and which line put the panel
    // at each top position, so a duplicate can name it.
    QStringList m_faults;
    int m_faultCount = 0;
    QHash<qint64, int> m_placedBy;
};
