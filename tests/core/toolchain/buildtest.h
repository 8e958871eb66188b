#pragma once

#include "boardinfo.h"
#include "buildlog.h"
#include "portfinder.h"
#include "support/recordingmessenger.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// Collects the log as the build dialog would show it.
struct CRecordingLog : IBuildLog
{
    void Start(const QString& line) override { Lines = {line}; }
    void Append(const QString& line) override { Lines.append(line); }
    QStringList Tail(qsizetype n) const { return Lines.mid(Lines.size() - n); }
    QStringList Lines;
};

// A board as the tests need it: attached at a port of their choosing, or not at all.
struct CFakePortFinder : IPortFinder
{
    QString FindBoardPort(const QString& interfaceName) override
    {
        AskedFor = interfaceName;
        return Port;
    }
    QString Port, AskedFor;
};

// The parts of a board definition the build reads.
struct CFakeBoardDefinition
{
    QString Compiler = QStringLiteral("faketool");
    QStringList Commands = {}; // CMD1, CMD2, ... ; "" leaves a position out
    QString WriterCommand = {};
    QString WriterParam = {};
};

// A board folder holding the fake tool as its compiler and writer, a work folder and a
// folder for layouts, all in a temporary folder of the test's own. The board's folder has a
// blank in its name, which must not part any argument.
class CBuildSandbox
{
  public:
    CBuildSandbox()
    {
        for (const char* folder : {"my board", "work", "layouts"})
            QDir(m_root.path()).mkpath(folder);
        QFile::copy(QStringLiteral(QUILLON_FAKE_TOOL), Tool());
        QFile::setPermissions(Tool(), QFile::permissions(Tool()) | QFileDevice::ExeOwner);
        WriteFile("my board/inout_e.xml", "<PALETTES/>");
        WriteFile("my board/parts_e.xml", "<PALETTES/>");
        qputenv("QUILLON_FAKE_RECORD", Path("record.txt").toUtf8());
    }
    ~CBuildSandbox()
    {
        qunsetenv("QUILLON_FAKE_RECORD");
        qunsetenv("QUILLON_FAKE_SCENARIO");
    }

    QString Path(const QString& relative) const { return QDir(m_root.path()).filePath(relative); }
    QString BoardFolder() const { return Path("my board"); }
    QString WorkFolder() const { return Path("work"); }
    QString Tool() const { return BoardFolder() + "/faketool"; }
    // A command-list entry that runs the fake tool acting out a scenario.
    QString ToolActing(const QString& scenario) const
    {
        return u'"' + Tool() + "\" --act " + scenario;
    }

    void WriteFile(const QString& relative, const QByteArray& bytes) const
    {
        QFile file(Path(relative));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    QByteArray ReadFile(const QString& relative) const
    {
        QFile file(Path(relative));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // Every run of the fake tool: its scenario, arguments and folder, one a line.
    QStringList Recorded() const
    {
        return QString::fromUtf8(ReadFile("record.txt")).split(u'\n', Qt::SkipEmptyParts);
    }

    // Writes the board definition and reads it.
    bool ReadBoard(const CFakeBoardDefinition& fake, CBoardInfo& board) const
    {
        const auto element = [](const QString& name, const QString& value) {
            return value.isEmpty()
                       ? QString()
                       : QStringLiteral("<%1 var=\"%2\"/>").arg(name, value.toHtmlEscaped());
        };
        QString commands;
        for (int i = 0; i < fake.Commands.size(); ++i)
            commands += element(QStringLiteral("CMD%1").arg(i + 1), fake.Commands[i]);
        WriteFile("my board/board_e.xml",
                  QStringLiteral(
                      "<Q><BOARD name=\"Fake\"><INTERFACE name=\"FakeSerial\"/>"
                      "<COMPILER><PANEL var=\"%1\"/>%2</COMPILER><WRITER>%3%4</WRITER><PALETTE>"
                      "<INOUT file=\"inout_e.xml\"/><PARTS file=\"parts_e.xml\"/>"
                      "</PALETTE></BOARD></Q>")
                      .arg(fake.Compiler.toHtmlEscaped(), commands,
                           element("CMD", fake.WriterCommand), element("PRM", fake.WriterParam))
                      .toUtf8());
        CRecordingMessenger messenger;
        return board.Read(BoardFolder(), QString(), messenger);
    }

  private:
    QTemporaryDir m_root;
};
