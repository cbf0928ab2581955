#include "core/PublicStuff.h"
#include "device/Discovery.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Questions.h"

#include <QLabel>
#include <QLineEdit>
#include <filesystem>

namespace tavel::test {

namespace {

const QString confirmTitle = QStringLiteral("Confirm Delete");
const QString confirmText =
    QStringLiteral("This will remove the file(s) from the PSP, are you sure?");

class DeviceTreeTest : public MainWindowTest {
  protected:
    DeviceTreeTest() {
        sPhotoSupport = {"jpg"};
        sMusicSupport = {"mp3"};
        sVideoSupport = {"mp4"};
        PlugStick();
    }

    void ClickPSP(const std::string& sKey) { ClickNode(trvPSPCat(), sKey); }

    void DeleteRow(Long row) {
        RightClickRow(row);
        prompts.ExpectMsgBox(confirmText, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, confirmTitle);
        Pick({"mnuPSPRMB", "mnuPSPDel"});
    }

    void AddVideos(std::initializer_list<const char*> numbers) {
        for (const std::string number : numbers) temp.Write(VideoFile(number), "video");
    }
    static std::string VideoFile(const std::string& number) {
        return "stick/MP_ROOT/100MNV01/M4V1000" + number + ".mp4";
    }

    // What the rows are each time that a list is painted.
    class RowsWhenPainted : public QObject {
      public:
        explicit RowsWhenPainted(ListView& list) : m_list(list) {
            list.viewport()->installEventFilter(this);
        }
        std::vector<std::string> rows;

        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint) rows.push_back(RowsOf(m_list));
            return QObject::eventFilter(watched, event);
        }

      private:
        ListView& m_list;
    };

    std::string Text(const char* label) { return Find<QLabel>(Main(), label).text().toStdString(); }
};

}  // namespace

TEST_F(DeviceTreeTest, a_stick_at_the_load_shows_its_tree_and_its_space) {
    Open();
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(Text("labPSPStatus"), "Pocket Connected");
    EXPECT_EQ(Main().Layout().picCatBack.Height, 3240);
    EXPECT_EQ(trvCat().height(), 3240 / 15);
    EXPECT_EQ(trvPSPCat().Node("e:\\psp\\music\\Tunes").Parent(), Main().nodMusic);
    EXPECT_EQ(trvPSPCat().Node("e:\\psp\\photo\\Trip").Parent(), Main().nodPhotos);
    EXPECT_EQ(trvPSPCat().Node("e:\\psp\\photo\\Trip").Text(), "Trip");
    EXPECT_FALSE(trvPSPCat().Node("photoall").isExpanded());
    EXPECT_EQ(Text("labEmpty"), "40% Free");
    EXPECT_EQ(Text("labFull"), "60% Used");
    EXPECT_EQ(Text("labFullSpace"), "600 Mb");
    EXPECT_EQ(Text("labEmptySpace"), "400 Mb");
    EXPECT_TRUE(Find(Main(), "imgFull").isVisible());
}

TEST_F(DeviceTreeTest, folder_nodes_of_photos_have_the_icon_of_music) {
    Open();
    const auto picture = [&](const char* key) {
        return trvPSPCat().Node(key).icon(0).pixmap(16).toImage();
    };
    EXPECT_EQ(picture("e:\\psp\\photo\\Trip"), picture("musicall"));
    EXPECT_NE(picture("e:\\psp\\photo\\Trip"), picture("photoall"));
}

TEST_F(DeviceTreeTest, each_node_lists_its_folder_in_the_columns_of_its_kind) {
    temp.Write("stick/psp/photo/loose.jpg", "no picture");
    temp.Write("stick/psp/music/loose.mp3", "no tag");
    Open();
    const struct {
        const char* key;
        int iListType;
        int columns;
        const char* path;
    } nodes[] = {{"photoall", 0, 5, "e:\\psp\\photo\\loose.jpg"},
                 {"musicall", 5, 6, "e:\\psp\\music\\loose.mp3"},
                 {"e:\\psp\\photo\\Trip", 0, 5, "e:\\psp\\photo\\Trip\\one.jpg"},
                 {"e:\\psp\\music\\Tunes", 5, 6, "e:\\psp\\music\\Tunes\\one.mp3"},
                 {"videoall", 3, 4, "e:\\MP_ROOT\\100MNV01\\M4V10001.mp4"}};
    for (const auto& node : nodes) {
        Main().bPSPView = false;
        ClickPSP(node.key);
        EXPECT_EQ(Main().iListType, node.iListType) << node.key;
        EXPECT_TRUE(Main().bPSPView);
        EXPECT_EQ(grdItems().model()->columnCount(), node.columns);
        ASSERT_EQ(grdItems().Count(), 1) << node.key;
        const std::string sPath = grdItems().Cell(1, grdItems().CellCount(1) - 1);
        EXPECT_EQ(QString::fromStdString(sPath).toLower(),
                  QString::fromLatin1(node.path).toLower());
    }
    ClickPSP("master");
    EXPECT_EQ(Main().iListType, 3);
    EXPECT_EQ(grdItems().Count(), 1);
}

