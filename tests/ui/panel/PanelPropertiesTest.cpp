#include "platform/Failure.h"
#include "ui/panel/PanelUnderHand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr OleColor white = 0xFFFFFF;
constexpr OleColor blue = 14248960;
constexpr OleColor face = 0x8000000F;

QFont AmbientFont() { return RecordingHost().AmbientFont(); }

struct Expected {
    const char* key;
    PropertyValue init;
    PropertyValue stored;  // what a store without the key gives
};

const std::vector<Expected>& AllProperties() {
    static const PropertyValue none = PanelPicture();
    static const PropertyValue ambient = AmbientFont();
    static const std::vector<Expected> all{
        {"HeaderText", QStringLiteral("xpFrame3"), QStringLiteral("Header")},
        {"HeaderTextFont", ambient, ambient},
        {"HeaderTextAlign", 0, 0},
        {"HeaderTextColor", white, white},
        {"HeaderSize", 1, 1},
        {"Closeable", false, false},
        {"HeaderVisible", true, true},
        {"HeaderBackColor", white, white},
        {"HeaderFadeColor", blue, blue},
        {"HeaderFillStyle", 1, 1},
        {"HeaderPicture", none, none},
        {"HeaderPictureSize", 16, 16},
        {"FooterText", QString(), QStringLiteral("Footer")},
        {"footerTextFont", ambient, ambient},
        {"FooterTextAlign", 0, 0},
        {"FooterTextColor", white, white},
        {"FooterSize", 0, 0},
        {"FooterVisible", true, true},
        {"HeaderPictureVisible", true, true},
        {"ClassicXPStyle", false, true},
        {"ZOrderOnFocus", false, true},
        {"ContainerPictureVisible", true, true},
        {"ContainerMovable", false, false},
        {"ContainerResizable", false, false},
        {"FooterBackColor", blue, blue},
        {"FooterFadeColor", white, white},
        {"FooterFillStyle", 1, 1},
        {"ContainerTextFont", ambient, ambient},
        {"ContainerBackColor", face, face},
        {"ContainerFadeColor", face, face},
        {"ContainerFillStyle", 1, 1},
        {"ContainerForeColor", OleColor(0x80000012), OleColor(0x80000012)},
        {"ContainerBorderColor", OleColor(0), OleColor(0)},
        {"ContainerBorderStyle", 0, 0},
        {"ContainerShapeStyle", 0, 0},
        {"ContainerCornerRadius", 20, 20},
        {"ContainerPicture", none, none},
        {"ContainerPictureSize", 32, 32},
        {"ContainerPictureBufferTop", 0, 0},
        {"ContainerPictureBufferLeft", 0, 0},
        {"UseCustomColors", false, false},
        {"Appearence", 0, 0},
        {"Enabled", true, true},
        {"Expandable", false, false},
        {"CollapseButtonColor", OleColor(255), OleColor(255)},
        {"BackColor", face, face},
    };
    return all;
}

// What goes into a store and out of it, each with its default; the store itself keeps nothing.
class RecordingBag : public PropertyBag {
  public:
    struct Access {
        std::string key;
        std::optional<PropertyValue> defaultValue;
        PropertyValue value;
    };

    PropertyValue ReadProperty(std::string_view sKey,
                               const PropertyValue& defaultValue) const override {
        reads.push_back({std::string(sKey), defaultValue, {}});
        return defaultValue;
    }
    void WriteProperty(std::string_view sKey, const PropertyValue& value,
                       const std::optional<PropertyValue>& defaultValue) override {
        writes.push_back({std::string(sKey), defaultValue, value});
    }

    mutable std::vector<Access> reads;
    std::vector<Access> writes;
};

std::vector<RecordingBag::Access> Of(const std::vector<RecordingBag::Access>& accesses,
                                     std::string_view sKey) {
    std::vector<RecordingBag::Access> found;
    for (const auto& access : accesses) {
        if (access.key == sKey) found.push_back(access);
    }
    return found;
}

// All properties as a store without defaults gets them.
std::map<std::string, PropertyValue> ValuesOf(const xpFrame& panel) {
    RecordingBag bag;
    panel.WriteProperties(bag);
    std::map<std::string, PropertyValue> values;
    for (const auto& write : bag.writes) values.insert_or_assign(write.key, write.value);
    return values;
}

const std::set<std::string_view> alwaysWritten{"HeaderPicture", "ContainerPicture", "BackColor"};

QImage RedSquare() {
    QImage red(4, 4, QImage::Format_RGB32);
    red.fill(Qt::red);
    return red;
}

