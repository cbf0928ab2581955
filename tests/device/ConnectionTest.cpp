#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/Discovery.h"
#include "device/Status.h"
#include "device/Transfer.h"
#include "library/Collections.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <memory>

namespace tavel::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

class ConnectPSPTest : public DeviceTest {};
class PollPSPTest : public DeviceTest {};
class FirstLookTest : public DeviceTest {};

}  // namespace

TEST_F(ConnectPSPTest, Sets_drive_file_and_name) {
    PlugPSP('e');
    Put('e', "TavelDataFile.tavel", "[DATA]\r\npspNAME=Ann's\r\n");
    ConnectPSP("e:\\");
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive->Path(), "e:");
    EXPECT_EQ(sPSPDataFile, "e:\\taveldatafile.tavel");
    EXPECT_EQ(sPSPName, "Ann's");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ConnectPSPTest, Takes_any_spelling_of_a_drive) {
    PlugPSP('e');
    for (const char* spelling : {"e", "E:", "e:\\", "e: [STICK]"}) {
        sPSPDataFile.clear();
        ConnectPSP(spelling);
        EXPECT_EQ(sPSPDataFile, "e:\\taveldatafile.tavel") << spelling;
    }
}

TEST_F(ConnectPSPTest, Calls_a_stick_without_a_stored_name_PSP) {
    PlugPSP('e');
    for (const char* text : {"", "[video]\r\nM4V10001=A\r\n", "[data]\r\n", "pspname=A\r\n"}) {
        sPSPName = "from before";
        Put('e', "TavelDataFile.tavel", text);
        ConnectPSP("e:");
        EXPECT_EQ(sPSPName, "PSP") << text;
    }
    const std::string sFile = HostOf('e', "TavelDataFile.tavel");
    const std::function<void()> ways[] = {[&] { SpoilIdentityFile(); }, [&] { fs::remove(sFile); },
                                          [&] { fs::create_directory(sFile); }};
    for (const auto& makeUnreadable : ways) {
        makeUnreadable();
        sPSPName = "from before";
        ConnectPSP("e:");
        EXPECT_EQ(sPSPName, "PSP");
    }
}

TEST_F(ConnectPSPTest, Keeps_an_empty_name_and_cuts_a_long_one) {
    PlugPSP('e');
    Put('e', "TavelDataFile.tavel", "[data]\r\npspname=\r\n");
    ConnectPSP("e:");
    EXPECT_EQ(sPSPName, "");
    Put('e', "TavelDataFile.tavel", "[data]\r\npspname=" + std::string(300, 'x') + "\r\n");
    ConnectPSP("e:");
    EXPECT_EQ(sPSPName, std::string(254, 'x'));
}

TEST_F(ConnectPSPTest, Sets_the_flag_first_so_that_a_failure_leaves_it_set) {
    EXPECT_EQ(FailureOf([] { ConnectPSP("q:\\"); }), 68);
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive, nullptr);
}

TEST_F(PollPSPTest, Does_nothing_but_yield_while_there_is_no_device) {
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("Yield"));
    EXPECT_FALSE(bPSPConnected);
}

TEST_F(PollPSPTest, Connects_a_device_that_has_come) {
    PlugPSP('f');
    PollPSP();
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive->Path(), "f:");
    EXPECT_THAT(calls,
                ElementsAre("RefreshPSPStatus", "ShowPSPCats on", "RefreshPSPCats", "Yield"));
}

TEST_F(PollPSPTest, Does_nothing_but_yield_while_the_device_is_there) {
    Connect();
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("Yield"));
    EXPECT_TRUE(bPSPConnected);
}

TEST_F(PollPSPTest, Takes_another_stick_that_has_replaced_the_first_for_the_first) {
    Connect();
    sPSPName = "First";
    const std::shared_ptr<Drive> drive = oPSPDrive;
    files.Pull('e');
    temp.Write("other/TavelDataFile.tavel", "[Data]\r\nPSPName=Other\r\n");
    files.Plug('e', temp.HostPath("other"));
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("Yield"));
    EXPECT_EQ(sPSPName, "First");
    EXPECT_EQ(oPSPDrive, drive);
}

