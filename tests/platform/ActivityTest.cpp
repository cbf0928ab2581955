#include "platform/Activity.h"
#include "platform/Failure.h"
#include "support/Support.h"

#include <new>

namespace tavel::test {
namespace {

TEST(Activity, The_innermost_that_a_failure_passes_is_told) {
    const std::string path = "c:\\a.mp3";
    const auto add = [&] {
        const Doing scanning("Scanning", "c:\\");
        const Doing adding("Adding", path);
        Fail(failure::Overflow);
    };
    EXPECT_EQ(FailedActivityOf(add), "Adding c:\\a.mp3");
    EXPECT_EQ(TakeFailedActivity(), "") << "it is told once";
}

TEST(Activity, Its_words_are_joined_by_blanks) {
    const auto send = [] {
        const Doing sending("Sending", "c:\\a.mp3", "to", "e:\\b.mp3");
        Fail(failure::DiskFull);
    };
    EXPECT_EQ(FailedActivityOf(send), "Sending c:\\a.mp3 to e:\\b.mp3");
}

TEST(Activity, What_has_ended_or_comes_later_is_not_told) {
    const auto fail = [] {
        const Doing scanning("Scanning", "c:\\");
        { const Doing adding("Adding", "a"); }
        Fail(failure::Overflow);
    };
    EXPECT_EQ(FailedActivityOf(fail), "Scanning c:\\");
    EXPECT_EQ(FailedActivityOf([] { Fail(failure::Overflow); }), "");
}

TEST(Activity, Whatever_is_thrown_is_told_of) {
    const auto fail = [] {
        const Doing adding("Adding", "a");
        throw std::bad_alloc();
    };
    EXPECT_EQ(FailedActivityOf(fail), "Adding a");
}

// As the search for a PSP does it.
void FailGuarded() {
    try {
        const Doing looking("Looking at", "f:\\");
        Fail(failure::DiskNotReady);
    } catch (const Failure&) {
    }
}

TEST(Activity, A_guarded_failure_leaves_nothing_for_a_later_one) {
    const auto outside = [] {
        FailGuarded();
        Fail(failure::Overflow);
    };
    EXPECT_EQ(FailedActivityOf(outside), "");
    const auto inside = [] {
        const Doing adding("Adding", "a");
        FailGuarded();
        Fail(failure::Overflow);
    };
    EXPECT_EQ(FailedActivityOf(inside), "Adding a");
    const auto before = [] {
        FailGuarded();
        const Doing adding("Adding", "a");
        throw std::bad_alloc();
    };
    EXPECT_EQ(FailedActivityOf(before), "Adding a");
}

TEST(Activity, A_failure_that_a_class_labels_anew_keeps_what_it_passed) {
    const auto read = [] {
        try {
            const Doing reading("Reading", "a");
            Fail(failure::DeviceIO);
        } catch (const Failure& cause) {
            throw Failure(cause.Number(), cause.Description(), "Tavel.Class");
        }
    };
    EXPECT_EQ(FailedActivityOf(read), "Reading a");
}

TEST(Activity, What_is_tidied_up_behind_a_failure_is_not_told) {
    struct Tidying {
        ~Tidying() { const Doing closing("Closing", "b"); }
    };
    const auto fail = [] {
        const Doing adding("Adding", "a");
        const Tidying tidying;
        Fail(failure::Overflow);
    };
    EXPECT_EQ(FailedActivityOf(fail), "Adding a");
}

}  // namespace
}  // namespace tavel::test
