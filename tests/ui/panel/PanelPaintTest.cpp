#include "ui/panel/PanelModel.h"
#include "ui/panel/PlacedPanel.h"

#include <gtest/gtest.h>

#include <QPixmap>
#include <functional>
#include <utility>
#include <vector>

namespace tavel::test {

namespace {

// A bitmap of that side: a coloured ring around a hole of the corner's colour.
PanelPicture Bitmap(int side) {
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const bool ring = x > 1 && y > 1 && x < side - 2 && (x < 5 || y < 5 || y > side - 4);
            image.setPixel(x, y, ring ? qRgb(40 + x, 200 - y, 77) : qRgb(255, 0, 255));
        }
    }
    return PanelPicture(image);
}

// An icon of that side with a transparent border.
PanelPicture Icon(int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 3; y < side - 1; ++y) {
        for (int x = 2; x < side - 3; ++x) image.setPixel(x, y, qRgb(240, 20 * (x % 3), 10));
    }
    return PanelPicture(QIcon(QPixmap::fromImage(image)));
}

// Its right half is all of one colour, however large it is drawn.
PanelPicture Blank() {
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(qRgb(30, 60, 90));
    image.setPixel(0, 0, qRgb(255, 0, 255));
    return PanelPicture(image);
}

PanelProperties WithEverything(PanelProperties p) {
    p.Closeable = p.Expandable = p.ContainerResizable = true;
    p.HeaderPicture = Bitmap(16);
    p.ContainerPicture = Bitmap(32);
    return p;
}

class PanelPaint : public testing::Test {
  protected:
    using Change = std::function<void(PanelProperties&)>;

    // A panel of these properties with the change has every pixel where the numbers put it.
    static void Check(PanelProperties properties, const Change& change) {
        change(properties);
        PlacedPanel placed(properties, 120, 90);
        const PanelModel model(properties, 120, 90);
        EXPECT_EQ(model.FirstDifference(placed.Picture()), "");
        EXPECT_EQ(model.FirstDifference(placed.Window()), "");
    }

    // The same with a theme's colours and with custom ones.
    static void CheckBoth(const Change& change) {
        Check(WithEverything({}), change);
        Check(WithEverything(WithCustomColors()), change);
    }

    ColorfulPalette m_palette;
};

}  // namespace

TEST_F(PanelPaint, in_every_theme_square_and_round) {
    for (Integer theme = 0; theme < 12; ++theme) {
        for (const Long shape : {0, 1}) {
            SCOPED_TRACE(theme);
            Check(WithEverything({}), [&](PanelProperties& p) {
                p.Appearence = theme;
                p.ContainerShapeStyle = shape;
            });
        }
    }
}

TEST_F(PanelPaint, with_bars_of_every_height) {
    for (Integer header = -1; header < 4; ++header) {
        for (Integer footer = -1; footer < 3; ++footer) {
            SCOPED_TRACE(header);
            SCOPED_TRACE(footer);
            CheckBoth([&](PanelProperties& p) {
                p.HeaderSize = header;
                p.FooterSize = footer;
            });
        }
    }
}

TEST_F(PanelPaint, with_each_part_visible_or_not) {
    for (int parts = 0; parts < 16; ++parts) {
        SCOPED_TRACE(parts);
        CheckBoth([&](PanelProperties& p) {
            p.HeaderVisible = (parts & 1) != 0;
            p.FooterVisible = (parts & 2) != 0;
            p.HeaderPictureVisible = (parts & 4) != 0;
            p.ContainerPictureVisible = (parts & 8) != 0;
        });
    }
}

TEST_F(PanelPaint, with_each_choice_of_buttons) {
    for (int buttons = 0; buttons < 8; ++buttons) {
        SCOPED_TRACE(buttons);
        CheckBoth([&](PanelProperties& p) {
            p.Expandable = (buttons & 1) != 0;
            p.Closeable = (buttons & 2) != 0;
            p.ContainerResizable = (buttons & 4) != 0;
        });
    }
}

