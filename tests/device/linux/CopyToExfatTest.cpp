#include "core/PublicStuff.h"
#include "device/ProgressBarFileCopy.h"
#include "support/DeviceRecorders.h"
#include "support/HostDrives.h"
#include "support/linux/ExfatStick.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tavel::test {

using ::testing::ElementsAre;

namespace fs = std::filesystem;

namespace {

// The chunked copy on a real memory-stick file system.
class CopyToExfatTest : public HostDrives {
  protected:
    void SetUp() override {
        if (!stick.WhyNot().empty()) GTEST_SKIP() << stick.WhyNot();
        fs::create_directories(temp.HostPath("program/drives"));
        fs::create_directory_symlink(stick.MountFolder(), temp.HostPath("program/drives/e"));
        Service<FileService>::Use(files.get());
        bar.isRecording = false;
        bar.onValue = [this](float value) { values.push_back(value); };
    }
    void TearDown() override { ResetPublicStuff(); }

    void CopyTo(const std::string& sDest, const std::string& bytes) {
        values.clear();
        temp.Write("source.bin", bytes);
        CopyWithProgress(temp.DrivePath("source.bin"), sDest, bar);
    }

    ExfatStick stick{24};
    Calls calls;
    ProgressBarRecorder bar{calls, "bar"};
    std::vector<float> values;
};

}  // namespace

TEST_F(CopyToExfatTest, What_was_copied_is_on_the_stick_when_the_copy_returns) {
    const std::string bytes(3'000'000, 'x');
    CopyTo("e:\\a.bin", bytes);
    EXPECT_TRUE(stick.BytesWhenPulled("a.bin") == bytes);
}

TEST_F(CopyToExfatTest, The_bar_stops_at_the_pieces_that_a_full_stick_took) {
    CopyTo("e:\\large.bin", std::string(30'000'000, 'x'));
    ASSERT_EQ(values.size(), 30'000'000u / 1024 + 2);
    EXPECT_EQ(static_cast<std::uintmax_t>(values[values.size() - 2]),
              fs::file_size(stick.MountFolder() + "/large.bin") / 1024 * 1024);
    EXPECT_EQ(values[values.size() - 2], values[values.size() - 3]);

    CopyTo("e:\\small.bin", std::string(3000, 'x'));
    EXPECT_THAT(values, ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(fs::file_size(stick.MountFolder() + "/small.bin"), 0u);
}

}  // namespace tavel::test
