// A built layout stays for the tests that load its HEX file and goes when the program ends,
// so a run of the suite leaves no folder in the temporary directory.
#include "firmwaretest.h"

#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

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
        std::exit(BuildLayout(std::string(QUILLON_FIRMWARE_LAYOUTS) + "/gates.loc").empty());
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the layout did not build";
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
    std::filesystem::remove_all(temporary);
}
