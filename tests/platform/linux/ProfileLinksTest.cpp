#include "platform/ProfileService.h"
#include "support/HostDrives.h"

#include <filesystem>

namespace tavel::test {
namespace {

namespace fs = std::filesystem;

using ProfileLinks = HostDrives;

// Whoever made the stick could have any file of the user's written otherwise.
TEST_F(ProfileLinks, A_link_that_leads_out_of_the_stick_is_no_profile) {
    const TempFolder outside;
    const std::string path = "e:\\id.txt";
    const std::string old = "[s]\r\nk=old\r\n";
    Link('e', "stick");
    Service<FileService>::Use(files.get());
    outside.Write("own.txt", old);
    fs::create_symlink(outside.HostPath("own.txt"), temp.HostPath("stick/id.txt"));
    EXPECT_FALSE(ProfileFileExists(path));
    EXPECT_EQ(GetPrivateProfileString("s", "k", "(none)", 255, path), "(none)");
    EXPECT_FALSE(WritePrivateProfileString("s", "k", "new", path));
    EXPECT_EQ(outside.Read("own.txt"), old);
    Service<FileService>::Use(nullptr);
    EXPECT_TRUE(fs::is_symlink(temp.HostPath("stick/id.txt")));
}

}  // namespace
}  // namespace tavel::test
