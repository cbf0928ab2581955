#include "core/Options.h"
#include "core/modRegistry.h"
#include "library/Adding.h"
#include "library/LibraryFile.h"
#include "library/LibraryFixture.h"
#include "library/Scan.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace tavel::test {
namespace {

// The db.txt that is installed with the program.
class InstalledFile : public LibraryTest {
  protected:
    InstalledFile() {
        std::ifstream file(SourceFile("data/db.txt"), std::ios::binary);
        text.assign(std::istreambuf_iterator<char>(file), {});
        Contain(text);
    }

    std::string text;
};

TEST_F(InstalledFile, Starts_the_wizard_over_an_empty_library) {
    LoadOptions();
    EXPECT_TRUE(bFirstTime);
    LoadDB();
    LoadSupportedExts();
    EXPECT_FALSE(bGroupZip || bAutoGroup || bScanOnAppStart || bAddHiddenFiles);
    EXPECT_EQ(iVidThumbMode, 0);
    EXPECT_EQ(windows.calls, Calls{"Log DB: DB Loaded"});
}

// Beside the program, whose folder is the current one.
TEST_F(InstalledFile, Has_a_place_for_what_comes_out_of_archives_from_the_first_start_on) {
    LoadOptions();
    EXPECT_EQ(sDefaultDBPath, "Media");
}

TEST_F(InstalledFile, Lets_the_first_scan_run) {
    BackgroundScan();
    EXPECT_FALSE(bScanning);
    Integer iDelay = 0;
    ReadValue(sDBFile, "watch", "delay", "s", "0", iDelay);
    EXPECT_EQ(iDelay, 60);
}

TEST_F(InstalledFile, Knows_what_the_device_plays) {
    LoadSupportedExts();
    for (const char* path : {"a.mp3", "a.M4A", "a.wav"}) EXPECT_EQ(GetFileType(path), mtMusic);
    for (const char* path : {"a.mp4", "a.AVI"}) EXPECT_EQ(GetFileType(path), mtVideo);
    for (const char* path : {"a.jpg", "a.JPEG", "a.png", "a.gif", "a.bmp", "a.tif", "a.tiff"})
        EXPECT_EQ(GetFileType(path), mtPhoto);
    for (const char* path : {"a.thm", "a.THM", "a.zip", "a.txt"}) EXPECT_EQ(GetFileType(path), -1);
}

TEST_F(InstalledFile, Has_every_extension_once_in_lower_case_without_a_dot) {
    LoadSupportedExts();
    Texts all;
    for (const Texts& list : {sMusicSupport, sVideoSupport, sPhotoSupport})
        all.insert(all.end(), list.begin(), list.end());
    for (const std::string& extension : all)
        EXPECT_EQ(extension.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789"),
                  std::string::npos)
            << extension;
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
}

TEST_F(InstalledFile, Ends_its_lines_in_CR_LF) {
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.back(), '\n');
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
        ASSERT_EQ(text[at - 1], '\r');
}

}  // namespace
}  // namespace tavel::test
