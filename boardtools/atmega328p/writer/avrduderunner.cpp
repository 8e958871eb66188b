#include "avrduderunner.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

bool IsExecutableFile(const std::string& path)
{
    struct stat info
    {
    };
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

} // namespace

std::string CAvrdudeRunner::ProgramName()
{
    const char* chosen = std::getenv("QUILLON_AVRDUDE");
    return chosen && *chosen ? chosen : "avrdude";
}

std::string CAvrdudeRunner::Locate(const std::string& program)
{
    if (program.find('/') != std::string::npos)
        return IsExecutableFile(program) ? program : std::string();
    const char* path = std::getenv("PATH");
    const std::string folders = path ? path : "";
    std::size_t start = 0;
    for (;;) {
        const std::size_t colon = folders.find(':', start);
        std::string folder =
            folders.substr(start, colon == std::string::npos ? colon : colon - start);
        if (folder.empty())
            folder = ".";
        const std::string candidate = folder + "/" + program;
        if (IsExecutableFile(candidate))
            return candidate;
        if (colon == std::string::npos)
            return std::string();
        start = colon + 1;
    }
}

int CAvrdudeRunner::Run(const std::string& path, const std::vector<std::string>& args,
                        std::string& error)
{
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(path.c_str()));
    for (const std::string& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);

    pid_t child = 0;
    const int failed = posix_spawn(&child, path.c_str(), nullptr, nullptr, argv.data(), environ);
    if (failed != 0) {
        error = std::strerror(failed);
        return -1;
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            error = std::strerror(errno);
            return -1;
        }
    }
    if (WIFSIGNALED(status))
        return 128 + WTERMSIG(status);
    return WEXITSTATUS(status);
}
