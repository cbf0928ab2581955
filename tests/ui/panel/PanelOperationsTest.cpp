#include "ui/panel/PanelUnderHand.h"
#include "ui/panel/PlacedPanel.h"
#include "ui/toolkit/Twips.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>

namespace tavel::test {

namespace {

using testing::ElementsAre;

class PanelOperations : public PanelUnderHand {};

// A panel that a change of the screen can be played to.
class CarriedPanel : public xpFrame {
  public:
    int ratio = 1;

  protected:
    int metric(PaintDeviceMetric which) const override {
        if (which == PdmDevicePixelRatio) return ratio;
        if (which == PdmDevicePixelRatioScaled)
            return static_cast<int>(ratio * devicePixelRatioFScale());
        return xpFrame::metric(which);
    }
};

class PanelKeys : public PanelUnderHand {
  protected:
    PanelKeys() {
        QObject::connect(&panel, &xpFrame::KeyDown, [this](int KeyCode, int Shift) {
            Note("KeyDown", {KeyCode, Shift});
        });
        QObject::connect(&panel, &xpFrame::KeyPress,
                         [this](int KeyAscii) { Note("KeyPress", {KeyAscii}); });
        QObject::connect(&panel, &xpFrame::KeyUp, [this](int KeyCode, int Shift) {
            Note("KeyUp", {KeyCode, Shift});
        });
        panel.setFocus();
    }
};

int CountOf(const DeviceContext& context, const QColor& color) {
    int count = 0;
    for (int y = 0; y < context.Surface().height(); ++y) {
        for (int x = 0; x < context.Surface().width(); ++x)
            count += context.Surface().pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

QColor At(const DeviceContext& context, int x, int y) { return context.Surface().pixelColor(x, y); }

}  // namespace

TEST_F(PanelOperations, Collapse_leaves_the_header_and_Expand_returns_to_the_height) {
    panel.Collapse();
    EXPECT_EQ(panel.size(), QSize(300, 25));
    panel.Expand();
    EXPECT_EQ(panel.size(), QSize(300, 200));
}

TEST_F(PanelOperations, Collapse_twice_remembers_the_small_height) {
    panel.Collapse();
    panel.Collapse();
    panel.Expand();
    EXPECT_EQ(panel.height(), 25);
}

TEST_F(PanelOperations, Collapse_to_a_header_of_no_known_size_leaves_no_height) {
    panel.HeaderSize(3);
    panel.Collapse();
    EXPECT_EQ(panel.height(), 0);
    panel.Expand();
    EXPECT_EQ(panel.height(), 200);
}

TEST_F(PanelOperations, Expand_of_a_panel_that_never_was_another_height_does_nothing) {
    panel.Expand();
    EXPECT_EQ(panel.height(), 200);
}

TEST_F(PanelOperations, Expand_of_a_panel_that_was_read_returns_to_the_height_of_then) {
    for (const int height : {200, 150}) {
        panel.resize(300, height);
        panel.ReadProperties(MemoryPropertyBag());
        for (const int other : {90, 120}) {
            panel.resize(300, other);
            panel.Expand();
            EXPECT_EQ(panel.height(), height);
        }
    }
}

TEST_F(PanelOperations, Expand_of_a_panel_that_was_read_while_collapsed_leaves_it_so_high) {
    panel.Collapse();
    panel.ReadProperties(MemoryPropertyBag());
    panel.Expand();
    EXPECT_EQ(panel.height(), 25);
}

TEST_F(PanelOperations, Collapse_at_another_scale_leaves_the_headers_pixels) {
    SetScale(1.7);
    panel.Collapse();
    EXPECT_EQ(panel.height(), 25);
    panel.Expand();
    EXPECT_EQ(panel.height(), 200);
    SetScale(1);
}

TEST_F(PanelOperations, OnTop_asks_the_host) {
    panel.OnTop();
    EXPECT_THAT(host.calls, ElementsAre("zorder 0"));
}

TEST_F(PanelOperations, OnTop_without_a_host_is_in_front_of_the_neighbours) {
    xpFrame first(&window);
    xpFrame second(&window);
    first.OnTop();
    EXPECT_EQ(window.children().last(), &first);
}

TEST_F(PanelOperations, hwnd_is_the_panel_until_it_is_set) {
    EXPECT_EQ(panel.hwnd(), &panel);
    panel.hwnd(&window);
    EXPECT_EQ(panel.hwnd(), &window);
}

TEST_F(PanelOperations, hdc_is_a_surface_as_large_as_the_panel_and_is_remade_to_grow_alone) {
    panel.hdc(nullptr);
    DeviceContext* const first = panel.hdc();
    EXPECT_EQ(first->Size(), QSize(300, 200));
    first->Fill(Qt::red);
    panel.resize(200, 100);
    panel.hdc(nullptr);
    EXPECT_EQ(panel.hdc()->Size(), QSize(300, 200));
    EXPECT_EQ(At(*panel.hdc(), 5, 5), QColor(Qt::red));
    panel.resize(200, 300);
    EXPECT_EQ(panel.hdc()->Size(), QSize(300, 200));
    panel.hdc(first);
    EXPECT_EQ(panel.hdc()->Size(), QSize(300, 300));
    EXPECT_EQ(At(*panel.hdc(), 5, 5), QColor(Qt::black));
}

TEST_F(PanelOperations, hdc_is_set_up_whenever_the_panel_is_shown) {
    panel.hide();
    panel.resize(400, 300);
    panel.show();
    EXPECT_EQ(panel.hdc()->Size(), QSize(400, 300));
}

TEST_F(PanelOperations, hdc_is_set_up_from_the_start) {
    xpFrame placed(&window);
    EXPECT_EQ(placed.hdc()->Size(), placed.size());
    EXPECT_EQ(placed.hdc()->Ratio(), placed.devicePixelRatioF());
    EXPECT_EQ(At(*placed.hdc(), 5, 5), QColor(Qt::black));
}

TEST(PanelSurfaces, are_made_anew_on_a_screen_of_another_ratio) {
    CarriedPanel panel;
    panel.resize(100, 80);
    panel.show();
    RunEvents();
    panel.ratio = 3;
    panel.hdc(nullptr);
    EXPECT_EQ(panel.hdc()->Ratio(), 3);
    EXPECT_EQ(panel.hdc()->Surface().size(), panel.hdc()->Size() * 3);
    panel.update();
    RunEvents();
    EXPECT_EQ(panel.Surface().size(), QSize(300, 240));
}

TEST_F(PanelOperations, focus_brings_the_panel_to_the_front_when_that_is_on) {
    QLineEdit other(&window);
    other.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    panel.setFocus();
    EXPECT_TRUE(host.calls.empty());
    panel.ZOrderOnFocus(true);
    host.calls.clear();
    other.setFocus();
    panel.setFocus();
    EXPECT_THAT(host.calls, ElementsAre("zorder 0"));
}

TEST_F(PanelOperations, focus_comes_with_a_press_and_with_tab) {
    QLineEdit other(&window);
    other.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    Click({30, 90});
    EXPECT_TRUE(panel.hasFocus());
    other.setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    EXPECT_TRUE(panel.hasFocus());
}

TEST_F(PanelKeys, are_told_with_their_characters) {
    QTest::keyClick(window.windowHandle(), 'a');
    QTest::keyClick(window.windowHandle(), Qt::Key_F2, Qt::ControlModifier);
    const std::string f2 = std::to_string(Qt::Key_F2);
    const std::string control = std::to_string(Qt::Key_Control);
    EXPECT_THAT(events, ElementsAre("KeyDown 65 0", "KeyPress 97", "KeyUp 65 0",
                                    "KeyDown " + control + " 2", "KeyDown " + f2 + " 2",
                                    "KeyUp " + f2 + " 2", "KeyUp " + control + " 0"));
}

TEST_F(PanelKeys, of_deletion_is_a_key_and_no_character) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7f"));
    QApplication::sendEvent(&panel, &down);
    EXPECT_THAT(events, ElementsAre("KeyDown " + std::to_string(Qt::Key_Delete) + " 0"));
}

TEST_F(PanelKeys, of_a_character_beyond_16_bits_tell_it_whole) {
    QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(U"\U0001F600", 1));
    QApplication::sendEvent(&panel, &down);
    EXPECT_THAT(events, ElementsAre("KeyDown 0 0", "KeyPress 128512"));
}

TEST_F(PanelKeys, go_on_to_the_window) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&panel, &down);
    EXPECT_FALSE(down.isAccepted());
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&panel, &up);
    EXPECT_FALSE(up.isAccepted());
}