// A value that is neither a new panel's nor a store's default.
PropertyValue OtherThan(const Expected& property) {
    return std::visit(
        [&](const auto& init) -> PropertyValue {
            using Value = std::decay_t<decltype(init)>;
            if constexpr (std::is_same_v<Value, bool>) {
                return !std::get<bool>(property.stored);
            } else if constexpr (std::is_same_v<Value, QString>) {
                return QStringLiteral("Other & one");
            } else if constexpr (std::is_same_v<Value, QFont>) {
                return QFont(QStringLiteral("Times"), 9);
            } else if constexpr (std::is_same_v<Value, PanelPicture>) {
                return PanelPicture(RedSquare());
            } else {
                return Value(init + 1);
            }
        },
        property.init);
}

class PanelPropertiesOf : public PanelUnderHand {};

}  // namespace

TEST_F(PanelPropertiesOf, a_new_panel_are_the_tables) {
    const auto values = ValuesOf(panel);
    for (const Expected& property : AllProperties())
        EXPECT_EQ(values.at(property.key), property.init) << property.key;
    EXPECT_EQ(values.size(), AllProperties().size());
}

TEST_F(PanelPropertiesOf, a_new_panel_are_the_tables_again_but_for_switches_that_are_on) {
    MemoryPropertyBag bag;
    for (const Expected& property : AllProperties())
        bag.WriteProperty(property.key, OtherThan(property));
    bag.WriteProperty("ClassicXPStyle", true);
    bag.WriteProperty("ZOrderOnFocus", true);
    panel.ReadProperties(bag);
    panel.InitProperties();
    const auto values = ValuesOf(panel);
    for (const Expected& property : AllProperties()) {
        const bool isOff = property.init == PropertyValue(false);
        EXPECT_EQ(values.at(property.key), isOff ? PropertyValue(true) : property.init)
            << property.key;
    }
}

TEST_F(PanelPropertiesOf, a_new_panel_without_a_host_come_from_its_window) {
    window.setFont(QFont(QStringLiteral("Times"), 23));
    xpFrame placed(&window);
    placed.setObjectName(QStringLiteral("xpFrame1"));
    placed.InitProperties();
    EXPECT_EQ(placed.HeaderText(), QStringLiteral("xpFrame1"));
    EXPECT_EQ(placed.FooterTextFont().pointSize(), 23);
    placed.closeMe();
    EXPECT_TRUE(placed.isHidden());
    placed.showMe();
    EXPECT_FALSE(placed.isHidden());
}

TEST_F(PanelPropertiesOf, an_empty_store_are_the_defaults_of_a_store) {
    panel.ReadProperties(MemoryPropertyBag());
    const auto values = ValuesOf(panel);
    for (const Expected& property : AllProperties())
        EXPECT_EQ(values.at(property.key), property.stored) << property.key;
    EXPECT_TRUE(panel.ClassicXPStyle());
    EXPECT_TRUE(panel.ZOrderOnFocus());
    EXPECT_EQ(panel.HeaderText(), QStringLiteral("Header"));
    EXPECT_EQ(panel.FooterText(), QStringLiteral("Footer"));
}

TEST_F(PanelPropertiesOf, a_store_are_read_with_its_defaults_and_the_texts_twice) {
    const RecordingBag bag;
    panel.ReadProperties(bag);
    for (const Expected& property : AllProperties()) {
        const auto reads = Of(bag.reads, property.key);
        const bool isText = property.key == std::string_view("HeaderText") ||
                            property.key == std::string_view("FooterText");
        ASSERT_EQ(reads.size(), isText ? 2U : 1U) << property.key;
        for (const auto& read : reads) EXPECT_EQ(read.defaultValue, property.stored) << read.key;
    }
    EXPECT_EQ(bag.reads.size(), AllProperties().size() + 2);
}

TEST_F(PanelPropertiesOf, a_panel_are_written_with_the_defaults_of_a_store) {
    RecordingBag bag;
    panel.WriteProperties(bag);
    for (const Expected& property : AllProperties()) {
        const auto writes = Of(bag.writes, property.key);
        ASSERT_FALSE(writes.empty()) << property.key;
        EXPECT_EQ(writes.front().value, property.init) << property.key;
        if (alwaysWritten.contains(property.key)) {
            EXPECT_EQ(writes.front().defaultValue, std::nullopt) << property.key;
        } else {
            EXPECT_EQ(writes.front().defaultValue, property.stored) << property.key;
        }
    }
    EXPECT_EQ(bag.writes.size(), AllProperties().size() + 2);
}

TEST_F(PanelPropertiesOf, a_panel_have_their_texts_written_twice_the_footers_without_a_default) {
    RecordingBag bag;
    panel.FooterText(QStringLiteral("Footer"));
    panel.WriteProperties(bag);
    const auto header = Of(bag.writes, "HeaderText");
    ASSERT_EQ(header.size(), 2U);
    EXPECT_EQ(header[1].defaultValue, PropertyValue(QStringLiteral("Header")));
    const auto footer = Of(bag.writes, "FooterText");
    ASSERT_EQ(footer.size(), 2U);
    EXPECT_EQ(footer[0].defaultValue, PropertyValue(QStringLiteral("Footer")));
    EXPECT_EQ(footer[1].defaultValue, std::nullopt);
}

