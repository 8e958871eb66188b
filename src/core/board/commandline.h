#pragma once

#include <QString>
#include <QStringList>

// A program and its arguments, kept apart all the way to the process: a file name is one
// argument whatever it holds (blanks, quotes), so no name can add arguments of its own.
struct CCommandLine
{
    QString Program;
    QStringList Arguments;

    // Splits a command template once, as the board file writes it: blanks part the
    // arguments, double quotes hold blanks together ("" inside them is one quote).
    static CCommandLine Split(const QString& text);

    bool IsEmpty() const { return Program.isEmpty(); }
    // The program's name as a log line names it: what the template said, not the full path.
    QString Text() const;
    // Replaces the first "%hex%" in the arguments by path, in place inside its argument;
    // false when no argument holds one.
    bool Substitute(const QString& placeholder, const QString& value);

    bool operator==(const CCommandLine&) const = default;
};
