#include "ui/panel/PanelUnderHand.h"

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

}  // namespace tavel::test
