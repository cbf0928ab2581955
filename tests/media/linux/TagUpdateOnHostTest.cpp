#include "core/PublicStuff.h"
#include "media/TagUpdateFixture.h"
#include "support/linux/HostCalls.h"
#include "support/linux/PlainUser.h"
#include "support/linux/TempPath.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tavel::test {

// What a full disk or a pulled stick makes of the host's own calls.
class TagUpdateOnHost : public TagUpdateFailures {
  protected:
    void SetUp() override {
        TagUpdateFailures::SetUp();
        tempPath.Use(folder.HostPath("temp"));
        folder.Write("stick/one.mp3", audio);
        tag.MP3File(folder.DrivePath("stick/one.mp3"));
        tag.Title("title");
    }

    TempPath tempPath;
    const std::string moved = std::string(2048, '\0') + audio;
};

TEST_F(TagUpdateOnHost, What_replaces_the_file_is_on_the_disk_before_the_file_is_deleted) {
    HostCalls calls(folder.HostPath());
    EXPECT_EQ(Update(), 0);
    const std::vector<std::string> made = calls.Take();
    ASSERT_EQ(made.size(), 4u);
    EXPECT_THAT(made[0], ::testing::MatchesRegex("flush temp/[0-9a-f]+\\.tmp 12053"));
    EXPECT_EQ(made[1], "flush folder temp");
    EXPECT_EQ(made[2], "remove stick/one.mp3");
    EXPECT_THAT(made[3], ::testing::MatchesRegex("rename temp/[0-9a-f]+\\.tmp -> stick/one.mp3"));
}

TEST_F(TagUpdateOnHost, A_temporary_file_that_does_not_reach_the_disk_replaces_nothing) {
    HostCalls calls(folder.HostPath());
    for (const int flush : {1, 2}) {  // the file, its entry
        calls.FailFlush(flush, EIO);
        EXPECT_EQ(Update(), failure::DeviceIO);
        EXPECT_TRUE(Bytes() == audio);
        EXPECT_TRUE(Left().empty());
    }
}

TEST_F(TagUpdateOnHost, A_file_in_a_folder_that_cannot_be_changed_stays_with_the_temporary_file) {
    fs::permissions(folder.HostPath(), fs::perms(0755));
    fs::permissions(folder.HostPath("stick"), fs::perms(0555));
    fs::permissions(folder.HostPath("temp"), fs::perms(0777));
    fs::permissions(host, fs::perms(0666));
    {
        const PlainUser user;
        EXPECT_EQ(Update(), failure::PermissionDenied);
    }
    EXPECT_TRUE(Bytes() == audio);
    EXPECT_TRUE(BytesLeft() == moved);
}

// Who may write it as one of the others owns the new file, and has to write the tag into it.
TEST_F(TagUpdateOnHost, A_file_that_its_owner_alone_may_not_write_is_updated) {
    if (geteuid() != 0) GTEST_SKIP() << "needs a file of another user";
    fs::permissions(folder.HostPath(), fs::perms(0755));
    for (const char* name : {"stick", "temp"})
        fs::permissions(folder.HostPath(name), fs::perms(0777));
    fs::permissions(host, fs::perms(0466));
    {
        const PlainUser user;
        EXPECT_EQ(Update(), 0);
    }
    EXPECT_TRUE(Bytes() != moved && Bytes().size() == moved.size());
    EXPECT_EQ(fs::status(host).permissions(), fs::perms(0666));
}

TEST_F(TagUpdateOnHost, A_temporary_folder_that_may_not_be_written_leaves_the_old_file) {
    fs::permissions(folder.HostPath(), fs::perms(0755));
    fs::permissions(folder.HostPath("temp"), fs::perms(0555));
    fs::permissions(folder.HostPath("stick"), fs::perms(0777));
    fs::permissions(host, fs::perms(0666));
    {
        const PlainUser user;
        EXPECT_EQ(Update(), failure::PermissionDenied);
    }
    EXPECT_TRUE(Bytes() == audio);
    EXPECT_TRUE(Left().empty());
}

TEST_F(TagUpdateOnHost, The_new_file_belongs_to_whom_the_old_one_belonged_and_has_its_mode) {
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    ASSERT_EQ(chown(host.c_str(), owner, getegid()), 0);
    fs::permissions(host, fs::perms(0664));
    EXPECT_EQ(Update(), 0);
    struct stat status {};
    ASSERT_EQ(stat(host.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
    EXPECT_EQ(status.st_mode & 0777, 0664u);
    EXPECT_EQ(static_cast<std::size_t>(status.st_size), 2048 + audio.size());
}

TEST_F(TagUpdateOnHost, A_file_that_is_cut_short_while_it_is_copied_is_not_replaced) {
    Begin(audio, 30);
    files->onCall = [&](const std::string& call) {
        const bool isCopied = call.rfind("Write t:", 0) == 0 && call.ends_with(" 4096");
        if (isCopied) fs::resize_file(host, 5000);
    };
    EXPECT_EQ(Update(), failure::DeviceIO);
    EXPECT_TRUE(Bytes() == audio.substr(0, 5000));
    EXPECT_TRUE(Left().empty());
}

}  // namespace tavel::test
