#include "ui/panel/PanelModel.h"
#include "ui/panel/PlacedPanel.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <algorithm>
#include <array>
#include <vector>

namespace tavel::test {

namespace {

constexpr int width = 200;
constexpr int height = 110;
constexpr char sText[] = "Hxg";

// Every pixel of the text has the text's colour and no other.
QFont SharpFont(int pixels = 11) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

PanelProperties Sharp(PanelProperties p) {
    p.HeaderTextFont = p.FooterTextFont = SharpFont();
    p.HeaderSize = 2;
    p.FooterSize = 1;
    return p;
}

// Where the panel is not as its model without texts.
QRect Ink(const QImage& picture, const PanelProperties& p) {
    QRect ink;
    for (const auto& pixel : PanelModel(p, width, height).Differences(picture))
        ink |= QRect(pixel.x, pixel.y, 1, 1);
    return ink;
}

QRect Ink(const PanelProperties& p) {
    PlacedPanel placed(p, width, height);
    return Ink(placed.Picture(), p);
}

// Where a line's ink lies when the line is put into the edges.
QRect ExpectedInk(PanelModel::Edges edges, Integer align) {
    const QFontMetrics metrics(SharpFont());
    const QString text = QLatin1String(sText);
    const int spareX = edges.right - edges.left - metrics.horizontalAdvance(text);
    const int spareY = edges.bottom - edges.top - metrics.height();
    const int x = edges.left + (align < 3 ? 0 : align < 6 ? spareX : spareX / 2);
    const int y = edges.top + (align % 3 == 0 ? 0 : align % 3 == 1 ? spareY / 2 : spareY);
    return metrics.tightBoundingRect(text).translated(x, y + metrics.ascent());
}

// Up to a pixel, which fonts are free to take. They take half a pixel more where there are halves.
void ExpectNear(const QRect& ink, const QRect& expected) {
    const int free = qApp->devicePixelRatio() > 1 ? 2 : 1;
    EXPECT_NEAR(ink.left(), expected.left(), free);
    EXPECT_NEAR(ink.top(), expected.top(), free);
    EXPECT_NEAR(ink.right(), expected.right(), free);
    EXPECT_NEAR(ink.bottom(), expected.bottom(), free);
}

PanelPicture Bitmap() {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(qRgb(1, 2, 3));
    return PanelPicture(image);
}

// Headers and footers that leave more or less room to their texts.
std::vector<PanelProperties> Bars() {
    const PanelProperties plain = Sharp({});
    const PanelProperties custom = Sharp(WithCustomColors());
    std::vector<PanelProperties> bars{plain, custom};
    for (const PanelProperties& base : {plain, custom}) {
        const auto add = [&](auto change) { change(bars.emplace_back(base)); };
        add([](PanelProperties& p) { p.Expandable = true; });
        add([](PanelProperties& p) { p.Closeable = true; });
        add([](PanelProperties& p) { p.Expandable = p.Closeable = true; });
        add([](PanelProperties& p) { p.ContainerShapeStyle = 1; });
        add([](PanelProperties& p) { p.HeaderPicture = Bitmap(); });
        add([](PanelProperties& p) {
            p.HeaderPicture = Bitmap();
            p.HeaderPictureSize = 24;
            p.Expandable = p.Closeable = true;
        });
        add([](PanelProperties& p) {
            p.HeaderPicture = Bitmap();
            p.HeaderPictureSize = 24;
            p.HeaderPictureVisible = false;
        });
    }
    return bars;
}

}  // namespace

TEST(PanelTextPaint, of_the_header_stands_where_its_alignment_puts_it) {
    for (PanelProperties& p : Bars()) {
        p.HeaderText = QLatin1String(sText);
        for (p.HeaderTextAlign = 0; p.HeaderTextAlign < 9; ++p.HeaderTextAlign) {
            SCOPED_TRACE(p.HeaderTextAlign);
            ExpectNear(Ink(p),
                       ExpectedInk(PanelModel::HeaderTextEdges(p, width), p.HeaderTextAlign));
        }
    }
}

TEST(PanelTextPaint, of_the_footer_stands_where_its_alignment_puts_it) {
    for (PanelProperties& p : Bars()) {
        p.FooterText = QLatin1String(sText);
        for (p.FooterTextAlign = 0; p.FooterTextAlign < 9; ++p.FooterTextAlign) {
            SCOPED_TRACE(p.FooterTextAlign);
            ExpectNear(Ink(p), ExpectedInk(PanelModel::FooterTextEdges(p, width, height),
                                           p.FooterTextAlign));
        }
    }
}

// A text that is larger than its bar shows where it is cut.
TEST(PanelTextPaint, is_cut_at_the_edges_that_the_bars_leave_to_it) {
    const QString blocks(5, QChar(0x2588));
    const auto expectInk = [](const PanelProperties& p, PanelModel::Edges edges) {
        const QRect room(QPoint(edges.left, edges.top), QPoint(edges.right - 1, edges.bottom - 1));
        const QRect ink = Ink(p);
        EXPECT_TRUE(ink == room || (ink.isEmpty() && room.isEmpty()))
            << ink.left() << ' ' << ink.top() << ' ' << ink.right() << ' ' << ink.bottom();
    };
    for (PanelProperties& p : Bars()) {
        p.ContainerBorderStyle = 5;  // which would be drawn over the text
        p.HeaderTextFont = p.FooterTextFont = SharpFont(400);
        p.HeaderTextAlign = p.FooterTextAlign = 7;
        for (p.HeaderSize = 0; p.HeaderSize < 4; ++p.HeaderSize) {
            p.HeaderText = blocks;
            p.FooterText.clear();
            expectInk(p, PanelModel::HeaderTextEdges(p, width));
            p.HeaderText.clear();
            p.FooterText = blocks;
            p.FooterSize = static_cast<Integer>(p.HeaderSize % 3);
            expectInk(p, PanelModel::FooterTextEdges(p, width, height));
        }
    }
}

TEST(PanelTextPaint, has_its_bars_font) {
    PanelProperties p = Sharp({});
    p.HeaderTextFont = SharpFont(9);
    p.FooterTextFont = SharpFont(22);
    const auto heightOf = [](const QFont& font) {
        return QFontMetrics(font).tightBoundingRect(QStringLiteral("H")).height();
    };
    p.HeaderText = QStringLiteral("H");
    EXPECT_NEAR(Ink(p).height(), heightOf(p.HeaderTextFont), 2);
    std::swap(p.HeaderText, p.FooterText);
    EXPECT_NEAR(Ink(p).height(), heightOf(p.FooterTextFont), 2);
}

TEST(PanelTextPaint, has_its_bars_font_whatever_the_programs_is) {
    const QFont usual = QApplication::font();
    PanelProperties p;
    p.HeaderTextFont = usual;
    p.HeaderText = QLatin1String(sText);
    PlacedPanel placed(p, width, height);
    const QImage before = placed.Picture();
    QFont other = usual;
    other.setPixelSize(31);
    other.setBold(true);
    QApplication::setFont(other);
    placed.panel.Refresh();
    EXPECT_EQ(placed.Picture(), before);
    QApplication::setFont(usual);
}

TEST(PanelTextPaint, a_text_that_is_too_long_is_cut_at_the_edges) {
    PanelProperties p = Sharp({});
    p.HeaderText = p.FooterText = QString(100, QLatin1Char('H'));
    p.Expandable = p.Closeable = true;
    p.HeaderPicture = Bitmap();
    for (const Integer align : Integers{0, 1, 5, 7}) {
        p.HeaderTextAlign = p.FooterTextAlign = align;
        const PanelModel::Edges header = PanelModel::HeaderTextEdges(p, width);
        const PanelModel::Edges footer = PanelModel::FooterTextEdges(p, width, height);
        const QRect ink = Ink(p);
        EXPECT_NEAR(ink.left(), std::min(header.left, footer.left), 8) << align;
        EXPECT_GE(ink.left(), std::min(header.left, footer.left)) << align;
        EXPECT_LT(ink.right(), footer.right) << align;
        EXPECT_NEAR(ink.right(), footer.right, 8) << align;
        p.FooterVisible = false;
        const QRect above = Ink(p);
        EXPECT_GE(above.left(), header.left) << align;
        EXPECT_LT(above.right(), header.right) << align;
        EXPECT_NEAR(above.right(), header.right, 8) << align;
        p.FooterVisible = true;
    }
}

TEST(PanelTextPaint, a_text_that_is_too_high_is_cut_at_the_edges) {
    PanelProperties p = Sharp({});
    p.HeaderTextFont = SharpFont(60);
    p.HeaderText = QStringLiteral("Hg");
    p.HeaderSize = 0;
    for (const Integer align : Integers{0, 1, 2}) {
        p.HeaderTextAlign = align;
        const QRect ink = Ink(p);
        EXPECT_GE(ink.top(), 3) << align;
        EXPECT_LT(ink.bottom(), 17) << align;
        EXPECT_FALSE(ink.isEmpty()) << align;
    }
}

TEST(PanelTextPaint, a_text_that_is_too_long_loses_the_ends_that_its_alignment_is_not_at) {
    PanelProperties p = Sharp({});
    const QString high(60, QLatin1Char('H'));
    const QString low(400, QLatin1Char('.'));
    const std::array texts{high + low, low + high, low + high + low};  // left, right, centre
    for (std::size_t text = 0; text < texts.size(); ++text) {
        for (std::size_t align = 0; align < 3; ++align) {
            p.HeaderText = texts[text];
            p.HeaderTextAlign = static_cast<Integer>(3 * align);
            EXPECT_EQ(Ink(p).height() > 5, text == align) << text << ' ' << align;
        }
    }
}

TEST(PanelTextPaint, a_text_that_is_too_high_shows_the_middle_or_the_foot_where_it_is_aligned_so) {
    PanelProperties p = Sharp({});
    p.HeaderTextFont = SharpFont(60);
    p.HeaderSize = 0;
    for (p.HeaderTextAlign = 0; p.HeaderTextAlign < 3; ++p.HeaderTextAlign) {
        p.HeaderText = QStringLiteral("+");
        EXPECT_EQ(Ink(p).isEmpty(), p.HeaderTextAlign != 1) << p.HeaderTextAlign;
        p.HeaderText = QStringLiteral("_");
        EXPECT_EQ(Ink(p).isEmpty(), p.HeaderTextAlign != 2) << p.HeaderTextAlign;
    }
}

TEST(PanelTextPaint, lies_below_the_outline_and_the_grip_and_the_footers_below_the_header) {
    PanelProperties p = Sharp(WithCustomColors());
    p.HeaderText = p.FooterText = QString(5, QChar(0x2588));  // fill all the room of a text
    p.HeaderTextFont = p.FooterTextFont = SharpFont(400);
    p.HeaderTextAlign = p.FooterTextAlign = 7;
    p.HeaderPictureSize = 0;  // the room begins left of the panel
    p.ContainerResizable = true;
    PlacedPanel placed(p, width, height);
    const PanelModel model(p, width, height);
    for (const auto& pixel : model.Differences(placed.Picture())) {
        for (const OleColor color : {p.ContainerBorderColor, p.CollapseButtonColor})
            ASSERT_NE(model.At(pixel.x, pixel.y), PanelModel::Shown(color))
                << pixel.x << ", " << pixel.y;
    }
    p.HeaderText.clear();
    placed.panel.HeaderText({});
    placed.panel.resize(width, 40);
    EXPECT_EQ(PanelModel(p, width, 40).FirstDifference(placed.Picture()), "");
}

// Of a panel whose alignments were never set.
class PanelUnalignedTextPaint : public testing::Test {
  protected:
    PanelUnalignedTextPaint() {
        panel.resize(width, height);
        Design();
    }

