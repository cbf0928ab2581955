#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/panel/InnerLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPointer>
#include <QPushButton>

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PanelMouse : public PanelUnderHand {
  protected:
    void ExpectPointer(Qt::CursorShape shape) { EXPECT_EQ(panel.cursor().shape(), shape); }

    std::string ChevronClicked(QPoint place, bool collapse, int height) {
        return "ChevronClick 1 0 " + std::to_string(place.x()) + ' ' + std::to_string(place.y()) +
               ' ' + std::to_string(collapse) + " 20 25 " + std::to_string(Twips(height));
    }

    // What the panel tells while it is moved and resized, with the two switches as they come.
    struct Switches {
        int Button;
        bool cResize;
        bool cMove;
        bool operator==(const Switches&) const = default;
    };
    std::vector<Switches> moves;
    void ListenToMoves() {
        QObject::connect(&panel, &xpFrame::MouseMove,
                         [this](int Button, int, float, float, bool& cResize, bool& cMove) {
                             moves.push_back({Button, cResize, cMove});
                         });
    }
};

// Acts when a widget gets an event of a kind.
class On : public QObject {
  public:
    On(QEvent::Type type, QWidget& widget, std::function<void()> act)
        : m_type(type), m_act(std::move(act)) {
        widget.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == m_type) m_act();
        return false;
    }

  private:
    QEvent::Type m_type;
    std::function<void()> m_act;
};

}  // namespace

TEST_F(PanelMouse, press_and_release_are_a_click_and_a_second_one_soon_a_double_click) {
    Listen();
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, InWindow({10, 90}));
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 10 90", "MouseUp 1 0 10 90", "Click", "DblClick",
                                    "MouseUp 1 0 10 90"));
}

TEST_F(PanelMouse, press_that_is_released_elsewhere_is_no_click) {
    Listen();
    Press({10, 90});
    PointAt({650, 550});
    Release();
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 10 90", "MouseUp 1 0 600 510"));
}

TEST_F(PanelMouse, events_tell_the_button_and_the_keys) {
    Listen();
    Press({10, 90}, Qt::RightButton, Qt::ShiftModifier);
    Release(Qt::RightButton, Qt::ControlModifier | Qt::AltModifier);
    Click({11, 91}, Qt::MiddleButton);
    EXPECT_THAT(events, ElementsAre("MouseDown 2 1 10 90", "MouseUp 2 6 10 90",
                                    "MouseDown 4 0 11 91", "MouseUp 4 0 11 91"));
}

TEST_F(PanelMouse, moves_tell_all_buttons_that_are_down) {
    ListenToMoves();
    Press({10, 90}, Qt::RightButton);
    Press({10, 90}, Qt::MiddleButton);
    PointAt(InWindow({12, 90}));
    Release(Qt::RightButton);
    Release(Qt::MiddleButton);
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}, Switches{6, false, false}));
}

TEST_F(PanelMouse, second_press_of_another_button_is_a_press_again) {
    Listen();
    QTest::mouseDClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier, InWindow({10, 90}));
    EXPECT_THAT(events, ElementsAre("MouseDown 2 0 10 90", "MouseUp 2 0 10 90",
                                    "MouseDown 2 0 10 90", "MouseUp 2 0 10 90"));
}

TEST_F(PanelMouse, press_is_told_before_it_is_seen_what_it_hits) {
    panel.ContainerResizable(true);
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { panel.move(150, 40); });
    Press(Grip());
    ExpectPointer(Qt::ArrowCursor);
    Release();
}

TEST_F(PanelMouse, moves_without_a_button_are_told_through_the_inner_label) {
    panel.ClassicXPStyle(true);
    PointAt(InWindow({30, 60}));
    ListenToMoves();
    PointAt(InWindow({31, 60}));
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}));
}

TEST_F(PanelMouse, drag_moves_the_panel_and_tells_left_and_top_crossed) {
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
    PointAt({300, 300});
    EXPECT_EQ(panel.pos(), QPoint(105, 61));
}

TEST_F(PanelMouse, drag_of_a_panel_that_stands_alone_moves_nothing) {
    xpFrame alone(nullptr, &host);
    alone.ContainerMoveable(true);
    alone.resize(300, 200);
    alone.show();
    const QPoint before = alone.pos();
    QTest::mousePress(alone.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 10));
    QTest::mouseMove(alone.windowHandle(), QPoint(60, 40));
    QTest::mouseRelease(alone.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 40));
    EXPECT_EQ(alone.pos(), before);
}

