#include "support/HostDrives.h"
#include "support/linux/ExfatStick.h"
#include "support/linux/HostCalls.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

// Moves and copies while other programs are at the same files, and on file systems that can do less
// than the host's own.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;

class FileMoves : public HostDrives {
  protected:
    void SetUp() override {
        Link('e', "card");
        temp.Write("card/a.bin", "bytes");
    }

    bool Has(const std::string& name) const { return fs::exists(temp.HostPath(name)); }
    Long MoveOnStick() {
        return FailureOf([&] { files->MoveFile("e:\\a.bin", "e:\\b.bin"); });
    }
};

// Moves between a stick's file system and another one.
class FileMovesAcross : public FileMoves {
  protected:
    void SetUp() override {
        if (!stick.WhyNot().empty()) GTEST_SKIP() << stick.WhyNot();
        FileMoves::SetUp();
    }

    std::string OnStick(const std::string& name) const { return stick.MountFolder() + '/' + name; }
    void PutOnStick(const std::string& name) const { std::ofstream(OnStick(name)) << name; }

    static ino_t NumberOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_ino;
    }

    // Mounts the stick anew. What is looked at first has the first number then.
    void Renumber() {
        ASSERT_TRUE(stick.Unmount());
        ASSERT_TRUE(stick.Mount());
        for (const char* name : {"c.bin", "b.bin"}) NumberOf(OnStick(name));
    }

    ExfatStick stick{24};
};

}  // namespace

TEST_F(FileMoves, A_file_system_that_cannot_be_told_to_replace_nothing_moves_files_all_the_same) {
    for (const int error : {EINVAL, ENOSYS}) {
        temp.Write("card/a.bin", "bytes");
        HostCalls calls(temp.HostPath());
        calls.RefuseRenameFlags(error);
        EXPECT_EQ(MoveOnStick(), 0) << error;
        EXPECT_THAT(calls.Take(), Contains("rename card/a.bin -> card/b.bin"));
        EXPECT_FALSE(Has("card/a.bin"));
        EXPECT_EQ(temp.Read("card/b.bin"), "bytes");
        fs::remove(temp.HostPath("card/b.bin"));
    }
}

TEST_F(FileMoves, Nor_does_such_a_file_system_lose_what_has_come_to_the_target_meanwhile) {
    HostCalls calls(temp.HostPath());
    calls.RefuseRenameFlags(EINVAL);
    calls.Before("rename card/a.bin", [&] { temp.Write("card/b.bin", "another program's"); });
    EXPECT_EQ(MoveOnStick(), 58);
    EXPECT_EQ(temp.Read("card/a.bin"), "bytes");
    EXPECT_EQ(temp.Read("card/b.bin"), "another program's");

    fs::remove(temp.HostPath("card/b.bin"));
    calls.Before("rename card/a.bin",
                 [&] { fs::create_symlink("nothing", temp.HostPath("card/b.bin")); });
    EXPECT_EQ(MoveOnStick(), 58);
    EXPECT_TRUE(fs::is_symlink(temp.HostPath("card/b.bin")));
    EXPECT_EQ(temp.Read("card/a.bin"), "bytes");
    EXPECT_THAT(calls.Take(), ElementsAre());
}

TEST_F(FileMoves, A_rename_that_fails_for_another_reason_is_not_tried_once_more) {
    HostCalls calls(temp.HostPath());
    calls.RefuseRenameFlags(EPERM);
    EXPECT_EQ(MoveOnStick(), 70);
    EXPECT_THAT(calls.Take(), ElementsAre());
    EXPECT_TRUE(Has("card/a.bin"));
}

TEST_F(FileMoves, A_copy_of_a_file_that_is_cut_short_meanwhile_fails_and_leaves_no_target) {
    constexpr std::uintmax_t size = 9 << 20;
    fs::resize_file(temp.HostPath("card/a.bin"), size);
    for (const std::uintmax_t left : {std::uintmax_t{0}, std::uintmax_t{5 << 20}, size - 1}) {
        fs::resize_file(temp.HostPath("card/a.bin"), size);
        HostCalls calls(temp.HostPath());
        calls.Before("pace card/b.bin",
                     [&] { fs::resize_file(temp.HostPath("card/a.bin"), left); });
        EXPECT_EQ(FailureOf([&] { files->CopyFile("e:\\a.bin", "e:\\b.bin", true); }), 57) << left;
        EXPECT_FALSE(Has("card/b.bin"));
        EXPECT_EQ(fs::file_size(temp.HostPath("card/a.bin")), left);
    }
}

