#include "library/ZipReaderFixture.h"
#include "support/linux/FileSizeLimit.h"

// Links where an archive is extracted, and a disk that takes no more.

namespace tavel::test {
namespace {

using ZipLinks = ZipReaderTest;

TEST_F(ZipLinks, A_date_before_1970_is_kept_too) {
    ZipItem item{"a.jpg", "x"};
    item.extra = std::string("UT\x05\0\x01\xFF\xFF\xFF\xFF", 9);
    ExtractOnly(item);
    EXPECT_EQ(ModifiedAt(temp.HostPath("out/a.jpg")), -1);
}

TEST_F(ZipLinks, A_link_that_lies_there_is_replaced_and_what_it_leads_to_is_left_alone) {
    Write("elsewhere.jpg", "precious");
    fs::create_symlink(temp.HostPath("elsewhere.jpg"), temp.HostPath("out/a.jpg"));
    Open({{"a.jpg", "new"}});
    Extract(0);
    EXPECT_EQ(temp.Read("elsewhere.jpg"), "precious");
    EXPECT_EQ(temp.Read("out/a.jpg"), "new");
}

TEST_F(ZipLinks, A_link_to_nothing_that_lies_there_is_replaced_and_not_followed) {
    fs::create_symlink(temp.HostPath("elsewhere.jpg"), temp.HostPath("out/a.jpg"));
    EXPECT_EQ(ExtractOnly({"a.jpg", "new"}), out + "\\a.jpg");
    EXPECT_FALSE(fs::exists(temp.HostPath("elsewhere.jpg")));
    EXPECT_EQ(temp.Read("out/a.jpg"), "new");
    EXPECT_EQ(files.GetFolder(out).Files.size(), 1u);
}

TEST_F(ZipLinks, Links_that_lie_where_folders_go_are_replaced_by_folders) {
    Write("elsewhere/a.jpg", "precious");
    fs::create_directory(temp.HostPath("out/in"));
    fs::create_symlink(temp.HostPath("elsewhere"), temp.HostPath("out/in/Deep"));
    fs::create_symlink(temp.HostPath("none"), temp.HostPath("out/far"));
    Open({{"in/deep/a.jpg", "new"}, {"in/deep/b.jpg", "b"}, {"far/c.jpg", "c"}});
    for (std::uint64_t i = 0; i < 3; ++i) Extract(i);
    EXPECT_EQ(temp.Read("out/in/deep/a.jpg"), "new");
    EXPECT_EQ(temp.Read("out/in/deep/b.jpg"), "b");
    EXPECT_EQ(temp.Read("out/far/c.jpg"), "c");
    EXPECT_EQ(temp.Read("elsewhere/a.jpg"), "precious");
    EXPECT_FALSE(fs::exists(temp.HostPath("elsewhere/b.jpg")));
    EXPECT_FALSE(fs::exists(temp.HostPath("none")));
}

TEST_F(ZipLinks, Links_on_a_stick_are_replaced_too) {
    Write("elsewhere/a.jpg", "precious");
    fs::create_directory(temp.HostPath("stick"));
    fs::create_symlink(temp.HostPath("elsewhere"), temp.HostPath("stick/in"));
    fs::create_symlink(temp.HostPath("elsewhere/a.jpg"), temp.HostPath("stick/a.jpg"));
    files.Plug('e', temp.HostPath("stick"));
    out = "e:";
    Open({{"in/a.jpg", "new"}, {"a.jpg", "new"}});
    for (std::uint64_t i = 0; i < 2; ++i) Extract(i);
    EXPECT_EQ(temp.Read("stick/in/a.jpg"), "new");
    EXPECT_EQ(temp.Read("stick/a.jpg"), "new");
    EXPECT_EQ(temp.Read("elsewhere/a.jpg"), "precious");
}

// The folder into which all is unpacked may lie elsewhere because its owner wants it so.
TEST_F(ZipLinks, The_folder_itself_may_be_a_link) {
    fs::create_symlink(temp.HostPath("out"), temp.HostPath("linked"));
    out = temp.DrivePath("linked");
    ExtractOnly({"in/a.jpg", "x"});
    EXPECT_EQ(temp.Read("out/in/a.jpg"), "x");
    EXPECT_TRUE(fs::is_symlink(temp.HostPath("linked")));
}

TEST_F(ZipLinks, A_real_disk_that_is_full_fails_likewise) {
    Service<FileService>::Use(nullptr);
    Open({{"a.jpg", std::string(5'000'000, 'x'), true}});
    const FileSizeLimit limit(1'500'000);
    EXPECT_EQ(FailureOf([&] { Extract(0); }), failure::DiskFull);
}

}  // namespace
}  // namespace tavel::test
