// Building a layout for a firmware test: the faults, without a real layout.
#include "layoutbuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

TEST(AvrSimLayoutBuilder, MissingLayoutIsAFault)
{
    const CLayoutBuilder::CResult result = CLayoutBuilder::Build("/nonexistent/a.loc");
    EXPECT_FALSE(result.Ok);
    EXPECT_NE(result.Log.find("no layout file"), std::string::npos) << result.Log;
    EXPECT_EQ(BuildLayout("/nonexistent/a.loc"), "");
}

TEST(AvrSimLayoutBuilder, FailedBuildKeepsTheLogAndLeavesTheLayoutAlone)
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-layoutbuilder-test";
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
