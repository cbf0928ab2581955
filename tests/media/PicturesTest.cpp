#include "media/Pictures.h"
#include "support/OneFileService.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tavel::test {

namespace {

std::string SizeAt(const std::string& path) {
    const PictureSize size = SizeOfPicture(path);
    return std::to_string(size.Width) + "x" + std::to_string(size.Height);
}

class Pictures : public ::testing::Test {
  protected:
    TempFolder folder;
};

}  // namespace

TEST_F(Pictures, What_cannot_be_read_is_0_by_0) {
    folder.Write("text.jpg", "no picture at all");
    folder.Write("empty.jpg", "");
    std::filesystem::create_directory(folder.HostPath("folder.jpg"));
    for (const char* name : {"text.jpg", "empty.jpg", "folder.jpg", "missing.jpg"}) {
        EXPECT_EQ(SizeAt(folder.DrivePath(name)), "0x0") << name;
    }
}

TEST_F(Pictures, A_picture_that_goes_away_while_it_is_read_is_0_by_0) {
    OneFileService files("\xFF\xD8\xFF\xE0");
    files.FailAt = 0;
    EXPECT_EQ(SizeAt("e:\\psp\\photo\\one.jpg"), "0x0");
}

}  // namespace tavel::test
