#include "core/PublicStuff.h"
#include "ui/support/MainWindow.h"

#include <QImage>
#include <QLabel>

namespace tavel::test {

namespace {

class ThumbnailTest : public MainWindowTest {
  protected:
    ThumbnailTest() {
        InstallPictures();
        QImage picture(160, 120, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(QString::fromStdString(temp.HostPath("red.jpg")));
        AddVideo("vd_a", "Film").sThumbPath = temp.DrivePath("red.jpg");
        AddVideo("vd_b", "Clip");
        AddSeries("vs_a", {"vd_b"});
    }

    QLabel& imgThumb() { return Find<QLabel>(Main(), "imgThumb"); }
    int PictureWidth() { return imgThumb().pixmap(Qt::ReturnByValue).width(); }
    void MovePointer(int x, int y) {
        const QPoint inList(x / 15, y / 15);
        QTest::mouseMove(grdItems().viewport(),
                         grdItems().viewport()->mapFrom(&grdItems(), inList));
    }
};

}  // namespace

TEST_F(ThumbnailTest, in_mode_2_the_picture_shows_at_its_design_place_until_a_node_is_clicked) {
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    ClickRow(1);
    EXPECT_TRUE(imgThumb().isVisible());
    EXPECT_EQ(imgThumb().pos(), QPoint(12120 / 15, 5160 / 15));
    EXPECT_EQ(PictureWidth(), 160);
    ClickRow(2);
    EXPECT_EQ(PictureWidth(), 16);
    ClickNode("photoall");
    EXPECT_FALSE(imgThumb().isVisible());
}

TEST_F(ThumbnailTest, the_members_of_a_series_show_theirs_and_rows_of_other_lists_do_not) {
    AddPhoto("ph_a", "Beach");
    Open();
    iVidThumbMode = 2;
    ClickNode("photoall");
    ClickRow(1);
    EXPECT_FALSE(imgThumb().isVisible());
    ClickNode("vs_a");
    ClickRow(1);
    EXPECT_TRUE(imgThumb().isVisible());
}

TEST_F(ThumbnailTest, in_mode_3_the_picture_floats_under_the_current_row) {
    Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    ClickRow(2);
    const int top = grdItems().RowTop(2);
    EXPECT_EQ(Main().Layout().imgThumb.Top, top + 360);
    EXPECT_EQ(Main().Layout().imgThumb.Left, 2640 + grdItems().RowLeft(2));
    EXPECT_EQ(imgThumb().y(), (top + 360) / 15);
}

TEST_F(ThumbnailTest, the_pointer_right_of_the_picture_brings_it_back_under_the_row) {
    frmMain& window = Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    ClickRow(1);
    const int top = grdItems().RowTop(1);
    imgThumb().move(0, 0);
    MovePointer(2100, top + 30);
    EXPECT_EQ(imgThumb().y(), 0);

    window.bThumbAbove = true;
    MovePointer(1935, top + 30);
    EXPECT_TRUE(window.bThumbAbove);
    MovePointer(1950, top + 30);
    EXPECT_FALSE(window.bThumbAbove);
    EXPECT_EQ(imgThumb().y(), (top + 360) / 15);
}

TEST_F(ThumbnailTest, in_mode_4_the_picture_stands_in_its_slot) {
    AddPhoto("ph_a", "Beach");
    Open();
    iVidThumbMode = 4;
    ClickNode("videoall");
    EXPECT_EQ(PictureWidth(), 16);
    ClickRow(1);
    EXPECT_EQ(PictureWidth(), 160);
    EXPECT_EQ(imgThumb().pos(), QPoint(11880 / 15, 4920 / 15));
    ClickNode("photoall");
    EXPECT_FALSE(imgThumb().isVisible());
    EXPECT_EQ(Main().Layout().grdSync.Height, 6000);
}

TEST_F(ThumbnailTest, a_thumbnail_that_has_gone_is_fatal) {
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("gone.jpg");
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    EXPECT_EQ(FatalOf([&] { ClickRow(1); }), failure::FileNotFound);
}

TEST_F(ThumbnailTest, a_thumbnail_that_is_no_picture_is_fatal) {
    temp.Write("gone.jpg", "no picture");
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("gone.jpg");
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    EXPECT_EQ(FatalOf([&] { ClickRow(1); }), failure::InvalidPicture);
}

TEST_F(ThumbnailTest, CheckForMultiThumbs_tells_whether_all_have_the_same) {
    AddVideo("vd_c", "Third");
    AddVideo("vd_d", "Fourth").sThumbPath = temp.DrivePath("red.jpg");
    std::string sThumb = "old";
    bool bMulti = true;
    frmMain::CheckForMultiThumbs({"vd_a", "vd_d"}, sThumb, bMulti);
    EXPECT_FALSE(bMulti);
    EXPECT_EQ(sThumb, temp.DrivePath("red.jpg"));
    frmMain::CheckForMultiThumbs({"vd_b", "vd_c"}, sThumb, bMulti);
    EXPECT_FALSE(bMulti);
    EXPECT_EQ(sThumb, "");
    sThumb = "old";
    frmMain::CheckForMultiThumbs({"vd_a", "vd_b"}, sThumb, bMulti);
    EXPECT_TRUE(bMulti);
    EXPECT_EQ(sThumb, "old");
}

TEST_F(ThumbnailTest, multi_shows_the_picture_of_several) {
    Open();
    iVidThumbMode = 2;
    Main().LoadThumbnail("multi");
    EXPECT_TRUE(imgThumb().isVisible());
    EXPECT_EQ(PictureWidth(), 16);
}

}  // namespace tavel::test