TEST_F(PanelKeys, of_a_child_are_not_the_panels_and_go_on_to_the_window) {
    QPushButton child(&panel);
    xpFrame within(&panel);
    child.show();
    within.show();
    for (QWidget* focused : {static_cast<QWidget*>(&child), static_cast<QWidget*>(&within)}) {
        focused->setFocus();
        int heard = 0;
        const On down(QEvent::KeyPress, window, [&] { ++heard; });
        const On up(QEvent::KeyRelease, window, [&] { ++heard; });
        QTest::keyClick(window.windowHandle(), 'a');
        EXPECT_EQ(heard, 2);
    }
    EXPECT_THAT(events, testing::IsEmpty());
}

TEST_F(PanelKeys, that_repeat_come_up_once) {
    for (const bool repeats : {false, true, true}) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier, QString(), repeats);
        QApplication::sendEvent(&panel, &down);
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Left, Qt::NoModifier, QString(), repeats);
        QApplication::sendEvent(&panel, &up);
    }
    EXPECT_EQ(
        std::count(events.begin(), events.end(), "KeyUp " + std::to_string(Qt::Key_Left) + " 0"),
        1);
    EXPECT_EQ(events.size(), 4U);
}

TEST(dBlendColor, takes_alpha_parts_of_the_first_colour) {
    EXPECT_EQ(xpFrame::dBlendColor(0x123456, 0x654321, 255), 0x123456U);
    EXPECT_EQ(xpFrame::dBlendColor(0x123456, 0x654321, 0), 0x654321U);
    EXPECT_EQ(xpFrame::dBlendColor(90 | 90 << 8 | 90 << 16, 0, 230), 0x515151U);  // 81.18
    EXPECT_EQ(xpFrame::dBlendColor(11 | 63 << 8 | 153 << 16, 0, 230),
              OleColor(10 | 57 << 8 | 138 << 16));  // 9.92, 56.82, 138
    EXPECT_EQ(xpFrame::dBlendColor(255, 0, 128), 128U);
    EXPECT_EQ(xpFrame::dBlendColor(0xFF0000, 0x00FF00, 51), OleColor(204 << 8 | 51 << 16));
}

