#include "ui/main/MainLayout.h"

#include <gtest/gtest.h>

namespace tavel::test {

TEST(MainLayout, ExpandSyncGrid_gives_the_lists_column_to_the_list_or_to_the_slot) {
    MainLayout layout;
    layout.ExpandSyncGrid(false);
    EXPECT_EQ(layout.grdSync.Height, 4185);
    EXPECT_EQ(layout.cmdSend.Top, 4365);
    EXPECT_EQ(layout.cmdClear.Top, 4365);
    EXPECT_EQ(layout.imgThumb.Left, 11880);
    EXPECT_EQ(layout.imgThumb.Top, 4920);
    for (int twice = 0; twice < 2; ++twice) {
        layout.ExpandSyncGrid(true);
        EXPECT_EQ(layout.grdSync.Height, 6000);
        EXPECT_EQ(layout.cmdSend.Top, 6240);
        EXPECT_EQ(layout.cmdClear.Top, 6240);
    }
    EXPECT_EQ(layout.grdAutoSync.Height, 4095);
}

TEST(MainLayout, ShowPSPCats_takes_the_top_off_in_one_direction_alone) {
    MainLayout layout;
    layout.ShowPSPCats(true);
    EXPECT_EQ(layout.picCatBack.Height, 3480 - 120 - 120);
    EXPECT_EQ(layout.trvCat.Height, 3240);
    layout.ShowPSPCats(false);
    EXPECT_EQ(layout.picCatBack.Height, 3480 + 3255);
    EXPECT_EQ(layout.trvCat.Height, 6735);
}

TEST(MainLayout, the_toolbar_stays_at_the_right_edge) {
    MainLayout layout;
    const int right = layout.tbrRightView.Left + layout.tbrRightView.Width;
    layout.FitRightView(1200);
    EXPECT_EQ(layout.tbrRightView.Left + layout.tbrRightView.Width, right);
    EXPECT_EQ(layout.tbrRightView.Width, 1200);
}

}  // namespace tavel::test
