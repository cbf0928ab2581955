#include "ui/toolkit/BoxStyle.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <cmath>

namespace {

// How far the edge of an empty box stands out from what is around it, in steps of lightness.
int EdgeContrast(const QPalette& palette) {
    tavel::BoxStyle style;
    style.setBaseStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QCheckBox box(QStringLiteral("A box"));
    box.setStyle(&style);
    box.setPalette(palette);
    box.resize(box.sizeHint());
    QStyleOptionButton option;
    option.initFrom(&box);
    const QRect edges = box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
    const QImage picture = box.grab().toImage();
    const int edge = picture.pixelColor(edges.center().x(), edges.top()).lightness();
    return std::abs(edge - palette.color(QPalette::Window).lightness());
}

QPalette PaletteOf(const QColor& window, const QColor& base, const QColor& text) {
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    return palette;
}

TEST(BoxStyle, is_the_style_of_the_program) {
    EXPECT_NE(dynamic_cast<const tavel::BoxStyle*>(QApplication::style()), nullptr);
}

TEST(BoxStyle, an_empty_check_box_can_be_seen_on_dark_and_light_desktops) {
    constexpr int clear = 50;
    EXPECT_GT(EdgeContrast(PaletteOf({49, 54, 59}, {35, 38, 41}, {252, 252, 252})), clear);
    EXPECT_GT(EdgeContrast(PaletteOf({239, 240, 241}, {255, 255, 255}, {35, 38, 41})), clear);
}

}  // namespace