TEST(dBlendColor, looks_system_colours_up) {
    const QPalette usual = QApplication::palette();
    QPalette other = usual;
    other.setColor(QPalette::Base, QColor(100, 200, 50));
    QApplication::setPalette(other);
    EXPECT_EQ(xpFrame::dBlendColor(0x80000005, 0, 255), OleColor(100 | 200 << 8 | 50 << 16));
    EXPECT_EQ(xpFrame::dBlendColor(0, 0x80000005, 0), OleColor(100 | 200 << 8 | 50 << 16));
    QApplication::setPalette(usual);
}

TEST(SmoothForm, rounds_a_windows_corners_and_leaves_out_its_last_column_and_row) {
    QWidget form;
    form.resize(200, 100);
    xpFrame::SmoothForm(form, 20);
    EXPECT_EQ(form.mask().boundingRect(), QRect(0, 0, 199, 99));
    EXPECT_FALSE(form.mask().contains(QPoint(198, 98)));
    for (const QPoint outside : {QPoint(6, 0), QPoint(0, 6)})
        EXPECT_FALSE(form.mask().contains(outside));
    for (const QPoint inside : {QPoint(7, 0), QPoint(0, 7)})
        EXPECT_TRUE(form.mask().contains(inside));
    EXPECT_TRUE(form.mask().contains(QPoint(198, 50)));
    xpFrame::SmoothForm(form, 0);
    EXPECT_EQ(form.mask(), QRegion(0, 0, 199, 99));
}

TEST(SmoothForm, hides_all_of_a_window_of_one_pixel) {
    QWidget form;
    form.resize(1, 1);
    xpFrame::SmoothForm(form, 0);
    EXPECT_FALSE(form.mask().isEmpty());
    EXPECT_FALSE(form.mask().contains(QPoint(0, 0)));
}

TEST(SmoothForm, takes_a_curvature_larger_than_the_window) {
    QWidget form;
    form.resize(60, 40);
    xpFrame::SmoothForm(form, 2000000000);
    EXPECT_EQ(form.mask().boundingRect(), QRect(0, 0, 59, 39));
    EXPECT_FALSE(form.mask().contains(QPoint(5, 5)));
}

TEST(UtilDrawShapeStyle, takes_a_right_and_a_bottom_edge_and_leaves_the_inside) {
    DeviceContext context(QSize(40, 30), 1);
    context.pen = {PS_SOLID, Qt::red};
    xpFrame::UtilDrawShapeStyle(context, 5, 4, 25, 14, 0);
    EXPECT_EQ(CountOf(context, Qt::red), 2 * 20 + 2 * 8);
    for (const QPoint corner : {QPoint(5, 4), QPoint(24, 4), QPoint(5, 13), QPoint(24, 13)})
        EXPECT_EQ(At(context, corner.x(), corner.y()), QColor(Qt::red));
    xpFrame::UtilDrawShapeStyle(context, -2000000000, -2000000000, 2000000000, 2000000000, 9);
    EXPECT_EQ(CountOf(context, Qt::red), 2 * 20 + 2 * 8);
}

