#include "support/HostDrives.h"
#include "support/linux/Mounted.h"

#include <gmock/gmock.h>
#include <sys/statvfs.h>

#include <cstdlib>
#include <filesystem>

// Drives whose folders are mounted file systems, or hold some.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

using Mounts = HostDrives;

}  // namespace

TEST_F(Mounts, A_file_system_mounted_below_a_stick_is_no_part_of_it) {
    Link('e', "card");
    temp.Write("card/own/a.txt", "own");
    fs::create_directory(temp.HostPath("card/Inner"));
    const Mounted inner("-t tmpfs tmpfs", temp.HostPath("card/Inner"));
    if (!inner.WhyNot().empty()) GTEST_SKIP() << inner.WhyNot();
    temp.Write("card/Inner/a.txt", "foreign");
    fs::create_directory(temp.HostPath("card/Inner/sub"));
    temp.Write("card/Inner/sub/a.txt", "foreign");
    for (const std::string folder :
         {"e:\\Inner", "e:\\inner", "e:\\Inner\\sub", "e:\\inner\\SUB"}) {
        SCOPED_TRACE(folder);
        Long error = 0;
        EXPECT_FALSE(files->FolderExists(folder));
        EXPECT_FALSE(files->FileExists(folder + "\\a.txt"));
        EXPECT_EQ(FailureOf([&] { files->GetFolder(folder); }), 76);
        EXPECT_EQ(FailureOf([&] { files->DeleteFile(folder + "\\a.txt", true); }), 76);
        EXPECT_FALSE(files->OpenRaw(folder + "\\a.txt", RawMode::Read, error));
        EXPECT_EQ(error, 76);
        EXPECT_FALSE(files->OpenRaw(folder + "\\new.txt", RawMode::Create, error));
        EXPECT_EQ(error, 76);
        EXPECT_EQ(FailureOf([&] { files->CreateFolder(folder + "\\new"); }), 76);
        EXPECT_EQ(FailureOf([&] { files->CreateTextFile(folder + "\\new.txt", true); }), 76);
        EXPECT_EQ(FailureOf([&] { files->CopyFile("e:\\own\\a.txt", folder + "\\new.txt", true); }),
                  76);
        EXPECT_EQ(FailureOf([&] { files->MoveFile("e:\\own\\a.txt", folder + "\\new.txt"); }), 76);
        EXPECT_EQ(files->HostPath(folder + "\\new.txt"), "");
    }
    const FolderContents contents = files->GetFolder("e:\\");
    ASSERT_EQ(contents.SubFolders.size(), 1u);
    EXPECT_EQ(contents.SubFolders[0].Name, "own");
    EXPECT_EQ(temp.Read("card/Inner/a.txt"), "foreign");
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("card/Inner")), {}), 2);
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.HostPath("card/Inner/sub")), {}), 1);
    EXPECT_EQ(temp.Read("card/own/a.txt"), "own");
}

TEST_F(Mounts, A_file_mounted_on_a_file_of_a_stick_is_no_part_of_it) {
    Link('e', "card");
    temp.Write("card/a.txt", "own");
    const Mounted other("--bind /proc/version", temp.HostPath("card/a.txt"));
    if (!other.WhyNot().empty()) GTEST_SKIP() << other.WhyNot();
    EXPECT_FALSE(files->FileExists("e:\\a.txt"));
    EXPECT_FALSE(files->FileExists("e:\\A.TXT"));
    EXPECT_TRUE(files->GetFolder("e:\\").Files.empty());
}

TEST_F(Mounts, Free_space_is_what_a_user_may_fill) {
    temp.Write("image", "");
    fs::resize_file(temp.HostPath("image"), 16 << 20);
    const std::string format = "mkfs.ext4 -q -m 40 '" + temp.HostPath("image") + "' 2>/dev/null";
    if (std::system(format.c_str()) != 0) GTEST_SKIP() << "mkfs.ext4 is not possible here";
    Link('e', "card");
    const Mounted card("-o loop '" + temp.HostPath("image") + "'", temp.HostPath("card"));
    if (!card.WhyNot().empty()) GTEST_SKIP() << card.WhyNot();
    struct statvfs figures {};
    ASSERT_EQ(statvfs(temp.HostPath("card").c_str(), &figures), 0);
    ASSERT_LT(figures.f_bavail, figures.f_bfree) << "a part is kept for root";
    EXPECT_EQ(files->GetDrive("e")->FreeSpace(),
              static_cast<double>(figures.f_bavail) * static_cast<double>(figures.f_frsize));
    EXPECT_EQ(files->GetDrive("e")->TotalSize(),
              static_cast<double>(figures.f_blocks) * static_cast<double>(figures.f_frsize));
}

}  // namespace tavel::test
