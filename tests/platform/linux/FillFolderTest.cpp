#include "platform/linux/FillFolder.h"
#include "support/Support.h"
#include "support/linux/FileSizeLimit.h"
#include "support/linux/HostCalls.h"
#include "support/linux/PlainUser.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <future>

// A user's own program folder, and what is installed for all.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FillFolders : public ::testing::Test {
  protected:
    FillFolders() {
        temp.Write("installed/db.txt", "[options]\r\n");
        temp.Write("installed/text/wizard.txt", "//1\n");
        fs::create_directories(temp.HostPath("installed/Media/Photos"));
        fs::create_directories(temp.HostPath("installed/drives"));
    }

    void Fill() const { FillFolder(temp.HostPath("installed"), folder); }

    // Paths below the folder, a folder's with a slash behind it.
    std::vector<std::string> Contents() const {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
            const std::string name = entry.path().lexically_relative(folder).string();
            names.push_back(entry.is_directory() ? name + "/" : name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    struct stat StatusOf(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(stat((folder + "/" + name).c_str(), &status), 0) << name;
        return status;
    }

    const TempFolder temp;
    const std::string folder = temp.HostPath("home/.local/share/Tavel");
    const std::string below = "home/.local/share/Tavel/";
};

}  // namespace

TEST_F(FillFolders, The_first_start_copies_all_that_is_installed) {
    Fill();
    EXPECT_THAT(Contents(), ElementsAre("Media/", "Media/Photos/", "db.txt", "drives/", "text/",
                                        "text/wizard.txt"));
    EXPECT_EQ(temp.Read(below + "db.txt"), "[options]\r\n");
    EXPECT_EQ(temp.Read(below + "text/wizard.txt"), "//1\n");
}

TEST_F(FillFolders, What_is_there_stays_when_a_later_version_is_installed) {
    Fill();
    temp.Write(below + "db.txt", "[1]\r\n");
    temp.Write(below + "Media/Photos/kept.jpg", "a picture");
    temp.Write("installed/db.txt", "a later one, which is longer");
    temp.Write("installed/text/wizard.txt", "later words");
    Fill();
    EXPECT_EQ(temp.Read(below + "db.txt"), "[1]\r\n");
    EXPECT_EQ(temp.Read(below + "text/wizard.txt"), "//1\n");
    EXPECT_EQ(temp.Read(below + "Media/Photos/kept.jpg"), "a picture");
}

TEST_F(FillFolders, A_new_file_of_a_later_version_comes_in) {
    Fill();
    temp.Write("installed/UI/NoThumb.bmp", "BM");
    Fill();
    EXPECT_EQ(temp.Read(below + "UI/NoThumb.bmp"), "BM");
}

TEST_F(FillFolders, Names_of_another_case_are_there) {
    temp.Write(below + "DB.TXT", "[1]\r\n");
    temp.Write(below + "TEXT/other.txt", "x");
    Fill();
    EXPECT_THAT(Contents(), ElementsAre("DB.TXT", "Media/", "Media/Photos/", "TEXT/",
                                        "TEXT/other.txt", "TEXT/wizard.txt", "drives/"));
}

TEST_F(FillFolders, What_is_linked_elsewhere_stays_a_link) {
    temp.Write("card/x.jpg", "x");
    fs::create_directories(folder);
    fs::create_directory_symlink(temp.HostPath("card"), folder + "/Media");
    fs::create_symlink(temp.HostPath("on a disk that is not mounted"), folder + "/db.txt");
    fs::create_symlink(temp.HostPath("nor is this one"), folder + "/text");
    Fill();
    EXPECT_TRUE(fs::is_directory(temp.HostPath("card/Photos")));
    for (const char* name : {"Media", "db.txt", "text"})
        EXPECT_TRUE(fs::is_symlink(fs::path(folder) / name)) << name;
    EXPECT_FALSE(fs::exists(fs::path(folder) / "db.txt"));
}

TEST_F(FillFolders, A_file_in_the_place_of_a_folder_stays) {
    temp.Write(below + "text", "mine");
    Fill();
    EXPECT_EQ(temp.Read(below + "text"), "mine");
    EXPECT_THAT(Contents(), Contains("db.txt"));
}

TEST_F(FillFolders, The_user_may_write_what_the_system_may_not) {
    fs::permissions(temp.HostPath("installed/db.txt"), fs::perms{0444});
    fs::permissions(temp.HostPath("installed/text/wizard.txt"), fs::perms{0644});
    fs::create_directories(temp.HostPath("home"));
    fs::permissions(temp.HostPath(), fs::perms{0755});
    fs::permissions(temp.HostPath("home"), fs::perms{0777});
    const PlainUser user;
    Fill();
    for (const char* name : {"db.txt", "text/wizard.txt"}) {
        EXPECT_EQ(StatusOf(name).st_mode & 07777, 0644) << name;
        EXPECT_EQ(StatusOf(name).st_uid, geteuid()) << name;
        EXPECT_TRUE(std::ofstream(folder + "/" + name, std::ios::app) << "x") << name;
    }
    for (const char* name : {"", "text", "Media/Photos", ".."})
        EXPECT_EQ(StatusOf(name).st_mode & 07777, 0700) << name;
}

