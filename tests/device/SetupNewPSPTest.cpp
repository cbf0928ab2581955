#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/Discovery.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavel::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

const std::string notConnected =
    "The PSP is not connected, or you have selected the wrong drive for the PSP.\r\r"
    "Please connect it and check the selected drive";
const std::string notReady =
    "Selected drive not ready, check the connection or select another drive";

class SetupNewPSPTest : public DeviceTest {
  protected:
    std::ptrdiff_t PlaceOf(const std::string& call) const {
        const auto found = std::find(files.calls.begin(), files.calls.end(), call);
        EXPECT_NE(found, files.calls.end()) << call;
        return found - files.calls.begin();
    }
};

}  // namespace

TEST_F(SetupNewPSPTest, Makes_the_identity_file_of_a_fresh_stick_with_the_trimmed_name) {
    PlugStick('e');
    EXPECT_TRUE(SetupNewPSP("e: [STICK]", "  My PSP "));
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[Data]\r\nPSPName=My PSP\r\n");
    EXPECT_THAT(calls, IsEmpty()) << "nothing in the main window is refreshed";
}

TEST_F(SetupNewPSPTest, Asks_for_the_drive_then_connects_then_makes_the_file) {
    PlugStick('e');
    EXPECT_TRUE(SetupNewPSP("e:", "A"));
    const std::vector<std::string> first(files.calls.begin(), files.calls.begin() + 3);
    EXPECT_THAT(first, ElementsAre("GetDrive e:", "DriveExists e:", "GetDrive e:"));
    EXPECT_LT(PlaceOf("FileExists e:\\taveldatafile.tavel"),
              PlaceOf("FileExists e:\\TavelDataFile.tavel"));
    const std::ptrdiff_t made = PlaceOf("CreateTextFile e:\\TavelDataFile.tavel");
    EXPECT_LT(PlaceOf("FileExists e:\\TavelDataFile.tavel"), made);
    // The name is written under the spelling of the making.
    const std::vector<std::string> behind(files.calls.begin() + made + 1, files.calls.end());
    EXPECT_THAT(behind, Contains(HasSubstr("TavelDataFile.tavel")));
    EXPECT_THAT(behind, Not(Contains(HasSubstr("taveldatafile.tavel"))));
}

TEST_F(SetupNewPSPTest, Calls_a_fresh_stick_PSP_until_it_is_connected_again) {
    PlugStick('e');
    sPSPName = "an earlier stick's";
    EXPECT_TRUE(SetupNewPSP("e:", "My PSP"));
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(sPSPName, "PSP");
    calls.clear();
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("Yield"));
    EXPECT_EQ(sPSPName, "PSP");
    files.Pull('e');
    PollPSP();
    PlugStick('e');
    PollPSP();
    EXPECT_EQ(sPSPName, "My PSP");
}

TEST_F(SetupNewPSPTest, Changes_only_the_name_of_a_stick_that_is_marked) {
    PlugStick('e');
    Put('e', "taveldatafile.TAVEL", "[data]\r\npspname=Old\r\n[video]\r\nM4V10001=The First\r\n");
    EXPECT_TRUE(SetupNewPSP("e:", "New"));
    EXPECT_EQ(BytesOn('e', "taveldatafile.TAVEL"),
              "[data]\r\npspname=New\r\n[video]\r\nM4V10001=The First\r\n");
    EXPECT_FALSE(IsOn('e', "TavelDataFile.tavel"));
    EXPECT_THAT(files.calls, Not(Contains("CreateTextFile e:\\TavelDataFile.tavel")));
    EXPECT_EQ(sPSPName, "Old");
}

TEST_F(SetupNewPSPTest, Adds_the_name_to_a_file_that_has_titles_alone) {
    PlugPSP('e');
    Put('e', "TavelDataFile.tavel", "[video]\r\nM4V10001=The First\r\n");
    EXPECT_TRUE(SetupNewPSP("e:", "New"));
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"),
              "[video]\r\nM4V10001=The First\r\n[Data]\r\nPSPName=New\r\n");
}

