#pragma once

#include <string>
#include <vector>

// Finds avrdude and runs it with the writer's own output channels, so its progress
// reaches the editor's build log as it is printed.
class CAvrdudeRunner
{
  public:
    // QUILLON_AVRDUDE when set (a path or a name), otherwise "avrdude".
    static std::string ProgramName();

    // The program's full path: a name with a "/" as it is, otherwise searched on PATH;
    // "" when there is no such executable file.
    static std::string Locate(const std::string& program);

    // The program's exit code; 128 + the signal when one ended it; -1 when it could not
    // be started, with the reason in error.
    static int Run(const std::string& path, const std::vector<std::string>& args,
                   std::string& error);
};
