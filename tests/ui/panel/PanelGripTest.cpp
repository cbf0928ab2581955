#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace tavel::test {

namespace {

using testing::ElementsAre;

using PanelGrip = PanelUnderHand;

}  // namespace

TEST_F(PanelGrip, drag_that_comes_over_the_grip_does_not_resize) {
    panel.ContainerResizable(true);
    Press({30, 90});
    PointAt(InWindow(Grip()));
    ExpectPointer(Qt::ArrowCursor);
    PointAt(InWindow(Grip() + QPoint(1, 1)));
    Release();
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelGrip, pointer_is_an_arrow_over_the_grip_alone) {
    panel.ContainerResizable(true);
    PointAt(InWindow({30, 90}));
    ExpectPointer(Qt::ArrowCursor);
    PointAt(InWindow(Grip()));
    ExpectPointer(Qt::SizeFDiagCursor);
    Press(Grip());
    ExpectPointer(Qt::SizeFDiagCursor);
    Release();
    PointAt(InWindow({30, 90}));
    ExpectPointer(Qt::ArrowCursor);
    Press({30, 90});
    ExpectPointer(Qt::ArrowCursor);
    Release();
}

TEST_F(PanelGrip, pointer_is_the_childs_own_when_it_comes_there_from_the_grip) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    xpFrame within(&panel);
    child.setGeometry(100, 60, 80, 80);
    within.setGeometry(200, 60, 80, 80);
    child.show();
    within.show();
    for (const QWidget* other : {static_cast<QWidget*>(&child), static_cast<QWidget*>(&within)}) {
        PointAt(InWindow(Grip()));
        ExpectPointer(Qt::SizeFDiagCursor);
        PointAt(InWindow(other->geometry().center()));
        EXPECT_EQ(other->cursor().shape(), Qt::ArrowCursor);
    }
}

TEST_F(PanelGrip, pointer_is_left_alone_by_what_is_no_child_any_more) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    child.setParent(&window);
    child.setGeometry(500, 400, 80, 80);
    child.show();
    PointAt(InWindow(Grip()));
    PointAt({540, 440});
    ExpectPointer(Qt::SizeFDiagCursor);
}

TEST_F(PanelGrip, drag_of_the_grip_resizes_to_the_pixel_that_the_pointer_is_in) {
    panel.ContainerResizable(true);
    SendMouse(panel, QEvent::MouseButtonPress, Grip(), Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, {288.75, 187.5}, Qt::NoButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, {288.75, 187.5}, Qt::LeftButton);
    EXPECT_EQ(panel.size(), QSize(288, 187));
}

TEST_F(PanelGrip, drag_of_the_grip_resizes_to_the_pointer) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    PointAt(InWindow(Grip()));
    Listen();
    ListenToMoves();
    PressGrip();
    EXPECT_EQ(panel.size(), QSize(291, 191));
    PointAt(InWindow({400, 250}));
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 400, 250));
    ExpectPointer(Qt::ArrowCursor);  // the grip has its new area at the release
    Release();
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 290 190", "Resize 291 191", "Resize 400 250",
                                    "MouseUp 1 0 400 250"));
    EXPECT_THAT(moves, ElementsAre(Switches{1, false, false}, Switches{1, true, false}));
    PointAt(InWindow({300, 150}));
    EXPECT_EQ(panel.size(), QSize(400, 250));
}

TEST_F(PanelGrip, drag_of_the_grip_tells_every_step_and_stops_at_the_smallest_size) {
    panel.ContainerResizable(true);
    Listen();
    PressGrip();
    PointAt(InWindow({10, 10}));
    PointAt(InWindow({9, 9}));
    Release();
    EXPECT_EQ(panel.size(), QSize(64, 45));
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 290 190", "Resize 291 191", "Resize 64 45",
                                    "Resize 64 45", "MouseUp 1 0 9 9", "Click"));
}

TEST_F(PanelGrip, smallest_size_leaves_room_for_what_the_panel_shows) {
    struct Case {
        std::function<void()> change;
        QSize smallest;
    };
    panel.ContainerResizable(true);
    const std::vector<Case> cases{
        {[this] { panel.HeaderSize(2); }, {64, 60}},
        {[this] { panel.FooterSize(1); }, {64, 74}},
        {[this] { panel.Expandable(true); }, {86, 74}},
        {[this] { panel.Closeable(true); }, {108, 74}},
        {[this] { panel.ContainerPictureBufferTop(7); }, {108, 74}},
        {[this] { panel.ContainerPicture(PanelPicture(Square())); }, {140, 117}},
        {[this] { panel.ContainerPictureBufferLeft(5); }, {145, 117}},
        {[this] { panel.ContainerPictureVisible(false); }, {108, 74}},
        {[this] { panel.HeaderVisible(false); }, {108, 34}},
        {[this] { panel.HeaderVisible(true); }, {108, 74}},
        {[this] { panel.FooterVisible(false); }, {108, 40}},
    };
    for (const Case& one : cases) {
        panel.resize(300, 200);
        one.change();
        PressGrip();
        PointAt({1, 1});
        EXPECT_EQ(panel.size(), one.smallest);
        Release();
    }
}

