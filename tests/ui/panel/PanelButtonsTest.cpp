#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"
#include "ui/toolkit/Twips.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>

namespace tavel::test {

namespace {

using testing::ElementsAre;

class PanelButtons : public PanelUnderHand {
  protected:
    std::string ChevronClicked(QPoint place, bool collapse, int height) {
        return "ChevronClick 1 0 " + std::to_string(place.x()) + ' ' + std::to_string(place.y()) +
               ' ' + std::to_string(collapse) + " 20 25 " + std::to_string(Twips(height));
    }
};

}  // namespace

TEST_F(PanelButtons, click_on_the_close_button_hides_the_panel_through_its_host) {
    panel.Closeable(true);
    Click(Close());
    EXPECT_THAT(host.calls, ElementsAre("visible false"));
    EXPECT_TRUE(panel.isHidden());
    panel.showMe();
    EXPECT_THAT(host.calls, ElementsAre("visible false", "visible true"));
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(PanelButtons, click_on_the_close_button_ends_the_drag_and_shows_the_children_all_the_same) {
    panel.Closeable(true);
    panel.ContainerMoveable(true);
    QPushButton child(&panel);
    child.hide();
    Click(Close());
    EXPECT_FALSE(child.isHidden());
    panel.showMe();
    PointAt({200, 150});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
}

TEST_F(PanelButtons, buttons_act_on_the_release_wherever_the_press_was) {
    panel.Closeable(true);
    panel.Expandable(true);
    Drag({30, 90}, InWindow(Chevron()));
    EXPECT_EQ(panel.height(), 25);
    Drag({30, 10}, InWindow(Close()));
    EXPECT_TRUE(panel.isHidden());
}

TEST_F(PanelButtons, buttons_reach_to_the_end_of_their_last_pixels) {
    panel.Closeable(true);
    const QRectF area(panel.Areas().close.value());
    const auto click = [this](QPointF place) {
        SendMouse(panel, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
        SendMouse(panel, QEvent::MouseButtonRelease, place, Qt::LeftButton);
    };
    for (const QPointF out : {QPointF(0.1, -1), QPointF(-1, 0.1)}) {
        click(area.bottomRight() + out);
        EXPECT_TRUE(panel.isVisible());
    }
    click(area.bottomRight() - QPointF(0.1, 0.1));
    EXPECT_TRUE(panel.isHidden());
}

TEST_F(PanelButtons, buttons_hear_the_left_button_alone) {
    panel.Closeable(true);
    panel.Expandable(true);
    for (const QPoint place : {Chevron(), Close()}) Click(place, Qt::RightButton);
    EXPECT_EQ(panel.height(), 200);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(PanelButtons, buttons_outlive_their_parts_but_not_their_properties) {
    panel.Closeable(true);
    panel.Expandable(true);
    const QPoint chevron = Chevron();
    const QPoint close = Close();
    panel.HeaderVisible(false);
    Click(chevron);
    EXPECT_EQ(panel.height(), 25);
    panel.Expand();
    panel.Expandable(false);
    Click(chevron);
    EXPECT_EQ(panel.height(), 200);
    panel.Closeable(false);
    Click(close);
    EXPECT_TRUE(panel.isVisible());
    panel.Closeable(true);
    panel.ClassicXPStyle(true);
    Click(close);
    EXPECT_TRUE(panel.isHidden());
}

TEST_F(PanelButtons, click_on_the_chevron_collapses_and_expands_again) {
    panel.Expandable(true);
    Listen();
    const QPoint place = Chevron();
    Click(place);
    EXPECT_EQ(panel.height(), 25);
    const std::string at = std::to_string(place.x()) + ' ' + std::to_string(place.y());
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 " + at, "MouseUp 1 0 " + at,
                                    ChevronClicked(place, true, 200), "Click"));
    events.clear();
    Click(place);
    EXPECT_EQ(panel.height(), 200);
    EXPECT_EQ(events[2], ChevronClicked(place, false, 200));
}

TEST_F(PanelButtons, click_on_the_chevron_tells_the_keys_and_the_bars_heights_in_pixels) {
    panel.Expandable(true);
    panel.HeaderSize(2);
    panel.FooterSize(1);
    Listen();
    Press(Chevron());
    Release(Qt::LeftButton, Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_THAT(events, testing::Contains(testing::AllOf(testing::StartsWith("ChevronClick 1 5 "),
                                                         testing::EndsWith(" 1 34 40 3000"))));
}

TEST_F(PanelButtons, click_on_the_chevron_tells_the_heights_of_hidden_bars_and_the_panels_of_then) {
    panel.Expandable(true);
    panel.HeaderVisible(false);
    panel.FooterVisible(false);
    QObject::connect(&panel, &xpFrame::MouseUp, [this] { panel.resize(300, 222); });
    Listen();
    Click(Chevron());
    EXPECT_THAT(events, testing::Contains(testing::EndsWith(" 1 20 25 3330")));
}

TEST_F(PanelButtons, click_on_the_chevron_is_told_before_the_collapse_and_after_the_expansion) {
    panel.Expandable(true);
    std::vector<int> heights;
    QObject::connect(&panel, &xpFrame::ChevronClick, [&] { heights.push_back(panel.height()); });
    const QPoint place = Chevron();
    Click(place);
    Click(place);
    EXPECT_THAT(heights, ElementsAre(200, 200));
}

TEST_F(PanelButtons, click_on_the_chevron_tells_the_height_in_twips_whatever_the_scale) {
    panel.Expandable(true);
    Listen();
    SetScale(1.5);
    Click(Chevron());
    SetScale(1);
    EXPECT_THAT(events, testing::Contains(testing::EndsWith(" 1 20 25 2000")));
}

TEST_F(PanelButtons, click_on_the_chevron_returns_to_the_height_that_the_host_set) {
    panel.Expandable(true);
    panel.resize(300, 333);
    const QPoint place = Chevron();
    Click(place);
    Click(place);
    EXPECT_EQ(panel.size(), QSize(300, 333));
}

TEST_F(PanelButtons, drag_of_the_chevron_has_ended_when_its_click_is_told) {
    panel.Expandable(true);
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::ChevronClick, [this] {
        SendMouse(panel, QEvent::MouseMove, {150, 100}, Qt::NoButton, Qt::LeftButton);
    });
    Click(Chevron());
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
}

TEST_F(PanelButtons, drag_of_the_chevron_ends_with_its_click) {
    panel.Expandable(true);
    panel.ContainerMoveable(true);
    Drag(Chevron(), InWindow(Chevron()) + QPoint(50, 0));
    EXPECT_EQ(panel.geometry(), QRect(100, 40, 300, 25));
    PointAt({300, 50});
    EXPECT_EQ(panel.pos(), QPoint(100, 40));
}

}  // namespace tavel::test
