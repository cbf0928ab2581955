#include "ui/panel/PanelUnderHand.h"
#include "ui/toolkit/panel/InnerLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>

namespace tavel::test {

namespace {

using testing::ElementsAre;

class PanelSetter : public PanelUnderHand {};

// Sets the property to the value and asks for it again.
template <class Getter, class Setter, class Value>
void ExpectKept(const xpFrame& panel, RecordingHost& host, Getter get, Setter set, Value value,
                const char* name) {
    host.changes.clear();
    set(value);
    EXPECT_EQ((panel.*get)(), value) << name;
    EXPECT_THAT(host.changes, ElementsAre(name));
}

}  // namespace

#define EXPECT_SET(type, property, value, name)                                        \
    ExpectKept<type (xpFrame::*)() const>(                                             \
        panel, host, &xpFrame::property, [this](const auto& v) { panel.property(v); }, \
        std::decay_t<type>(value), name)

TEST_F(PanelSetter, keeps_the_value_and_tells_the_host_under_the_propertys_name) {
    const QFont font(QStringLiteral("Times"), 31);
    const PanelPicture picture(Square());
    EXPECT_SET(const QString&, HeaderText, QStringLiteral("News"), "HeaderText");
    EXPECT_SET(const QFont&, HeaderTextFont, font, "HeaderTextFont");
    EXPECT_SET(Integer, HeaderTextAlign, 4, "HeaderTextAlign");
    EXPECT_SET(OleColor, HeaderTextColor, 1, "HeaderTextColor");
    EXPECT_SET(Integer, HeaderSize, 2, "HeaderSize");
    EXPECT_SET(bool, Closeable, true, "closeable");
    EXPECT_SET(bool, HeaderVisible, false, "HeaderVisible");
    EXPECT_SET(OleColor, HeaderBackColor, 2, "HeaderBackColor");
    EXPECT_SET(OleColor, HeaderFadeColor, 3, "HeaderFadeColor");
    EXPECT_SET(Integer, HeaderFillStyle, 0, "HeaderFillStyle");
    EXPECT_SET(const PanelPicture&, HeaderPicture, picture, "HeaderPicture");
    EXPECT_SET(Integer, HeaderPictureSize, 24, "HeaderPictureSize");
    EXPECT_SET(const QString&, FooterText, QStringLiteral("Old"), "FooterText");
    EXPECT_SET(const QFont&, FooterTextFont, font, "footerTextFont");
    EXPECT_SET(Integer, FooterTextAlign, 8, "FooterTextAlign");
    EXPECT_SET(OleColor, FooterTextColor, 4, "FooterTextColor");
    EXPECT_SET(Integer, FooterSize, 1, "FooterSize");
    EXPECT_SET(bool, FooterVisible, false, "FooterVisible");
    EXPECT_SET(bool, HeaderPictureVisible, false, "HeaderPictureVisible");
    EXPECT_SET(bool, ZOrderOnFocus, true, "ZOrderOnFocus");
    EXPECT_SET(bool, ContainerPictureVisible, false, "ContainerPictureVisible");
    EXPECT_SET(bool, ContainerMoveable, true, "ContainerMoveable");
    EXPECT_SET(bool, ContainerResizable, true, "ContainerResizable");
    EXPECT_SET(OleColor, FooterBackColor, 5, "FooterBackColor");
    EXPECT_SET(OleColor, FooterFadeColor, 6, "FooterFadeColor");
    EXPECT_SET(Integer, FooterFillStyle, 0, "FooterFillStyle");
    EXPECT_SET(const QFont&, ContainerTextFont, font, "ContainerTextFont");
    EXPECT_SET(OleColor, ContainerBackColor, 7, "ContainerBackColor");
    EXPECT_SET(OleColor, ContainerFadeColor, 8, "ContainerFadeColor");
    EXPECT_SET(Integer, ContainerFillStyle, 0, "ContainerFillStyle");
    EXPECT_SET(OleColor, ContainerForeColor, 9, "ContainerForeColor");
    EXPECT_SET(OleColor, ContainerBorderColor, 10, "ContainerBorderColor");
    EXPECT_SET(Integer, ContainerBorderStyle, 2, "ContainerBorderStyle");
    EXPECT_SET(Long, ContainerShapeStyle, 70000, "ContainerShapeStyle");
    EXPECT_SET(Integer, ContainerCornerRadius, 30, "ContainerCornerRadius");
    EXPECT_SET(const PanelPicture&, ContainerPicture, picture, "ContainerPicture");
    EXPECT_SET(Integer, ContainerPictureSize, 48, "ContainerPictureSize");
    EXPECT_SET(Integer, ContainerPictureBufferTop, 11, "ContainerPictureBufferTop");
    EXPECT_SET(Integer, ContainerPictureBufferLeft, 12, "ContainerPictureBufferLeft");
    EXPECT_SET(bool, UseCustomColors, true, "UseCustomColors");
    EXPECT_SET(Integer, Appearence, 12, "Appearence");
    EXPECT_SET(bool, enabled, false, "Enabled");
    EXPECT_SET(bool, Expandable, true, "Expandable");
    EXPECT_SET(OleColor, CollapseButtonColor, 13, "CollapseButtonColor");
    EXPECT_SET(OleColor, BackColor, 14, "BackColor");
    EXPECT_SET(bool, ClassicXPStyle, true, "ClassicXPStyle");
}

#undef EXPECT_SET

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
    panel.ClassicXPStyle(true);
    EXPECT_EQ(panel.BackColor(), 0x8000000FU);
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
    EXPECT_THAT(host.calls, ElementsAre("zorder 0", "zorder 0"));
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
    bool collapses = false;
    QObject::connect(&panel, &xpFrame::ChevronClick,
                     [&](int, int, float, float, bool Collapse) { collapses = Collapse; });
    Click(Chevron());
    EXPECT_TRUE(collapses);
}

TEST_F(PanelSetter, of_a_theme_that_there_is_not_leaves_custom_colours_too) {
    panel.ContainerBackColor(0x102030);
    panel.ContainerFadeColor(0x102030);
    panel.UseCustomColors(true);
    panel.Appearence(12);
    panel.UseCustomColors(false);
    EXPECT_EQ(panel.Surface().pixelColor(100, 100), QColor(0x30, 0x20, 0x10));
}

TEST_F(PanelSetter, of_classic_style_keeps_the_inner_label_above_the_children_and_in_its_font) {
    panel.ClassicXPStyle(true);
    auto* label = panel.findChild<InnerLabel*>();
    const QPushButton child(&panel);
    QFont font = panel.font();
    font.setPixelSize(31);
    ASSERT_EQ(panel.children().last(), &child);
    panel.HeaderTextFont(font);
    EXPECT_EQ(panel.children().last(), label);
    EXPECT_EQ(label->font().pixelSize(), 31);
}

}  // namespace tavel::test
