#include "device/DeviceTest.h"
#include "device/ProgressBarFileCopy.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tavel::test {

namespace {

using CopyOntoItself = DeviceTest;

}  // namespace

TEST_F(CopyOntoItself, Never_empties_a_source_that_a_link_leads_to) {
    Connect();
    std::filesystem::create_directory_symlink(HostOf('e', ""), temp.HostPath("way round"));
    Put('e', "a.bin", "bytes");
    std::vector<float> values;
    ProgressBarRecorder bar{calls, "bar"};
    bar.onValue = [&](float value) { values.push_back(value); };
    CopyWithProgress(temp.DrivePath("way round/a.bin"), "e:\\a.bin", bar);
    EXPECT_EQ(BytesOn('e', "a.bin"), "bytes");
    EXPECT_THAT(values, ::testing::Each(0));
}

}  // namespace tavel::test
