// Building a layout for a firmware test: the faults, without a real layout.
#include "layoutbuilder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

TEST(AvrSimLayoutBuilder, MissingLayoutIsAFault)
{
    const CLayoutBuilder::CResult result = CLayoutBuilder::Build("/nonexistent/a.loc");
    EXPECT_FALSE(result.Ok);
    EXPECT_NE(result.Log.find("no layout file"), std::string::npos) << result.Log;
    EXPECT_EQ(BuildLayout("/nonexistent/a.loc"), "");
}

TEST(AvrSimLayoutBuilder, FailedBuildKeepsTheLogAndLeavesTheLayoutAlone)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / "quillon-layoutbuilder-test";
    std::filesystem::create_directories(folder);
    const std::filesystem::path layout = folder / "broken.loc";
    std::ofstream(layout) << "this is no layout\n";

    const CLayoutBuilder::CResult result = CLayoutBuilder::Build(layout.string());
    EXPECT_FALSE(result.Ok);
    EXPECT_FALSE(result.Log.empty());
    // Built elsewhere: nothing lands beside the original.
    EXPECT_FALSE(std::filesystem::exists(folder / "broken.hex"));
    EXPECT_NE(result.HexPath, (folder / "broken.hex").string());
    std::filesystem::remove_all(folder);
}

// A built layout stays for the tests that load its HEX file and goes when the program ends,
// so a run of the suite leaves no folder in the temporary directory.
TEST(AvrSimLayoutBuilder, BuiltLayoutGoesWhenTheProgramEnds)
{
    if (!QUILLON_HAVE_AVR_GCC)
        GTEST_SKIP() << "avr-gcc not found: layouts cannot be built";
    std::string pattern =
        (std::filesystem::temp_directory_path() / "quillon-layoutbuilder-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    const std::filesystem::path temporary(pattern);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        setenv("TMPDIR", temporary.c_str(), 1);
        const bool built =
            CLayoutBuilder::Build(std::string(QUILLON_FIRMWARE_LAYOUTS) + "/gates.loc").Ok;
        std::exit(built ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the layout did not build";
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
    std::filesystem::remove_all(temporary);
}
