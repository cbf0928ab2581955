#include "library/ScanFixture.h"
#include "platform/Failure.h"
#include "support/FaultyFileService.h"

#include <filesystem>
#include <utility>
#include <vector>

namespace tavel::test {
namespace {

TEST_F(Scan, Of_an_empty_watch_list_logs_its_two_lines_and_nothing_else) {
    Watch({});
    BackgroundScan();
    EXPECT_EQ(windows.calls, (Calls{start[0], start[1], end[0], end[1]}));
    EXPECT_FALSE(bScanning);
}

TEST_F(Scan, Stops_the_timer_before_it_counts_as_running_and_starts_it_after) {
    class Timer : public Standing<ScanTimer> {
      public:
        void Enable(bool bEnabled) override {
            seen += (bEnabled ? "on" : "off") + std::string(bScanning ? " scanning, " : ", ");
        }
        std::string seen;
    } timer;
    Watch({});
    BackgroundScan();
    EXPECT_EQ(timer.seen, "off, on, ");
}

TEST_F(Scan, Walks_the_folders_in_order_and_yields_after_each) {
    Write("two/b.jpg", "x");
    Write("one/sub/a.mp4", "x");
    Watch({"two", "one"});
    BackgroundScan();
    Calls expected = start;
    ExpectAdded(expected, "two\\b.jpg");
    expected.push_back("Yield");
    ExpectAdded(expected, "one\\sub\\a.mp4");
    expected.insert(expected.end(), {"Yield", "Yield"});
    expected.insert(expected.end(), end.begin(), end.end());
    EXPECT_EQ(windows.calls, expected);
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(colVideo.Count(), 1);
}

TEST_F(Scan, Adds_only_what_is_new) {
    Write("m/a.jpg", "x");
    Watch({"m"});
    BackgroundScan();
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 1);
    Write("m/b.jpg", "x");
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 2);
}

TEST_F(Scan, Takes_all_three_kinds_whatever_the_boxes_of_a_folder_say) {
    Write("m/a.jpg", "x");
    Write("m/a.mp3", "x");
    Write("m/a.mp4", "x");
    Contain("[watch]\r\nnoofflds=1\r\n0=" + temp.DrivePath("m") +
            "\r\n0Music=0\r\n0Photo=0\r\n0Video=0\r\n");
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count() + colMusic.Count() + colVideo.Count(), 3);
}

TEST_F(Scan, Makes_groups_when_the_option_says_so) {
    Write("m/Trip1/a.jpg", "x");
    Watch({"m"});
    bAutoGroup = true;
    BackgroundScan();
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "Trip1");
    Write("m/Trip2/b.jpg", "x");
    bAutoGroup = false;
    BackgroundScan();
    EXPECT_EQ(colMagazine.Count(), 1);
}

TEST_F(Scan, Two_new_folders_of_music_fail_on_the_second_playlist) {
    Write("m/One/a.mp3", "x");
    Write("m/Two/b.mp3", "x");
    Watch({"m"});
    bAutoGroup = true;
    EXPECT_EQ(FailureOf(BackgroundScan), failure::KeyAlreadyThere);
}

// Notes how the guard stands whenever the timer is told something.
class GuardAtTheTimer : public Standing<ScanTimer> {
  public:
    void Enable(bool bEnabled) override { seen.emplace_back(bEnabled, bScanning); }

    std::vector<std::pair<bool, bool>> seen;
};

TEST_F(Scan, The_guard_is_raised_behind_the_timers_end_and_lowered_ahead_of_its_start) {
    Watch({});
    GuardAtTheTimer timer;
    BackgroundScan();
    EXPECT_EQ(timer.seen, (std::vector<std::pair<bool, bool>>{{false, false}, {true, false}}));
}

TEST_F(Scan, A_second_scan_returns_at_once_while_one_runs) {
    Write("m/a.jpg", "x");
    Watch({"m"});
    int nested = 0;
    windows.events.onYield = [&] {
        EXPECT_TRUE(bScanning);
        const std::size_t before = windows.calls.size();
        BackgroundScan();
        EXPECT_EQ(windows.calls.size(), before);
        ++nested;
    };
    BackgroundScan();
    EXPECT_GT(nested, 0);
    EXPECT_FALSE(bScanning);
}

TEST_F(Scan, A_missing_count_fails_with_the_timer_off) {
    for (const char* text : {"", "[watch]\r\nnoofflds=-1\r\n", "[watch]\r\nnoofflds=none\r\n"}) {
        Contain(text);
        windows.calls.clear();
        bScanning = false;
        EXPECT_EQ(FailureOf(BackgroundScan), failure::SubscriptOutOfRange) << text;
        EXPECT_EQ(windows.calls, Calls{"tmrBack off"});
        EXPECT_TRUE(bScanning);
    }
}

