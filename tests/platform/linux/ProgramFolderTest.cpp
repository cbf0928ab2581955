#include "platform/FileService.h"
#include "platform/ProgramFolder.h"
#include "platform/linux/ProgramFolder.h"
#include "support/Support.h"
#include "support/linux/HostVariable.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>

// Where the program's own folder is, whatever its start looked like.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

fs::path ThisProgram() { return fs::read_symlink("/proc/self/exe"); }

// A program as the system installs it, and one user of it.
class InstalledPrograms : public ::testing::Test {
  protected:
    InstalledPrograms() { temp.Write("usr/share/tavel/db.txt", "[options]\r\n"); }

    std::string Folder() const { return PlaceOfProgramAt(program).folder; }

    const TempFolder temp;
    const std::string program = temp.HostPath("usr/bin/tavel");
    HostVariable home{"HOME", temp.HostPath("home")};
    HostVariable data{"XDG_DATA_HOME", std::nullopt};
};

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

TEST_F(InstalledPrograms, Keep_a_users_files_in_the_home_folder) {
    EXPECT_EQ(Folder(), temp.HostPath("home/.local/share/Tavel"));
    EXPECT_EQ(PlaceOfProgramAt(program).installed, temp.HostPath("usr/share/tavel"));
}

TEST_F(InstalledPrograms, Keep_them_where_the_user_has_such_files) {
    data.Set(temp.HostPath("data/"));
    EXPECT_EQ(Folder(), temp.HostPath("data/Tavel"));
}

TEST_F(InstalledPrograms, Ignore_a_folder_for_such_files_that_is_relative_or_empty) {
    for (const char* told : {"data", "./data", ""}) {
        data.Set(told);
        EXPECT_EQ(Folder(), temp.HostPath("home/.local/share/Tavel")) << told;
    }
}

TEST_F(InstalledPrograms, Ask_the_system_for_a_home_folder_that_is_not_told) {
    const std::string own = getpwuid(geteuid())->pw_dir;
    for (const std::optional<std::string>& told : {std::optional<std::string>(), {"home"}}) {
        home.Set(told);
        EXPECT_EQ(Folder(), fs::weakly_canonical(own + "/.local/share/Tavel"));
    }
}

TEST_F(InstalledPrograms, Find_the_folder_behind_links) {
    fs::create_directory(temp.HostPath("disk"));
    fs::create_directory_symlink(temp.HostPath("disk"), temp.HostPath("home"));
    EXPECT_EQ(Folder(), temp.HostPath("disk/.local/share/Tavel"));
}

TEST_F(InstalledPrograms, Are_told_from_one_in_a_folder_of_its_own) {
    fs::create_directories(temp.HostPath("home/Tavel/bin"));
    for (const char* name : {"home/Tavel/tavel", "home/Tavel/bin/tavel", "usr/games/tavel"}) {
        const ProgramPlace place = PlaceOfProgramAt(temp.HostPath(name));
        EXPECT_EQ(place.folder, fs::path(temp.HostPath(name)).parent_path()) << name;
        EXPECT_EQ(place.installed, "") << name;
    }
}

// Run by the next test alone, as an installed program.
TEST(ProgramFolder, DISABLED_Is_the_users_own) {
    FillProgramFolder();
    const std::string folder = std::string(std::getenv("HOME")) + "/.local/share/Tavel";
    EXPECT_EQ(oFSO().HostPath(ProgramFolder()), folder);
    EXPECT_EQ(oFSO().ReadWhole("db.txt"), "[options]\r\n");
    EXPECT_EQ(oFSO().GetFile("db.txt").Path, ProgramFolder() + "\\db.txt");
    fs::create_directory_symlink(folder + "/Media", folder + "/drives/E");
    EXPECT_TRUE(oFSO().FolderExists("e:\\Photos"));
    // An update of the system's, while the program runs.
    fs::remove_all(ThisProgram().parent_path().parent_path() / "share");
    fs::remove(ThisProgram());
    EXPECT_EQ(oFSO().HostPath(ProgramFolder()), folder);
}

TEST_F(InstalledPrograms, Work_in_the_users_folder_and_fill_it_at_the_start) {
    fs::create_directories(temp.HostPath("usr/bin"));
    fs::create_directories(temp.HostPath("home"));
    for (const char* name : {"drives", "Media/Photos"})
        fs::create_directories(temp.HostPath("usr/share/tavel/") + name);
    std::error_code otherFileSystem;
    fs::create_hard_link(ThisProgram(), program, otherFileSystem);
    if (otherFileSystem) fs::copy_file(ThisProgram(), program);
    const std::string command = "'" + program +
                                "' --gtest_also_run_disabled_tests"
                                " --gtest_filter=ProgramFolder.DISABLED_Is_the_users_own >&2";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace tavel::test
