#include "core/PublicStuff.h"
#include "device/DeviceTest.h"
#include "device/Discovery.h"
#include "device/Status.h"
#include "support/UsersMark.h"

#include <algorithm>

namespace tavel::test {

namespace {

class StatusPanelTest : public DeviceTest {
  protected:
    // A PSP with these figures, connected.
    void ConnectWith(double totalSize, double freeSpace) {
        FakeDrive& drive = PlugPSP('e');
        drive.totalSize = totalSize;
        drive.freeSpace = freeSpace;
        ConnectPSP("e:");
    }

    std::string Labels() const {
        return panel.labFull + ", " + panel.labFullSpace + ", " + panel.labEmpty + ", " +
               panel.labEmptySpace;
    }

    void ExpectBar(float emptyLeft, float emptyWidth, float fullLeft, float fullWidth) const {
        EXPECT_FLOAT_EQ(panel.imgEmptyLeft, emptyLeft);
        EXPECT_FLOAT_EQ(panel.imgEmptyWidth, emptyWidth);
        EXPECT_FLOAT_EQ(panel.imgFullLeft, fullLeft);
        EXPECT_FLOAT_EQ(panel.imgFullWidth, fullWidth);
    }

    StatusPanel panel;
};

}  // namespace

TEST_F(StatusPanelTest, Splits_the_design_pair_by_the_stick_s_figures) {
    ConnectWith(1'000'000'000, 400'000'000);
    sPSPName = "Ann's";
    UpdateStatusPanel(panel);
    ExpectBar(3900, 2520, 120, 3780);
    EXPECT_EQ(panel.labPSPStatus, "Ann's Connected");
    EXPECT_EQ(Labels(), "60% Used, 600 Mb, 40% Free, 400 Mb");
    EXPECT_TRUE(panel.bFiguresVisible);
    EXPECT_TRUE(panel.bImgFullVisible);
}

TEST_F(StatusPanelTest, Merges_the_design_pair_without_a_device) {
    UpdateStatusPanel(panel);
    ExpectBar(120, 6300, 120, 105);
    EXPECT_EQ(panel.labPSPStatus, "No PSP Connected");
    EXPECT_FALSE(panel.bFiguresVisible);
    EXPECT_FALSE(panel.bImgFullVisible);
    EXPECT_EQ(Labels(), "100%, 1024 Mb, 100%, 1024 Mb");
}

TEST_F(StatusPanelTest, Has_the_whole_span_again_when_a_device_comes_after_none) {
    UpdateStatusPanel(panel);
    ConnectWith(1'000'000'000, 400'000'000);
    UpdateStatusPanel(panel);
    ExpectBar(3900, 2520, 120, 3780);
    bPSPConnected = false;
    UpdateStatusPanel(panel);
    ExpectBar(120, 6300, 120, 3780);
}

TEST_F(StatusPanelTest, Shows_an_empty_stick) {
    ConnectWith(1'000'000'000, 1'000'000'000);
    UpdateStatusPanel(panel);
    ExpectBar(120, 6300, 120, 0);
    EXPECT_EQ(Labels(), "0% Used, 0 Mb, 100% Free, 1000 Mb");
}

TEST_F(StatusPanelTest, Shows_a_full_stick) {
    ConnectWith(1'000'000'000, 0);
    UpdateStatusPanel(panel);
    ExpectBar(6420, 0, 120, 6300);
    EXPECT_EQ(Labels(), "100% Used, 1000 Mb, 0% Free, 0 Mb");
}

TEST_F(StatusPanelTest, Shows_50_without_a_decimal_for_a_stick_half_full) {
    ConnectWith(2'000'000'000, 1'000'000'000);
    UpdateStatusPanel(panel);
    EXPECT_EQ(Labels(), "50% Used, 1000 Mb, 50% Free, 1000 Mb");
}

TEST_F(StatusPanelTest, Does_not_measure_the_free_megabytes) {
    // The total, 991.5 at one decimal, less the 333.33 used; 658.13 Mb are really free.
    ConnectWith(991'461'376, 658'131'376);
    UpdateStatusPanel(panel);
    EXPECT_EQ(Labels(), "33.6% Used, 333.33 Mb, 66.4% Free, 658.17 Mb");
}

TEST_F(StatusPanelTest, Rounds_percents_to_one_decimal_with_ties_to_even) {
    ConnectWith(1'000'000'000, 123'500'000);
    UpdateStatusPanel(panel);
    EXPECT_EQ(panel.labEmpty, "12.4% Free");
    EXPECT_EQ(panel.labFull, "87.6% Used");
    ConnectWith(1'000'000'000, 122'500'000);
    UpdateStatusPanel(panel);
    EXPECT_EQ(panel.labEmpty, "12.2% Free");
    EXPECT_EQ(panel.labFull, "87.8% Used");
}

TEST_F(StatusPanelTest, Does_not_round_the_used_percents_anew) {
    const struct {
        double freeSpace;
        const char* labFull;
    } rows[] = {{999'000'000, "0.09999847% Used"}, {991'000'000, "0.9000015% Used"}};
    for (const auto& row : rows) {
        ConnectWith(1'000'000'000, row.freeSpace);
        UpdateStatusPanel(panel);
        EXPECT_EQ(panel.labFull, row.labFull);
    }
}

TEST_F(StatusPanelTest, Rounds_the_used_megabytes_to_two_decimals_and_the_total_to_one) {
    const struct {
        double totalSize, used;
        const char *labFullSpace, *labEmptySpace;
    } rows[] = {{1'000'000'000, 333'336'000, "333.34 Mb", "666.66 Mb"},
                {1'000'000'000, 125'000, "0.12 Mb", "999.88 Mb"},  // ties go to the even digit
                {1'000'000'000, 1'005'000, "1 Mb", "999 Mb"},
                {1'250'000, 0, "0 Mb", "1.2 Mb"},
                {1'040'000, 1'040'000, "1.04 Mb", "-0.03999996 Mb"}};  // a full stick
    for (const auto& row : rows) {
        ConnectWith(row.totalSize, row.totalSize - row.used);
        UpdateStatusPanel(panel);
        EXPECT_EQ(panel.labFullSpace, row.labFullSpace) << row.used;
        EXPECT_EQ(panel.labEmptySpace, row.labEmptySpace) << row.used;
    }
}

TEST_F(StatusPanelTest, Shows_at_most_seven_digits_of_the_single_difference) {
    ConnectWith(32'010'928'128, 31'010'918'128);
    UpdateStatusPanel(panel);
    EXPECT_EQ(panel.labFullSpace, "1000.01 Mb");
    EXPECT_EQ(panel.labEmptySpace, "31010.89 Mb");
}

TEST_F(StatusPanelTest, Takes_the_single_of_a_difference_that_is_made_in_double_precision) {
    // 1024.1 less the single nearest to 1000.01: as singles alone they would give 24.08997.
    ConnectWith(1'024'100'000, 24'090'000);
    UpdateStatusPanel(panel);
    EXPECT_EQ(panel.labFullSpace, "1000.01 Mb");
    EXPECT_EQ(panel.labEmptySpace, "24.08999 Mb");
}

TEST_F(StatusPanelTest, Writes_the_users_decimal_mark) {
    const UsersMark comma(",");
    ConnectWith(1'000'000'000, 333'000'000);
    UpdateStatusPanel(panel);
    EXPECT_EQ(Labels(), "66,7% Used, 667 Mb, 33,3% Free, 333 Mb");
}

TEST_F(StatusPanelTest, Gives_the_same_geometry_for_each_of_several_calls_while_connected) {
    for (const double freeSpace : {0.0, 1.0, 123'456'789.0, 999'999'999.0, 1'000'000'000.0}) {
        panel = StatusPanel{};
        ConnectWith(1'000'000'000, freeSpace);
        UpdateStatusPanel(panel);
        const StatusPanel first = panel;
        for (int i = 0; i < 5; ++i) UpdateStatusPanel(panel);
        EXPECT_NEAR(panel.imgEmptyLeft, first.imgEmptyLeft, 0.01) << freeSpace;
        EXPECT_NEAR(panel.imgEmptyWidth, first.imgEmptyWidth, 0.01) << freeSpace;
        EXPECT_EQ(panel.imgFullLeft, 120) << freeSpace;
        EXPECT_NEAR(panel.imgFullWidth, first.imgFullWidth, 0.01) << freeSpace;
    }
}

TEST_F(StatusPanelTest, Widens_the_hidden_bar_with_each_further_call_without_a_device) {
    ConnectWith(1'000'000'000, 400'000'000);
    UpdateStatusPanel(panel);
    bPSPConnected = false;
    UpdateStatusPanel(panel);
    ExpectBar(120, 6300, 120, 3780);
    UpdateStatusPanel(panel);
    ExpectBar(120, 6300 + 3780, 120, 3780);
    ConnectWith(1'000'000'000, 0);
    UpdateStatusPanel(panel);
    ExpectBar(120 + 6300 + 3780, 0, 120, 6300 + 3780);
}

TEST_F(StatusPanelTest, Rounds_the_ends_of_the_bar_to_whole_twips_with_ties_to_even) {
    ConnectWith(1'000'000'000, 500'000'000);
    panel.bImgFullVisible = false;
    panel.imgEmptyLeft = 120.5f;
    panel.imgEmptyWidth = 1001.0f;
    UpdateStatusPanel(panel);
    ExpectBar(1122 - 500.5f, 500.5f, 120, 1122 - 500.5f - 120);
}

TEST_F(StatusPanelTest, Overflows_when_the_right_end_is_beyond_32767_twips) {
    ConnectWith(1'000'000'000, 500'000'000);
    panel.imgEmptyWidth = 32'700;
    EXPECT_EQ(FailureOf([&] { UpdateStatusPanel(panel); }), 6);
}

TEST_F(StatusPanelTest, Fails_when_the_connected_stick_has_gone_or_has_no_size) {
    ConnectWith(0, 0);
    EXPECT_EQ(FailureOf([&] { UpdateStatusPanel(panel); }), 11);
    files.At('e').totalSize = 1'000'000'000;
    files.At('e').hasMedia = false;
    EXPECT_EQ(FailureOf([&] { UpdateStatusPanel(panel); }), 71);
    files.Pull('e');
    EXPECT_NE(FailureOf([&] { UpdateStatusPanel(panel); }), 0);
}

TEST_F(StatusPanelTest, Has_merged_the_bar_and_told_the_name_when_the_figures_fail) {
    ConnectWith(1'000'000'000, 400'000'000);
    UpdateStatusPanel(panel);
    sPSPName = "Ann's";
    files.Pull('e');
    EXPECT_EQ(FailureOf([&] { UpdateStatusPanel(panel); }), 68);
    EXPECT_EQ(panel.labPSPStatus, "Ann's Connected");
    EXPECT_FALSE(panel.bFiguresVisible);
    EXPECT_FALSE(panel.bImgFullVisible);
    ExpectBar(120, 6300, 120, 3780);
}

TEST_F(StatusPanelTest, Fails_when_it_counts_as_connected_without_a_drive) {
    bPSPConnected = true;
    sPSPName = "Ann's";
    EXPECT_EQ(FailureOf([&] { UpdateStatusPanel(panel); }), 91);
    EXPECT_EQ(panel.labPSPStatus, "Ann's Connected");
    EXPECT_FALSE(panel.bFiguresVisible);
    EXPECT_FALSE(panel.bImgFullVisible);
}

TEST_F(StatusPanelTest, Reads_each_figure_again_at_each_use) {
    ConnectWith(1'000'000'000, 400'000'000);
    files.calls.clear();
    UpdateStatusPanel(panel);
    EXPECT_EQ(std::count(files.calls.begin(), files.calls.end(), "TotalSize e:"), 4);
    EXPECT_EQ(std::count(files.calls.begin(), files.calls.end(), "FreeSpace e:"), 3);
}

TEST_F(StatusPanelTest, Reads_the_figures_anew_at_each_call) {
    ConnectWith(1'000'000'000, 400'000'000);
    UpdateStatusPanel(panel);
    files.At('e').freeSpace = 900'000'000;
    UpdateStatusPanel(panel);
    ExpectBar(750, 5670, 120, 630);
    EXPECT_EQ(Labels(), "10% Used, 100 Mb, 90% Free, 900 Mb");
}

}  // namespace tavel::test
