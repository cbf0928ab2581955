#include "core/PublicStuff.h"
#include "library/Groups.h"
#include "ui/main/ItemRows.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/Strings.h"

#include <QHeaderView>

namespace tavel::test {

namespace {

using Ids = std::vector<std::string>;

class ItemFillTest : public MainWindowTest {
  protected:
    ItemFillTest() {
        AddPhotosWithFiles();
        for (const char* name : {"a", "b", "c"}) {
            AddVideo(std::string("vd_") + name, name);
            AddMusic(std::string("mu_") + name, name, "Singer");
        }
        AddSeries("vs_a", {"vd_c", "vd_a"});
    }
};

}  // namespace

TEST_F(ItemFillTest, members_are_listed_in_the_groups_order) {
    AddMagazine("ma_a", {"ph_c", "ph_a"});
    AddAlbum("pa_a", {"ph_c", "ph_a"});
    AddPlaylist("pl_", {"mu_c", "mu_a"});
    Open();
    for (const char* id : {"ma_a", "pa_a", "vs_a", "pl_"}) {
        ClickNode(id);
        EXPECT_EQ(RowsOf(grdItems()), "c|a") << id;
    }
}

TEST_F(ItemFillTest, a_member_that_can_not_be_listed_leaves_the_rows_of_those_before_it) {
    AddMagazine("ma_a", {"ph_c", "ph_a", "ph_b", "ph_d"});
    AddMagazine("ma_b", {"ph_d", "ph_b", "ph_d", "ph_a"});
    Open();
    ClickNode("magazines");
    colPhoto.Remove("ph_b");
    EXPECT_EQ(FailureOf([&] { Main().JumpToGroup("ma_a"); }), failure::InvalidProcedureCall);
    EXPECT_TRUE(grdItems().isVisible());
    EXPECT_EQ(RowsOf(grdItems()), "c|a");
    AddPhoto("ph_b", "b");
    EXPECT_EQ(FailureOf([&] { Main().JumpToGroup("ma_b"); }), failure::ListKeyNotUnique);
    EXPECT_EQ(RowsOf(grdItems()), "d|b");
}

TEST_F(ItemFillTest, a_group_whose_last_member_was_taken_out_lists_nothing) {
    AddMagazine("ma_a", {"ph_a"});
    Open();
    RemoveFromGroup("ph_a", "ma_a");
    ClickNode("ma_a");
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(TotalPhotoSeriesSize("ma_a", mtMagazine), "0 Mb");
}

TEST_F(ItemFillTest, the_fills_leave_the_columns_to_the_caller) {
    frmMain& window = Open();
    window.SetupItemList(mtPhoto);
    window.FillList(mtMusic);
    EXPECT_EQ(grdItems().model()->columnCount(), 5);
    window.FillListFromGroup("vs_a");
    EXPECT_EQ(grdItems().model()->columnCount(), 5);
}

TEST_F(ItemFillTest, a_listed_series_opens_the_slot_in_thumbnail_mode_4_and_nothing_else_does) {
    AddMagazine("ma_a", {"ph_a"});
    InstallPictures();
    frmMain& window = Open();
    const auto heightWith = [&](Integer iMode, const char* group) {
        iVidThumbMode = iMode;
        window.FillListFromGroup(group);
        return PlaceOf("grdSync").Height;
    };
    window.SetupItemList(mtVideo);
    EXPECT_EQ(heightWith(2, "vs_a"), 6000);
    EXPECT_EQ(heightWith(5, "vs_a"), 6000);
    EXPECT_EQ(heightWith(4, "ma_a"), 6000);
    EXPECT_EQ(heightWith(4, "vs_a"), 4185);
}

TEST_F(ItemFillTest, FillListFromGroup_leaves_bPSPView_alone_and_FillList_clears_it) {
    frmMain& window = Open();
    window.SetupItemList(mtVideo);
    window.bPSPView = true;
    window.FillListFromGroup("vs_a");
    EXPECT_TRUE(window.bPSPView);
    window.FillList(6);
    EXPECT_FALSE(window.bPSPView);
    EXPECT_EQ(grdItems().Count(), 0);
}

TEST_F(ItemFillTest, GetSelectedDBIDs_of_an_empty_list_is_one_empty_text) {
    frmMain& window = Open();
    Ids ids{"x", "y"};
    window.GetSelectedDBIDs(ids);
    EXPECT_EQ(ids, Ids{""});
}

TEST_F(ItemFillTest, GetSelectedDBIDs_without_a_current_row_gives_all_selected_rows) {
    frmMain& window = Open();
    ClickNode("photoall");
    ClickRow(1);
    ClickRow(3, Qt::ControlModifier);
    grdItems().selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    Ids ids{"x", "y"};
    window.GetSelectedDBIDs(ids);
    EXPECT_EQ(ids, (Ids{"ph_a", "ph_c"}));
    grdItems().clearSelection();
    window.GetSelectedDBIDs(ids);
    EXPECT_EQ(ids, Ids{""});
}

TEST_F(ItemFillTest, only_the_sizes_stand_at_the_right) {
    frmMain& window = Open();
    const QAbstractItemModel& model = *grdItems().model();
    for (const MediaType type : {mtPhoto, mtVideo, mtMusic}) {
        window.SetupItemList(type);
        window.FillList(type);
        for (int column = 0; column < model.columnCount(); ++column) {
            const auto atRight = [](const QVariant& alignment) {
                return (alignment.toInt() & Qt::AlignRight) != 0;
            };
            const std::string sCaption =
                FromQString(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
            const bool bSize = sCaption == "Size";
            EXPECT_EQ(atRight(model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)),
                      bSize)
                << type << sCaption;
            EXPECT_EQ(atRight(model.index(0, column).data(Qt::TextAlignmentRole)), bSize)
                << type << sCaption;
        }
    }
}

TEST_F(ItemFillTest, what_a_listed_magazine_says_fits_its_columns) {
    AddMagazine("ma_a", std::vector<std::string>(20, "ph_a"));
    Open();
    ClickNode("magazines");
    ASSERT_EQ(grdItems().Cell(1, 2), "20 pages");
    const QHeaderView& header = *grdItems().header();
    for (int column = 0; column < header.count(); ++column) {
        const QModelIndex index = grdItems().model()->index(0, column);
        EXPECT_LE(grdItems().sizeHintForIndex(index).width(), header.sectionSize(column)) << column;
    }
}

TEST_F(ItemFillTest, columns_without_a_width_of_their_own_have_the_default_one) {
    frmMain& window = Open();
    window.SetupItemList(mtPhoto);
    EXPECT_EQ(grdItems().ColumnWidth("dims"), ListView::DefaultColumnWidth);
    window.SetupItemList(mtMusic);
    EXPECT_EQ(grdItems().ColumnWidth("artist"), ListView::DefaultColumnWidth);
    EXPECT_EQ(grdItems().ColumnWidth("album"), ListView::DefaultColumnWidth);
}

TEST_F(ItemFillTest, a_click_on_a_column_header_sorts_nothing) {
    AddPhoto("ph_0", "0");
    Open();
    ClickNode("photoall");
    QHeaderView& header = *grdItems().header();
    for (int column = 0; column < header.count(); ++column) {
        const QPoint middle(header.sectionViewportPosition(column) + 20, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, middle);
        EXPECT_EQ(RowsOf(grdItems()), "a|b|c|d|0") << column;
    }
}

}  // namespace tavel::test
