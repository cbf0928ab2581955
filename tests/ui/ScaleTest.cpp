#include "ui/main/MainLayout.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/Twips.h"

#include <QPushButton>

namespace tavel::test {

namespace {

constexpr QSize client{MainLayout::ClientWidth, MainLayout::ClientHeight};
constexpr QSize largeScreen{3840, 2160};
constexpr QSize smallScreen{1280, 800};

class ScaleTest : public MainWindowTest {
  protected:
    ~ScaleTest() override { SetScale(1); }
};

}  // namespace

TEST(ScaleThatFits, is_that_of_the_desktops_text_and_never_below_1) {
    EXPECT_DOUBLE_EQ(ScaleThatFits(8.25, largeScreen, client), 1);
    EXPECT_DOUBLE_EQ(ScaleThatFits(11, largeScreen, client), 11 / 8.25);
    EXPECT_DOUBLE_EQ(ScaleThatFits(16.5, largeScreen, client), 2);
    EXPECT_DOUBLE_EQ(ScaleThatFits(6, largeScreen, client), 1);
}

TEST(ScaleThatFits, leaves_the_main_window_on_the_screen_with_its_frame) {
    for (const QSize screen :
         {smallScreen, QSize(1366, 728), QSize(1920, 1040), QSize(1000, 2000)}) {
        const double scale = ScaleThatFits(40, screen, client);
        EXPECT_GT(scale, 1);
        EXPECT_LE(client.width() * scale / 15, screen.width()) << screen.width();
        EXPECT_LE(client.height() * scale / 15 + 50, screen.height()) << screen.height();
    }
    EXPECT_DOUBLE_EQ(ScaleThatFits(11, {640, 400}, client), 1) << "where it cannot fit anyway";
}

TEST(ScaleThatFits, takes_back_what_a_screen_is_scaled_by_itself_as_far_as_it_has_to) {
    const QSize halfAsMuchAgain = smallScreen / 1.5;
    const double scale = ScaleThatFits(9, halfAsMuchAgain, client, 1.5);
    EXPECT_LT(scale, 1);
    EXPECT_GT(scale * 1.5, 1) << "still larger than without";
    EXPECT_LE(client.width() * scale / 15, halfAsMuchAgain.width());
    EXPECT_LE(client.height() * scale / 15 + 50, halfAsMuchAgain.height());
    EXPECT_DOUBLE_EQ(ScaleThatFits(9, {400, 300}, client, 2), 0.5) << "a pixel of the device";
    EXPECT_DOUBLE_EQ(ScaleThatFits(9, largeScreen / 2, client, 2), 9 / 8.25);
    EXPECT_DOUBLE_EQ(ScaleThatFits(6, largeScreen / 2, client, 2), 1);
}

TEST_F(ScaleTest, every_length_and_every_text_grows_with_it) {
    SetScale(1.5);
    EXPECT_DOUBLE_EQ(QPushButton().font().pointSizeF(), 8.25 * 1.5);
    frmMain& window = Open();
    EXPECT_EQ(window.centralWidget()->size(), QSize(1476, 821));
    EXPECT_EQ(grdItems().geometry(), QRect(264, 12, 890, 662));
    EXPECT_DOUBLE_EQ(Find(window, "cmdSend").font().pointSizeF(), 8.25 * 1.5);
    EXPECT_DOUBLE_EQ(Find(window, "labPSPStatus").font().pointSizeF(), 13.5 * 1.5);
    EXPECT_EQ(grdSync().columnWidth(0), 30);
    EXPECT_EQ(grdSync().iconSize(), QSize(24, 24));
    EXPECT_EQ(grdSync().ColumnWidth("icon"), 300) << "in twips it stays what it was";
}

TEST_F(ScaleTest, a_length_on_the_screen_tells_the_twips_that_it_came_from) {
    for (const double scale : {1.0, 9 / 8.25, 10 / 8.25, 11 / 8.25, 14 / 8.25}) {
        SetScale(scale);
        for (int pixels = 0; pixels < 2000; ++pixels) ASSERT_EQ(Pixels(Twips(pixels)), pixels);
    }
}

TEST_F(ScaleTest, what_touches_at_scale_1_touches_at_any) {
    for (const double scale : {1.1, 1.27, 1.33, 1.69}) {
        SetScale(scale);
        frmMain& window = Open();
        const QRect tree = trvCat().geometry().translated(Find(window, "picCatBack").pos());
        EXPECT_EQ(trvCat().size(), Find(window, "picCatBack").size()) << scale;
        EXPECT_EQ(trvPSPCat().size(), Find(window, "picPSPCatBack").size()) << scale;
        EXPECT_EQ(tree.top(), grdItems().y()) << scale;
        EXPECT_EQ(grdItems().geometry().bottom(), Find(window, "cmdSend").geometry().bottom())
            << scale;
        EXPECT_EQ(grdSync().geometry().right(), Find(window, "cmdClear").geometry().right())
            << scale;
        SingleWindow<frmMain>::Unload();
        RunEvents();
    }
}

}  // namespace tavel::test
