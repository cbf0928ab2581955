#include "support/HostDrives.h"
#include "support/linux/PlainUser.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <vector>

// What a user may take over of another file's owner, group and mode.

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

constexpr gid_t own = 4242;      // a group that the user belongs to
constexpr gid_t foreign = 4343;  // and one that not

// The groups that a process belongs to besides its own, as long as it lives.
class MemberOfOwn {
  public:
    MemberOfOwn() : m_former(static_cast<std::size_t>(getgroups(0, nullptr))) {
        EXPECT_GE(getgroups(static_cast<int>(m_former.size()), m_former.data()), 0);
        EXPECT_EQ(setgroups(1, &own), 0);
    }
    ~MemberOfOwn() { EXPECT_EQ(setgroups(m_former.size(), m_former.data()), 0); }
    MemberOfOwn(const MemberOfOwn&) = delete;
    MemberOfOwn& operator=(const MemberOfOwn&) = delete;

  private:
    std::vector<gid_t> m_former;
};

class TakenRights : public HostDrives {
  protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "needs files of another user";
        fs::permissions(temp.HostPath(), fs::perms(0777));
    }

    // What a plain user's file becomes with the rights of one that belongs to root and a group.
    struct stat Given(gid_t group, mode_t mode) {
        temp.Write("theirs", "x");
        EXPECT_EQ(chown(temp.HostPath("theirs").c_str(), 0, group), 0);
        EXPECT_EQ(chmod(temp.HostPath("theirs").c_str(), mode), 0);
        fs::remove(temp.HostPath("users"));
        {
            const MemberOfOwn groups;
            const PlainUser user;
            temp.Write("users", "y");
            files->CopyRights(temp.DrivePath("theirs"), temp.DrivePath("users"));
        }
        struct stat status {};
        EXPECT_EQ(stat(temp.HostPath("users").c_str(), &status), 0);
        EXPECT_NE(status.st_uid, 0u);
        return status;
    }
    mode_t ModeGiven(gid_t group, mode_t mode) { return Given(group, mode).st_mode & 07777; }
};

}  // namespace

TEST_F(TakenRights, A_group_that_the_user_belongs_to_is_kept_with_its_rights) {
    const struct stat given = Given(own, 0664);
    EXPECT_EQ(given.st_gid, own);
    EXPECT_EQ(given.st_mode & 07777, 0664u);
    EXPECT_EQ(ModeGiven(own, 0670), 0670u);
    EXPECT_EQ(ModeGiven(own, 0604), 0604u);
}

TEST_F(TakenRights, A_group_in_the_place_of_one_that_cannot_be_kept_may_do_what_everybody_may) {
    EXPECT_NE(Given(foreign, 0664).st_gid, foreign);
    EXPECT_EQ(ModeGiven(foreign, 0664), 0644u);
    EXPECT_EQ(ModeGiven(foreign, 0660), 0600u);
    EXPECT_EQ(ModeGiven(foreign, 0675), 0655u);
    EXPECT_EQ(ModeGiven(foreign, 0606), 0666u);
}

TEST_F(TakenRights, A_user_who_gets_no_owners_rights_may_read_and_write_what_is_his) {
    EXPECT_EQ(ModeGiven(own, 0060), 0660u);
    EXPECT_EQ(ModeGiven(foreign, 0066), 0666u);
    EXPECT_EQ(ModeGiven(foreign, 0160), 0700u);
}

TEST_F(TakenRights, Nobody_is_given_the_right_to_act_as_the_owner) {
    EXPECT_EQ(ModeGiven(own, 06775), 0775u);
    temp.Write("theirs", "x");
    temp.Write("other", "y");
    ASSERT_EQ(chmod(temp.HostPath("theirs").c_str(), 06755), 0);
    files->CopyRights(temp.DrivePath("theirs"), temp.DrivePath("other"));
    EXPECT_EQ(fs::status(temp.HostPath("other")).permissions(), fs::perms(0755));
}

// The owner is kept where the user is the owner, the group not.
TEST_F(TakenRights, An_own_file_of_a_foreign_group_gives_its_mode_to_the_user_alone) {
    temp.Write("first", "x");
    temp.Write("second", "y");
    for (const char* name : {"first", "second"})
        ASSERT_EQ(chown(temp.HostPath(name).c_str(), 65534, name[0] == 'f' ? foreign : own), 0);
    ASSERT_EQ(chmod(temp.HostPath("first").c_str(), 0470), 0);
    {
        const MemberOfOwn groups;
        const PlainUser user;
        files->CopyRights(temp.DrivePath("first"), temp.DrivePath("second"));
    }
    struct stat status {};
    ASSERT_EQ(stat(temp.HostPath("second").c_str(), &status), 0);
    EXPECT_EQ(status.st_gid, own);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
}

}  // namespace tavel::test
