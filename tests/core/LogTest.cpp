#include "core/Log.h"
#include "platform/Failure.h"
#include "support/Recorders.h"
#include "support/Support.h"

namespace tavel::test {
namespace {

TEST(Log, A_line_is_date_category_in_upper_case_and_message_between_tabs) {
    Recorders windows;
    windows.clock.now = "21/11/2006 14:05:09";
    AddLog("Back Scan", "Begginging background scan");
    AddLog("DB", "DB Loaded");
    EXPECT_EQ(windows.log.lines,
              (Calls{"21/11/2006 14:05:09\tBACK SCAN\tBegginging background scan",
                     "21/11/2006 14:05:09\tDB\tDB Loaded"}));
}

TEST(Log, Each_line_has_the_time_at_which_it_was_added) {
    Recorders windows;
    windows.clock.now = "one";
    AddLog("Form", "a");
    windows.clock.now = "two";
    AddLog("Form", "b");
    EXPECT_EQ(windows.log.lines, (Calls{"one\tFORM\ta", "two\tFORM\tb"}));
}

TEST(Log, A_message_goes_into_the_line_as_it_is) {
    Recorders windows;
    AddLog("New File", "a\tb \xFF");
    EXPECT_EQ(windows.log.lines.back(), windows.clock.now + "\tNEW FILE\ta\tb \xFF");
}

TEST(Log, Without_a_window_to_log_to_it_fails) {
    EXPECT_EQ(FailureOf([] { AddLog("DB", "DB Loaded"); }), failure::ObjectNotSet);
}

}  // namespace
}  // namespace tavel::test
