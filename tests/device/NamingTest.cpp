#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/Naming.h"

#include <gmock/gmock.h>

namespace tavel::test {

namespace {

class NextVideoNameTest : public DeviceTest {
  protected:
    void PutVideo(const std::string& sName) { Put('e', "MP_ROOT/100MNV01/" + sName, "x"); }
};

// A stick whose video folder holds all numbers up to one.
class FullStick : public FaultyFileService {
  public:
    int taken = 0;
    bool FileExists(std::string_view path) override {
        const std::string sStart = "e:\\MP_ROOT\\100MNV01\\M4V1";
        EXPECT_EQ(path.substr(0, sStart.size()), sStart);
        return std::stoi(std::string(path.substr(sStart.size()))) <= taken;
    }
};

}  // namespace

TEST_F(NextVideoNameTest, Is_number_1_on_an_empty_stick) {
    Connect();
    EXPECT_EQ(NextVideoName("mp4"), "M4V10001.mp4");
    EXPECT_THAT(files.calls,
                ::testing::ElementsAre("FileExists e:\\MP_ROOT\\100MNV01\\M4V10001.mp4"));
}

TEST_F(NextVideoNameTest, Reserves_no_name_and_takes_the_extension_as_it_is) {
    Connect();
    EXPECT_EQ(NextVideoName("MP4"), "M4V10001.MP4");
    EXPECT_EQ(NextVideoName("MP4"), "M4V10001.MP4");
}

TEST_F(NextVideoNameTest, Fills_the_first_gap) {
    Connect();
    PutVideo("M4V10001.mp4");
    PutVideo("M4V10003.mp4");
    EXPECT_EQ(NextVideoName("mp4"), "M4V10002.mp4");
    PutVideo("M4V10002.mp4");
    EXPECT_EQ(NextVideoName("mp4"), "M4V10004.mp4");
}

TEST_F(NextVideoNameTest, Is_not_kept_from_a_number_by_another_extension) {
    Connect();
    PutVideo("M4V10001.avi");
    PutVideo("M4V10001.THM");
    EXPECT_EQ(NextVideoName("mp4"), "M4V10001.mp4");
}

TEST_F(NextVideoNameTest, Has_five_digits_from_10000_on_and_overflows_past_32767) {
    Connect();
    FullStick stick;
    Service<FileService>::Use(&stick);
    stick.taken = 9998;
    EXPECT_EQ(NextVideoName("mp4"), "M4V19999.mp4");
    stick.taken = 9999;
    EXPECT_EQ(NextVideoName("mp4"), "M4V110000.mp4");
    stick.taken = 32766;
    EXPECT_EQ(NextVideoName("mp4"), "M4V132767.mp4");
    stick.taken = 32767;
    EXPECT_EQ(FailureOf([] { NextVideoName("mp4"); }), 6);
    Service<FileService>::Use(&files);
}

TEST_F(NextVideoNameTest, Is_number_1_on_a_stick_that_was_pulled) {
    Connect();
    PutVideo("M4V10001.mp4");
    files.Pull('e');
    EXPECT_EQ(NextVideoName("mp4"), "M4V10001.mp4");
}

TEST_F(NextVideoNameTest, Fails_while_no_device_has_been_connected) {
    EXPECT_EQ(FailureOf([] { NextVideoName("mp4"); }), 91);
}

}  // namespace tavel::test