TEST_F(PollPSPTest, Clears_only_the_flag_when_the_device_has_gone) {
    PlugPSP('e');
    Put('e', "TavelDataFile.tavel", "[Data]\r\nPSPName=Ann's\r\n");
    ConnectPSP("e:");
    files.Pull('e');
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("RefreshPSPStatus", "ShowPSPCats off", "Yield"));
    EXPECT_FALSE(bPSPConnected);
    EXPECT_EQ(oPSPDrive->Path(), "e:");
    EXPECT_EQ(sPSPName, "Ann's");
    EXPECT_EQ(sPSPDataFile, "e:\\taveldatafile.tavel");
}

TEST_F(PollPSPTest, Goes_on_with_the_missing_stick_when_another_marked_one_is_left) {
    for (const char letter : {'f', 'g'}) {
        PlugPSP(letter);
        Put(letter, "TavelDataFile.tavel", std::string("[Data]\r\nPSPName=") + letter);
    }
    PollPSP();
    ASSERT_EQ(oPSPDrive->Path(), "f:");
    calls.clear();
    files.Pull('f');
    PollPSP();
    EXPECT_THAT(calls, ElementsAre("Yield"));
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive->Path(), "f:");
    EXPECT_EQ(sPSPDataFile, "f:\\taveldatafile.tavel");
    EXPECT_EQ(sPSPName, "f");

    // The device's parts then meet the missing drive.
    PhotoAlbum album;
    album.sName = "Trip";
    colPhotoAlbum.Add("pa_1", album);
    EXPECT_EQ(FailureOf([] { TransferToPSP({"pa_1"}); }), 76);
    EXPECT_FALSE(IsOn('g', "PSP/PHOTO/Trip"));
    StatusPanel panel;
    EXPECT_EQ(FailureOf([&] { UpdateStatusPanel(panel); }), 68);
}

TEST_F(PollPSPTest, Disconnects_until_the_next_tick_when_the_drive_does_not_answer) {
    Connect();
    files.FailOn("FileExists e", 57, 1);
    PollPSP();
    EXPECT_FALSE(bPSPConnected);
    calls.clear();
    PollPSP();
    EXPECT_TRUE(bPSPConnected);
    EXPECT_THAT(calls,
                ElementsAre("RefreshPSPStatus", "ShowPSPCats on", "RefreshPSPCats", "Yield"));
}

TEST_F(PollPSPTest, Has_no_handler_for_a_second_failure) {
    PlugPSP('d');
    PlugPSP('e');
    files.FailOn("GetDrive d", 57);
    files.FailOn("GetDrive e", 57);
    EXPECT_EQ(FailureOf([] { PollPSP(); }), 57);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PollPSPTest, Has_no_handler_for_a_stick_that_vanishes_between_search_and_connect) {
    PlugPSP('e').operationsUntilGone = 3;  // DriveExists, GetDrive, FileExists
    EXPECT_EQ(FailureOf([] { PollPSP(); }), 68);
    EXPECT_TRUE(bPSPConnected);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(FirstLookTest, Rebuilds_the_tree_before_the_panel) {
    PlugPSP('e');
    FirstLookForPSP();
    EXPECT_TRUE(bPSPConnected);
    EXPECT_THAT(calls, ElementsAre("RefreshPSPCats", "ShowPSPCats on", "RefreshPSPStatus"));
}

TEST_F(FirstLookTest, Refreshes_the_panel_without_a_device_too) {
    FirstLookForPSP();
    EXPECT_FALSE(bPSPConnected);
    EXPECT_THAT(calls, ElementsAre("RefreshPSPStatus"));
}

}  // namespace tavel::test
