#include "support/HostDrives.h"

#include <linux/magic.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <filesystem>

namespace {

// File systems of user processes are seldom to be had in a test: what this machine has says that
// it is one. It counts case, as many of them do; a real exFAT, which doesn't, has tests of its own.
bool s_isOfProcess = false;

}  // namespace

// The program's own symbols come before those of the C library.
extern "C" int fstatfs(int file, struct statfs* status) noexcept {
    const long result = syscall(SYS_fstatfs, file, status);
    if (result == 0 && s_isOfProcess) status->f_type = FUSE_SUPER_MAGIC;
    return static_cast<int>(result);
}

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

class OnProcessThatCountsCase : public HostDrives {
  protected:
    OnProcessThatCountsCase() {
        Link('e', "card");
        temp.Write("card/a.txt", "small");
        temp.Write("card/A.TXT", "large");
        temp.Write("card/psp/b.txt", "small");
        temp.Write("card/PSP/b.txt", "large");
        s_isOfProcess = true;
    }
    ~OnProcessThatCountsCase() override { s_isOfProcess = false; }

    void ExpectTwoFiles(const std::string& a, const std::string& b) {
        SCOPED_TRACE(a + " " + b);
        Long error = 0;
        const auto source = files->OpenRaw(a, RawMode::Read, error);
        ASSERT_TRUE(source);
        EXPECT_TRUE(files->OpenRaw(b, RawMode::Create, error)) << error;
        files->CopyFile(a, b, true);
        EXPECT_EQ(files->ReadWhole(b), "small");
    }
};

}  // namespace

TEST_F(OnProcessThatCountsCase, Names_that_differ_in_case_alone_are_those_of_two_files) {
    ExpectTwoFiles("e:\\a.txt", "e:\\A.TXT");
    ExpectTwoFiles("e:\\psp\\b.txt", "e:\\PSP\\b.txt");
}

TEST_F(OnProcessThatCountsCase, A_file_is_itself_by_every_way_to_it) {
    fs::create_symlink(temp.HostPath("card/a.txt"), temp.HostPath("a.lnk"));
    for (const std::string& way :
         {std::string("e:\\a.txt"), temp.DrivePath("card/a.txt"), temp.DrivePath("a.lnk")}) {
        SCOPED_TRACE(way);
        EXPECT_EQ(FailureOf([&] { files->CopyFile(way, "e:\\a.txt", true); }), 70);
        Long error = 0;
        const auto source = files->OpenRaw(way, RawMode::Read, error);
        ASSERT_TRUE(source);
        EXPECT_FALSE(files->OpenRaw("e:\\a.txt", RawMode::Create, error));
        EXPECT_EQ(error, 70);
    }
    EXPECT_EQ(files->ReadWhole("e:\\a.txt"), "small");
}

}  // namespace tavel::test
