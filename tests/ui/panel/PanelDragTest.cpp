#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavel::test {

namespace {

using testing::ElementsAre;

using PanelDrag = PanelUnderHand;

}  // namespace

TEST_F(PanelDrag, drag_moves_the_panel_and_tells_left_and_top_crossed) {
    panel.ContainerMoveable(true);
    Listen();
    Press({30, 10});
    PointAt({130, 70});
    EXPECT_EQ(panel.geometry(), QRect(100, 60, 300, 200));
    PointAt({135, 71});
    EXPECT_EQ(panel.pos(), QPoint(105, 61));
    Release();
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 10", "Move 100 60", "Move 105 61",
                                    "MouseUp 1 0 30 10", "Click"));
    PointAt({200, 150});
    EXPECT_EQ(panel.pos(), QPoint(105, 61));
}

TEST_F(PanelDrag, drag_of_a_panel_that_stands_alone_moves_nothing) {
    for (QWidget* parent : {static_cast<QWidget*>(nullptr), &window}) {
        xpFrame alone(parent, &host);
        alone.setWindowFlag(Qt::Tool);
        alone.ContainerMoveable(true);
        alone.setGeometry(400, 400, 300, 200);
        alone.show();
        const QPoint before = alone.pos();
        QTest::mousePress(alone.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 10));
        QTest::mouseMove(alone.windowHandle(), QPoint(60, 40));
        QTest::mouseRelease(alone.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 40));
        EXPECT_EQ(alone.pos(), before);
    }
}

TEST_F(PanelDrag, drag_of_the_grip_of_a_panel_that_stands_alone_resizes_it) {
    xpFrame alone(nullptr, &host);
    alone.ContainerResizable(true);
    alone.resize(300, 200);
    alone.show();
    QTest::mousePress(alone.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(290, 190));
    QTest::mouseMove(alone.windowHandle(), QPoint(291, 191));
    EXPECT_EQ(alone.size(), QSize(291, 191));
    QTest::mouseRelease(alone.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(290, 190));
}

TEST_F(PanelDrag, drag_moves_the_panel_within_its_parent) {
    QWidget box(&window);
    box.setGeometry(20, 30, 600, 500);
    panel.setParent(&box);
    panel.ContainerMoveable(true);
    box.show();
    panel.show();
    Listen();
    Drag({30, 10}, {130, 70});
    EXPECT_EQ(panel.pos(), QPoint(80, 30));
    EXPECT_EQ(events[1], "Move 80 30");
    panel.setParent(&window);
}

TEST_F(PanelDrag, drag_of_a_panel_that_is_not_moveable_moves_nothing_and_is_told_as_a_move) {
    Listen();
    ListenToMoves();
    Drag({30, 10}, {130, 70});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}, Switches{1, false, true}));
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 10", "MouseUp 1 0 80 30", "Click"));
}

TEST_F(PanelDrag, drag_in_classic_style_neither_moves_nor_resizes) {
    panel.ContainerMoveable(true);
    panel.ContainerResizable(true);
    panel.ClassicXPStyle(true);
    ListenToMoves();
    Drag({30, 10}, {130, 70});
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}, Switches{1, false, true}));
    Drag(Grip(), {500, 400});
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
}

TEST_F(PanelDrag, drag_with_another_button_does_nothing) {
    panel.ContainerMoveable(true);
    panel.ContainerResizable(true);
    for (const QPoint start : {QPoint(30, 10), Grip()}) {
        Press(start, Qt::RightButton);
        PointAt({400, 300});
        Release(Qt::RightButton);
        EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
    }
}

TEST_F(PanelDrag, drag_goes_on_when_another_button_comes_and_goes) {
    panel.ContainerMoveable(true);
    Press({30, 10});
    panel.ContainerMoveable(false);
    Click({60, 50}, Qt::RightButton);
    panel.ContainerMoveable(true);
    PointAt({130, 70});
    EXPECT_EQ(panel.pos(), QPoint(100, 60));
    Release();
}

TEST_F(PanelDrag, drag_by_the_second_press_of_a_double_click_moves_nothing) {
    panel.ContainerMoveable(true);
    ListenToMoves();
    SendMouse(panel, QEvent::MouseButtonDblClick, {30, 10}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, {60, 40}, Qt::NoButton, Qt::LeftButton);
    EXPECT_THAT(moves, ElementsAre(Switches{1, false, false}));
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
}

TEST_F(PanelDrag, drag_tells_a_move_to_where_the_panel_is) {
    panel.ContainerMoveable(true);
    Press({30, 10});
    Listen();
    SendMouse(panel, QEvent::MouseMove, {30, 10}, Qt::NoButton, Qt::LeftButton);
    EXPECT_THAT(events, ElementsAre("Move 50 40"));
    Release();
}

TEST_F(PanelDrag, drag_by_fractions_of_a_pixel_moves_to_the_nearest_one) {
    panel.ContainerMoveable(true);
    SendMouse(panel, QEvent::MouseButtonPress, {30.75, 10.75}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, {41.5, 22.75}, Qt::NoButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, {41.5, 22.75}, Qt::LeftButton);
    EXPECT_EQ(panel.pos(), QPoint(61, 52));
}

TEST_F(PanelDrag, drag_holds_the_panel_where_the_press_was_told_to_be) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { panel.move(110, 70); });
    Press({30, 10});
    PointAt({180, 120});
    EXPECT_EQ(panel.pos(), QPoint(150, 110));
    Release();
}

TEST_F(PanelDrag, drag_is_the_left_buttons_while_another_is_down) {
    panel.ContainerResizable(true);
    Press({30, 90}, Qt::RightButton);
    PressGrip();
    EXPECT_EQ(panel.size(), QSize(291, 191));
    Release();
    PointAt(InWindow({250, 150}));
    EXPECT_EQ(panel.size(), QSize(291, 191));
    Release(Qt::RightButton);
}

TEST_F(PanelDrag, drag_moves_the_panel_though_another_button_was_first) {
    panel.ContainerMoveable(true);
    Press({60, 90}, Qt::RightButton);
    ListenToMoves();
    Press({30, 10});
    PointAt({130, 70});
    EXPECT_EQ(panel.pos(), QPoint(100, 60));
    EXPECT_EQ(moves.back(), (Switches{3, false, true}));
    Release();
    Release(Qt::RightButton);
}

TEST_F(PanelDrag, drag_has_moved_the_panel_when_it_is_told) {
    panel.ContainerMoveable(true);
    QPoint told;
    QObject::connect(&panel, &xpFrame::Move, [&] { told = panel.pos(); });
    Drag({30, 10}, {130, 70});
    EXPECT_EQ(told, QPoint(100, 60));
}

}  // namespace tavel::test
