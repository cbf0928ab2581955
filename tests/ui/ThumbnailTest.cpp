#include "core/Options.h"
#include "core/PublicStuff.h"
#include "ui/main/ThumbPicture.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/Twips.h"

#include <QImage>
#include <QLabel>
#include <QMouseEvent>

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
    QPoint PointAt(int x, int y) {  // twips of the list; of its viewport
        return grdItems().viewport()->mapFrom(&grdItems(), QPoint(x / 15, y / 15));
    }
    // The pointer comes over the picture, or moves there.
    void TouchPicture() {
        m_touched = QPoint(60, 130) - m_touched;
        QTest::mouseMove(&imgThumb(), m_touched);
        RunEvents();
    }
    void MovePointer(int x, int y) { QTest::mouseMove(grdItems().viewport(), PointAt(x, y)); }

  private:
    QPoint m_touched{20, 60};  // in its lower half, which is always to be seen
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
    EXPECT_EQ(PictureWidth(), NoThumbWidth);
    ClickNode("photoall");
    EXPECT_FALSE(imgThumb().isVisible());
    EXPECT_EQ(PictureWidth(), NoThumbWidth) << "hidden, not cleared";
}

TEST_F(ThumbnailTest, the_members_of_a_series_show_theirs_and_rows_of_other_lists_do_not) {
    AddPhoto("ph_a", "Beach");
    Open();
    iVidThumbMode = 2;
    for (const char* node : {"photoall", "videoseries"}) {
        ClickNode(node);
        ClickRow(1);
        EXPECT_FALSE(imgThumb().isVisible()) << node;
    }
    ClickNode("vs_a");
    ClickRow(1);
    EXPECT_TRUE(imgThumb().isVisible());
}

TEST_F(ThumbnailTest, the_selected_node_decides_whatever_the_list_shows) {
    AddPhoto("ph_a", "Beach");
    AddMagazine("ma_a", {"ph_a"});
    AddMusic("mu_a", "Song", "Singer");
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    RightClickNode("ma_a");
    ClickRow(1);
    EXPECT_FALSE(imgThumb().isVisible());

    ClickNode("musicall");
    RightClickNode("vs_a");
    EXPECT_EQ(FatalOf([&] { ClickRow(1); }), failure::InvalidProcedureCall);
    iVidThumbMode = 0;
    ClickRow(1);
    EXPECT_EQ(Main().sSelected, std::vector<std::string>{"mu_a"});
}

TEST_F(ThumbnailTest, in_mode_3_the_picture_floats_under_the_current_row) {
    Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    ClickRow(2);
    const int top = grdItems().RowTop(2);
    EXPECT_EQ(PlaceOf("imgThumb").Top, top + 360);
    EXPECT_EQ(PlaceOf("imgThumb").Left, 2640 + grdItems().RowLeft(2));
    EXPECT_EQ(imgThumb().y(), (top + 360) / 15);
}

TEST_F(ThumbnailTest, in_mode_3_the_picture_hops_over_its_row_and_back_when_the_pointer_comes) {
    frmMain& window = Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    ClickRow(2);
    const int top = grdItems().RowTop(2);
    EXPECT_EQ(imgThumb().y(), (top + 360) / 15);
    TouchPicture();
    EXPECT_TRUE(window.bThumbAbove);
    EXPECT_EQ(imgThumb().y(), (top - 1335 + 160) / 15);
    EXPECT_EQ(imgThumb().x(), (2640 + grdItems().RowLeft(2)) / 15);
    TouchPicture();
    EXPECT_FALSE(window.bThumbAbove);
    EXPECT_EQ(imgThumb().y(), (top + 360) / 15);
    EXPECT_EQ(imgThumb().x(), (2640 + grdItems().RowLeft(2)) / 15);
}

TEST_F(ThumbnailTest, at_the_last_rows_the_picture_lies_over_what_is_below_the_list) {
    for (int i = 0; i < 40; ++i) AddVideo("vd_more" + std::to_string(i), "More");
    Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    for (Long row = 1; imgThumb().geometry().bottom() < Pixels(7500); ++row) ClickRow(row);
    QWidget& client = Find(Main(), "client");
    const QPoint corner = imgThumb().geometry().bottomLeft() + QPoint(5, -5);
    ASSERT_TRUE(Find(Main(), "Image1").geometry().contains(corner));
    EXPECT_EQ(client.childAt(corner), &imgThumb());
}

TEST_F(ThumbnailTest, the_picture_that_hopped_may_stand_above_the_list) {
    Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    ClickRow(1);
    TouchPicture();
    EXPECT_LT(imgThumb().y(), 0);
    EXPECT_EQ(imgThumb().y(), Pixels(grdItems().RowTop(1) - 1175));
}

TEST_F(ThumbnailTest, a_click_while_the_picture_stands_above_puts_it_below_and_the_next_hop_too) {
    frmMain& window = Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    window.bThumbAbove = true;
    ClickRow(2);
    const int below = (grdItems().RowTop(2) + 360) / 15;
    EXPECT_EQ(imgThumb().y(), below);
    EXPECT_TRUE(window.bThumbAbove);
    TouchPicture();
    EXPECT_EQ(imgThumb().y(), below) << "the other side of where it was said to be";
    EXPECT_FALSE(window.bThumbAbove);
}

