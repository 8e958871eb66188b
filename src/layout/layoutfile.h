#pragma once

#include <QByteArray>
#include <QString>

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
    // layout at all; ErrorString() then says why.
    bool Load(CPanelGrid& grid, const QString& path);
    // The text of a layout file, checked to be a layout; false as Load answers it.
    bool ReadText(const QString& path, QString& text);
    // Writes atomically: on failure the old file stays as it was, 59439 is shown and the
    // result is false.
    bool Save(const CPanelGrid& grid, const QString& path);

    static QByteArray Write(const CPanelGrid& grid);
    // Text of a file: UTF-8, or, when the bytes are not valid UTF-8, the Japanese Windows
    // code page that layouts made on Japanese Windows are written in.
    static QString Decode(const QByteArray& bytes);
    void Read(CPanelGrid& grid, const QString& text);

    const QString& ErrorString() const { return m_error; }

private:
    void ReadRecord(CPanelGrid& grid, QStringView line);

    const CBoardInfo* m_board;
    IMessenger& m_messenger;
    QString m_error;
};