TEST_F(PanelPaint, in_every_fill_style) {
    for (const Integer header : Integers{-1, 0, 1, 2}) {
        for (const Integer footer : Integers{0, 1, 2}) {
            SCOPED_TRACE(header);
            SCOPED_TRACE(footer);
            CheckBoth([&](PanelProperties& p) {
                p.HeaderFillStyle = header;
                p.FooterFillStyle = footer;
                p.ContainerFillStyle = static_cast<Integer>(1 - footer);
            });
        }
    }
}

TEST_F(PanelPaint, with_every_pen_square_and_round) {
    for (const Integer style : Integers{-1, 0, 1, 2, 3, 4, 5, 6, 7}) {
        for (const Long shape : {0, 1}) {
            SCOPED_TRACE(style);
            CheckBoth([&](PanelProperties& p) {
                p.ContainerBorderStyle = style;
                p.ContainerShapeStyle = shape;
            });
        }
    }
}

TEST_F(PanelPaint, with_corners_of_every_kind) {
    for (const Integer radius : Integers{-20, 0, 1, 2, 7, 8, 9, 12, 20}) {
        SCOPED_TRACE(radius);
        CheckBoth([&](PanelProperties& p) {
            p.ContainerShapeStyle = 1;
            p.ContainerCornerRadius = radius;
        });
    }
}

TEST_F(PanelPaint, is_square_in_every_other_shape) {
    for (const Long shape : {-1, 2, 65537}) {
        SCOPED_TRACE(shape);
        CheckBoth([&](PanelProperties& p) { p.ContainerShapeStyle = shape; });
    }
}

TEST_F(PanelPaint, a_broken_outline_has_strokes_and_gaps_of_its_pens_lengths_all_round) {
    using Runs = std::vector<int>;
    std::vector<QPoint> outline;
    for (int x = 0; x < 398; ++x) outline.emplace_back(x, 0);
    for (int y = 0; y < 88; ++y) outline.emplace_back(398, y);
    for (int x = 398; x > 0; --x) outline.emplace_back(x, 88);
    for (int y = 88; y > 0; --y) outline.emplace_back(0, y);
    const std::vector<std::pair<Integer, Runs>> pens{
        {1, {18, 6}}, {2, {3, 3}}, {3, {9, 6, 3, 6}}, {4, {9, 3, 3, 3, 3, 3}}};
    for (const auto& [style, lengths] : pens) {
        PanelProperties p = WithCustomColors();
        p.ContainerBorderStyle = style;
        p.HeaderVisible = false;
        PlacedPanel placed(p, 400, 90);
        const QImage picture = placed.Picture();
        const int ratio = picture.width() / 400;
        std::size_t run = 0;
        int left = lengths[0];
        for (const QPoint& pixel : outline) {
            const bool drawn = (picture.pixel(pixel * ratio) & 0xFFFFFF) ==
                               PanelModel::Shown(p.ContainerBorderColor);
            EXPECT_EQ(drawn, run % 2 == 0) << style << ": " << pixel.x() << ", " << pixel.y();
            if (--left == 0) left = lengths[++run % lengths.size()];
        }
    }
}

TEST_F(PanelPaint, with_pictures_of_many_sizes) {
    for (const Integer side : Integers{8, 15, 24, 41}) {
        SCOPED_TRACE(side);
        CheckBoth([&](PanelProperties& p) {
            p.HeaderPicture = p.ContainerPicture = Bitmap(side);
            p.HeaderPictureSize = p.ContainerPictureSize = side;
            p.ContainerPictureBufferLeft = 7;
            p.ContainerPictureBufferTop = 5;
        });
    }
}