TEST_F(PanelPropertiesOf, a_panel_that_are_defaults_leave_little_in_a_store) {
    panel.ReadProperties(MemoryPropertyBag());
    MemoryPropertyBag bag;
    panel.WriteProperties(bag);
    std::vector<std::string> keys;
    for (const auto& [sKey, value] : bag.Values()) keys.push_back(sKey);
    EXPECT_THAT(keys, ElementsAre("BackColor", "ContainerPicture", "FooterText", "HeaderPicture"));
}

TEST_F(PanelPropertiesOf, a_panel_come_back_from_a_store) {
    MemoryPropertyBag bag;
    for (const Expected& property : AllProperties())
        bag.WriteProperty(property.key, OtherThan(property));
    panel.ReadProperties(bag);
    const auto values = ValuesOf(panel);
    for (const Expected& property : AllProperties())
        EXPECT_EQ(values.at(property.key), OtherThan(property)) << property.key;

    MemoryPropertyBag written;
    panel.WriteProperties(written);
    xpFrame other(&window, &host);
    other.ReadProperties(written);
    EXPECT_EQ(ValuesOf(other), values);
}

TEST_F(PanelPropertiesOf, a_store_keep_a_chevron_and_a_grip_in_classic_style) {
    MemoryPropertyBag bag;
    bag.WriteProperty("ClassicXPStyle", true);
    bag.WriteProperty("Expandable", true);
    bag.WriteProperty("ContainerResizable", true);
    panel.ReadProperties(bag);
    EXPECT_TRUE(panel.ClassicXPStyle() && panel.Expandable() && panel.ContainerResizable());
}

TEST_F(PanelPropertiesOf, a_store_leave_a_collapsed_panel_collapsed) {
    panel.Collapse();
    panel.resize(300, 200);
    MemoryPropertyBag bag;
    bag.WriteProperty("ClassicXPStyle", false);
    bag.WriteProperty("ContainerResizable", true);
    panel.ReadProperties(bag);
    EXPECT_FALSE(panel.Areas().grip);
}

TEST_F(PanelPropertiesOf, a_store_and_a_new_panel_switch_the_widget_as_well) {
    MemoryPropertyBag bag;
    bag.WriteProperty("Enabled", false);
    panel.ReadProperties(bag);
    EXPECT_FALSE(panel.isEnabled());
    panel.ReadProperties(MemoryPropertyBag());
    EXPECT_TRUE(panel.isEnabled());
    panel.enabled(false);
    panel.InitProperties();
    EXPECT_TRUE(panel.isEnabled());
}

TEST_F(PanelPropertiesOf, a_store_that_are_of_a_wrong_kind_fail_with_13_and_leave_the_panel) {
    MemoryPropertyBag bag;
    bag.WriteProperty("HeaderText", QStringLiteral("Read"));
    bag.WriteProperty("BackColor", QStringLiteral("red"));
    try {
        panel.ReadProperties(bag);
        FAIL() << "nothing was thrown";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), failure::TypeMismatch);
    }
    EXPECT_EQ(panel.HeaderText(), QStringLiteral("xpFrame3"));
}

TEST_F(PanelPropertiesOf, a_store_that_do_not_fit_fail_with_6) {
    MemoryPropertyBag bag;
    bag.WriteProperty("HeaderSize", 40000);
    try {
        panel.ReadProperties(bag);
        FAIL() << "nothing was thrown";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), failure::Overflow);
    }
}

TEST(MemoryPropertyBag, writes_nothing_that_equals_the_default) {
    MemoryPropertyBag bag;
    bag.WriteProperty("a", 1, PropertyValue(1));
    EXPECT_THAT(bag.Values(), IsEmpty());
    bag.WriteProperty("a", 2, PropertyValue(1));
    bag.WriteProperty("b", 3);
    bag.WriteProperty("b", 1);
    EXPECT_EQ(bag.ReadProperty("a", 7), PropertyValue(2));
    EXPECT_EQ(bag.ReadProperty("b", 7), PropertyValue(1));
    EXPECT_EQ(bag.ReadProperty("c", 7), PropertyValue(7));
}

TEST_F(PanelPropertiesOf, a_new_panel_have_the_first_themes_colours_again) {
    panel.Appearence(7);
    panel.InitProperties();
    EXPECT_EQ(panel.Surface().pixelColor(100, 100), QColor(142, 179, 231));
}

}  // namespace tavel::test
