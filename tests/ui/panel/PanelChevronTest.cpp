#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using testing::ElementsAre;

class PanelChevron : public PanelUnderHand {
  protected:
    PanelChevron() {
        panel.Expandable(true);
        panel.ContainerResizable(true);
    }

    // The grip is drawn on an expanded panel alone.
    bool CountsAsExpanded() {
        panel.resize(panel.width() + 1, 200);
        return panel.Areas().grip->right() == panel.width() - 5;
    }
};

}  // namespace

TEST_F(PanelChevron, collapse_leaves_the_grip_where_it_was) {
    const auto grip = panel.Areas().grip;
    panel.Collapse();
    EXPECT_EQ(panel.Areas().grip, grip);
    panel.Expand();
    EXPECT_EQ(panel.Areas().grip, grip);
}

TEST_F(PanelChevron, drag_on_the_chevron_of_a_collapsed_panel_resizes_nothing) {
    panel.Collapse();
    Listen();
    Press(Chevron());
    PointAt(InWindow(Chevron() + QPoint(1, 0)));
    EXPECT_EQ(panel.height(), 25);
    EXPECT_THAT(events, ElementsAre(testing::StartsWith("MouseDown")));
    Release();
    EXPECT_EQ(panel.height(), 200);
}

TEST_F(PanelChevron, expand_to_a_height_of_nothing_expands) {
    panel.HeaderSize(3);
    panel.Collapse();
    panel.Collapse();
    ASSERT_FALSE(CountsAsExpanded());
    panel.Expand();
    EXPECT_EQ(panel.height(), 0);
    EXPECT_TRUE(CountsAsExpanded());
}

TEST_F(PanelChevron, property_counts_the_panel_as_expanded_whatever_it_is_set_to) {
    panel.Collapse();
    panel.Expandable(false);
    EXPECT_TRUE(CountsAsExpanded());
    panel.Collapse();
    panel.ClassicXPStyle(true);
    panel.Expandable(true);
    panel.ClassicXPStyle(false);
    EXPECT_TRUE(CountsAsExpanded());
}

TEST_F(PanelChevron, double_click_collapses_and_expands) {
    std::vector<bool> collapses;
    QObject::connect(&panel, &xpFrame::ChevronClick,
                     [&](int, int, float, float, bool Collapse) { collapses.push_back(Collapse); });
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, InWindow(Chevron()));
    EXPECT_THAT(collapses, ElementsAre(true, false));
    EXPECT_EQ(panel.height(), 200);
}

TEST_F(PanelChevron, of_a_hidden_header_is_clicked_after_the_close_button_in_its_place) {
    panel.HeaderVisible(false);
    panel.Closeable(true);
    ASSERT_EQ(panel.Areas().chevron, panel.Areas().close);
    bool closedBefore = false;
    QObject::connect(&panel, &xpFrame::ChevronClick, [&] { closedBefore = panel.isHidden(); });
    Click(Close());
    EXPECT_TRUE(closedBefore);
    EXPECT_EQ(panel.height(), 25);
}

TEST_F(PanelChevron, of_a_panel_in_classic_style_is_clicked_where_it_was) {
    const QPoint place = Chevron();
    panel.ClassicXPStyle(true);
    Click(place);
    EXPECT_EQ(panel.height(), 25);
    Click(place);
    EXPECT_EQ(panel.height(), 200);
}

TEST_F(PanelChevron, click_ends_the_move_before_it_is_told) {
    std::vector<bool> told;
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool&, bool& cMove) { told.push_back(cMove); });
    QObject::connect(&panel, &xpFrame::ChevronClick, [&] {
        told.clear();
        SendMouse(panel, QEvent::MouseMove, {9, 90});
    });
    Click(Chevron());
    EXPECT_THAT(told, ElementsAre(false));
}

}  // namespace tavel::test
