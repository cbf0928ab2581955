#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"
#include "ui/toolkit/panel/InnerLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PanelMouse = PanelUnderHand;

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

TEST_F(PanelMouse, release_and_disabling_leave_the_children_of_children_alone) {
    QWidget child(&panel);
    QPushButton inner(&child);
    inner.hide();
    Click({30, 90});
    EXPECT_TRUE(child.isVisible());
    EXPECT_TRUE(inner.isHidden());
    panel.enabled(false);
    EXPECT_FALSE(inner.testAttribute(Qt::WA_ForceDisabled));
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
    Listen();
    QObject::connect(&panel, &xpFrame::MouseUp, [this] { panel.move(0, 0); });
    Click(close);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_THAT(events,
                ElementsAre(testing::StartsWith("MouseDown"), testing::StartsWith("MouseUp")));
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

TEST_F(PanelMouse, press_and_clicks_refresh_the_inner_label_behind_their_events) {
    panel.ClassicXPStyle(true);
    PaintCounter paints(*panel.findChild<InnerLabel*>());
    const auto take = [&] { paints.Taken(); };
    QObject::connect(&panel, &xpFrame::MouseDown, take);
    QObject::connect(&panel, &xpFrame::Click, take);
    QObject::connect(&panel, &xpFrame::DblClick, take);
    Press({30, 90});
    EXPECT_EQ(paints.Taken(), 1);
    Release();
    EXPECT_EQ(paints.Taken(), 1);
    SendMouse(panel, QEvent::MouseButtonDblClick, {30, 90}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(paints.Taken(), 1);
}

TEST_F(PanelMouse, moves_tell_the_keys_and_the_place) {
    QObject::connect(&panel, &xpFrame::MouseMove, [this](int Button, int Shift, float X, float Y) {
        Note("MouseMove", {Button, Shift, int(X), int(Y)});
    });
    SendMouse(panel, QEvent::MouseMove, {12.5, 90}, Qt::NoButton, Qt::NoButton,
              Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_THAT(events, ElementsAre("MouseMove 0 5 12 90"));
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

// The panel's own painting takes the children along, and is over here when they are refreshed.
TEST_F(PanelMouse, release_refreshes_each_child) {
    QPushButton shown(&panel);
    QPushButton hidden(&panel);
    hidden.setGeometry(10, 40, 50, 20);
    shown.setGeometry(100, 100, 50, 20);
    shown.show();
    const On paints(QEvent::Show, hidden, [this] { window.repaint(); });
    PaintCounter counter(shown);
    ASSERT_TRUE(QTest::qWaitFor([&] { return counter.Taken() == 1; }));
    Click({30, 90});
    EXPECT_EQ(counter.Taken(), 2);
}

TEST_F(PanelMouse, focus_refreshes_the_inner_label) {
    panel.ClassicXPStyle(true);
    PaintCounter paints(*panel.findChild<InnerLabel*>());
    for (const bool comesToTheFront : {false, true}) {
        panel.ZOrderOnFocus(comesToTheFront);
        paints.Taken();
        ASSERT_EQ(paints.Taken(), 0);
        QFocusEvent focus(QEvent::FocusIn);
        QApplication::sendEvent(&panel, &focus);
        EXPECT_EQ(paints.Taken(), 1);
    }
}

TEST_F(PanelMouse, focus_refreshes_the_inner_label_when_the_panel_is_in_front) {
    panel.ClassicXPStyle(true);
    panel.ZOrderOnFocus(true);
    PaintCounter paints(*panel.findChild<InnerLabel*>());
    host.onZOrder = [&] { paints.Taken(); };
    QFocusEvent focus(QEvent::FocusIn);
    QApplication::sendEvent(&panel, &focus);
    EXPECT_EQ(paints.Taken(), 1);
}

TEST_F(PanelMouse, focus_raises_the_panel_whatever_it_comes_from) {
    panel.ZOrderOnFocus(true);
    for (const Qt::FocusReason reason : {Qt::MouseFocusReason, Qt::TabFocusReason,
                                         Qt::ActiveWindowFocusReason, Qt::OtherFocusReason}) {
        host.calls.clear();
        QFocusEvent focus(QEvent::FocusIn, reason);
        QApplication::sendEvent(&panel, &focus);
        EXPECT_THAT(host.calls, ElementsAre("zorder 0")) << reason;
    }
}

}  // namespace tavel::test
