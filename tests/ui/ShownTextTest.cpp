#include "ui/support/Windows.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/ShownText.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <algorithm>

namespace tavel::test {

namespace {

class ShownTextTest : public testing::Test {
  protected:
    ShownTextTest() {
        list.resize(400, 300);
        list.AddColumn("title", "Title", 2880);
        list.show();
    }

    // Two rows, the first with this title.
    void Fill(const std::string& sText, const QIcon& icon = {}) {
        list.Clear();
        list.Add(ListRow{"a", {sText}, icon});
        list.Add(ListRow{"b", {"row b"}});
    }

    QRect RectOf(Long row) const { return list.visualRect(list.model()->index(row - 1, 0)); }
    QString Tip() { return TipAt(*list.viewport(), RectOf(1).center()); }  // of the first row

    ListView list;
};

}  // namespace

TEST_F(ShownTextTest, a_line_break_of_any_kind_is_shown_as_a_blank_in_a_row_of_the_usual_height) {
    const auto showing = [this](const std::string& sText) {
        Fill(sText);
        return list.grab().toImage();
    };
    const QImage usual = showing("one two");
    const int height = RectOf(2).height();
    EXPECT_GE(height, std::max(18, list.fontMetrics().height()));
    for (const char* between :
         {"\n", "\r", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
        const std::string sText = std::string("one") + between + "two";
        EXPECT_EQ(showing(sText), usual) << sText;
        EXPECT_EQ(RectOf(1).height(), height);
        EXPECT_EQ(RectOf(2).height(), height);
        EXPECT_EQ(list.Cell(1, 0), sText);
    }
}

TEST_F(ShownTextTest, a_row_is_as_high_as_the_lists_font_or_icons_whether_it_has_an_icon_or_not) {
    QPixmap picture(64, 64);
    picture.fill(Qt::gray);
    const QFont usual = list.font();
    QFont large = usual;
    large.setPixelSize(50);
    for (const QIcon& icon : {QIcon(), QIcon(picture)}) {
        list.setIconSize({40, 40});
        Fill("row a", icon);
        EXPECT_EQ(RectOf(1).height(), 40);
        list.setIconSize({16, 16});
        EXPECT_EQ(RectOf(1).height(), std::max(18, list.fontMetrics().height()));
        list.setFont(large);
        EXPECT_EQ(RectOf(1).height(), list.fontMetrics().height());
        list.setFont(usual);
    }
}

TEST_F(ShownTextTest, a_text_that_does_not_fit_its_column_is_its_tip) {
    Fill("row a");
    EXPECT_EQ(Tip(), QString());
    for (const char* start : {"Rock & Roll ", "Rock & Roll <b>", "say \"hi\" ", "a > b ",
                              "two  blanks ", "one\ntwo "}) {
        Fill(start + std::string(100, 'x'));
        const QString text = ToQString(list.Cell(1, 0)).replace(u'\n', u' ');
        EXPECT_EQ(Tip(), text);
    }
}

TEST(ShownText, a_thousand_characters_are_shown_and_no_half_of_one) {
    const QString pair = QStringLiteral(u"\U0001F3B5");
    EXPECT_EQ(OneLine(QString(1000, u'x')), QString(1000, u'x'));
    EXPECT_EQ(OneLine(QString(5'000'000, u'x')), QString(1000, u'x'));
    EXPECT_EQ(OneLine(QString(998, u'x') + pair), QString(998, u'x') + pair);
    EXPECT_EQ(OneLine(QString(999, u'x') + pair), QString(999, u'x'));
}

TEST_F(ShownTextTest, a_text_as_long_as_a_file_is_kept_but_not_shown_beyond_what_a_column_holds) {
    for (const char* unit : {"x", "\xC3\xA9", "\xE6\x97\xA5", "\xF0\x9F\x8E\xB5"}) {
        std::string sText = "-";
        while (sText.size() < 5'000'000) sText += unit;
        Fill(sText);
        const QString text = ToQString(sText.substr(0, 8000));
        EXPECT_LE(list.model()->index(0, 0).data().toString().size(), 4000) << unit;
        EXPECT_EQ(Tip(), OneLine(text)) << unit;
        EXPECT_FALSE(list.grab().isNull());
        EXPECT_EQ(list.Cell(1, 0), sText) << unit;
        ElidedLabel label;
        label.setText(ToQString(sText));
        EXPECT_EQ(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(OneLine(text)));
    }
}

TEST_F(ShownTextTest, a_text_that_reaches_out_of_view_has_a_tip_though_it_fits_its_column) {
    std::string sText = "x";
    while (list.fontMetrics().horizontalAdvance(ToQString(sText)) < 450) sText += 'x';
    list.SetColumnWidth("title", 9000);
    Fill(sText);
    EXPECT_EQ(Tip(), ToQString(sText));
    list.resize(700, 300);
    EXPECT_EQ(Tip(), QString());
}

}  // namespace tavel::test