TEST_F(PanelMouse, drag_that_comes_over_the_grip_does_not_resize) {
    panel.ContainerResizable(true);
    Press({30, 90});
    PointAt(InWindow(Grip()));
    ExpectPointer(Qt::ArrowCursor);
    PointAt(InWindow(Grip() + QPoint(1, 1)));
    Release();
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelMouse, drag_of_a_panel_that_is_not_moveable_moves_nothing_and_is_told_as_a_move) {
    Listen();
    ListenToMoves();
    Drag({30, 10}, {130, 70});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
    EXPECT_THAT(moves, ElementsAre(Switches{0, false, false}, Switches{1, false, true}));
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 10", "MouseUp 1 0 80 30", "Click"));
}

TEST_F(PanelMouse, drag_in_classic_style_neither_moves_nor_resizes) {
    panel.ContainerMoveable(true);
    panel.ContainerResizable(true);
    panel.ClassicXPStyle(true);
    Drag({30, 10}, {130, 70});
    Drag(Grip(), {500, 400});
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
}

TEST_F(PanelMouse, drag_with_another_button_does_nothing) {
    panel.ContainerMoveable(true);
    panel.ContainerResizable(true);
    for (const QPoint start : {QPoint(30, 10), Grip()}) {
        Press(start, Qt::RightButton);
        PointAt({400, 300});
        Release(Qt::RightButton);
        EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
    }
}

TEST_F(PanelMouse, drag_goes_on_when_another_button_comes_and_goes) {
    panel.ContainerMoveable(true);
    Press({30, 10});
    panel.ContainerMoveable(false);
    Click({60, 50}, Qt::RightButton);
    panel.ContainerMoveable(true);
    PointAt({130, 70});
    EXPECT_EQ(panel.pos(), QPoint(100, 60));
    Release();
}

TEST_F(PanelMouse, drag_can_be_started_and_stopped_by_the_host) {
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

TEST_F(PanelMouse, pointer_is_an_arrow_over_the_grip_alone) {
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

TEST_F(PanelMouse, drag_of_the_grip_resizes_to_the_pointer) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    PointAt(InWindow(Grip()));
    Listen();
    ListenToMoves();
    PressGrip();
    EXPECT_EQ(panel.size(), QSize(291, 191));
    PointAt(InWindow({400, 250}));
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 400, 250));
    Release();
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 290 190", "Resize 291 191", "Resize 400 250",
                                    "MouseUp 1 0 400 250"));
    EXPECT_THAT(moves, ElementsAre(Switches{1, false, false}, Switches{1, true, false}));
    PointAt(InWindow({300, 150}));
    EXPECT_EQ(panel.size(), QSize(400, 250));
}

TEST_F(PanelMouse, drag_of_the_grip_tells_every_step_and_stops_at_the_smallest_size) {
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

TEST_F(PanelMouse, smallest_size_leaves_room_for_what_the_panel_shows) {
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
    };
    for (const Case& one : cases) {
        one.change();
        panel.resize(300, 200);
        PressGrip();
        PointAt({1, 1});
        EXPECT_EQ(panel.size(), one.smallest);
        Release();
    }
}

TEST_F(PanelMouse, drag_of_the_grip_needs_a_footer_to_have_been_shown) {
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

TEST_F(PanelMouse, drag_of_a_grip_that_is_gone_neither_moves_nor_resizes) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    panel.ContainerResizable(false);
    PressGrip();
    PointAt(InWindow({250, 150}));
    Release();
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
}

TEST_F(PanelMouse, drag_of_the_grip_that_the_host_stops_is_not_started_again_by_the_same_event) {
    panel.ContainerResizable(true);
    PressGrip();
    ASSERT_EQ(panel.size(), QSize(291, 191));
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool& cResize, bool&) { cResize = false; });
    ASSERT_TRUE(panel.Areas().grip->contains(288, 188));
    PointAt(InWindow({288, 188}));
    EXPECT_EQ(panel.size(), QSize(291, 191));
    Release();
}

TEST_F(PanelMouse, drag_that_the_host_turns_into_a_resize_moves_no_longer) {
    panel.ContainerResizable(true);
    panel.ContainerMoveable(true);
    Press({30, 90});
    QObject::connect(&panel, &xpFrame::MouseMove,
                     [&](int, int, float, float, bool& cResize, bool&) { cResize = true; });
    PointAt(InWindow({220, 140}));
    Release();
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 220, 140));
}

