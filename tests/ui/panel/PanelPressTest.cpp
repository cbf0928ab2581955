#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/SendMouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <utility>

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Whose a press is: the panel's, a child's that keeps it, a child's that passes it on; and what
// comes of it when its release goes elsewhere.
class PanelPress : public PanelUnderHand {
  protected:
    PanelPress() {
        panel.ContainerResizable(true);
        menu.addAction(QStringLiteral("one"));
    }

    // The button at (100, 100) keeps its press, and leaves the moves beside it to the panel.
    void ExpectNoResizeByPressOf(const QWidget& button) {
        const QRect before = panel.geometry();
        Press({110, 110});
        for (const QPoint place :
             {QPoint(30, 90), QPoint(31, 91), Grip(), Grip() + QPoint(1, 1), QPoint(200, 120)})
            PointAt(InWindow(place));
        EXPECT_TRUE(button.isVisible());
        Release();
        PointAt(InWindow({250, 150}));
        EXPECT_EQ(panel.geometry(), before);
        EXPECT_TRUE(button.isVisible());
    }
    void PopUp() { menu.popup(panel.mapToGlobal(QPoint(150, 60))); }

    QMenu menu;
};

class ButtonAt100 : public QPushButton {
  public:
    explicit ButtonAt100(QWidget& parent) : QPushButton(&parent) {
        setGeometry(100, 100, 80, 20);
        show();
    }
};

class LabelAt100 : public QLabel {
  public:
    explicit LabelAt100(QWidget& parent) : QLabel(&parent) {
        setGeometry(100, 100, 80, 20);
        show();
    }
};

}  // namespace

TEST_F(PanelPress, that_a_child_keeps_is_not_told_and_its_release_hits_nothing) {
    panel.Closeable(true);
    panel.Expandable(true);
    QPushButton hidden(&panel);
    ButtonAt100 child(panel);
    Listen();
    for (const QPoint place : {QPoint(30, 90), Chevron(), Close()}) {
        Press({110, 110});
        ListenToMoves();
        PointAt(InWindow({30, 90}));
        PointAt(InWindow(place));
        Release();
    }
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(moves, IsEmpty());
    EXPECT_TRUE(hidden.isHidden());
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.height(), 200);
}

TEST_F(PanelPress, that_a_childs_child_keeps_is_not_told_either) {
    QWidget box(&panel);
    box.setGeometry(0, 0, 200, 150);
    box.show();
    ButtonAt100 child(box);
    Listen();
    Press({110, 110});
    PointAt(InWindow({30, 90}));
    PointAt(InWindow({30, 170}));
    Release();
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(PanelPress, that_a_child_passes_on_is_told_and_moves_the_panel_as_its_own) {
    panel.ContainerMoveable(true);
    const auto told = [this] {
        events.clear();
        Press({110, 110});
        PointAt({200, 200});
        Release();
        EXPECT_EQ(panel.pos(), QPoint(90, 90));
        PointAt({205, 260});
        EXPECT_EQ(panel.pos(), QPoint(90, 90));
        panel.move(50, 40);
        QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, {160, 150});
        return events;
    };
    Listen();
    const std::vector<std::string> own = told();
    ASSERT_THAT(own, ElementsAre("MouseDown 1 0 110 110", "Move 90 90", "MouseUp 1 0 110 110",
                                 "Click", "MouseDown 1 0 110 110", "MouseUp 1 0 110 110", "Click",
                                 "DblClick", "MouseUp 1 0 110 110"));
    const LabelAt100 child(panel);
    EXPECT_EQ(told(), own);
}

TEST_F(PanelPress, on_a_childs_child_starts_no_resize) {
    QWidget box(&panel);
    QLabel child(&box);
    box.setGeometry(0, 0, 300, 200);
    child.setGeometry(200, 100, 100, 100);
    box.show();
    PressGrip();
    EXPECT_TRUE(box.isVisible());
    Release();
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelPress, where_a_child_is_hidden_is_the_panels_own) {
    QLabel child(&panel);
    child.setGeometry(270, 170, 30, 30);
    PressGrip();
    EXPECT_EQ(panel.size(), QSize(291, 191));
    Release();
}