TEST_F(FillFolders, A_file_is_on_the_medium_before_it_has_its_name) {
    fs::create_directories(folder);
    HostCalls calls(folder);
    Fill();
    const std::vector<std::string> made = calls.Take();
    const auto named = std::find(made.begin(), made.end(), "rename .db.txt.new -> db.txt");
    ASSERT_NE(named, made.end()) << ::testing::PrintToString(made);
    EXPECT_EQ(*(named - 1), "flush .db.txt.new 11");
}

TEST_F(FillFolders, A_start_after_one_that_was_killed_half_way_makes_the_rest) {
    fs::create_directories(folder);
    const pid_t child = fork();
    if (child == 0) {
        HostCalls calls(folder);
        calls.Before("rename .db.txt.new", [] { raise(SIGKILL); });
        Fill();
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_THAT(Contents(), ElementsAre(".db.txt.new", "Media/", "Media/Photos/"));
    Fill();
    EXPECT_EQ(temp.Read(below + "db.txt"), "[options]\r\n");
    EXPECT_THAT(Contents(), ElementsAre("Media/", "Media/Photos/", "db.txt", "drives/", "text/",
                                        "text/wizard.txt"));
}

TEST_F(FillFolders, A_start_waits_for_another_that_fills_the_same_folder) {
    fs::create_directories(folder);
    std::future<void> other;
    {
        HostCalls calls(folder);
        calls.Before("rename .db.txt.new", [&] {
            other = std::async(std::launch::async, [this] { Fill(); });
            EXPECT_EQ(other.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
        });
        Fill();
        other.get();
    }
    EXPECT_EQ(temp.Read(below + "db.txt"), "[options]\r\n");
}

TEST_F(FillFolders, A_full_disk_leaves_no_part_of_a_file_and_is_told) {
    temp.Write("installed/db.txt", std::string(200000, 'x'));
    const FileSizeLimit disk(100000);
    const auto fill = [this] { Fill(); };
    EXPECT_EQ(FailureOf(fill), failure::DiskFull);
    EXPECT_EQ(FailedActivityOf(fill), "Copying " + temp.DrivePath("installed/db.txt") + " to " +
                                          temp.DrivePath("home/.local/share/Tavel/db.txt"));
    EXPECT_THAT(Contents(), ElementsAre("Media/", "Media/Photos/"));
}

TEST_F(FillFolders, A_home_that_may_not_be_written_is_told) {
    fs::create_directories(temp.HostPath("home"));
    fs::permissions(temp.HostPath(), fs::perms{0755});
    fs::permissions(temp.HostPath("home"), fs::perms{0555});
    const PlainUser user;
    const auto fill = [this] { Fill(); };
    EXPECT_EQ(FailureOf(fill), failure::PermissionDenied);
    EXPECT_EQ(FailedActivityOf(fill), "Copying " + temp.DrivePath("installed") + " to " +
                                          temp.DrivePath("home/.local/share/Tavel"));
}

TEST_F(FillFolders, A_full_folder_needs_no_right_to_write) {
    Fill();
    fs::permissions(temp.HostPath(), fs::perms{0755});
    for (const char* name : {"home", "home/.local", "home/.local/share", "home/.local/share/Tavel",
                             "home/.local/share/Tavel/Media", "home/.local/share/Tavel/text"})
        fs::permissions(temp.HostPath(name), fs::perms{0555});
    const PlainUser user;
    EXPECT_EQ(FailureOf([this] { Fill(); }), 0);
}

TEST_F(FillFolders, A_program_folder_on_a_disk_that_is_not_mounted_is_told) {
    fs::create_directories(fs::path(folder).parent_path());
    fs::create_directory_symlink(temp.HostPath("disk/Tavel"), folder);
    EXPECT_EQ(FailureOf([this] { Fill(); }), failure::FileNotFound);
    EXPECT_FALSE(fs::exists(temp.HostPath("disk")));
}

TEST_F(FillFolders, A_file_in_the_place_of_the_program_folder_is_told) {
    temp.Write("home/.local/share/Tavel", "a file");
    EXPECT_EQ(FailureOf([this] { Fill(); }), failure::PathNotFound);
    EXPECT_EQ(temp.Read("home/.local/share/Tavel"), "a file");
}

}  // namespace tavel::test