TEST_F(PanelGrip, drag_of_the_grip_needs_a_footer_to_have_been_shown) {
    panel.FooterVisible(false);
    panel.ContainerResizable(true);
    PressGrip();
    PointAt(InWindow({250, 150}));
    Release();
    EXPECT_EQ(panel.size(), QSize(300, 200));
    panel.FooterVisible(true);
    panel.FooterVisible(false);
    PressGrip();
    PointAt(InWindow({250, 150}));
    Release();
    EXPECT_EQ(panel.size(), QSize(250, 150));
}

TEST_F(PanelGrip, drag_of_a_grip_that_is_gone_neither_moves_nor_resizes) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    panel.ContainerResizable(false);
    ListenToMoves();
    PressGrip();
    PointAt(InWindow({250, 150}));
    Release();
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}, Switches{1, false, false},
                                   Switches{1, true, false}));
    PointAt(InWindow(Grip()));
    ExpectPointer(Qt::SizeFDiagCursor);
}

TEST_F(PanelGrip, drag_of_the_grip_goes_on_as_it_was_when_another_button_comes_and_goes) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    child.show();
    PressGrip();
    PointAt(InWindow({320, 220}));
    const QImage whileResized = panel.Surface();
    Click({320, 220}, Qt::RightButton);
    EXPECT_EQ(panel.Surface(), whileResized);
    EXPECT_TRUE(child.isHidden());
    PointAt(InWindow({330, 230}));
    EXPECT_EQ(panel.size(), QSize(330, 230));
    Release();
}

TEST_F(PanelGrip, press_is_taken_by_a_grip_that_is_gone_in_classic_style) {
    panel.ContainerResizable(true);
    panel.ClassicXPStyle(true);
    ListenToMoves();
    PressGrip();
    ExpectPointer(Qt::SizeFDiagCursor);
    Release();
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}, Switches{1, false, false}));
}

TEST_F(PanelGrip, drag_of_the_grip_has_resized_the_panel_when_it_is_told) {
    panel.ContainerResizable(true);
    QSize told;
    QObject::connect(&panel, &xpFrame::Resize, [&] { told = panel.size(); });
    PressGrip();
    EXPECT_EQ(told, QSize(291, 191));
    Release();
}

TEST_F(PanelGrip, drag_of_a_grip_that_is_gone_hides_the_children_when_the_host_resizes) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    child.show();
    const auto expectHidden = [&] {
        panel.resize(300, 200);
        PressGrip();
        EXPECT_FALSE(child.isHidden());
        panel.resize(310, 210);
        EXPECT_TRUE(child.isHidden());
        Release();
    };
    panel.ContainerResizable(false);
    expectHidden();
    panel.resize(300, 200);
    panel.ContainerResizable(true);
    panel.ClassicXPStyle(true);
    expectHidden();
}

TEST_F(PanelGrip, drag_of_the_grip_has_ended_when_the_children_are_shown) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    child.show();
    PressGrip();
    const On resizes(QEvent::Show, child, [this] { panel.resize(310, 210); });
    Release();
    EXPECT_TRUE(child.isVisible());
}

TEST_F(PanelGrip, drag_of_the_grip_ends_over_a_button_too) {
    panel.ContainerResizable(true);
    panel.Expandable(true);
    const QPoint chevron = Chevron();
    PressGrip();
    PointAt(InWindow(chevron));
    Release();
    EXPECT_EQ(panel.size(), QSize(chevron.x(), 25));
    PointAt(InWindow({250, 20}));
    EXPECT_EQ(panel.size(), QSize(chevron.x(), 25));
}

TEST_F(PanelGrip, drag_of_the_grip_hides_the_children_until_the_release) {
    panel.ContainerResizable(true);
    QPushButton shown(&panel);
    QPushButton hidden(&panel);
    shown.show();
    PressGrip();
    PointAt(InWindow({320, 220}));
    EXPECT_TRUE(shown.isHidden());
    Release();
    EXPECT_FALSE(shown.isHidden());
    EXPECT_FALSE(hidden.isHidden());
}

// A label leaves its presses to the panel, and keeps the mouse.
TEST_F(PanelGrip, press_on_a_child_starts_no_resize_wherever_the_pointer_goes) {
    panel.ContainerResizable(true);
    QLabel child(&panel);
    child.show();
    for (const QRect& place : {QRect(200, 170, 100, 30), QRect(260, 190, 30, 10)}) {
        child.setGeometry(place);
        Press(place.topLeft() + QPoint(28, 2));
        PointAt(InWindow(Grip()));
        PointAt(InWindow(Grip() + QPoint(1, 1)));
        Release();
        PointAt(InWindow({250, 150}));
        EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
        EXPECT_TRUE(child.isVisible());
    }
}

