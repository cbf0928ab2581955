#include "ui/toolkit/SystemColors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <vector>

namespace tavel::test {

namespace {

// A palette of which every role has a colour of its own, for as long as it lives.
class OddPalette {
  public:
    OddPalette() : m_usual(QApplication::palette()) {
        QPalette odd;
        for (int group = 0; group < QPalette::NColorGroups; ++group) {
            for (int role = 0; role < QPalette::NColorRoles; ++role)
                odd.setColor(QPalette::ColorGroup(group), QPalette::ColorRole(role),
                             QColor(group, role, 200));
        }
        QApplication::setPalette(odd);
    }
    ~OddPalette() { QApplication::setPalette(m_usual); }
    OddPalette(const OddPalette&) = delete;
    OddPalette& operator=(const OddPalette&) = delete;

  private:
    QPalette m_usual;
};

}  // namespace

TEST(SystemColor, is_the_color_that_the_palette_has_for_it) {
    struct Place {
        QPalette::ColorRole role;
        std::vector<int> active, inactive, disabled;
    };
    const OddPalette odd;
    for (const Place& place :
         {Place{QPalette::Button, {0, 10, 15, 25}, {3, 11, 28}, {}},
          Place{QPalette::Dark, {1, 12, 16}, {}, {}},
          Place{QPalette::Highlight, {2, 13, 27, 29}, {}, {}},
          Place{QPalette::Window, {4, 30}, {}, {}}, Place{QPalette::Base, {5}, {}, {}},
          Place{QPalette::WindowText, {6, 7}, {19}, {}}, Place{QPalette::Text, {8}, {}, {17}},
          Place{QPalette::HighlightedText, {9, 14}, {}, {}},
          Place{QPalette::ButtonText, {18}, {}, {}}, Place{QPalette::Light, {20}, {}, {}},
          Place{QPalette::Shadow, {21}, {}, {}}, Place{QPalette::Midlight, {22}, {}, {}},
          Place{QPalette::ToolTipText, {23}, {}, {}}, Place{QPalette::ToolTipBase, {24}, {}, {}},
          Place{QPalette::Link, {26}, {}, {}}}) {
        const auto expectAll = [&](const std::vector<int>& indices, QPalette::ColorGroup group) {
            for (const int index : indices)
                EXPECT_EQ(SystemColor(index), QColor(group, place.role, 200)) << index;
        };
        expectAll(place.active, QPalette::Active);
        expectAll(place.inactive, QPalette::Inactive);
        expectAll(place.disabled, QPalette::Disabled);
    }
}

TEST(SystemColor, an_index_that_there_is_not_is_black) {
    const OddPalette odd;
    for (const int index : {-1, 31, 255}) EXPECT_EQ(SystemColor(index), QColor(Qt::black)) << index;
}

TEST(OleColor, has_blue_in_front_and_red_at_the_end) {
    EXPECT_EQ(FromOleColor(0x00332211), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(ToOleColor(QColor(0x11, 0x22, 0x33)), 0x00332211);
    EXPECT_EQ(ToOleColor(QColor(0x11, 0x22, 0x33, 0x44)), 0x00332211);
}

TEST(OleColor, with_0x800000_in_front_names_a_system_color) {
    const OddPalette odd;
    EXPECT_EQ(FromOleColor(0x8000000F), SystemColor(15));
    EXPECT_EQ(FromOleColor(0x80000005), SystemColor(5));
    EXPECT_EQ(FromOleColor(0x800000FF), QColor(Qt::black));
}

TEST(OleColor, of_another_first_byte_loses_it) {
    EXPECT_EQ(FromOleColor(0x02332211), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(FromOleColor(0x80332211), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(FromOleColor(0xFFFFFFFF), QColor(Qt::white));
}

}  // namespace tavel::test
