#include "ui/panel/PanelUnderHand.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace tavel::test {

namespace {

// What a host makes of a drag through the switches that it is told with each move.
using PanelDragHost = PanelUnderHand;

}  // namespace

TEST_F(PanelDragHost, starts_and_stops_a_drag) {
    panel.ContainerMoveable(true);
    bool moving = true;
    Press({30, 10});
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool&, bool& cMove) { cMove = moving; });
    PointAt({130, 70});
    moving = false;
    PointAt({230, 170});
    EXPECT_EQ(panel.pos(), QPoint(100, 60));
    moving = true;
    PointAt({240, 170});
    EXPECT_EQ(panel.pos(), QPoint(210, 160));
    Release();
}

TEST_F(PanelDragHost, moves_without_a_button) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [](int, int, float, float, bool&, bool& cMove) { cMove = true; });
    PointAt({130, 70});
    EXPECT_EQ(panel.geometry(), QRect(130, 70, 300, 200));
}

TEST_F(PanelDragHost, resizes_without_a_button) {
    panel.ContainerResizable(true);
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [](int, int, float, float, bool& cResize, bool&) { cResize = true; });
    PointAt(InWindow({220, 140}));
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 220, 140));
}

TEST_F(PanelDragHost, stops_a_resize_until_the_next_event_alone) {
    panel.ContainerResizable(true);
    PressGrip();
    ASSERT_EQ(panel.size(), QSize(291, 191));
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool& cResize, bool&) { cResize = false; });
    ASSERT_TRUE(panel.Areas().grip->contains(288, 188));
    PointAt(InWindow({288, 188}));
    EXPECT_EQ(panel.size(), QSize(291, 191));
    ExpectPointer(Qt::SizeFDiagCursor);
    PointAt(InWindow({287, 187}));
    EXPECT_EQ(panel.size(), QSize(287, 187));
    Release();
}

TEST_F(PanelDragHost, turns_a_move_into_a_resize) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    Press({30, 90});
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool& cResize, bool&) { cResize = true; });
    PointAt(InWindow({220, 140}));
    Release();
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 220, 140));
}

TEST_F(PanelDragHost, turns_no_press_on_a_child_into_a_resize) {
    panel.ContainerResizable(true);
    QLabel child(&panel);
    child.show();
    Press({5, 5});
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool& cResize, bool&) { cResize = true; });
    PointAt(InWindow({220, 140}));
    EXPECT_TRUE(child.isVisible());
    Release();
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
}

TEST_F(PanelDragHost, turns_a_resize_into_a_move) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    PressGrip();
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [](int, int, float, float, bool& cResize, bool& cMove) {
                         cResize = false;
                         cMove = true;
                     });
    PointAt({500, 400});
    EXPECT_EQ(panel.geometry(), QRect(210, 210, 291, 191));
    Release();
}

TEST_F(PanelDragHost, moves_the_panel_and_it_comes_to_the_pointer_all_the_same) {
    panel.ContainerMoveable(true);
    Press({30, 10});
    QObject::connect(&panel, &xpFrame::MouseMove, [this] { panel.move(0, 0); });
    PointAt({130, 70});
    EXPECT_EQ(panel.pos(), QPoint(100, 60));
    Release();
}

TEST_F(PanelDragHost, moves_the_panel_and_its_corner_comes_to_the_pointer_all_the_same) {
    panel.ContainerResizable(true);
    PressGrip();
    QObject::connect(&panel, &xpFrame::MouseMove, [this] { panel.move(60, 50); });
    PointAt({400, 300});
    EXPECT_EQ(panel.geometry(), QRect(60, 50, 340, 250));
    Release();
}

}  // namespace tavel::test