TEST_F(ThumbnailTest, in_the_other_modes_the_picture_stays_where_it_is) {
    frmMain& window = Open();
    for (const Integer iMode : std::initializer_list<Integer>{2, 4, 5}) {
        iVidThumbMode = iMode;
        ClickNode("videoall");
        ClickRow(1);
        ASSERT_TRUE(imgThumb().isVisible());
        const QPoint place = imgThumb().pos();
        TouchPicture();
        EXPECT_EQ(imgThumb().pos(), place) << iMode;
        EXPECT_FALSE(window.bThumbAbove) << iMode;
    }
}

TEST_F(ThumbnailTest, below_mode_2_a_click_on_a_video_changes_nothing) {
    Open();
    for (const Integer iMode : std::initializer_list<Integer>{-32768, -1, 0, 1}) {
        iVidThumbMode = iMode;
        ClickNode("videoall");
        Main().LoadThumbnail("vd_a");
        Main().LoadThumbnail("vd_gone");
        Main().LoadThumbnail("multi");
        ClickRow(1);
        EXPECT_FALSE(imgThumb().isVisible()) << iMode;
        EXPECT_EQ(PictureWidth(), 0) << iMode;
        EXPECT_EQ(PlaceOf("grdSync").Height, 6000) << iMode;
    }
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
    EXPECT_EQ(PlaceOf("imgThumb").Left, 2640 + grdItems().RowLeft(1));
    EXPECT_EQ(imgThumb().x(), PlaceOf("imgThumb").Left / 15);
}

TEST_F(ThumbnailTest, the_picture_stays_above_while_a_row_is_dragged) {
    frmMain& window = Open();
    iVidThumbMode = 3;
    ClickNode("videoall");
    ClickRow(1);
    QWidget& viewport = *grdItems().viewport();
    const QPoint point = PointAt(1950, grdItems().RowTop(1) + 30);
    const auto moveWithLeftButton = [&](QPoint to) {
        QMouseEvent move(QEvent::MouseMove, to, viewport.mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&viewport, &move);
    };
    QTest::mousePress(&viewport, Qt::LeftButton, {}, point);
    window.bThumbAbove = true;
    window.bListDrag = true;
    moveWithLeftButton(point + QPoint(1, 0));
    EXPECT_TRUE(window.bThumbAbove);
    window.bListDrag = false;
    moveWithLeftButton(point);
    EXPECT_FALSE(window.bThumbAbove);
    QTest::mouseRelease(&viewport, Qt::LeftButton, {}, point);
}

TEST_F(ThumbnailTest, in_mode_4_the_picture_stands_in_its_slot) {
    AddPhoto("ph_a", "Beach");
    Open();
    iVidThumbMode = 4;
    ClickNode("videoall");
    EXPECT_EQ(PictureWidth(), NoThumbWidth);
    ClickRow(1);
    EXPECT_EQ(PictureWidth(), 160);
    EXPECT_EQ(imgThumb().pos(), QPoint(11880 / 15, 4920 / 15));
    ClickNode("photoall");
    EXPECT_FALSE(imgThumb().isVisible());
    EXPECT_EQ(PlaceOf("grdSync").Height, 6000);
}

TEST_F(ThumbnailTest, in_mode_4_a_picture_comes_to_its_slot_whatever_is_listed) {
    Open();
    iVidThumbMode = 4;
    Main().LoadThumbnail("vd_a");
    EXPECT_TRUE(imgThumb().isVisible());
    EXPECT_EQ(imgThumb().pos(), QPoint(11880 / 15, 4920 / 15));
    EXPECT_EQ(PlaceOf("grdSync").Height, 6000) << "the list makes no room for it";
}

TEST_F(ThumbnailTest, modes_above_4_are_as_mode_2) {
    AddPhoto("ph_a", "Beach");
    Open();
    for (const Integer iMode : std::initializer_list<Integer>{5, 6, 32767}) {
        iVidThumbMode = iMode;
        ClickNode("videoall");
        EXPECT_FALSE(imgThumb().isVisible()) << "no slot opens";
        EXPECT_EQ(PlaceOf("grdSync").Height, 6000);
        ClickRow(1);
        EXPECT_TRUE(imgThumb().isVisible());
        EXPECT_EQ(imgThumb().pos(), QPoint(12120 / 15, 5160 / 15));
        EXPECT_EQ(PictureWidth(), 160);
        ClickNode("vs_a");
        EXPECT_FALSE(imgThumb().isVisible());
        EXPECT_EQ(PlaceOf("grdSync").Height, 6000);
        ClickNode("photoall");
    }
}