TEST_F(PanelPress, of_another_button_on_a_child_is_turned_into_no_resize_either) {
    const LabelAt100 child(panel);
    QObject::connect(
        &panel, &xpFrame::MouseMove,
        [](int Button, int, float, float, bool& cResize, bool&) { cResize = Button == 2; });
    Press({110, 110}, Qt::RightButton);
    PointAt(InWindow({220, 140}));
    EXPECT_TRUE(child.isVisible());
    Release(Qt::RightButton);
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelPress, of_another_button_while_a_child_keeps_one_leaves_the_mouse_to_the_child) {
    const ButtonAt100 child(panel);
    Listen();
    ListenToMoves();
    QObject::connect(
        &panel, &xpFrame::MouseMove,
        [](int Button, int, float, float, bool& cResize, bool&) { cResize = Button == 3; });
    Press({110, 110});
    PointAt(InWindow({30, 90}));
    Press({30, 90}, Qt::RightButton);
    PointAt(InWindow({220, 140}));
    EXPECT_TRUE(child.isVisible());
    Release();
    Release(Qt::RightButton);
    EXPECT_EQ(panel.size(), QSize(300, 200));
    EXPECT_THAT(events, ElementsAre("MouseDown 2 0 30 90", "MouseUp 2 0 220 140"));
    EXPECT_THAT(moves, ElementsAre(Switches{3, false, false}));
}

TEST_F(PanelPress, of_another_button_over_a_child_ends_no_drag) {
    const LabelAt100 child(panel);
    Press(Grip());
    Press({110, 110}, Qt::RightButton);
    PointAt(InWindow(Grip()));
    PointAt(InWindow({250, 150}));
    EXPECT_EQ(panel.size(), QSize(250, 150));
    Release();
    Release(Qt::RightButton);
}

TEST_F(PanelPress, of_another_button_whose_release_is_lost_ends_no_drag) {
    const ButtonAt100 child(panel);
    PressGrip();
    PointAt(InWindow({320, 220}));
    SendMouse(panel, QEvent::MouseButtonPress, {320, 220}, Qt::RightButton,
              Qt::LeftButton | Qt::RightButton);
    PointAt(InWindow({330, 230}));
    EXPECT_EQ(panel.size(), QSize(330, 230));
    EXPECT_TRUE(child.isHidden());
    Release();
}

TEST_F(PanelPress, that_is_released_shows_no_child_that_is_hidden_later) {
    ButtonAt100 child(panel);
    Click({30, 90});
    child.hide();
    PointAt(InWindow({40, 90}));
    EXPECT_TRUE(child.isHidden());
}

TEST_F(PanelPress, that_is_not_released_yet_lets_the_grip_be_dragged_again_and_again) {
    Press({30, 90}, Qt::RightButton);
    for (const int size : {291, 282}) {
        PressGrip();
        EXPECT_EQ(panel.width(), size);
        Release();
    }
    Release(Qt::RightButton);
}

TEST_F(PanelPress, whose_release_a_menu_had_is_over_when_a_button_is_pressed) {
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { PopUp(); });
    QWidget box(&panel);
    box.setGeometry(0, 0, 200, 150);
    for (QWidget* parent : {static_cast<QWidget*>(&panel), &box}) {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            const ButtonAt100 child(*parent);
            box.setVisible(parent == &box);
            Press(Grip(), button);
            ASSERT_TRUE(menu.isVisible());
            Release(button);
            menu.close();
            ExpectNoResizeByPressOf(child);
        }
    }
}

TEST_F(PanelPress, that_a_menu_was_run_in_is_over_when_a_button_is_pressed) {
    QObject::connect(&panel, &xpFrame::MouseDown, [this](int Button) {
        if (Button != 2) return;
        QTimer::singleShot(0, &menu, [this] {
            Release(Qt::RightButton);
            menu.close();
        });
        menu.exec(panel.mapToGlobal(QPoint(150, 60)));
    });
    const ButtonAt100 child(panel);
    Press({40, 160}, Qt::RightButton);
    ExpectNoResizeByPressOf(child);
}

TEST_F(PanelPress, that_was_held_while_the_panel_was_hidden_is_over) {
    panel.Closeable(true);
    const ButtonAt100 child(panel);
    Press({60, 150}, Qt::RightButton);
    Click(Close());
    ASSERT_TRUE(panel.isHidden());
    Release(Qt::RightButton);
    panel.showMe();
    ExpectNoResizeByPressOf(child);
}

TEST_F(PanelPress, whose_release_a_menu_had_moves_nothing) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { PopUp(); });
    ListenToMoves();
    Press({30, 90});
    Release();
    menu.close();
    PointAt({130, 160});
    PointAt({140, 170});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
    EXPECT_THAT(moves, testing::Each(Switches{0, false, false}));
}