TEST(UtilDrawBackground, goes_from_colour_to_colour_across_for_0_and_down_for_any_other) {
    DeviceContext context(QSize(40, 30), 1);
    xpFrame::UtilDrawBackground(context, 0x0000FF, 0xFF0000, 10, 5, 30, 25, 0);
    EXPECT_EQ(At(context, 9, 10), QColor(Qt::black));
    EXPECT_EQ(At(context, 30, 10), QColor(Qt::black));
    EXPECT_EQ(At(context, 10, 5), QColor(255, 0, 0));
    EXPECT_EQ(At(context, 10, 24), QColor(255, 0, 0));
    EXPECT_EQ(At(context, 20, 10), QColor(128, 0, 127));  // step 10 of 20: -127.5 and 127.5
    EXPECT_EQ(At(context, 29, 10), QColor(13, 0, 242));
    xpFrame::UtilDrawBackground(context, 0x0000FF, 0xFF0000, 10, 5, 30, 25, 7);
    EXPECT_EQ(At(context, 29, 5), QColor(255, 0, 0));
    EXPECT_EQ(At(context, 29, 15), QColor(128, 0, 127));
}

TEST(UtilDrawBackground, looks_system_colours_up) {
    const ColorfulPalette palette;
    DeviceContext context(QSize(40, 30), 1);
    xpFrame::UtilDrawBackground(context, 0x80000005, 0x80000005, 10, 5, 30, 25, 0);
    EXPECT_EQ(At(context, 20, 10), QApplication::palette().color(QPalette::Base));
}

TEST(UtilDrawBackground, of_edges_the_wrong_way_round_exchanges_them_with_their_colours) {
    for (const bool across : {true, false}) {
        const QRect wrong =
            across ? QRect(QPoint(30, 5), QPoint(10, 25)) : QRect(QPoint(10, 25), QPoint(30, 5));
        const Long horizontal = across ? 0 : 1;
        DeviceContext expected(QSize(40, 30), 1);
        DeviceContext context(QSize(40, 30), 1);
        xpFrame::UtilDrawBackground(expected, 0x0000FF, 0xFF0000, 10, 5, 30, 25, horizontal);
        xpFrame::UtilDrawBackground(context, 0xFF0000, 0x0000FF, wrong.left(), wrong.top(),
                                    wrong.right(), wrong.bottom(), horizontal);
        EXPECT_EQ(context.Surface(), expected.Surface()) << across;
    }
}

TEST(UtilDrawShapeStyle, takes_any_two_opposite_corners) {
    DeviceContext expected(QSize(40, 30), 1);
    expected.pen = {PS_SOLID, Qt::red};
    xpFrame::UtilDrawShapeStyle(expected, 5, 4, 25, 14, 7);
    for (const QRect& edges :
         {QRect(QPoint(25, 4), QPoint(5, 14)), QRect(QPoint(5, 14), QPoint(25, 4)),
          QRect(QPoint(25, 14), QPoint(5, 4))}) {
        DeviceContext context(QSize(40, 30), 1);
        context.pen = expected.pen;
        xpFrame::UtilDrawShapeStyle(context, edges.left(), edges.top(), edges.right(),
                                    edges.bottom(), 7);
        EXPECT_EQ(context.Surface(), expected.Surface());
    }
}

TEST(UtilDrawShapeStyle, draws_nothing_without_a_width_or_a_height) {
    DeviceContext context(QSize(40, 30), 1);
    context.pen = {PS_SOLID, Qt::red};
    for (const int radius : {0, 7}) {
        xpFrame::UtilDrawShapeStyle(context, 5, 4, 5, 14, radius);
        xpFrame::UtilDrawShapeStyle(context, 5, 4, 25, 4, radius);
    }
    EXPECT_EQ(CountOf(context, Qt::red), 0);
}

TEST(UtilDrawShapeStyle, has_corners_of_the_radius) {
    DeviceContext context(QSize(40, 30), 1);
    context.pen = {PS_SOLID, Qt::red};
    xpFrame::UtilDrawShapeStyle(context, 5, 4, 25, 14, 7);
    for (const QPoint outside : {QPoint(5, 4), QPoint(6, 4), QPoint(5, 5)})
        EXPECT_EQ(At(context, outside.x(), outside.y()), QColor(Qt::black));
    for (const QPoint line : {QPoint(7, 4), QPoint(6, 5), QPoint(5, 6)})
        EXPECT_EQ(At(context, line.x(), line.y()), QColor(Qt::red));
}

TEST(UtilDrawShapeStyle, keeps_to_the_shape_where_neighbouring_rows_begin_alike) {
    DeviceContext context(QSize(60, 50), 1);
    context.pen = {PS_SOLID, Qt::red};
    xpFrame::UtilDrawShapeStyle(context, 5, 4, 55, 44, 20);
    int y = 4;
    for (const int inset : {7, 5, 4, 3, 2, 1, 1, 0, 0}) {
        int x = 0;
        while (At(context, x, y) != QColor(Qt::red)) ++x;
        EXPECT_EQ(x, 5 + inset) << y;
        ++y;
    }
}

}  // namespace tavel::test
