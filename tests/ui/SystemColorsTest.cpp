#include "ui/toolkit/SystemColors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>

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
    struct Case {
        int index;
        QPalette::ColorRole role;
        QPalette::ColorGroup group = QPalette::Active;
    };
    const OddPalette odd;
    for (const Case& one : {Case{0, QPalette::Button},
                            Case{1, QPalette::Dark},
                            Case{2, QPalette::Highlight},
                            Case{3, QPalette::Button, QPalette::Inactive},
                            Case{4, QPalette::Window},
                            Case{5, QPalette::Base},
                            Case{6, QPalette::WindowText},
                            Case{7, QPalette::WindowText},
                            Case{8, QPalette::Text},
                            Case{9, QPalette::HighlightedText},
                            Case{10, QPalette::Button},
                            Case{11, QPalette::Button, QPalette::Inactive},
                            Case{12, QPalette::Dark},
                            Case{13, QPalette::Highlight},
                            Case{14, QPalette::HighlightedText},
                            Case{15, QPalette::Button},
                            Case{16, QPalette::Dark},
                            Case{17, QPalette::Text, QPalette::Disabled},
                            Case{18, QPalette::ButtonText},
                            Case{19, QPalette::WindowText, QPalette::Inactive},
                            Case{20, QPalette::Light},
                            Case{21, QPalette::Shadow},
                            Case{22, QPalette::Midlight},
                            Case{23, QPalette::ToolTipText},
                            Case{24, QPalette::ToolTipBase},
                            Case{25, QPalette::Button},
                            Case{26, QPalette::Link},
                            Case{27, QPalette::Highlight},
                            Case{28, QPalette::Button, QPalette::Inactive},
                            Case{29, QPalette::Highlight},
                            Case{30, QPalette::Window}}) {
        EXPECT_EQ(SystemColor(one.index), QColor(one.group, one.role, 200)) << one.index;
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