// A button takes its press, and leaves the moves beside it to the panel.
TEST_F(PanelGrip, press_on_a_button_starts_no_resize_either) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    child.setGeometry(100, 100, 80, 20);
    child.show();
    Click({30, 90});
    Press({110, 110});
    for (const QPoint place : {QPoint(30, 90), QPoint(31, 91), Grip(), Grip() + QPoint(1, 1)})
        PointAt(InWindow(place));
    EXPECT_TRUE(child.isVisible());
    EXPECT_EQ(panel.size(), QSize(300, 200));
    Release();
}

TEST_F(PanelGrip, press_of_another_button_while_a_child_has_the_mouse_starts_no_resize) {
    panel.ContainerResizable(true);
    QLabel child(&panel);
    child.setGeometry(100, 100, 80, 20);
    child.show();
    Press({110, 110}, Qt::RightButton);
    PointAt(InWindow(Grip()));
    SendMouse(panel, QEvent::MouseButtonPress, Grip(), Qt::LeftButton,
              Qt::LeftButton | Qt::RightButton);
    SendMouse(panel, QEvent::MouseMove, Grip(), Qt::NoButton, Qt::LeftButton | Qt::RightButton);
    EXPECT_TRUE(child.isVisible());
    SendMouse(panel, QEvent::MouseButtonRelease, Grip(), Qt::LeftButton, Qt::RightButton);
    Release(Qt::RightButton);
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelGrip, drag_goes_on_where_a_child_covers_a_part_of_it) {
    panel.ContainerResizable(true);
    QLabel child(&panel);
    child.setGeometry(0, 30, Grip().x() - 1, 170);
    child.show();
    Press(Grip());
    PointAt(InWindow(Grip() - QPoint(2, 0)));
    EXPECT_FALSE(child.isVisible());
    Release();
    EXPECT_TRUE(child.isVisible());
    EXPECT_EQ(panel.width(), 288);
}

TEST_F(PanelGrip, double_click_held_on_a_child_starts_no_resize) {
    panel.ContainerResizable(true);
    QLabel child(&panel);
    child.setGeometry(100, 100, 80, 20);
    child.show();
    SendMouse(panel, QEvent::MouseButtonDblClick, {110, 110}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, Grip(), Qt::NoButton, Qt::LeftButton);
    EXPECT_TRUE(child.isVisible());
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelGrip, children_may_delete_their_neighbours_when_they_are_hidden) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    QPointer<QPushButton> neighbour(new QPushButton(&panel));
    child.show();
    const On deletes(QEvent::Hide, child, [&] { delete neighbour; });
    PressGrip();
    Release();
    EXPECT_TRUE(neighbour.isNull());
    EXPECT_TRUE(child.isVisible());
}

TEST_F(PanelGrip, children_may_take_their_neighbours_elsewhere_when_they_are_shown) {
    for (QWidget* elsewhere : {static_cast<QWidget*>(nullptr), &window}) {
        QPushButton child(&panel);
        QPushButton neighbour(&panel);
        child.hide();
        neighbour.hide();
        const On takes(QEvent::Show, child, [&] { neighbour.setParent(elsewhere); });
        Click({30, 90});
        EXPECT_TRUE(child.isVisible());
        EXPECT_TRUE(neighbour.isHidden());
    }
}

TEST_F(PanelGrip, drag_of_the_grip_at_the_present_size_hides_no_children) {
    panel.ContainerResizable(true);
    QPushButton child(&panel);
    child.show();
    panel.resize(64, 45);
    Listen();
    PressGrip();
    PointAt(InWindow({20, 20}));
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 54 35", "Resize 64 45", "Resize 64 45"));
    EXPECT_FALSE(child.isHidden());
    Release();
}

TEST_F(PanelGrip, drag_of_the_grip_repaints_the_parent_with_every_step) {
    panel.ContainerResizable(true);
    PressGrip();
    PointAt(InWindow({10, 10}));
    PaintCounter paints(window);
    paints.Taken();
    PointAt(InWindow({9, 9}));
    EXPECT_EQ(paints.Taken(), 1);
    Release();
}

TEST_F(PanelGrip, drag_of_the_grip_repaints_no_more_than_the_parent) {
    QWidget box(&window);
    box.setAttribute(Qt::WA_OpaquePaintEvent);
    box.setGeometry(0, 0, 600, 500);
    panel.setParent(&box);
    panel.ContainerResizable(true);
    box.show();
    panel.show();
    PressGrip();
    PointAt(InWindow({10, 10}));
    PaintCounter paints(box);
    PaintCounter paintsBelow(window);
    paints.Taken();
    paintsBelow.Taken();
    PointAt(InWindow({9, 9}));
    EXPECT_EQ(paints.Taken(), 1);
    EXPECT_EQ(paintsBelow.Taken(), 0);
    Release();
    panel.setParent(&window);
}

}  // namespace tavel::test