TEST_F(ThumbnailTest, loading_a_picture_leaves_bThumbAbove_as_it_is) {
    frmMain& window = Open();
    for (const Integer iMode : std::initializer_list<Integer>{2, 3, 4, 5}) {
        iVidThumbMode = iMode;
        ClickNode("videoall");
        for (const bool bAbove : {true, false}) {
            window.bThumbAbove = bAbove;
            for (const char* id : {"vd_a", "multi"}) {
                window.LoadThumbnail(id);
                EXPECT_EQ(window.bThumbAbove, bAbove) << iMode;
            }
            if (iMode != 3) continue;
            EXPECT_EQ(PlaceOf("imgThumb").Top, grdItems().RowTop(1) + 360) << "below its row";
        }
    }
}

TEST_F(ThumbnailTest, a_thumbnail_that_fails_to_load_is_tried_once_more) {
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    files.FailOn("ReadWhole " + temp.DrivePath("red.jpg"), failure::FileNotFound, 1);
    ClickRow(1);
    EXPECT_TRUE(imgThumb().isVisible());
    EXPECT_EQ(PictureWidth(), 160);
}

TEST_F(ThumbnailTest, a_thumbnail_that_has_gone_is_fatal) {
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("gone.jpg");
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    EXPECT_EQ(FatalOf([&] { ClickRow(1); }), failure::FileNotFound);
    EXPECT_EQ(FailedActivityOf([&] { Main().LoadThumbnail("vd_a"); }),
              "Showing " + temp.DrivePath("gone.jpg"));
}

TEST_F(ThumbnailTest, a_thumbnail_that_is_no_picture_is_fatal) {
    temp.Write("gone.jpg", "no picture");
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("gone.jpg");
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    EXPECT_EQ(FatalOf([&] { ClickRow(1); }), failure::InvalidPicture);
}

TEST_F(ThumbnailTest, a_missing_picture_that_stands_for_thumbnails_is_fatal) {
    Open();
    iVidThumbMode = 2;
    ClickNode("videoall");
    for (const std::string& sFile : {NoThumbFile(), MultiThumbFile()})
        files.FailOn("ReadWhole " + sFile, failure::FileNotFound);
    EXPECT_EQ(FailureOf([&] { Main().LoadThumbnail("vd_b"); }), failure::FileNotFound);
    EXPECT_EQ(FailureOf([&] { Main().LoadThumbnail("multi"); }), failure::FileNotFound);
    EXPECT_EQ(FatalOf([&] { ClickRow(2); }), failure::FileNotFound);
    iVidThumbMode = 4;
    EXPECT_EQ(FailureOf([&] { Main().ExpandSyncGrid(false); }), failure::FileNotFound);
    EXPECT_EQ(FatalOf([&] { ClickNode("vs_a"); }), failure::FileNotFound);
}

TEST_F(ThumbnailTest, in_mode_4_the_picture_is_hidden_until_videos_or_a_series_are_clicked) {
    AddPhoto("ph_a", "Beach");
    for (const char* node : {"videoall", "vs_a"}) {
        temp.Write("db.txt", "[options]\r\niVidThumbMode=4\r\n");
        LoadOptions();
        Open();
        EXPECT_FALSE(imgThumb().isVisible());
        EXPECT_EQ(PlaceOf("grdSync").Height, 6000);
        for (const char* other : {"photoall", "videoseries"}) {
            ClickNode(other);
            EXPECT_FALSE(imgThumb().isVisible()) << other;
        }
        ClickNode(node);
        EXPECT_TRUE(imgThumb().isVisible());
        EXPECT_LT(PlaceOf("grdSync").Height, 6000);
        SingleWindow<frmMain>::Unload();
    }
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

TEST_F(ThumbnailTest, CheckForMultiThumbs_looks_no_further_than_the_first_difference) {
    std::string sThumb = "old";
    bool bMulti = false;
    frmMain::CheckForMultiThumbs({"vd_a", "vd_b", "vd_gone"}, sThumb, bMulti);
    EXPECT_TRUE(bMulti);
    EXPECT_EQ(FailureOf([&] {
                  frmMain::CheckForMultiThumbs({"vd_a", "vd_gone"}, sThumb, bMulti);
              }),
              failure::InvalidProcedureCall);
}

TEST_F(ThumbnailTest, CheckForMultiThumbs_takes_the_text_that_it_begins_with_for_no_path) {
    std::string sThumb;
    bool bMulti = true;
    frmMain::CheckForMultiThumbs({}, sThumb, bMulti);
    EXPECT_FALSE(bMulti);
    EXPECT_EQ(sThumb, "NOTDEFINED");
    colVideo.Item("vd_b").sThumbPath = "NOTDEFINED";
    frmMain::CheckForMultiThumbs({"vd_b", "vd_a"}, sThumb, bMulti);
    EXPECT_FALSE(bMulti);
    EXPECT_EQ(sThumb, temp.DrivePath("red.jpg"));
    frmMain::CheckForMultiThumbs({"vd_a", "vd_b"}, sThumb, bMulti);
    EXPECT_TRUE(bMulti);
}

TEST_F(ThumbnailTest, multi_shows_the_picture_of_several) {
    Open();
    iVidThumbMode = 2;
    Main().LoadThumbnail("multi");
    EXPECT_TRUE(imgThumb().isVisible());
    EXPECT_EQ(PictureWidth(), MultiThumbWidth);
}

}  // namespace tavel::test