    void Design() {
        panel.HeaderTextFont(SharpFont());
        panel.FooterTextFont(SharpFont());
        panel.HeaderSize(2);
        panel.FooterSize(1);
    }

    int InkHeight(const QString& header, const QString& footer) {
        panel.HeaderText(header);
        panel.FooterText(footer);
        return Ink(panel.grab().toImage(), Sharp({})).height();
    }

    const int m_line = QFontMetrics(SharpFont()).height();
    xpFrame panel;
};

TEST_F(PanelUnalignedTextPaint, breaks_into_lines_until_an_alignment_is_set) {
    for (const QString& text :
         {QStringLiteral("H\nH"), QStringLiteral("H\r\nH"), QStringLiteral("H\rH")}) {
        for (const bool header : {true, false}) {
            const int ink = header ? InkHeight(text, {}) : InkHeight({}, text);
            EXPECT_GT(ink, m_line);
            EXPECT_LT(ink, 2 * m_line);
        }
    }
    panel.HeaderTextAlign(0);
    EXPECT_LT(InkHeight(QStringLiteral("H\nH"), {}), m_line);
    panel.FooterTextAlign(0);
    EXPECT_LT(InkHeight({}, QStringLiteral("H\nH")), m_line);
}

TEST_F(PanelUnalignedTextPaint, is_none_that_was_aligned_before_the_panel_became_a_new_one) {
    panel.HeaderTextAlign(2);
    panel.FooterTextAlign(2);
    panel.InitProperties();
    EXPECT_EQ(panel.HeaderTextAlign(), 0);
    Design();
    EXPECT_LT(InkHeight(QStringLiteral("H\nH"), {}), m_line);
    EXPECT_LT(InkHeight({}, QStringLiteral("H\nH")), m_line);
}

TEST_F(PanelUnalignedTextPaint, does_not_break_between_words) {
    const QString words = QStringLiteral("HHHH ").repeated(20);
    EXPECT_LT(InkHeight(words, {}), m_line);
    EXPECT_LT(InkHeight({}, words), m_line);
}

TEST(PanelTextPaint, an_alignment_that_there_is_not_leaves_the_last_one_even_when_it_is_loaded) {
    PanelProperties p = Sharp({});
    p.HeaderText = p.FooterText = QLatin1String(sText);
    p.HeaderTextAlign = p.FooterTextAlign = 8;
    PlacedPanel placed(p, width, height);
    const QImage before = placed.Picture();
    placed.panel.HeaderTextAlign(9);
    placed.panel.FooterTextAlign(-1);
    EXPECT_EQ(placed.Picture(), before);
    EXPECT_EQ(placed.panel.HeaderTextAlign(), 9);
    p.HeaderTextAlign = p.FooterTextAlign = 9;
    placed.Read(p);
    EXPECT_EQ(placed.Picture(), before);
    placed.panel.HeaderTextAlign(0);
    const QImage header = placed.Picture();
    EXPECT_NE(header, before);
    placed.panel.FooterTextAlign(0);
    EXPECT_NE(placed.Picture(), header);
}

TEST(PanelTextPaint, an_ampersand_underlines_the_letter_behind_it) {
    PanelProperties p = Sharp({});
    p.HeaderText = QStringLiteral("HH");
    const QRect plain = Ink(p);
    p.HeaderText = QStringLiteral("H&H");
    const QRect marked = Ink(p);
    EXPECT_NEAR(marked.right(), plain.right(), 1);
    EXPECT_GT(marked.bottom(), plain.bottom());
    p.HeaderText = QStringLiteral("H&&H");
    const QRect doubled = Ink(p);
    EXPECT_GT(doubled.right(), plain.right() + 3);
    EXPECT_LT(doubled.bottom(), marked.bottom() + 1);
}

TEST(PanelTextPaint, of_a_script_that_runs_to_the_left_stands_where_any_other_does) {
    for (const bool classic : {false, true}) {
        PanelProperties p = Sharp({});
        p.ClassicXPStyle = classic;
        p.HeaderText = QStringLiteral("\u05D0\u05D1\u05D2");
        EXPECT_LT(Ink(p).right(), 60) << classic;
    }
}

TEST(PanelTextPaint, has_its_bars_colour) {
    const ColorfulPalette palette;
    PanelProperties theme = Sharp({});
    theme.Appearence = 10;  // whose header text is red and the footer's pale
    PanelProperties custom = Sharp(WithCustomColors());
    PanelProperties system = custom;
    system.HeaderTextColor = 0x8000000D;
    system.FooterTextColor = 0x80000008;
    struct Case {
        PanelProperties properties;
        PanelModel::Rgb header, footer;
    };
    for (Case& one : std::vector<Case>{
             {theme, 0xFF0000, 0xD7E6FB},
             {custom, 0xFFFF00, 0x00FFFF},
             {system, PanelModel::Shown(0x8000000D), PanelModel::Shown(0x80000008)}}) {
        PanelProperties& p = one.properties;
        p.HeaderText = p.FooterText = QLatin1String(sText);
        PlacedPanel placed(p, width, height);
        for (const auto& pixel : PanelModel(p, width, height).Differences(placed.Picture()))
            EXPECT_EQ(pixel.color, pixel.y < 40 ? one.header : one.footer);
        EXPECT_GT(Ink(placed.Picture(), p).height(), 50);
    }
}

TEST(PanelTextPaint, has_its_themes_colour) {
    constexpr std::array<PanelModel::Rgb, 12> headers{0xD7E6FB, 0xFFFFFF, 0xD7E6FB, 0x002963,
                                                      0x649058, 0x777697, 0x6E6D8F, 0xFFDEAD,
                                                      0xE9FAF8, 0xEBEBEB, 0xFF0000, 0xACBFE3};
    for (Integer theme = 0; theme < 12; ++theme) {
        SCOPED_TRACE(theme);
        PanelProperties p = Sharp({});
        p.Appearence = theme;
        p.HeaderText = p.FooterText = QLatin1String(sText);
        PlacedPanel placed(p, width, height);
        const PanelModel::Rgb footer = theme == 3 ? 0x002963 : 0xD7E6FB;
        for (const auto& pixel : PanelModel(p, width, height).Differences(placed.Picture()))
            EXPECT_EQ(pixel.color,
                      pixel.y < 40 ? headers[static_cast<std::size_t>(theme)] : footer);
        EXPECT_GT(Ink(placed.Picture(), p).height(), 50);
    }
}

TEST(PanelTextPaint, of_a_bar_that_is_not_shown_is_not_shown) {
    PanelProperties p = Sharp({});
    p.HeaderText = p.FooterText = QLatin1String(sText);
    p.HeaderVisible = p.FooterVisible = false;
    EXPECT_TRUE(Ink(p).isEmpty());
    p.HeaderVisible = true;
    EXPECT_LT(Ink(p).bottom(), 39);
}

TEST(PanelTextPaint, in_classic_style_interrupts_the_frame_from_8_on_with_a_gap_of_2) {
    const ColorfulPalette palette;
    for (const OleColor color : {0x0000FF00U, 0x8000000FU}) {
        PanelProperties p = Sharp({});
        p.ClassicXPStyle = true;
        p.BackColor = color;
        p.HeaderText = QLatin1String(sText);
        PlacedPanel placed(p, width, height);
        const QImage picture = placed.Picture();
        const auto at = [&](int x) {
            const int ratio = picture.width() / width;
            return picture.pixel(x * ratio, 4 * ratio) & 0xFFFFFF;
        };
        const int end = 8 + QFontMetrics(SharpFont()).horizontalAdvance(QLatin1String(sText)) + 2;
        EXPECT_EQ(at(5), 0xD0D0BFU);
        for (const int x : {6, 7, end - 1}) EXPECT_EQ(at(x), PanelModel::Shown(color)) << x;
        EXPECT_EQ(at(end + 1), 0xD0D0BFU);
    }
}

TEST(PanelTextPaint, in_classic_style_has_an_ampersand_as_a_letter) {
    PanelProperties p = Sharp({});
    p.ClassicXPStyle = true;
    p.HeaderText = QStringLiteral("HH");
    const QRect plain = Ink(p);
    p.HeaderText = QStringLiteral("H&H");
    const QRect longer = Ink(p);
    EXPECT_GT(longer.right(), plain.right() + 3);
    EXPECT_LT(longer.bottom(), plain.bottom() + 2);
}

TEST(PanelTextPaint, in_classic_style_is_the_headers_alone_in_blue) {
    PanelProperties p = Sharp({});
    p.ClassicXPStyle = true;
    p.FooterText = QLatin1String(sText);
    EXPECT_TRUE(Ink(p).isEmpty());
    p.HeaderText = QLatin1String(sText);
    PlacedPanel placed(p, width, height);
    const auto ink = PanelModel(p, width, height).Differences(placed.Picture());
    EXPECT_GT(std::ranges::count(ink, 0x0046D5U, &PanelModel::Difference::color), 10);
}

}  // namespace tavel::test
