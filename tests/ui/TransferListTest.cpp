#include "core/PublicStuff.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmCopy.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Questions.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/Strings.h"

#include <QDragMoveEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>

namespace tavel::test {

namespace {

using Ids = std::vector<std::string>;

class TransferListTest : public MainWindowTest {
  protected:
    TransferListTest() {
        AddVideo("vd_a", "Film");
        AddVideo("vd_b", "Clip");
        AddVideo("vd_c", "Trailer");
        AddPhoto("ph_a", "Beach");
    }

    // Keys and names of the rows.
    std::string Queue() {
        std::string queue;
        for (Long row = 1; row <= grdSync().Count(); ++row) {
            queue += grdSync().Key(row) + "=" + grdSync().Cell(row, 1) + ";";
        }
        return queue;
    }

    void ExpectAlreadyThere() {
        prompts.ExpectMsgBox(QStringLiteral("Already exists in the list"), MsgBoxButtons::OK,
                             MsgBoxAnswer::OK);
    }

    QImage IconOf(Long row) {
        const QVariant icon = grdSync().model()->index(row - 1, 0).data(Qt::DecorationRole);
        return icon.value<QIcon>().pixmap(16).toImage();
    }

    void ChooseView(const char* key) {
        QMenu& views = *Find<QToolButton>(Main(), "view").menu();
        QTest::mouseClick(
            &views, Qt::LeftButton, {},
            views.actionGeometry(views.findChild<QAction*>(QLatin1String(key))).center());
    }
};

}  // namespace

TEST_F(TransferListTest, a_row_has_the_icon_of_its_type_and_the_name) {
    AddMusic("mu_a", "Song", "Singer");
    AddMusic("mu_b", "Hum", "");
    AddMagazine("ma_a", {"ph_a"});
    AddAlbum("pa_a", {"ph_a"});
    AddSeries("vs_a", {"vd_a"});
    AddPlaylist("pl_", {"mu_a"});
    frmMain& window = Open();
    const struct {
        const char* id;
        const char* name;
        const char* icon;
    } entries[] = {{"mu_a", "Song - Singer", ":/artwork/icons/music.png"},
                   {"mu_b", "Hum - ", ":/artwork/icons/music.png"},
                   {"ph_a", "Beach", ":/artwork/icons/photo.png"},
                   {"vd_a", "Film", ":/artwork/icons/video.png"},
                   {"vs_a", "Group vs_a", ":/artwork/icons/vidseries.png"},
                   {"pa_a", "Group pa_a", ":/artwork/icons/album.png"},
                   {"ma_a", "Group ma_a", ":/artwork/icons/magazine.png"},
                   {"pl_", "Group pl_", ":/artwork/icons/playlist.png"}};
    std::vector<QImage> images;
    Long row = 0;
    for (const auto& entry : entries) {
        window.AddToTransferList(entry.id);
        ASSERT_EQ(grdSync().Count(), ++row) << entry.id;
        EXPECT_EQ(grdSync().Key(row), std::string("ID") + entry.id);
        EXPECT_EQ(grdSync().Cell(row, 0), "");
        EXPECT_EQ(grdSync().Cell(row, 1), entry.name);
        const QImage image = IconOf(row);
        EXPECT_EQ(image, QIcon(QLatin1String(entry.icon)).pixmap(16).toImage()) << entry.id;
        if (std::find(images.begin(), images.end(), image) == images.end()) {
            images.push_back(image);
        }
    }
    EXPECT_EQ(images.size(), 7U);  // one of each type
}

TEST_F(TransferListTest, both_lists_have_a_column_for_the_icon_and_one_for_the_name) {
    Open();
    for (const char* name : {"grdSync", "grdAutoSync"}) {
        auto& list = Find<ListView>(Main(), name);
        const auto caption = [&](int column) {
            return list.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        };
        EXPECT_EQ(list.model()->columnCount(), 2);
        EXPECT_EQ(caption(0), QString()) << name;
        EXPECT_EQ(caption(1), QStringLiteral("Item")) << name;
        EXPECT_EQ(list.ColumnWidth("icon"), 300) << name;
    }
    EXPECT_EQ(grdSync().ColumnWidth("item"), 3015 - 300);
    EXPECT_EQ(Find<ListView>(Main(), "grdAutoSync").ColumnWidth("item"),
              ListView::DefaultColumnWidth);
}

TEST_F(TransferListTest, an_id_that_can_not_be_added_is_passed_over_without_a_word) {
    frmMain& window = Open();
    for (const char* id : {"", "-1", "vd_none", "xy"}) window.AddToTransferList(id);
    EXPECT_EQ(grdSync().Count(), 0);
}

TEST_F(TransferListTest, Add_to_Transfer_List_adds_every_selected_row) {
    Open();
    ClickNode("videoall");
    ClickRow(1);
    ClickRow(3, Qt::ControlModifier);
    RightClickRow(3);
    Pick({"mnuRMB", "mnuAddToTransfer"});
    EXPECT_EQ(Queue(), "IDvd_a=Film;IDvd_c=Trailer;");
}

TEST_F(TransferListTest, adding_a_video_twice_gives_one_row_and_one_message_each_time) {
    Open();
    ClickNode("videoall");
    RightClickRow(1);
    Pick({"mnuRMB", "mnuAddToTransfer"});
    ClickRow(2, Qt::ShiftModifier);
    RightClickRow(1);
    ExpectAlreadyThere();
    Pick({"mnuRMB", "mnuAddToTransfer"});
    EXPECT_EQ(Queue(), "IDvd_a=Film;IDvd_b=Clip;");
    ExpectAlreadyThere();
    ExpectAlreadyThere();
    RightClickRow(1);
    Pick({"mnuRMB", "mnuAddToTransfer"});
    EXPECT_EQ(Queue(), "IDvd_a=Film;IDvd_b=Clip;");
}

TEST_F(TransferListTest, a_listed_id_whose_record_has_gone_is_passed_over_without_a_word) {
    frmMain& window = Open();
    window.AddToTransferList("vd_a");
    colVideo.Remove("vd_a");
    window.AddToTransferList("vd_a");
    EXPECT_EQ(Queue(), "IDvd_a=Film;");
}

TEST_F(TransferListTest, a_drop_adds_the_selected_ids_in_their_order) {
    frmMain& window = Open();
    ClickNode("videoall");
    Drag(2, *grdSync().viewport(), {40, 60}, [&] { window.sSelected = {"vd_c", "vd_a"}; });
    EXPECT_EQ(Queue(), "IDvd_c=Trailer;IDvd_a=Film;");
}

TEST_F(TransferListTest, a_drop_with_nothing_selected_adds_nothing_without_a_word) {
    frmMain& window = Open();
    ClickNode("videoall");
    Drag(2, *grdSync().viewport(), {40, 60}, [&] { window.sSelected = {""}; });
    EXPECT_EQ(Queue(), "");
}

TEST_F(TransferListTest, a_row_dragged_after_a_click_goes_on_the_list) {
    Open();
    ClickNode("videoall");
    ClickRow(2);
    Drag(2, *grdSync().viewport(), {40, 60});
    EXPECT_EQ(Queue(), "IDvd_b=Clip;");
    ExpectAlreadyThere();
    Drag(2, *grdSync().viewport(), {40, 60});
    EXPECT_EQ(Queue(), "IDvd_b=Clip;");
}

TEST_F(TransferListTest, a_drag_takes_the_row_in_the_hand) {
    frmMain& window = Open();
    ClickNode("videoall");
    Drag(1, *grdSync().viewport(), {40, 60});
    EXPECT_EQ(Queue(), "IDvd_a=Film;") << "the first row is current without being clicked";
    Drag(3, *grdSync().viewport(), {40, 60});
    EXPECT_EQ(Queue(), "IDvd_a=Film;IDvd_c=Trailer;");
    EXPECT_TRUE(grdItems().Selected(3));
    EXPECT_FALSE(grdItems().Selected(1));
    EXPECT_EQ(window.sSelected, Ids{"vd_c"});
}

TEST_F(TransferListTest, a_drag_takes_the_row_in_the_hand_of_several_that_are_selected) {
    frmMain& window = Open();
    ClickNode("videoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    Drag(2, *grdSync().viewport(), {40, 60});
    EXPECT_EQ(Queue(), "IDvd_b=Clip;");
    EXPECT_EQ(window.sSelected, Ids{"vd_b"});
}

TEST_F(TransferListTest, a_row_that_stayed_selected_over_a_click_on_master_is_taken_too) {
    Open();
    ClickNode("videoall");
    ClickRow(2);
    ClickNode("master");
    Drag(2, *grdSync().viewport(), {40, 60});
    EXPECT_EQ(Queue(), "IDvd_b=Clip;");
}

TEST_F(TransferListTest, it_has_no_pop_up_menu) {
    frmMain& window = Open();
    window.AddToTransferList("vd_a");
    ClickRow(grdSync(), 1);
    QTest::keyClick(&grdSync(), Qt::Key_Menu);
    ClickRow(grdSync(), 1, Qt::NoModifier, Qt::RightButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(TransferListTest, a_drag_near_its_lower_edge_scrolls_it) {
    frmMain& window = Open();
    for (int i = 0; i < 60; ++i) {
        const std::string sID = "ph_" + std::to_string(i);
        AddPhoto(sID, sID);
        window.AddToTransferList(sID);
    }
    QWidget& viewport = *grdSync().viewport();
    ClickNode("videoall");
    const QPoint edge(40, viewport.height() - 3);
    Drag(1, viewport, edge, [&] {
        const std::unique_ptr<QMimeData> rows(MakeDraggedRows());
        QDragEnterEvent enter(edge, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&viewport, &enter);
        QDragMoveEvent move(edge, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(&viewport, &move);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return grdSync().verticalScrollBar()->value() > 2; }, 3000));
    });
    EXPECT_EQ(grdSync().Count(), 61);
}

TEST_F(TransferListTest, the_Delete_key_takes_out_the_selected_rows_without_a_question) {
    temp.Write("beach.jpg", "a picture");
    colPhoto.Item("ph_a").sPath(temp.DrivePath("beach.jpg"));
    frmMain& window = Open();
    for (const char* id : {"vd_a", "vd_b", "vd_c", "ph_a"}) window.AddToTransferList(id);
    ClickRow(grdSync(), 2);
    ClickRow(grdSync(), 4, Qt::ControlModifier);
    QTest::keyClick(&grdSync(), Qt::Key_Backspace);
    QTest::keyClick(&grdSync(), Qt::Key_Delete);
    EXPECT_EQ(Queue(), "IDvd_a=Film;IDvd_c=Trailer;");
    EXPECT_EQ(colVideo.Count() + colPhoto.Count(), 4);
    EXPECT_EQ(temp.Read("beach.jpg"), "a picture");
    EXPECT_FALSE(bDBChanged);
}

TEST_F(TransferListTest, FormSyncList_gives_the_ids_in_list_order) {
    frmMain& window = Open();
    for (const char* id : {"vd_b", "ph_a", "vd_a"}) window.AddToTransferList(id);
    Ids ids{"old"};
    window.FormSyncList(ids);
    EXPECT_EQ(ids, (Ids{"vd_b", "ph_a", "vd_a"}));
}

TEST_F(TransferListTest, sending_without_a_PSP_says_so_and_Clear_List_empties_the_list) {
    MessageBoxesRecorder boxes(calls);
    frmMain& window = Open();
    window.AddToTransferList("vd_a");
    boxes.Expect("No PSP Connected", MsgBoxAnswer::OK);
    Click(window, "cmdSend");
    EXPECT_EQ(Queue(), "IDvd_a=Film;");
    Click(window, "cmdClear");
    EXPECT_EQ(Queue(), "");
}

TEST_F(TransferListTest, what_is_deleted_from_the_library_stays_on_the_list) {
    AddSeries("vs_a", {"vd_b"});
    frmMain& window = Open();
    for (const char* id : {"vd_a", "vd_c", "vs_a", "ph_a"}) window.AddToTransferList(id);
    const std::string queue = Queue();
    const auto expectYes = [&](const QString& question) {
        prompts.ExpectMsgBox(question, ButtonsOf(question), MsgBoxAnswer::Yes, deleteTitle);
    };
    ClickNode("videoall");
    RightClickRow(1);
    expectYes(fromDB);
    Pick({"mnuRMB", "mnuRemoveTop", "mnuRemoveDB"});
    ClickNode("videoseries");
    RightClickRow(1);
    expectYes(theGroup);
    Pick({"mnuRMB", "mnuDelGroup"});
    temp.Write("beach.jpg", "a picture");
    colPhoto.Item("ph_a").sPath(temp.DrivePath("beach.jpg"));
    ClickNode("photoall");
    ClickRow(1);
    expectYes(fromComputer);
    QTest::keyClick(&grdItems(), Qt::Key_Delete);
    EXPECT_EQ(colVideo.Count() + colVidSeries.Count() + colPhoto.Count(), 2);
    EXPECT_EQ(Queue(), queue);
}

TEST_F(TransferListTest, the_view_button_shows_the_one_list_or_the_other) {
    frmMain& window = Open();
    auto& button = Find<QToolButton>(window, "view");
    auto& toolbar = Find(window, "tbrRightView");
    auto& autoSync = Find<ListView>(window, "grdAutoSync");
    EXPECT_EQ(button.text(), QStringLiteral("Transfer View"));
    std::string views;
    for (const QAction* entry : button.menu()->actions()) {
        views += FromQString(entry->objectName() + QLatin1Char('=') + entry->text()) + ";";
    }
    EXPECT_EQ(views, "sync=Transfer View;auto=AutoSync View;");
    const auto right = [&] { return toolbar.x() + toolbar.width(); };
    EXPECT_EQ(right(), 14610 / 15);
    QTimer::singleShot(0, &window, [&] { ChooseView("auto"); });
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.text(), QStringLiteral("AutoSync View"));
    EXPECT_FALSE(grdSync().isVisible());
    EXPECT_TRUE(autoSync.isVisible());
    EXPECT_EQ(right(), 14610 / 15);
    EXPECT_EQ(toolbar.width(), button.width());
    EXPECT_EQ(button.width(), button.sizeHint().width());

    // The hidden list goes on working; the other takes no rows.
    ClickNode("videoall");
    ClickRow(1);
    Drag(1, *autoSync.viewport(), {40, 60});
    EXPECT_EQ(Queue(), "");
    RightClickRow(1);
    Pick({"mnuRMB", "mnuAddToTransfer"});
    EXPECT_EQ(Queue(), "IDvd_a=Film;");
    EXPECT_EQ(autoSync.Count(), 0);

    QTimer::singleShot(0, &window, [&] { ChooseView("sync"); });
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.text(), QStringLiteral("Transfer View"));
    EXPECT_TRUE(grdSync().isVisible());
    EXPECT_FALSE(autoSync.isVisible());
    EXPECT_EQ(right(), 14610 / 15);
}

