#pragma once

#include <QString>

// Where a build reports its progress: the build dialog's log, or stdout for the command
// line. Every line shows at once, while the external programs still run.
class IBuildLog
{
  public:
    virtual ~IBuildLog() = default;
    // Replaces the log by its first line.
    virtual void Start(const QString& line) = 0;
    virtual void Append(const QString& line) = 0;
};
