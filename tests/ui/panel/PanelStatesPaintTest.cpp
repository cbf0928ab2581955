#include "ui/panel/PanelModel.h"
#include "ui/panel/PlacedPanel.h"
#include "ui/panel/SendMouse.h"

#include <gtest/gtest.h>

#include <array>

namespace tavel::test {

namespace {

PanelProperties WithEverything() {
    PanelProperties p = WithCustomColors();
    p.Closeable = p.Expandable = p.ContainerResizable = true;
    return p;
}

void ExpectModel(PlacedPanel& placed, const PanelProperties& p, bool collapsed = false) {
    const QSize size = placed.panel.size();
    const PanelModel model(p, size.width(), size.height(), collapsed);
    EXPECT_EQ(model.FirstDifference(placed.Picture()), "");
    EXPECT_EQ(model.FirstDifference(placed.Window()), "");
}

void DragGripTo(QWidget& panel, QPoint place) {
    const QPoint grip(panel.width() - 10, panel.height() - 10);
    SendMouse(panel, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, grip, Qt::NoButton, Qt::LeftButton);
    SendMouse(panel, QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton);
}

void ExpectOneColor(PlacedPanel& placed, PanelModel::Rgb color) {
    const QImage picture = placed.Picture();
    const int ratio = picture.width() / placed.panel.width();
    for (const QRect& part : placed.Window()) {
        for (int y = part.top() * ratio; y <= part.bottom() * ratio; ++y) {
            for (int x = part.left() * ratio; x <= part.right() * ratio; ++x)
                ASSERT_EQ(picture.pixel(x, y) & 0xFFFFFF, color) << x << ", " << y;
        }
    }
}

}  // namespace

TEST(PanelStatesPaint, a_collapsed_panel_is_its_header_with_the_chevron_turned_down) {
    const PanelProperties p = WithEverything();
    PlacedPanel placed(p, 120, 90);
    placed.panel.Collapse();
    EXPECT_EQ(placed.panel.size(), QSize(120, 25));
    ExpectModel(placed, p, true);
    placed.panel.Expand();
    EXPECT_EQ(placed.panel.size(), QSize(120, 90));
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, a_collapsed_panel_that_is_made_higher_has_no_grip) {
    PanelProperties p = WithEverything();
    p.FooterSize = 1;
    PlacedPanel placed(p, 120, 90);
    placed.panel.Collapse();
    placed.panel.resize(130, 80);
    ExpectModel(placed, p, true);
}

TEST(PanelStatesPaint, a_panel_of_its_headers_height_shows_that_it_is_collapsed_and_expanded) {
    const PanelProperties p = WithEverything();
    PlacedPanel placed(p, 120, 25);
    placed.panel.Collapse();
    ExpectModel(placed, p, true);
    placed.panel.Expand();
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, of_any_size_is_as_the_numbers_have_it) {
    constexpr std::array sizes{0, 1, 2, 3, 5, 17, 22, 24, 26, 40, 45};
    for (const bool classic : {false, true}) {
        PanelProperties p = WithEverything();
        p.ClassicXPStyle = classic;
        PlacedPanel placed(p, 120, 90);
        for (const int width : sizes) {
            for (const int height : sizes) {
                placed.panel.resize(width, height);
                const QImage picture = placed.Picture();
                // A line without room, or whose corners touch.
                const int least = classic ? 14 : 3;
                if (width < least || height < least) continue;
                EXPECT_EQ(PanelModel(p, width, height).FirstDifference(picture), "");
            }
        }
    }
}

TEST(PanelStatesPaint, with_corners_larger_than_itself_is_an_ellipse) {
    PanelProperties p = WithCustomColors();
    p.ContainerShapeStyle = 1;
    p.ContainerCornerRadius = 80;
    const PlacedPanel placed(p, 40, 30);
    // From the top to the middle row, as the setting's own drawing calls were seen to do it.
    constexpr std::array insets{15, 11, 9, 7, 6, 4, 3, 3, 2, 1, 1, 0, 0, 0, 0};
    for (int y = 0; y < 29; ++y) {
        const int inset = insets[static_cast<std::size_t>(std::min(y, 28 - y))];
        for (int x = 0; x < 40; ++x)
            EXPECT_EQ(placed.Window().contains(QPoint(x, y)), x >= inset && x < 39 - inset)
                << x << ", " << y;
    }
}

TEST(PanelStatesPaint, of_a_narrow_shape_has_rows_that_only_grow_toward_the_middle) {
    PanelProperties p = WithCustomColors();
    p.ContainerShapeStyle = 1;
    p.ContainerCornerRadius = 80;
    PlacedPanel placed(p, 60, 50);
    for (const int width : {4, 5, 6, 9}) {
        placed.panel.resize(width, 60);
        int last = 0;
        for (int y = 0; y < 30; ++y) {
            const int row = (placed.Window() & QRect(0, y, width, 1)).boundingRect().width();
            EXPECT_GE(row, last) << width << ": " << y;
            last = row;
        }
        EXPECT_EQ(last, width - 1);
    }
}

TEST(PanelStatesPaint, of_any_size_and_any_radius_does_not_fail) {
    PanelProperties p = WithEverything();
    p.ContainerShapeStyle = 1;
    PlacedPanel placed(p, 60, 50);
    for (const Integer radius : Integers{-32768, -5, 3, 9, 64, 32767}) {
        placed.panel.ContainerCornerRadius(radius);
        for (const int side : {0, 1, 2, 3, 4, 7, 60}) {
            placed.panel.resize(side, side + 1);
            EXPECT_EQ(placed.Picture().isNull(), side == 0);
        }
    }
}

TEST(PanelStatesPaint, while_it_is_resized_is_its_containers_start_colour) {
    PanelProperties p = WithEverything();
    p.ContainerShapeStyle = 1;
    PlacedPanel placed(p, 120, 90);
    DragGripTo(placed.panel, {150, 130});
    const QSize size = placed.panel.size();
    EXPECT_NE(size, QSize(120, 90));
    EXPECT_EQ(PanelModel(p, size.width(), size.height()).FirstDifference(placed.Window()), "");
    ExpectOneColor(placed, PanelModel::Shown(p.ContainerBackColor));
    SendMouse(placed.panel, QEvent::MouseButtonRelease, {150, 130}, Qt::LeftButton);
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, while_it_is_resized_a_system_colour_is_looked_up) {
    const ColorfulPalette palette;
    PanelProperties p = WithEverything();
    p.ContainerBackColor = 0x8000000F;
    PlacedPanel placed(p, 120, 90);
    DragGripTo(placed.panel, {150, 130});
    ExpectOneColor(placed, PanelModel::Shown(0x8000000F));
}

TEST(PanelStatesPaint, while_it_is_resized_a_theme_gives_the_colour) {
    PanelProperties p;
    p.ContainerResizable = true;
    p.Appearence = 7;
    PlacedPanel placed(p, 120, 90);
    DragGripTo(placed.panel, {150, 130});
    ExpectOneColor(placed, 0xFFDEAD);
}

TEST(PanelStatesPaint, takes_each_theme_as_it_is_set) {
    PanelProperties p;
    PlacedPanel placed(p, 120, 90);
    for (p.Appearence = 11; p.Appearence >= 0; --p.Appearence) {
        SCOPED_TRACE(p.Appearence);
        placed.panel.Appearence(p.Appearence);
        ExpectModel(placed, p);
    }
}

TEST(PanelStatesPaint, takes_its_theme_when_custom_colours_are_switched_off) {
    PanelProperties p = WithEverything();
    p.Appearence = 7;
    PlacedPanel placed(p, 120, 90);
    placed.panel.UseCustomColors(p.UseCustomColors = false);
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, without_a_theme_keeps_the_colours_of_when_custom_ones_were_switched_on) {
    PanelProperties p = WithEverything();
    p.UseCustomColors = false;
    p.Appearence = 12;
    PlacedPanel placed(p, 120, 90);
    placed.panel.UseCustomColors(true);
    placed.panel.ContainerBackColor(0);
    placed.panel.CollapseButtonColor(0);
    placed.panel.UseCustomColors(false);
    p.UseCustomColors = true;
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, a_theme_that_there_is_not_leaves_the_last_one) {
    PanelProperties p;
    p.Appearence = 8;
    PlacedPanel placed(p, 120, 90);
    placed.panel.Appearence(12);
    ExpectModel(placed, p);
    placed.panel.Appearence(-1);
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, a_theme_that_there_is_not_is_the_first_one_when_it_is_loaded) {
    PanelProperties p;
    p.Appearence = 8;
    PlacedPanel placed(p, 120, 90);
    p.Appearence = 12;
    placed.Read(p);
    p.Appearence = 0;
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, follows_every_change_at_once) {
    PanelProperties p;
    PlacedPanel placed(p, 120, 90);
    placed.panel.HeaderText({});
    ExpectModel(placed, p);
    placed.panel.UseCustomColors(p.UseCustomColors = true);
    ExpectModel(placed, p);
    placed.panel.ContainerShapeStyle(p.ContainerShapeStyle = 1);
    ExpectModel(placed, p);
    placed.panel.Expandable(p.Expandable = true);
    ExpectModel(placed, p);
    placed.panel.FooterVisible(p.FooterVisible = false);
    ExpectModel(placed, p);
    placed.panel.ContainerShapeStyle(p.ContainerShapeStyle = 0);
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, classic_style_and_back) {
    const ColorfulPalette palette;
    PanelProperties p = WithEverything();
    PlacedPanel placed(p, 120, 90);
    placed.panel.ClassicXPStyle(true);
    p.ClassicXPStyle = true;
    p.BackColor = 0x8000000F;
    ExpectModel(placed, p);
    placed.panel.ClassicXPStyle(p.ClassicXPStyle = false);
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, follows_the_desktops_colours) {
    PanelProperties p = WithEverything();
    p.HeaderBackColor = p.FooterFadeColor = p.BackColor = 0x8000000F;
    PlacedPanel placed(p, 120, 90);
    ExpectModel(placed, p);
    const ColorfulPalette palette;
    QApplication::processEvents();
    ExpectModel(placed, p);
}

TEST(PanelStatesPaint, a_new_panel_is_that_of_the_first_theme) {
    PanelProperties p;
    xpFrame panel;
    panel.HeaderText({});
    panel.resize(120, 90);
    EXPECT_EQ(PanelModel(p, 120, 90).FirstDifference(panel.grab().toImage()), "");
}

TEST(PanelStatesPaint, without_a_pixel_in_its_shape_is_not_seen) {
    PlacedPanel placed(WithEverything(), 120, 90);
    for (const QSize size : {QSize(1, 50), QSize(50, 1)}) {
        placed.panel.resize(size);
        EXPECT_TRUE(placed.Window().isEmpty());
    }
}

}  // namespace tavel::test
