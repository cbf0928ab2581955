#include "ui/panel/PanelUnderHand.h"
#include "ui/toolkit/panel/InnerLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>
#include <vector>

namespace tavel::test {

namespace {

using testing::ElementsAre;

// A property of a panel and the name under which the host hears of it.
template <class Argument>
struct Property {
    Argument (xpFrame::*get)() const;
    void (xpFrame::*set)(Argument);
    const char* name;
};

#define OF(property) \
    { &xpFrame::property, &xpFrame::property, #property }

const std::vector<Property<bool>> switches{
    {&xpFrame::Closeable, &xpFrame::Closeable, "closeable"},
    OF(HeaderVisible),
    OF(FooterVisible),
    OF(HeaderPictureVisible),
    OF(ZOrderOnFocus),
    OF(ContainerPictureVisible),
    OF(ContainerMoveable),
    OF(ContainerResizable),
    OF(UseCustomColors),
    {&xpFrame::enabled, &xpFrame::enabled, "Enabled"},
    OF(Expandable),
    OF(ClassicXPStyle),
};
const std::vector<Property<Integer>> numbers{
    OF(HeaderTextAlign),
    OF(HeaderSize),
    OF(HeaderFillStyle),
    OF(HeaderPictureSize),
    OF(FooterTextAlign),
    OF(FooterSize),
    OF(FooterFillStyle),
    OF(ContainerFillStyle),
    OF(ContainerBorderStyle),
    OF(ContainerCornerRadius),
    OF(ContainerPictureSize),
    OF(ContainerPictureBufferTop),
    OF(ContainerPictureBufferLeft),
    OF(Appearence),
};
const std::vector<Property<OleColor>> colors{
    OF(HeaderTextColor),      OF(HeaderBackColor),     OF(HeaderFadeColor),
    OF(FooterTextColor),      OF(FooterBackColor),     OF(FooterFadeColor),
    OF(ContainerBackColor),   OF(ContainerFadeColor),  OF(ContainerForeColor),
    OF(ContainerBorderColor), OF(CollapseButtonColor), OF(BackColor),
};
const std::vector<Property<const QString&>> texts{OF(HeaderText), OF(FooterText)};
const std::vector<Property<const QFont&>> fonts{
    OF(HeaderTextFont),
    {&xpFrame::FooterTextFont, &xpFrame::FooterTextFont, "footerTextFont"},
    OF(ContainerTextFont),
};
const std::vector<Property<const PanelPicture&>> pictures{OF(HeaderPicture), OF(ContainerPicture)};
const std::vector<Property<Long>> longNumbers{OF(ContainerShapeStyle)};

#undef OF

class PanelSetter : public PanelUnderHand {
  protected:
    // Sets each property to what the function makes of its value, twice, and asks for it again.
    template <class Argument, class Change>
    void ExpectKept(const std::vector<Property<Argument>>& properties, Change change) {
        for (const Property<Argument>& property : properties) {
            const std::decay_t<Argument> before = (panel.*property.get)();
            const std::decay_t<Argument> value = change(before);
            ASSERT_NE(value, before) << property.name;
            host.changes.clear();
            host.onChange = [&] { EXPECT_EQ((panel.*property.get)(), value) << property.name; };
            (panel.*property.set)(value);
            (panel.*property.set)(value);
            EXPECT_EQ((panel.*property.get)(), value) << property.name;
            EXPECT_THAT(host.changes, ElementsAre(property.name, property.name));
            const QPixmap shown = panel.grab();
            panel.Refresh();
            EXPECT_EQ(panel.grab().toImage(), shown.toImage()) << property.name;
        }
        host.onChange = {};
    }
};

}  // namespace

TEST_F(PanelSetter, keeps_the_value_and_tells_the_host_under_the_propertys_name) {
    ExpectKept(texts, [](const QString& text) { return text + QStringLiteral("News"); });
    ExpectKept(fonts, [](const QFont&) { return QFont(QStringLiteral("Times"), 31); });
    ExpectKept(pictures, [](const PanelPicture&) { return PanelPicture(Square()); });
    ExpectKept(numbers, [](Integer number) { return static_cast<Integer>(number + 1); });
    ExpectKept(longNumbers, [](Long) { return 70000; });
    ExpectKept(colors, [](OleColor color) { return color + 1; });
    ExpectKept(switches, [](bool isOn) { return !isOn; });
}

TEST_F(PanelSetter, and_Refresh_paint_the_panel_anew) {
    PaintCounter paints(panel);
    paints.Taken();
    ASSERT_EQ(paints.Taken(), 0);
    panel.HeaderFillStyle(0);
    EXPECT_EQ(paints.Taken(), 1);
    panel.Refresh();
    EXPECT_EQ(paints.Taken(), 1);
}

TEST_F(PanelSetter, of_the_headers_text_names_the_panel_for_screen_readers) {
    EXPECT_EQ(panel.accessibleName(), QStringLiteral("xpFrame3"));
    panel.HeaderText(QStringLiteral("News"));
    EXPECT_EQ(panel.accessibleName(), QStringLiteral("News"));
    MemoryPropertyBag bag;
    bag.WriteProperty("HeaderText", QStringLiteral("Old"));
    panel.ReadProperties(bag);
    EXPECT_EQ(panel.accessibleName(), QStringLiteral("Old"));
}

TEST_F(PanelSetter, of_classic_style_gives_the_panel_its_own_back_colour_when_it_is_on) {
    panel.BackColor(5);
    panel.ClassicXPStyle(false);
    EXPECT_EQ(panel.BackColor(), 5U);
    for (int times = 0; times < 2; ++times) {
        panel.BackColor(5);
        panel.ClassicXPStyle(true);
        EXPECT_EQ(panel.BackColor(), 0x8000000FU);
    }
}

TEST_F(PanelSetter, of_a_chevron_or_a_grip_leaves_it_off_in_classic_style) {
    panel.ClassicXPStyle(true);
    panel.Expandable(true);
    panel.ContainerResizable(true);
    EXPECT_FALSE(panel.Expandable());
    EXPECT_FALSE(panel.ContainerResizable());
    panel.ClassicXPStyle(false);
    panel.Expandable(true);
    panel.ContainerResizable(true);
    panel.ClassicXPStyle(true);
    EXPECT_TRUE(panel.Expandable());
    EXPECT_TRUE(panel.ContainerResizable());
}

TEST_F(PanelSetter, of_classic_style_shows_the_inner_label_over_the_whole_panel_below_the_mouse) {
    auto* label = panel.findChild<InnerLabel*>();
    ASSERT_NE(label, nullptr);
    EXPECT_FALSE(label->isVisible());
    const QPushButton child(&panel);
    panel.HeaderText(QStringLiteral("News"));
    panel.ClassicXPStyle(true);
    EXPECT_EQ(panel.children().last(), label) << "in front of the children";
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(label->text(), QStringLiteral("News"));
    EXPECT_EQ(label->font().family(), panel.HeaderTextFont().family());
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(0, 70, 213));
    panel.resize(120, 90);
    EXPECT_EQ(label->geometry(), panel.rect());
    Listen();
    Press({20, 10});
    EXPECT_THAT(events, ElementsAre("MouseDown 1 0 20 10"));
    Release();
    panel.ClassicXPStyle(false);
    EXPECT_FALSE(label->isVisible());
}

TEST_F(PanelSetter, of_the_z_order_on_focus_brings_the_panel_to_the_front_either_way) {
    panel.ZOrderOnFocus(true);
    EXPECT_THAT(host.calls, ElementsAre("zorder 0"));
    panel.ZOrderOnFocus(false);
    panel.ZOrderOnFocus(false);
    EXPECT_THAT(host.calls, ElementsAre("zorder 0", "zorder 0", "zorder 0"));
}

TEST_F(PanelSetter, of_enabled_reaches_every_child_control) {
    QPushButton on(&panel);
    QPushButton off(&panel);
    off.setEnabled(false);
    panel.enabled(false);
    EXPECT_FALSE(on.isEnabled());
    EXPECT_FALSE(panel.isEnabled());
    EXPECT_TRUE(on.testAttribute(Qt::WA_ForceDisabled));
    panel.enabled(true);
    EXPECT_TRUE(on.isEnabled());
    EXPECT_TRUE(off.isEnabled());
    off.setEnabled(false);
    panel.enabled(true);
    EXPECT_TRUE(off.isEnabled());
}

TEST_F(PanelSetter, of_enabled_is_applied_to_the_children_at_load_when_it_is_off) {
    QPushButton child(&panel);
    child.setEnabled(false);
    panel.ReadProperties(MemoryPropertyBag());
    EXPECT_FALSE(child.isEnabled());  // the host's own doing stays
    child.setEnabled(true);
    MemoryPropertyBag bag;
    bag.WriteProperty("Enabled", false);
    panel.ReadProperties(bag);
    EXPECT_TRUE(child.testAttribute(Qt::WA_ForceDisabled));
}

TEST_F(PanelSetter, of_custom_colours_draws_with_them_whatever_the_order) {
    panel.ContainerBackColor(0x102030);
    panel.ContainerFadeColor(0x102030);
    panel.UseCustomColors(true);
    EXPECT_EQ(panel.Surface().pixelColor(100, 100), QColor(0x30, 0x20, 0x10));
    panel.ContainerBackColor(0x405060);
    panel.ContainerFadeColor(0x405060);
    EXPECT_EQ(panel.Surface().pixelColor(100, 100), QColor(0x60, 0x50, 0x40));
    panel.UseCustomColors(false);
    EXPECT_EQ(panel.Surface().pixelColor(100, 100), QColor(142, 179, 231));
}

TEST_F(PanelSetter, of_expandable_counts_the_panel_as_expanded) {
    panel.Expandable(true);
    Click(Chevron());
    ASSERT_EQ(panel.height(), 25);
    panel.Expandable(true);
    EXPECT_EQ(panel.height(), 25);
    const QImage shown = panel.Surface();
    panel.Refresh();
    EXPECT_EQ(panel.Surface(), shown);
    bool collapses = false;
    QObject::connect(&panel, &xpFrame::ChevronClick,
                     [&](int, int, float, float, bool Collapse) { collapses = Collapse; });
    Click(Chevron());
    EXPECT_TRUE(collapses);
}

TEST_F(PanelSetter, of_a_theme_that_there_is_not_leaves_the_custom_colours_of_then) {
    panel.ContainerBackColor(0x102030);
    panel.ContainerFadeColor(0x102030);
    panel.UseCustomColors(true);
    panel.Appearence(12);
    EXPECT_EQ(panel.Appearence(), 12);
    panel.ContainerBackColor(0x405060);
    panel.ContainerFadeColor(0x405060);
    panel.UseCustomColors(false);
    EXPECT_EQ(panel.Surface().pixelColor(100, 100), QColor(0x30, 0x20, 0x10));
}

TEST_F(PanelSetter,
       of_classic_style_keeps_the_inner_label_above_the_children_with_the_headers_text_and_font) {
    panel.ClassicXPStyle(true);
    auto* label = panel.findChild<InnerLabel*>();
    const QPushButton child(&panel);
    QFont font = panel.font();
    font.setPixelSize(31);
    ASSERT_EQ(panel.children().last(), &child);
    panel.HeaderTextFont(font);
    EXPECT_EQ(panel.children().last(), label);
    EXPECT_EQ(label->font().pixelSize(), 31);
    panel.HeaderText(QStringLiteral("News"));
    EXPECT_EQ(label->text(), QStringLiteral("News"));
}

TEST_F(PanelSetter, of_the_headers_font_is_the_inner_labels_whatever_the_windows_is) {
    panel.ClassicXPStyle(true);
    panel.HeaderTextFont(QFont());
    const QString family = QFont().family();
    const auto* label = panel.findChild<InnerLabel*>();
    window.setFont(QFont(QStringLiteral("Times"), 23));
    panel.Refresh();
    EXPECT_EQ(label->font().family(), family);
    EXPECT_EQ(label->font().pointSizeF(), QFont().pointSizeF());
}

TEST_F(PanelSetter, of_the_containers_font_and_text_colour_draws_nothing) {
    for (const bool classic : {false, true}) {
        panel.ClassicXPStyle(classic);
        const QImage before = panel.Surface();
        panel.ContainerTextFont(QFont(QStringLiteral("Times"), 23));
        panel.ContainerForeColor(0x1234FF);
        EXPECT_EQ(panel.Surface(), before) << classic;
    }
}

}  // namespace tavel::test
