#include "layoutbuilder.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace fs = std::filesystem;

namespace {

// The folders of the layouts built so far. A test loads its HEX file after the build, and
// a layout built once serves every test of the program, so the folders go when it ends.
struct CBuiltFolders : std::vector<fs::path>
{
    ~CBuiltFolders()
    {
        std::error_code ignored;
        for (const fs::path& folder : *this)
            fs::remove_all(folder, ignored);
    }
};

std::string ReadFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

} // namespace

std::string BuildLayout(const std::string& layoutPath)
{
    const auto fail = [&](const std::string& why) {
        std::cerr << "building " << layoutPath << " failed: " << why << std::endl;
        return std::string();
    };
    std::error_code error;
    std::string pattern = (fs::temp_directory_path(error) / "quillon-firmware-XXXXXX").string();
    if (!fs::is_regular_file(layoutPath, error) || !mkdtemp(pattern.data()))
        return fail("no layout file, or no temporary folder");
    const fs::path folder(pattern);
    static CBuiltFolders built;
    built.push_back(folder);
    const fs::path layout = folder / fs::path(layoutPath).filename();
    if (!fs::copy_file(layoutPath, layout, error))
        return fail("cannot copy the layout: " + error.message());

    const std::string cli = QUILLON_CLI;
    const std::string log = (folder / "build.log").string();
    std::vector<std::string> args = {cli,
                                     "build",
                                     layout.string(),
                                     "--work",
                                     (folder / "work").string(),
                                     "--board",
                                     QUILLON_BOARD_FOLDER};
    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, log.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    pid_t child = 0;
    const int failed = posix_spawn(&child, cli.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0)
        return fail("cannot run " + cli);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    fs::path hex = layout;
    hex.replace_extension(".hex");
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || fs::file_size(hex, error) == 0 || error)
        return fail(ReadFile(log));
    return hex.string();
}