TEST_F(SetupNewPSPTest, Closes_though_the_name_could_not_be_written) {
    PlugPSP('e');
    SpoilIdentityFile();
    EXPECT_TRUE(SetupNewPSP("e:", "New"));
    EXPECT_THAT(calls, IsEmpty());
    ConnectPSP("e:");
    EXPECT_EQ(sPSPName, "PSP");
}

TEST_F(SetupNewPSPTest, Accepts_letter_a) {
    PlugStick('a');
    EXPECT_TRUE(SetupNewPSP("a:", "A"));
    EXPECT_TRUE(IsOn('a', "TavelDataFile.tavel"));
}

TEST_F(SetupNewPSPTest, Stays_open_for_a_drive_that_is_not_removable_whatever_is_answered) {
    for (const MsgBoxAnswer answer : {MsgBoxAnswer::OK, MsgBoxAnswer::Cancel}) {
        calls.clear();
        PlugStick('e').driveType = DriveFixed;
        boxes.Expect(notConnected, answer);
        EXPECT_FALSE(SetupNewPSP("e:", "A"));
        EXPECT_THAT(calls, ElementsAre("MsgBox Tavel: " + notConnected + " (OKCancel)"));
        EXPECT_FALSE(bPSPConnected);
        EXPECT_EQ(oPSPDrive, nullptr);
        EXPECT_FALSE(IsOn('e', "TavelDataFile.tavel"));
    }
}

TEST_F(SetupNewPSPTest, Stays_open_for_a_drive_that_has_gone_since_it_was_asked_for) {
    PlugStick('e').operationsUntilGone = 1;  // GetDrive
    boxes.Expect(notConnected, MsgBoxAnswer::OK);
    EXPECT_FALSE(SetupNewPSP("e:", "A"));
    EXPECT_FALSE(bPSPConnected);
}

TEST_F(SetupNewPSPTest, Stays_open_without_a_word_for_a_drive_that_goes_before_it_is_connected) {
    PlugStick('e').operationsUntilGone = 2;  // GetDrive, DriveExists
    EXPECT_FALSE(SetupNewPSP("e:", "A"));
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive, nullptr);
}

TEST_F(SetupNewPSPTest, Tells_of_a_drive_that_is_not_ready_and_the_next_tick_clears_the_flag) {
    PlugStick('e').hasMedia = false;
    boxes.Expect(notReady, MsgBoxAnswer::OK);
    EXPECT_FALSE(SetupNewPSP("e:", "A"));
    EXPECT_TRUE(bPSPConnected);
    EXPECT_THAT(calls, ElementsAre("MsgBox Tavel: " + notReady + " (OK)"));
    calls.clear();
    PollPSP();
    EXPECT_FALSE(bPSPConnected);
    EXPECT_THAT(calls, ElementsAre("RefreshPSPStatus", "ShowPSPCats off", "Yield"));
}

TEST_F(SetupNewPSPTest, Has_each_of_its_steps_under_the_one_guard) {
    PlugStick('e');
    for (const char* step :
         {"GetDrive e", "DriveExists e", "FileExists e:\\TavelDataFile", "CreateTextFile e"}) {
        files.FailOn(step, 71, 1);
        boxes.Expect(notReady, MsgBoxAnswer::OK);
        EXPECT_FALSE(SetupNewPSP("e:", "A")) << step;
        for (const Long number : {68, 70, 57}) {
            calls.clear();
            files.FailOn(step, number, 1);
            EXPECT_FALSE(SetupNewPSP("e:", "A")) << step << number;
            EXPECT_THAT(calls, IsEmpty()) << step << number;
        }
    }
    EXPECT_FALSE(IsOn('e', "TavelDataFile.tavel"));
}

TEST_F(SetupNewPSPTest, Is_silent_about_a_drive_that_does_not_exist) {
    EXPECT_FALSE(SetupNewPSP("q:", "A"));
    EXPECT_FALSE(SetupNewPSP("", "A"));
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_FALSE(bPSPConnected);
}

}  // namespace tavel::test
