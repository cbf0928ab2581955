#include "ui/panel/PanelUnderHand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavel::test {

namespace {

// A panel's areas from its width W and height H: left, top and, a pixel beyond, right and bottom.
class PanelAreas : public PanelUnderHand {
  protected:
    static QRect Area(int left, int top, int right, int bottom) {
        return {left, top, right - left, bottom - top};
    }
};

}  // namespace

TEST_F(PanelAreas, are_there_when_their_parts_have_been_drawn) {
    EXPECT_FALSE(panel.Areas().chevron || panel.Areas().close || panel.Areas().grip);
    panel.Expandable(true);
    panel.Closeable(true);
    panel.ContainerResizable(true);
    EXPECT_TRUE(panel.Areas().chevron && panel.Areas().close && panel.Areas().grip);
}

TEST_F(PanelAreas, of_the_buttons_stand_by_the_right_edge_whatever_the_header) {
    panel.Expandable(true);
    for (const auto size : std::initializer_list<Integer>{0, 1, 2, 3}) {
        panel.HeaderSize(size);
        for (const int W : {300, 199, 30}) {
            panel.resize(W, 200);
            panel.Closeable(false);
            EXPECT_EQ(panel.Areas().chevron, Area(W - 22, 3, W - 7, 17));
            panel.Closeable(true);
            EXPECT_EQ(panel.Areas().chevron, Area(W - 41, 3, W - 26, 17));
            EXPECT_EQ(panel.Areas().close, Area(W - 22, 3, W - 7, 17));
        }
    }
}

TEST_F(PanelAreas, of_the_grip_reaches_below_the_panel) {
    panel.ContainerResizable(true);
    for (const QSize size : {QSize(300, 200), QSize(120, 61)}) {
        panel.resize(size);
        const int W = size.width();
        const int H = size.height();
        EXPECT_EQ(panel.Areas().grip, Area(W - 18, H - 18, W - 4, H - 2 + H - 19 - 3));
    }
}

TEST_F(PanelAreas, outlive_their_parts_and_stay_where_they_were) {
    panel.Expandable(true);
    panel.Closeable(true);
    panel.ContainerResizable(true);
    const HitAreas before = panel.Areas();
    panel.HeaderVisible(false);
    panel.FooterVisible(false);
    panel.Closeable(false);
    panel.resize(150, 100);
    panel.ReadProperties(MemoryPropertyBag());
    EXPECT_EQ(panel.Areas().chevron, before.chevron);
    EXPECT_EQ(panel.Areas().close, before.close);
    EXPECT_EQ(panel.Areas().grip, before.grip);
}

TEST_F(PanelAreas, of_a_close_button_are_there_without_a_header_and_those_of_a_chevron_are_not) {
    panel.HeaderVisible(false);
    panel.Expandable(true);
    panel.Closeable(true);
    EXPECT_FALSE(panel.Areas().chevron);
    EXPECT_EQ(panel.Areas().close, Area(278, 3, 293, 17));
}

TEST_F(PanelAreas, of_a_grip_are_not_made_while_the_panel_is_collapsed) {
    panel.Expandable(true);
    panel.Collapse();
    panel.ContainerResizable(true);
    EXPECT_FALSE(panel.Areas().grip);
    panel.Expand();
    EXPECT_TRUE(panel.Areas().grip);
}

TEST_F(PanelAreas, of_a_chevron_are_made_anew_by_its_click_even_when_it_is_not_shown) {
    panel.Expandable(true);
    const QPoint place = Chevron();
    panel.HeaderVisible(false);
    panel.resize(400, 200);
    Click(place);
    EXPECT_EQ(panel.Areas().chevron, Area(378, 3, 393, 17));
}

TEST_F(PanelAreas, are_made_in_no_part_in_classic_style) {
    panel.ReadProperties(MemoryPropertyBag());
    panel.Closeable(true);
    panel.Expandable(true);
    panel.ContainerResizable(true);
    EXPECT_FALSE(panel.Areas().chevron || panel.Areas().close || panel.Areas().grip);
}

TEST_F(PanelAreas, of_the_grip_of_a_panel_below_six_pixels_lie_above_it) {
    panel.ContainerResizable(true);
    panel.resize(120, 4);
    EXPECT_EQ(panel.Areas().grip, Area(102, -16, 116, -14));
}

}  // namespace tavel::test