TEST_F(PanelPress, whose_release_the_receiver_waited_for_moves_nothing) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { Release(); });
    Press({30, 90});
    PointAt({130, 160});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
}

TEST_F(PanelPress, that_disables_the_panel_moves_nothing_when_it_is_enabled_again) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { panel.enabled(false); });
    Listen();
    Press({30, 90});
    panel.enabled(true);
    Release();
    PointAt({130, 160});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 90"));
}

TEST_F(PanelPress, at_the_grip_starts_no_resize_when_the_first_move_disables_the_panel) {
    Press(Grip());
    const auto disabling =
        QObject::connect(&panel, &xpFrame::MouseMove, [this] { panel.enabled(false); });
    PointAt(InWindow(Grip() + QPoint(1, 1)));
    QObject::disconnect(disabling);
    panel.enabled(true);
    Release();
    PointAt(InWindow({250, 150}));
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelPress, whose_release_was_lost_leaves_no_click_behind) {
    Press({30, 90});
    panel.hide();
    Release();
    panel.show();
    Listen();
    QObject::connect(&panel, &xpFrame::MouseDown, [this] { Release(); });
    Press({30, 90});
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 90", "MouseUp 1 0 30 90"));
}

TEST_F(PanelPress, that_hides_the_child_which_passed_it_on_moves_no_further) {
    panel.ContainerMoveable(true);
    LabelAt100 child(panel);
    QObject::connect(&panel, &xpFrame::MouseDown, &child, &QWidget::hide);
    Press({110, 110});
    Release();
    PointAt({205, 205});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
    EXPECT_TRUE(child.isVisible());
}

TEST_F(PanelPress, moves_no_further_when_the_child_which_passed_it_on_is_deleted) {
    panel.ContainerMoveable(true);
    auto* child = new LabelAt100(panel);
    Press({110, 110});
    PointAt({165, 155});
    delete child;
    Release();
    PointAt({205, 205});
    EXPECT_EQ(panel.pos(), QPoint(55, 45));
}

TEST_F(PanelPress, whose_release_a_menu_had_leaves_no_resize_behind) {
    const ButtonAt100 child(panel);
    QObject::connect(&panel, &xpFrame::Resize, [this](Long cWidth) {
        if (cWidth == 320) PopUp();
    });
    const auto loseRelease = [this] {
        panel.resize(300, 200);
        PressGrip();
        PointAt(InWindow({320, 220}));
        Release();
        menu.close();
    };
    loseRelease();
    PointAt(InWindow({250, 150}));
    EXPECT_EQ(panel.size(), QSize(320, 220));
    EXPECT_TRUE(child.isVisible());
    loseRelease();
    Click({600, 500}, Qt::RightButton);  // beside the panel
    EXPECT_TRUE(child.isVisible());
    const QImage shown = panel.Surface();
    panel.Refresh();
    EXPECT_EQ(panel.Surface(), shown);
}

TEST_F(PanelPress, at_the_grip_leaves_no_resize_behind_when_the_panel_is_disabled_or_hidden) {
    const ButtonAt100 child(panel);
    const auto expectEnd = [&](const std::function<void()>& end,
                               const std::function<void()>& undo) {
        panel.resize(300, 200);
        PressGrip();
        PointAt(InWindow({320, 220}));
        ASSERT_TRUE(child.isHidden());
        end();
        EXPECT_FALSE(child.isHidden());
        undo();
        PointAt(InWindow({250, 150}));
        Release();
        EXPECT_EQ(panel.size(), QSize(320, 220));
        const QImage shown = panel.Surface();
        panel.Refresh();
        EXPECT_EQ(panel.Surface(), shown);
    };
    expectEnd([this] { panel.enabled(false); }, [this] { panel.enabled(true); });
    expectEnd([this] { panel.closeMe(); }, [this] { panel.showMe(); });
}

TEST_F(PanelPress, goes_on_while_another_button_is_pressed_and_its_release_is_lost) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseDown, [this](int Button) {
        if (Button == 2) PopUp();
    });
    Press({30, 90}, Qt::RightButton);
    Release(Qt::RightButton);
    menu.close();
    Listen();
    Drag({30, 10}, {130, 70});
    EXPECT_THAT(events,
                ElementsAre("MouseDown 1 0 30 10", "Move 100 60", "MouseUp 1 0 30 10", "Click"));
}