// A bitmap's own transparency counts for nothing, that of its first pixel neither.
TEST_F(PanelPaint, with_bitmaps_of_other_formats) {
    const QImage plain = Bitmap(16).Bitmap();
    QImage clear = plain.convertToFormat(QImage::Format_ARGB32);
    for (int x = 0; x < 16; ++x) {
        for (const int y : {0, 7}) clear.setPixel(x, y, clear.pixel(x, y) & 0xFFFFFF);
    }
    for (const QImage& image : {clear, plain.convertToFormat(QImage::Format_RGB16),
                                plain.convertToFormat(QImage::Format_Indexed8),
                                plain.convertToFormat(QImage::Format_Mono),
                                clear.convertToFormat(QImage::Format_ARGB32_Premultiplied)}) {
        SCOPED_TRACE(image.format());
        CheckBoth([&](PanelProperties& p) { p.HeaderPicture = PanelPicture(image); });
    }
}

TEST_F(PanelPaint, with_a_headers_picture_below_the_buttons_and_a_containers_above) {
    CheckBoth([](PanelProperties& p) {
        p.HeaderPicture = Blank();
        p.HeaderPictureSize = 112;
    });
    CheckBoth([](PanelProperties& p) {
        p.ContainerPicture = Blank();
        p.ContainerPictureSize = 300;
        p.ContainerPictureBufferLeft = -160;
        p.ContainerPictureBufferTop = -60;
    });
}

TEST_F(PanelPaint, with_pictures_that_are_drawn_larger_or_smaller_than_they_are) {
    struct Case {
        int from;
        Integer to;
    };
    for (const Case one :
         {Case{16, 32}, Case{16, 48}, Case{16, 40}, Case{32, 16}, Case{48, 16}, Case{33, 10}}) {
        if (qApp->devicePixelRatio() > 1 && one.to % one.from != 0) continue;  // finer pixels there
        SCOPED_TRACE(one.from);
        CheckBoth([one](PanelProperties& p) {
            p.HeaderPicture = p.ContainerPicture = Bitmap(one.from);
            p.HeaderPictureSize = p.ContainerPictureSize = one.to;
        });
    }
}

TEST_F(PanelPaint, with_a_picture_that_is_cut_by_the_panels_edge) {
    CheckBoth([](PanelProperties& p) {
        p.ContainerPictureBufferLeft = -15;
        p.ContainerPictureBufferTop = 40;
    });
}

// The place is still that of a picture without height.
TEST_F(PanelPaint, with_pictures_at_their_own_size_where_none_is_asked_for) {
    CheckBoth([](PanelProperties& p) {
        p.ContainerPicture = PanelPicture(Bitmap(24).Bitmap().copy(0, 0, 24, 17));
        p.HeaderPictureSize = p.ContainerPictureSize = 0;
    });
}

TEST_F(PanelPaint, without_pictures_whose_size_is_below_zero) {
    CheckBoth([](PanelProperties& p) { p.HeaderPictureSize = p.ContainerPictureSize = -3; });
}

// The offset is cut toward zero: a picture of 17 in a header without height begins at -8.
TEST_F(PanelPaint, with_a_picture_that_is_higher_than_the_header) {
    CheckBoth([](PanelProperties& p) {
        p.HeaderPicture = Bitmap(17);
        p.HeaderPictureSize = 17;
        p.HeaderSize = 3;
    });
}

TEST_F(PanelPaint, with_icons) {
    if (qApp->devicePixelRatio() > 1) GTEST_SKIP() << "an icon has finer pixels there";
    CheckBoth([](PanelProperties& p) {
        p.HeaderPicture = Icon(16);
        p.ContainerPicture = Icon(32);
    });
    CheckBoth([](PanelProperties& p) {
        p.HeaderPicture = p.ContainerPicture = Icon(24);
        p.HeaderPictureSize = p.ContainerPictureSize = 0;
    });
}

