#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/Discovery.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tavel::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class FindPSPDriveTest : public DeviceTest {
  protected:
    // The root that a search gives; "-" when it finds none.
    static std::string Found() {
        std::string sDrive = "-";
        const bool bFound = FindPSPDrive(sDrive);
        EXPECT_EQ(bFound, sDrive != "-");
        return sDrive;
    }
};

}  // namespace

TEST_F(FindPSPDriveTest, Gives_the_root_of_the_marked_drive_and_changes_no_state) {
    PlugPSP('g');
    EXPECT_EQ(Found(), "g:\\");
    EXPECT_FALSE(bPSPConnected);
    EXPECT_EQ(oPSPDrive, nullptr);
    EXPECT_EQ(sPSPDataFile, "");
    EXPECT_EQ(sPSPName, "");
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(FindPSPDriveTest, Leaves_the_state_of_the_connected_device_as_it_is) {
    Connect();
    sPSPName = "Ann's";
    const std::shared_ptr<Drive> drive = oPSPDrive;
    PlugPSP('d');
    EXPECT_EQ(Found(), "d:\\");
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(oPSPDrive, drive);
    EXPECT_EQ(sPSPDataFile, "e:\\taveldatafile.tavel");
    EXPECT_EQ(sPSPName, "Ann's");
}

TEST_F(FindPSPDriveTest, Tries_the_letters_from_b_to_z_in_order) {
    EXPECT_EQ(Found(), "-");
    std::vector<std::string> expected;
    for (char letter = 'b'; letter <= 'z'; ++letter) {
        expected.push_back(std::string("DriveExists ") + letter + ":\\");
        if (letter == 'c') expected.push_back("GetDrive c:\\");
    }
    EXPECT_EQ(files.calls, expected);
}

TEST_F(FindPSPDriveTest, Stops_at_the_first_hit) {
    PlugPSP('d');
    PlugPSP('e');
    EXPECT_EQ(Found(), "d:\\");
    EXPECT_THAT(files.calls, ElementsAre("DriveExists b:\\", "DriveExists c:\\", "GetDrive c:\\",
                                         "DriveExists d:\\", "GetDrive d:\\",
                                         "FileExists d:\\TavelDataFile.tavel"));
}

TEST_F(FindPSPDriveTest, Does_not_look_into_a_drive_that_is_not_removable) {
    for (const int type : {0, 2, 3, 4, 5}) {
        files.calls.clear();
        PlugPSP('e').driveType = type;
        EXPECT_EQ(Found(), "-") << type;
        EXPECT_THAT(files.calls, Not(Contains("FileExists e:\\TavelDataFile.tavel"))) << type;
    }
}

TEST_F(FindPSPDriveTest, Never_tries_letter_a) {
    PlugPSP('a');
    EXPECT_EQ(Found(), "-");
    EXPECT_THAT(files.calls, Not(Contains("DriveExists a:\\")));
}

TEST_F(FindPSPDriveTest, Takes_no_stick_without_the_file_even_with_the_folders_of_a_PSP) {
    PlugPSP('e');
    std::filesystem::remove(HostOf('e', "TavelDataFile.tavel"));
    EXPECT_EQ(Found(), "-");
}

TEST_F(FindPSPDriveTest, Passes_over_any_number_of_drives_without_media) {
    for (const char letter : {'b', 'd', 'f'}) PlugPSP(letter).hasMedia = false;
    EXPECT_EQ(Found(), "-");
    PlugPSP('g');
    EXPECT_EQ(Found(), "g:\\");
}

TEST_F(FindPSPDriveTest, Finds_the_identity_file_in_any_case) {
    PlugStick('e');
    Put('e', "TAVELDATAFILE.TAVEL", "");
    EXPECT_EQ(Found(), "e:\\");
}

TEST_F(FindPSPDriveTest, Takes_the_first_failure_of_a_search_for_a_letter_without_a_PSP) {
    PlugPSP('d');
    PlugPSP('f');
    for (const char* call : {"DriveExists d", "GetDrive d", "FileExists d"}) {
        files.FailOn(call, 57, 1);
        EXPECT_EQ(Found(), "f:\\") << call;
    }
}

TEST_F(FindPSPDriveTest, Lets_the_second_failure_of_a_search_go_up) {
    PlugPSP('d');
    PlugPSP('f');
    for (const char* call : {"DriveExists f", "GetDrive f", "FileExists f"}) {
        files.FailOn("GetDrive d", 57, 1);
        files.FailOn(call, 68, 1);
        std::string sDrive = "-";
        EXPECT_EQ(FailureOf([&] { FindPSPDrive(sDrive); }), 68) << call;
        EXPECT_EQ(sDrive, "-") << call;
    }
}

TEST_F(FindPSPDriveTest, Catches_anew_in_each_search) {
    PlugPSP('d');
    files.FailOn("GetDrive d", 57, 2);
    EXPECT_EQ(Found(), "-");
    EXPECT_EQ(Found(), "-");
    EXPECT_EQ(Found(), "d:\\");
}

}  // namespace tavel::test