TEST_F(Scan, A_watch_folder_that_has_gone_fails) {
    Watch({"none"});
    EXPECT_EQ(FailureOf(BackgroundScan), failure::PathNotFound);
}

TEST_F(Scan, Of_folders_within_each_other_takes_each_file_once) {
    Write("m/a.jpg", "x");
    Write("m/sub/b.jpg", "x");
    for (const Texts& folders : {Texts{"m", "m/sub", "m"}, Texts{"m/sub", "m"}}) {
        ReleaseCollections();
        Watch(folders);
        BackgroundScan();
        EXPECT_EQ(colPhoto.Count(), 2);
    }
}

// The program is a file without an extension.
TEST_F(Scan, Of_the_programs_own_folder_takes_the_media_in_it_and_ends_at_the_program) {
    Write("Media/Photos/a.jpg", "x");
    Write("UI/NoThumb.bmp", "x");
    Watch({""});
    BackgroundScan();
    ASSERT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colPhoto.Item(1).sPath(), temp.DrivePath("Media\\Photos\\a.jpg"));
    const std::string sDB = DB();
    EXPECT_NE(sDB.find("noofflds=1"), std::string::npos);
    Write("tavel", "x");
    EXPECT_EQ(FailureOf(BackgroundScan), failure::Overflow);
}

TEST_F(Scan, A_file_without_an_extension_ends_the_program_unless_a_folder_has_a_dot) {
    Write("m/tavel", "x");
    Watch({"m"});
    EXPECT_EQ(FailureOf(BackgroundScan), failure::Overflow);
    Write("Vol. 2/README", "x");
    Watch({"Vol. 2"});
    EXPECT_EQ(FailureOf(BackgroundScan), 0);
}

TEST_F(Scan, Knows_a_file_by_its_whole_path_alone) {
    Write("m/a.jpg", "x");
    Photo photo;
    photo.sDBID = "ph_a";
    photo.sPath("m\\a.jpg");
    colPhoto.Add("ph_a", photo);
    Watch({"m"});
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 2);
}

TEST_F(Scan, A_folder_number_that_is_missing_is_no_folder) {
    Contain("[watch]\r\nnoofflds=1\r\n");
    FaultyFileService files;
    Service<FileService>::Use(&files);
    EXPECT_EQ(FailureOf(BackgroundScan), failure::PathNotFound);
    EXPECT_EQ(files.calls.back(), "GetFolder XYZXYZ");
    Service<FileService>::Use(nullptr);
}

TEST_F(Scan, The_list_is_read_before_anything_is_added) {
    Write("one/a.jpg", "x");
    Write("two/b.jpg", "x");
    Watch({"one", "two"});
    windows.events.onYield = [&] { Watch({}); };
    BackgroundScan();
    EXPECT_EQ(colPhoto.Count(), 2);
}

class Ticks : public Scan {
  protected:
    Ticks() { Watch({}); }

    // How many scans a number of minutes brings.
    int Scans(int minutes) {
        windows.calls.clear();
        for (int i = 0; i < minutes; ++i) ScanTick();
        return static_cast<int>(windows.calls.size() / 4);
    }
};

TEST_F(Ticks, A_scan_comes_when_the_count_meets_the_delay) {
    iScanDelay = 5;
    EXPECT_EQ(Scans(4), 0);
    EXPECT_EQ(iScanTicks, 4);
    EXPECT_EQ(Scans(1), 1);
    EXPECT_EQ(iScanTicks, 0);
    EXPECT_EQ(Scans(15), 3);
}

TEST_F(Ticks, A_delay_of_one_minute_scans_at_every_tick) {
    iScanDelay = 1;
    EXPECT_EQ(Scans(3), 3);
}

TEST_F(Ticks, A_delay_of_0_never_scans) {
    iScanDelay = 0;
    EXPECT_EQ(Scans(100), 0);
}

TEST_F(Ticks, A_delay_lowered_below_the_count_stops_the_scans_until_the_counter_overflows) {
    iScanDelay = 60;
    EXPECT_EQ(Scans(30), 0);
    iScanDelay = 5;
    EXPECT_EQ(Scans(32737), 0);
    EXPECT_EQ(iScanTicks, 32767);
    EXPECT_EQ(FailureOf(ScanTick), failure::Overflow);
}

TEST_F(Ticks, A_scan_by_hand_does_not_touch_the_counter) {
    iScanDelay = 60;
    Scans(3);
    BackgroundScan();
    EXPECT_EQ(iScanTicks, 3);
}

TEST_F(Ticks, The_counter_is_back_at_0_before_the_scan_begins) {
    Write("m/a.jpg", "x");
    Watch({"m"});
    iScanDelay = 1;
    Integer iSeen = -1;
    windows.events.onYield = [&] { iSeen = iScanTicks; };
    ScanTick();
    EXPECT_EQ(iSeen, 0);
}

}  // namespace
}  // namespace tavel::test