TEST_F(DeviceTreeTest, a_click_on_the_same_node_reads_the_stick_anew) {
    Open();
    ClickPSP("videoall");
    temp.Write("stick/MP_ROOT/100MNV01/M4V10002.mp4", "video");
    ClickPSP("videoall");
    EXPECT_EQ(grdItems().Count(), 2);
}

TEST_F(DeviceTreeTest, a_known_video_shows_its_title_and_an_unknown_one_its_number) {
    temp.Write("stick/TavelDataFile.tavel",
               "[Data]\r\nPSPName=Pocket\r\n[video]\r\nM4V10001=Holiday\r\n");
    temp.Write("stick/MP_ROOT/100MNV01/M4V10001.THM", "thumb");
    temp.Write("stick/MP_ROOT/100MNV01/M4V10002.mp4", "video");
    Open();
    ClickPSP("videoall");
    EXPECT_EQ(RowsOf(grdItems()), "Holiday|M4V10002");
}

TEST_F(DeviceTreeTest, a_row_says_Loading_while_the_stick_is_read) {
    Open();
    ClickPSP("musicall");
    RowsWhenPainted painted(grdItems());
    ClickPSP("videoall");
    ASSERT_FALSE(painted.rows.empty());
    EXPECT_EQ(painted.rows.front(), "Loading...");
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001");
}

TEST_F(DeviceTreeTest, rows_of_the_device_are_not_taken_as_the_selection) {
    Open();
    ClickPSP("videoall");
    ClickRow(1);
    EXPECT_EQ(Main().sSelected, std::vector<std::string>{""});
}

TEST_F(DeviceTreeTest, a_right_click_on_a_row_of_the_device_opens_its_menu_alone) {
    Open();
    ClickPSP("videoall");
    RightClickRow(1);
    EXPECT_TRUE(Shows("mnuPSPRMB"));
    EXPECT_FALSE(Shows("mnuRMB"));
    EXPECT_EQ(EntriesOf("mnuPSPRMB"), "mnuPSPDel ");
}

TEST_F(DeviceTreeTest, deleting_rows_2_and_4_of_5_leaves_the_others) {
    AddVideos({"2", "3", "4", "5"});
    temp.Write("stick/MP_ROOT/100MNV01/M4V10004.THM", "thumb");
    Open();
    ClickPSP("videoall");
    ClickRow(2);
    ClickRow(4, Qt::ControlModifier);
    files.At('e').freeSpace = 500'000'000;
    DeleteRow(4);
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001|M4V10003|M4V10005");
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10002.mp4"), "");
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10004.THM"), "");
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10003.mp4"), "video");
    EXPECT_EQ(Text("labEmpty"), "50% Free");
}

TEST_F(DeviceTreeTest, a_deletion_that_fails_has_removed_the_rows_and_files_after_it) {
    AddVideos({"2", "3"});
    Open();
    ClickPSP("videoall");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    std::filesystem::remove(temp.HostPath(VideoFile("2")));
    files.At('e').freeSpace = 500'000'000;
    EXPECT_EQ(FatalOf([&] { DeleteRow(1); }), failure::FileNotFound);
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001|M4V10002");
    EXPECT_EQ(temp.Read(VideoFile("3")), "");
    EXPECT_EQ(temp.Read(VideoFile("1")), "video");
    EXPECT_EQ(Text("labEmpty"), "40% Free");  // not refreshed
}

TEST_F(DeviceTreeTest, a_deletion_after_the_device_has_gone_widens_the_hidden_bar) {
    Open();
    ClickPSP("videoall");
    // The poll takes a stick without its identity file for gone; its files can still be deleted.
    std::filesystem::remove(temp.HostPath("stick/TavelDataFile.tavel"));
    PollPSP();
    QWidget& bar = Find(Main(), "imgEmpty");
    EXPECT_EQ(bar.width(), 420);
    DeleteRow(1);
    EXPECT_EQ(temp.Read(VideoFile("1")), "");
    EXPECT_EQ(bar.width(), 420 + 252);
    temp.Write("stick/TavelDataFile.tavel", "[Data]\r\nPSPName=Pocket\r\n");
    files.At('e').freeSpace = 500'000'000;
    PollPSP();
    EXPECT_EQ(bar.geometry().right() + 1, (120 + 10080) / 15);
}