TEST_F(FileMoves, A_copy_of_a_file_that_grows_meanwhile_is_one_of_what_is_there) {
    fs::resize_file(temp.HostPath("card/a.bin"), 9 << 20);
    HostCalls calls(temp.HostPath());
    calls.Before("pace card/b.bin",
                 [&] { fs::resize_file(temp.HostPath("card/a.bin"), 10 << 20); });
    files->CopyFile("e:\\a.bin", "e:\\b.bin", true);
    EXPECT_EQ(fs::file_size(temp.HostPath("card/b.bin")), 10u << 20);
}

TEST_F(FileMovesAcross, A_file_whose_number_the_host_makes_up_anew_leaves_its_place_all_the_same) {
    for (const char* name : {"a.bin", "b.bin", "c.bin"}) PutOnStick(name);
    const std::string source = OnStick("a.bin");
    const ino_t number = NumberOf(source);
    HostCalls calls("/");
    calls.Before("rename " + source.substr(1), [&] {
        Renumber();
        EXPECT_NE(NumberOf(source), number);
    });
    files->MoveFile(files->FromHostPath(source), temp.DrivePath("a.bin"));
    EXPECT_EQ(temp.Read("a.bin"), "a.bin");
    EXPECT_FALSE(fs::exists(source));
}

TEST_F(FileMovesAcross, A_copy_that_another_program_removes_before_it_has_its_name_is_no_move) {
    PutOnStick("a.bin");
    HostCalls calls("/");
    const std::string copy = temp.HostPath("card/.b.bin.new");
    calls.Before("flush " + copy.substr(1), [&] { EXPECT_TRUE(fs::remove(copy)); });
    EXPECT_EQ(
        FailureOf([&] { files->MoveFile(files->FromHostPath(OnStick("a.bin")), "e:\\b.bin"); }),
        57);
    EXPECT_TRUE(fs::exists(OnStick("a.bin")));
    EXPECT_FALSE(Has("card/b.bin"));
}

TEST_F(FileMovesAcross, A_copy_that_another_program_replaces_before_it_has_its_name_is_no_move) {
    PutOnStick("a.bin");
    HostCalls calls("/");
    const std::string copy = temp.HostPath("card/.b.bin.new");
    calls.Before("flush " + copy.substr(1), [&] {
        EXPECT_TRUE(fs::remove(copy));
        temp.Write("card/.b.bin.new", "another program's");
    });
    EXPECT_EQ(
        FailureOf([&] { files->MoveFile(files->FromHostPath(OnStick("a.bin")), "e:\\b.bin"); }),
        57);
    EXPECT_TRUE(fs::exists(OnStick("a.bin")));
    EXPECT_FALSE(Has("card/b.bin"));
    EXPECT_EQ(temp.Read("card/.b.bin.new"), "another program's");
}

// It can't be told to replace nothing, and holds no owners or modes.
TEST_F(FileMovesAcross, A_file_comes_to_a_stick_and_goes_about_on_it) {
    const std::string moved = files->FromHostPath(OnStick("moved.bin"));
    const std::string again = files->FromHostPath(OnStick("again.bin"));
    files->MoveFile("e:\\a.bin", moved);
    files->MoveFile(moved, again);
    PutOnStick("moved.bin");
    EXPECT_EQ(FailureOf([&] { files->MoveFile(again, moved); }), 58);
    EXPECT_FALSE(Has("card/a.bin"));
    EXPECT_EQ(files->ReadWhole(again), "bytes");
    EXPECT_EQ(files->ReadWhole(moved), "moved.bin");
    EXPECT_EQ(std::distance(fs::directory_iterator(stick.MountFolder()), {}), 2);
}

}  // namespace tavel::test