TEST_F(TransferListTest, the_view_button_is_called_View_until_the_load) {
    frmMain designed;
    EXPECT_EQ(Find<QToolButton>(designed, "view").text(), QStringLiteral("View"));
}

TEST_F(TransferListTest, ExpandSyncGrid_moves_the_controls) {
    InstallPictures();
    frmMain& window = Open();
    auto& imgThumb = Find<QLabel>(window, "imgThumb");
    iVidThumbMode = 2;
    window.LoadThumbnail("multi");
    window.ExpandSyncGrid(false);
    EXPECT_EQ(grdSync().height(), 4185 / 15);
    EXPECT_EQ(Find(window, "cmdSend").y(), 4365 / 15);
    EXPECT_EQ(Find(window, "cmdClear").y(), 4365 / 15);
    EXPECT_TRUE(imgThumb.isVisible());
    EXPECT_EQ(imgThumb.pos(), QPoint(11880 / 15, 4920 / 15));
    EXPECT_EQ(imgThumb.pixmap(Qt::ReturnByValue).width(), NoThumbWidth);
    for (int time = 1; time <= 2; ++time) {
        window.ExpandSyncGrid(true);
        EXPECT_EQ(grdSync().height(), 6000 / 15);
        EXPECT_EQ(Find(window, "cmdSend").y(), 6240 / 15);
        EXPECT_EQ(Find(window, "cmdClear").y(), 6240 / 15);
        EXPECT_FALSE(imgThumb.isVisible());
    }
    EXPECT_EQ(Find(window, "grdAutoSync").height(), 4095 / 15);
}

