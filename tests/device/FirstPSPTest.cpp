#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/Discovery.h"
#include "platform/Failure.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tavel::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

// A stick as the PSP has formatted it, which Tavel has never seen.
class FirstPSPTest : public DeviceTest {
  protected:
    FakeDrive& PlugNewStick(char letter) {
        FakeDrive& drive = PlugStick(letter);
        std::filesystem::create_directories(HostOf(letter, "PSP"));
        return drive;
    }

    // The path that the search hands over; "-" when it finds none.
    static std::string Found() {
        std::string sFound = "-";
        const bool bFound = FindPSPFolder([&](const std::string& sPath) { sFound = sPath; });
        EXPECT_EQ(bFound, sFound != "-");
        return sFound;
    }

    static const std::string ask;
};

const std::string FirstPSPTest::ask =
    "The PSP is not connected, please connect it and click OK to try again";

}  // namespace

TEST_F(FirstPSPTest, A_new_stick_is_found_by_its_folder_and_nothing_is_connected) {
    PlugNewStick('g');
    EXPECT_EQ(Found(), "g:");
    EXPECT_FALSE(bPSPConnected);
    EXPECT_FALSE(IsOn('g', "TavelDataFile.tavel"));
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(FirstPSPTest, The_folder_is_found_in_any_case) {
    PlugStick('e');
    Put('e', "psp/music/a.mp3", "x");
    EXPECT_EQ(Found(), "e:");
}

TEST_F(FirstPSPTest, The_identity_file_counts_for_nothing) {
    PlugStick('d');
    Put('d', "TavelDataFile.tavel", "[Data]\r\nPSPName=A\r\n");
    Put('d', "PSP.txt", "no folder");
    EXPECT_EQ(Found(), "-");
    PlugNewStick('e');
    EXPECT_EQ(Found(), "e:");
    EXPECT_THAT(files.calls, Not(Contains("FileExists d:\\TavelDataFile.tavel")));
}

TEST_F(FirstPSPTest, The_search_goes_from_b_to_z_and_stops_at_the_first_hit) {
    PlugNewStick('a');
    EXPECT_EQ(Found(), "-");
    EXPECT_EQ(files.calls.front(), "DriveExists b:\\");
    EXPECT_EQ(files.calls.back(), "DriveExists z:\\");
    PlugNewStick('d');
    PlugNewStick('e');
    files.calls.clear();
    EXPECT_EQ(Found(), "d:");
    EXPECT_THAT(files.calls,
                ElementsAre("DriveExists b:\\", "DriveExists c:\\", "GetDrive c:\\",
                            "DriveExists d:\\", "GetDrive d:\\", "FolderExists d:\\PSP"));
}

TEST_F(FirstPSPTest, Drives_that_are_not_removable_or_have_no_media_are_passed_over) {
    for (const int type : {0, 2, 3, 4, 5}) {
        PlugNewStick('d').driveType = type;
        EXPECT_EQ(Found(), "-") << type;
    }
    EXPECT_THAT(files.calls, Not(Contains("FolderExists d:\\PSP")));
    PlugNewStick('d').hasMedia = false;
    PlugNewStick('f');
    EXPECT_EQ(Found(), "f:");
}

TEST_F(FirstPSPTest, The_first_failure_is_a_letter_without_a_PSP_and_the_second_goes_up) {
    PlugNewStick('d');
    PlugNewStick('e');
    PlugNewStick('f');
    for (const char* call : {"DriveExists d", "GetDrive d", "FolderExists d"}) {
        files.FailOn(call, 57, 1);
        EXPECT_EQ(Found(), "e:") << call;
    }
    files.FailOn("GetDrive d", 57, 1);
    files.FailOn("FolderExists e", 68, 1);
    EXPECT_EQ(FailureOf([] { Found(); }), 68);
}

TEST_F(FirstPSPTest, What_is_done_with_the_path_fails_as_the_search_does) {
    PlugNewStick('d');
    PlugNewStick('e');
    std::vector<std::string> paths;
    EXPECT_TRUE(FindPSPFolder([&](const std::string& sPath) {
        paths.push_back(sPath);
        if (sPath == "d:") Fail(failure::DeviceUnavailable);
    }));
    EXPECT_THAT(paths, ElementsAre("d:", "e:"));
    EXPECT_EQ(FailureOf([] {
                  FindPSPFolder([](const std::string&) { Fail(failure::DeviceUnavailable); });
              }),
              68);
}

TEST_F(FirstPSPTest, The_finish_connects_then_makes_the_identity_file_with_the_trimmed_name) {
    PlugNewStick('e');
    SetupFirstPSP("e: [STICK]", "  My PSP ");
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive->Path(), "e:");
    EXPECT_EQ(sPSPName, "PSP") << "it is read before the file is there";
    EXPECT_EQ(BytesOn('e', "TavelDataFile.tavel"), "[Data]\r\nPSPName=My PSP\r\n");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(FirstPSPTest, The_finish_keeps_the_other_lines_of_a_stick_that_is_known) {
    PlugNewStick('e');
    Put('e', "taveldatafile.tavel", "[data]\r\npspname=Old\r\n[video]\r\nM4V10001=The First\r\n");
    SetupFirstPSP("e:", "New");
    EXPECT_EQ(sPSPName, "Old");
    EXPECT_EQ(BytesOn('e', "taveldatafile.tavel"),
              "[data]\r\npspname=New\r\n[video]\r\nM4V10001=The First\r\n");
}

TEST_F(FirstPSPTest, Without_the_drive_the_box_comes_again_until_that_very_drive_is_there) {
    boxes.Expect(ask, MsgBoxAnswer::OK);
    boxes.Expect(ask, MsgBoxAnswer::OK);
    boxes.Expect(ask, MsgBoxAnswer::OK);
    int yields = 0;
    events.onYield = [&] {
        ++yields;
        if (yields == 2) PlugNewStick('f');
        if (yields == 3) PlugNewStick('e');
    };
    SetupFirstPSP("e: [STICK]", "A");
    const std::string box = "MsgBox Tavel: " + ask + " (OK)";
    EXPECT_THAT(calls, ElementsAre(box, "Yield", box, "Yield", box, "Yield"));
    EXPECT_TRUE(IsOn('e', "TavelDataFile.tavel"));
    EXPECT_FALSE(IsOn('f', "TavelDataFile.tavel"));
}

TEST_F(FirstPSPTest, Any_drive_is_taken_though_it_is_not_removable) {
    PlugNewStick('e').driveType = DriveFixed;
    SetupFirstPSP("e:", "A");
    EXPECT_TRUE(IsOn('e', "TavelDataFile.tavel"));
    EXPECT_TRUE(bPSPConnected);
}

TEST_F(FirstPSPTest, The_computers_own_drive_gets_the_file_in_its_root_and_is_never_found_again) {
    PlugStick('c').driveType = DriveFixed;
    SetupFirstPSP("c:", "A");
    EXPECT_EQ(oPSPDrive->Path(), "c:");
    EXPECT_EQ(BytesOn('c', "TavelDataFile.tavel"), "[Data]\r\nPSPName=A\r\n");
    std::string sDrive = "none";
    EXPECT_FALSE(FindPSPDrive(sDrive));
    EXPECT_EQ(sDrive, "none");
}

TEST_F(FirstPSPTest, A_root_that_takes_no_file_fails_with_nothing_made) {
    PlugStick('c').driveType = DriveFixed;
    files.FailOn("CreateTextFile c:\\TavelDataFile.tavel", failure::PermissionDenied);
    EXPECT_EQ(FailureOf([] { SetupFirstPSP("c:", "A"); }), failure::PermissionDenied);
    EXPECT_FALSE(IsOn('c', "TavelDataFile.tavel"));
    EXPECT_EQ(FailedActivityOf([] { SetupFirstPSP("c:", "A"); }), "Setting up the PSP on c:");
}

TEST_F(FirstPSPTest, A_drive_without_media_fails_where_the_file_is_made) {
    PlugNewStick('e').hasMedia = false;
    EXPECT_EQ(FailureOf([] { SetupFirstPSP("e:", "A"); }), failure::DiskNotReady);
    EXPECT_TRUE(bPSPConnected);
    EXPECT_THAT(calls, IsEmpty());
}

}  // namespace tavel::test
