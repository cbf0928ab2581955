#include "platform/FileService.h"
#include "support/Support.h"

#include <cstdlib>
#include <filesystem>

// Where the program's own folder is, whatever its start looked like.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

fs::path ThisProgram() { return fs::read_symlink("/proc/self/exe"); }

}  // namespace

// Run by the next test alone, in a process of its own.
TEST(ProgramFolder, DISABLED_Is_the_current_folder_of_this_process) {
    const std::string name = ThisProgram().filename().string();
    EXPECT_FALSE(fs::exists(fs::current_path() / name)) << "no start from elsewhere";
    EXPECT_TRUE(oFSO().FileExists(name));
    EXPECT_EQ(oFSO().GetFile(name).Path, ProgramFolder() + "\\" + name);
    EXPECT_EQ(oFSO().HostPath(name), ThisProgram().string());
}

TEST(ProgramFolder, Is_the_current_folder_after_a_start_from_elsewhere_by_a_symbolic_link) {
    const TempFolder temp;
    fs::create_symlink(ThisProgram(), temp.HostPath("link"));
    const std::string command =
        "cd '" + temp.HostPath() +
        "' && ./link --gtest_also_run_disabled_tests"
        " --gtest_filter=ProgramFolder.DISABLED_Is_the_current_folder_of_this_process >&2";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace tavel::test