TEST_F(DeviceTreeTest, the_Delete_key_acts_on_the_librarys_selection_and_fails_at_the_row) {
    AddPhotosWithFiles();
    Open();
    ClickPSP("videoall");
    ClickRow(1);
    const auto pressDelete = [&] {
        prompts.ExpectMsgBox(fromComputer, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, deleteTitle);
        QTest::keyClick(&grdItems(), Qt::Key_Delete);
    };
    EXPECT_EQ(FatalOf(pressDelete), failure::ListElementNotFound);
    EXPECT_EQ(colPhoto.Count(), 4);

    ClickNode("photoall");
    ClickRow(2);
    ClickPSP("videoall");
    ClickRow(1);
    EXPECT_EQ(FatalOf(pressDelete), failure::ListElementNotFound);
    EXPECT_FALSE(colPhoto.Has("ph_b"));
    EXPECT_FALSE(FileIsThere("b"));
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001");
    EXPECT_EQ(temp.Read(VideoFile("1")), "video");
}

TEST_F(DeviceTreeTest, a_label_edit_changes_no_record_and_raises_bDBChanged) {
    Open();
    ClickPSP("videoall");
    ClickRow(1);
    Find<QAction>(Main(), "mnuRename").trigger();
    auto* editor = grdItems().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("New"));
    QTest::keyClick(editor, Qt::Key_Return);
    RunEvents();
    EXPECT_TRUE(bDBChanged);
    EXPECT_EQ(temp.Read(VideoFile("1")), "video");
}

TEST_F(DeviceTreeTest, deleting_the_last_file_of_a_group_leaves_its_folder_and_node) {
    Open();
    ClickPSP("e:\\psp\\photo\\Trip");
    DeleteRow(1);
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_NE(trvPSPCat().Find("e:\\psp\\photo\\Trip"), nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(temp.HostPath("stick/psp/photo/Trip")));
}

TEST_F(DeviceTreeTest, No_deletes_nothing) {
    Open();
    ClickPSP("videoall");
    RightClickRow(1);
    prompts.ExpectMsgBox(confirmText, MsgBoxButtons::YesNo, MsgBoxAnswer::No, confirmTitle);
    Pick({"mnuPSPRMB", "mnuPSPDel"});
    EXPECT_EQ(grdItems().Count(), 1);
}

TEST_F(DeviceTreeTest, a_list_type_without_files_loses_its_rows_and_no_file) {
    Open();
    ClickPSP("videoall");
    Main().iListType = 8;
    DeleteRow(1);
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10001.mp4"), "video");
}

TEST_F(DeviceTreeTest, a_folder_that_has_gone_fails) {
    Open();
    std::filesystem::remove_all(temp.HostPath("stick/MP_ROOT"));
    EXPECT_EQ(FatalOf([&] { ClickPSP("videoall"); }), failure::PathNotFound);
}

TEST_F(DeviceTreeTest, a_pulled_stick_covers_the_tree_and_keeps_the_rows) {
    Open();
    ClickPSP("videoall");
    files.Pull('e');
    PollPSP();
    EXPECT_EQ(Text("labPSPStatus"), "No PSP Connected");
    EXPECT_EQ(Main().Layout().picCatBack.Height, 6735);
    EXPECT_EQ(grdItems().Count(), 1);
    EXPECT_TRUE(Main().bPSPView);
    EXPECT_FALSE(Find(Main(), "imgEmpty").isVisible());
    EXPECT_FALSE(trvPSPCat().hasFocus());
    EXPECT_EQ(trvPSPCat().focusPolicy(), Qt::NoFocus);
    PlugStick();
    PollPSP();
    EXPECT_EQ(Main().Layout().picCatBack.Height, 3240);
    EXPECT_EQ(trvPSPCat().focusPolicy(), Qt::StrongFocus);
}

TEST_F(DeviceTreeTest, the_bar_is_split_where_the_used_part_ends) {
    Open();
    const QRect full = Find(Main(), "imgFull").geometry();
    const QRect empty = Find(Main(), "imgEmpty").geometry();
    EXPECT_EQ(full.left(), 8);
    EXPECT_EQ(full.right() + 1, empty.left());
    EXPECT_EQ(empty.left(), (120 + 3780) / 15);
    EXPECT_EQ(empty.right() + 1, 6420 / 15);
    files.At('e').freeSpace = 0;
    Main().RefreshPSPStatus();
    EXPECT_EQ(Find(Main(), "imgFull").width(), 420);
    EXPECT_EQ(Find(Main(), "imgEmpty").width(), 0);
}

}  // namespace tavel::test