// Each way by itself: what is not square is made so.
TEST_F(PanelPaint, with_an_icon_that_is_drawn_larger_than_it_is) {
    if (qApp->devicePixelRatio() > 1) GTEST_SKIP() << "an icon has finer pixels there";
    QImage image(16, 8, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 1; y < 6; ++y) {
        for (int x = 2; x < 15; ++x) image.setPixel(x, y, qRgb(15 * x, 40 * y, 10));
    }
    QImage stretched(32, 32, QImage::Format_ARGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) stretched.setPixel(x, y, image.pixel(x / 2, y / 4));
    }
    PanelProperties p;
    p.ContainerPicture = PanelPicture(QIcon(QPixmap::fromImage(image)));
    PlacedPanel placed(p, 120, 90);
    p.ContainerPicture = PanelPicture(QIcon(QPixmap::fromImage(stretched)));
    EXPECT_EQ(PanelModel(p, 120, 90).FirstDifference(placed.Picture()), "");
}

TEST_F(PanelPaint, with_an_icon_that_is_drawn_smaller_than_it_is) {
    if (qApp->devicePixelRatio() > 1) GTEST_SKIP() << "an icon has finer pixels there";
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QImage half(16, 16, QImage::Format_ARGB32);
    half.fill(Qt::transparent);
    for (int y = 4; y < 28; ++y) {
        for (int x = 8; x < 24; ++x) {
            image.setPixel(x, y, qRgb(10, 200, 60));
            half.setPixel(x / 2, y / 2, qRgb(10, 200, 60));
        }
    }
    PanelProperties p;
    p.HeaderPicture = PanelPicture(QIcon(QPixmap::fromImage(image)));
    PlacedPanel placed(p, 120, 90);
    p.HeaderPicture = PanelPicture(QIcon(QPixmap::fromImage(half)));
    EXPECT_EQ(PanelModel(p, 120, 90).FirstDifference(placed.Picture()), "");
}

TEST_F(PanelPaint, with_system_colours_everywhere) {
    for (const OleColor color : {0x80000005, 0x80000008, 0x8000000D, 0x8000000F, 0x80000012}) {
        SCOPED_TRACE(color);
        Check(WithEverything(WithCustomColors()), [&](PanelProperties& p) {
            p.HeaderBackColor = p.FooterFadeColor = color;
            p.ContainerBackColor = p.ContainerBorderColor = color;
            p.CollapseButtonColor = p.BackColor = color;
        });
        Check(WithEverything(WithCustomColors()), [&](PanelProperties& p) {
            p.HeaderFadeColor = p.FooterBackColor = p.ContainerFadeColor = color;
        });
    }
}

TEST_F(PanelPaint, with_the_custom_colours_that_a_new_panel_has) {
    Check({}, [](PanelProperties& p) { p.UseCustomColors = true; });
    const PanelProperties p = [] {
        PanelProperties custom;
        custom.UseCustomColors = true;
        return custom;
    }();
    // Red 15 and nothing else, where the colour of buttons could be expected.
    EXPECT_EQ(PanelModel(p, 120, 90).At(60, 45), 0x0F0000U);
}

// The column lies beyond the window, but the surface has it.
TEST_F(PanelPaint, of_the_container_takes_the_last_column_and_that_of_a_bar_does_not) {
    PanelProperties p = WithCustomColors();
    p.HeaderVisible = false;
    p.ContainerBorderStyle = 5;
    const PlacedPanel placed(p, 120, 90);
    const PanelModel model(p, 120, 90);
    const QImage& surface = placed.panel.Surface();
    const int ratio = surface.width() / 120;
    for (int y = 0; y < 90; ++y) {
        const PanelModel::Rgb expected = y < 70 ? model.At(60, y) : PanelModel::Shown(p.BackColor);
        EXPECT_EQ(surface.pixel(119 * ratio, y * ratio) & 0xFFFFFF, expected) << y;
    }
}

TEST_F(PanelPaint, in_classic_style_is_a_frame_whatever_else_is_set) {
    for (const Integer style : Integers{0, 1, 2, 5}) {
        SCOPED_TRACE(style);
        CheckBoth([&](PanelProperties& p) {
            p.ClassicXPStyle = true;
            p.ContainerShapeStyle = 1;
            p.ContainerBorderStyle = style;
        });
    }
}

}  // namespace tavel::test