TEST_F(TransferListTest, no_timer_ticks_while_the_list_is_sent) {
    WireUpCalls();
    const AppWindowsRecorder noRealEnd(calls);
    PlugStick();
    temp.Write("film.mp4", std::string(100'000, 'x'));
    colVideo.Item("vd_a").sPath(temp.DrivePath("film.mp4"));
    frmMain& window = Open();
    window.AddToTransferList("vd_a");
    auto& tmrPSP = Find<QTimer>(window, "tmrPSP");
    int ticks = 0;
    QObject::connect(&tmrPSP, &QTimer::timeout, &window, [&] { ++ticks; });
    tmrPSP.start(0);
    Find<QPushButton>(window, "cmdSend").click();
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(Find(SingleWindow<frmCopy>::Get(), "labFinish").isVisible());
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10002.mp4").size(), 100'000U);
    RunEvents();
    EXPECT_GT(ticks, 0);
}

TEST_F(TransferListTest, the_buttons_work_on_the_hidden_list_in_the_AutoSync_view) {
    MessageBoxesRecorder boxes(calls);
    frmMain& window = Open();
    window.AddToTransferList("vd_a");
    ChooseView("auto");
    boxes.Expect("No PSP Connected", MsgBoxAnswer::OK);
    Click(window, "cmdSend");
    EXPECT_EQ(grdSync().Count(), 1);
    Click(window, "cmdClear");
    EXPECT_EQ(grdSync().Count(), 0);
}

}  // namespace tavel::test