TEST_F(PanelMouse, drag_of_the_grip_hides_the_children_until_the_release) {
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

TEST_F(PanelMouse, children_may_delete_their_neighbours_when_they_are_hidden) {
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

TEST_F(PanelMouse, children_may_take_their_neighbours_elsewhere_when_they_are_shown) {
    QPushButton child(&panel);
    QPushButton neighbour(&panel);
    child.hide();
    neighbour.hide();
    const On takes(QEvent::Show, child, [&] { neighbour.setParent(nullptr); });
    Click({30, 90});
    EXPECT_TRUE(child.isVisible());
    EXPECT_TRUE(neighbour.isHidden());
}

TEST_F(PanelMouse, drag_of_the_grip_at_the_present_size_hides_no_children) {
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

TEST_F(PanelMouse, release_of_the_left_button_shows_what_the_host_had_hidden_and_no_windows) {
    QPushButton child(&panel);
    QWidget ownWindow(&panel, Qt::Window);
    child.hide();
    Click({30, 90}, Qt::RightButton);
    EXPECT_TRUE(child.isHidden());
    Click({30, 90});
    EXPECT_TRUE(child.isVisible());
    EXPECT_TRUE(ownWindow.isHidden());
    EXPECT_TRUE(panel.findChild<InnerLabel*>()->isHidden());
}

TEST_F(PanelMouse, click_on_the_close_button_hides_the_panel_through_its_host) {
    panel.Closeable(true);
    Click(Close());
    EXPECT_THAT(host.calls, ElementsAre("visible false"));
    EXPECT_TRUE(panel.isHidden());
    panel.showMe();
    EXPECT_THAT(host.calls, ElementsAre("visible false", "visible true"));
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(PanelMouse, click_on_the_close_button_ends_the_drag_and_shows_the_children_all_the_same) {
    panel.Closeable(true);
    panel.ContainerMoveable(true);
    QPushButton child(&panel);
    child.hide();
    Click(Close());
    EXPECT_FALSE(child.isHidden());
    panel.showMe();
    PointAt({300, 300});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
}

TEST_F(PanelMouse, buttons_act_on_the_release_wherever_the_press_was) {
    panel.Closeable(true);
    panel.Expandable(true);
    Drag({30, 90}, InWindow(Chevron()));
    EXPECT_EQ(panel.height(), 25);
    Drag({30, 10}, InWindow(Close()));
    EXPECT_TRUE(panel.isHidden());
}

TEST_F(PanelMouse, buttons_hear_the_left_button_alone) {
    panel.Closeable(true);
    panel.Expandable(true);
    for (const QPoint place : {Chevron(), Close()}) Click(place, Qt::RightButton);
    EXPECT_EQ(panel.height(), 200);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(PanelMouse, buttons_outlive_their_parts_but_not_their_properties) {
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

TEST_F(PanelMouse, click_on_the_chevron_collapses_and_expands_again) {
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

TEST_F(PanelMouse, click_on_the_chevron_is_told_before_the_collapse_and_after_the_expansion) {
    panel.Expandable(true);
    std::vector<int> heights;
    QObject::connect(&panel, &xpFrame::ChevronClick, [&] { heights.push_back(panel.height()); });
    const QPoint place = Chevron();
    Click(place);
    Click(place);
    EXPECT_THAT(heights, ElementsAre(200, 200));
}

TEST_F(PanelMouse, click_on_the_chevron_returns_to_the_height_that_the_host_set) {
    panel.Expandable(true);
    panel.resize(300, 333);
    const QPoint place = Chevron();
    Click(place);
    Click(place);
    EXPECT_EQ(panel.size(), QSize(300, 333));
}

TEST_F(PanelMouse, drag_of_the_chevron_has_ended_when_its_click_is_told) {
    panel.Expandable(true);
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::ChevronClick, [this] {
        QMouseEvent move(QEvent::MouseMove, QPoint(150, 100), panel.mapToGlobal(QPoint(150, 100)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&panel, &move);
    });
    Click(Chevron());
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
}

TEST_F(PanelMouse, drag_of_the_chevron_ends_with_its_click) {
    panel.Expandable(true);
    panel.ContainerMoveable(true);
    Drag(Chevron(), InWindow(Chevron()) + QPoint(50, 0));
    EXPECT_EQ(panel.geometry(), QRect(100, 40, 300, 25));
    PointAt({400, 300});
    EXPECT_EQ(panel.pos(), QPoint(100, 40));
}

TEST_F(PanelMouse, is_not_heard_while_the_panel_is_disabled) {
    panel.Closeable(true);
    panel.enabled(false);
    Listen();
    ListenToMoves();
    Click(Close());
    PointAt(InWindow({30, 30}));
    EXPECT_TRUE(panel.isVisible());
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(moves, IsEmpty());
}

TEST_F(PanelMouse, hits_what_is_below_the_pointer_when_a_receiver_has_moved_the_panel) {
    panel.Closeable(true);
    const QPoint close = Close();
    QObject::connect(&panel, &xpFrame::MouseUp, [this] { panel.move(0, 0); });
    Click(close);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(PanelMouse, press_and_double_click_refresh_the_inner_label) {
    panel.ClassicXPStyle(true);
    PaintCounter paints(*panel.findChild<InnerLabel*>());
    paints.Taken();
    ASSERT_EQ(paints.Taken(), 0);
    Press({30, 90}, Qt::RightButton);
    EXPECT_EQ(paints.Taken(), 1);
    Release(Qt::RightButton);
    EXPECT_EQ(paints.Taken(), 0);
    SendMouse(panel, QEvent::MouseButtonDblClick, {30, 90}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(paints.Taken(), 1);
}

TEST_F(PanelMouse, click_refreshes_the_inner_label_behind_its_event) {
    panel.ClassicXPStyle(true);
    PaintCounter paints(*panel.findChild<InnerLabel*>());
    QObject::connect(&panel, &xpFrame::Click, [&] { paints.Taken(); });
    Click({30, 90});
    EXPECT_EQ(paints.Taken(), 1);
}

TEST_F(PanelMouse, drag_of_the_grip_repaints_the_parent_with_every_step) {
    panel.ContainerResizable(true);
    PressGrip();
    PointAt(InWindow({10, 10}));
    PaintCounter paints(window);
    paints.Taken();
    PointAt(InWindow({9, 9}));
    EXPECT_EQ(paints.Taken(), 1);
    Release();
}

TEST_F(PanelMouse, moves_tell_the_keys_and_the_place) {
    QObject::connect(&panel, &xpFrame::MouseMove, [this](int Button, int Shift, float X, float Y) {
        Note("MouseMove", {Button, Shift, int(X), int(Y)});
    });
    SendMouse(panel, QEvent::MouseMove, {12.5, 90}, Qt::NoButton, Qt::NoButton,
              Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_THAT(events, ElementsAre("MouseMove 0 5 12 90"));
}

TEST_F(PanelMouse, second_press_of_another_button_is_a_press) {
    Listen();
    QTest::mouseDClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier, InWindow({10, 90}));
    EXPECT_THAT(events, ElementsAre("MouseDown 2 0 10 90", "MouseUp 2 0 10 90",
                                    "MouseDown 2 0 10 90", "MouseUp 2 0 10 90"));
}

TEST_F(PanelMouse, press_changes_the_pointer_without_a_move) {
    panel.ContainerResizable(true);
    const auto press = [this](QPoint place) {
        PointAt(InWindow(place));
        panel.setCursor(Qt::WaitCursor);
        Press(place);
    };
    press(Grip());
    ExpectPointer(Qt::SizeFDiagCursor);
    Release();
    press({30, 90});
    ExpectPointer(Qt::ArrowCursor);
    Release();
}

TEST_F(PanelMouse, drag_has_moved_the_panel_when_it_is_told) {
    panel.ContainerMoveable(true);
    QPoint told;
    QObject::connect(&panel, &xpFrame::Move, [&] { told = panel.pos(); });
    Drag({30, 10}, {130, 70});
    EXPECT_EQ(told, QPoint(100, 60));
}

TEST_F(PanelMouse, release_does_not_show_the_inner_label) {
    Click({30, 90});
    EXPECT_TRUE(panel.findChild<InnerLabel*>()->isHidden());
}

// The panel's own painting takes the children along, and is over here when they are refreshed.
TEST_F(PanelMouse, release_refreshes_each_child) {
    QPushButton shown(&panel);
    QPushButton hidden(&panel);
    hidden.setGeometry(10, 40, 50, 20);
    shown.setGeometry(100, 100, 50, 20);
    shown.show();
    const On paints(QEvent::Show, hidden, [this] { window.repaint(); });
    PaintCounter counter(shown);
    counter.Taken();
    Click({30, 90});
    EXPECT_EQ(counter.Taken(), 2);
}

TEST_F(PanelMouse, focus_refreshes_the_inner_label) {
    panel.ClassicXPStyle(true);
    PaintCounter paints(*panel.findChild<InnerLabel*>());
    paints.Taken();
    ASSERT_EQ(paints.Taken(), 0);
    QFocusEvent focus(QEvent::FocusIn);
    QApplication::sendEvent(&panel, &focus);
    EXPECT_EQ(paints.Taken(), 1);
}

}  // namespace tavel::test