TEST_F(PanelPress, that_comes_while_the_last_release_is_told_is_a_whole_one) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseUp, [&] {
        QObject::disconnect(&panel, &xpFrame::MouseUp, nullptr, nullptr);
        Listen();
        SendMouse(panel, QEvent::MouseButtonPress, {30, 10}, Qt::LeftButton, Qt::LeftButton);
    });
    SendMouse(panel, QEvent::MouseButtonPress, {30, 90}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, {30, 90}, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, {40, 30}, Qt::NoButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, {30, 10}, Qt::LeftButton);
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 10", "Click", "Move 60 60",
                                    "MouseUp 1 0 30 10", "Click"));
}

TEST_F(PanelPress, that_is_over_moves_and_resizes_nothing_while_its_release_is_told) {
    panel.ContainerMoveable(true);
    QObject::connect(&panel, &xpFrame::MouseUp, [&] {
        PointAt(InWindow({200, 150}));
        PointAt(InWindow({180, 140}));
    });
    Click({30, 10});
    EXPECT_EQ(panel.pos(), QPoint(50, 40));
    PressGrip();
    const QRect before = panel.geometry();
    Release();
    EXPECT_EQ(panel.geometry(), before);
}

TEST_F(PanelPress, that_comes_while_a_release_over_the_chevron_is_told_drags_too) {
    panel.ContainerMoveable(true);
    panel.Expandable(true);
    QObject::connect(&panel, &xpFrame::MouseUp, [&] {
        QObject::disconnect(&panel, &xpFrame::MouseUp, nullptr, nullptr);
        SendMouse(panel, QEvent::MouseButtonPress, {30, 10}, Qt::LeftButton, Qt::LeftButton);
    });
    const QPoint chevron = Chevron();
    SendMouse(panel, QEvent::MouseButtonPress, chevron, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, chevron, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, {40, 20}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(panel.pos(), QPoint(60, 50));
    SendMouse(panel, QEvent::MouseButtonRelease, {30, 10}, Qt::LeftButton);
}

TEST_F(PanelPress, that_is_told_to_be_over_ends_what_its_host_has_switched_on_meanwhile) {
    panel.ContainerMoveable(true);
    bool switches = false;
    QObject::connect(&panel, &xpFrame::MouseMove, [&](int, int, float, float, bool&, bool& cMove) {
        if (std::exchange(switches, false)) cMove = true;
    });
    QObject::connect(&panel, &xpFrame::MouseUp, [&] {
        switches = true;
        PointAt(InWindow({40, 20}));
    });
    Click({30, 10});
    const QPoint left = panel.pos();
    PointAt(InWindow({80, 60}));
    EXPECT_EQ(panel.pos(), left);
}

TEST_F(PanelPress, that_a_receiver_hands_to_another_widget_is_the_panels_all_the_same) {
    panel.Closeable(true);
    QWidget other(&window);
    QObject::connect(&panel, &xpFrame::MouseDown, [&other] {
        SendMouse(other, QEvent::MouseButtonPress, {1, 1}, Qt::LeftButton, Qt::LeftButton);
    });
    Click(Close());
    EXPECT_TRUE(panel.isHidden());
}

TEST_F(PanelPress, that_a_child_over_the_grip_passes_on_moves_nothing) {
    panel.ContainerMoveable(true);
    QLabel child(&panel);
    child.setGeometry(270, 170, 30, 30);
    child.show();
    Drag(Grip(), {500, 400});
    EXPECT_EQ(panel.geometry(), QRect(50, 40, 300, 200));
}

TEST_F(PanelPress, at_the_grip_keeps_its_pointer_while_other_windows_are_entered) {
    QWidget other(&window);
    Press(Grip());
    QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
    QApplication::sendEvent(&other, &enter);
    ExpectPointer(Qt::SizeFDiagCursor);
    Release();
}

TEST_F(PanelPress, that_is_a_double_click_resizes_when_it_is_held_at_the_grip) {
    Listen();
    SendMouse(panel, QEvent::MouseButtonDblClick, {290, 190}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, {291, 191}, Qt::NoButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, {291, 191}, Qt::LeftButton);
    EXPECT_THAT(events, ElementsAre("DblClick", "Resize 291 191", "MouseUp 1 0 291 191"));
}

TEST_F(PanelPress, that_is_a_double_click_ends_in_no_click_though_the_first_release_was_lost) {
    Listen();
    SendMouse(panel, QEvent::MouseButtonPress, {30, 90}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonDblClick, {30, 90}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseButtonRelease, {30, 90}, Qt::LeftButton);
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 30 90", "DblClick", "MouseUp 1 0 30 90"));
}

}  // namespace tavel::test
