#include "core/PublicStuff.h"
#include "device/Discovery.h"
#include "media/TagMaker.h"
#include "ui/support/DeviceWindow.h"
#include "ui/support/OnPaint.h"
#include "ui/toolkit/ImageList.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QLineEdit>
#include <filesystem>

namespace tavel::test {

using ::testing::Contains;

namespace fs = std::filesystem;

namespace {

class DeviceTreeTest : public DeviceWindowTest {};

}  // namespace

TEST_F(DeviceTreeTest, a_rebuilt_tree_has_the_folders_of_one_level_and_only_its_root_open) {
    fs::create_directories(temp.HostPath("stick/psp/photo/Trip/Deeper"));
    fs::create_directories(temp.HostPath("stick/psp/photo/Autumn"));
    Open();
    const std::string tree =
        "master=PSP+(photoall=Photos-(e:\\psp\\photo\\Autumn=Autumn e:\\psp\\photo\\Trip=Trip) "
        "musicall=Music-(e:\\psp\\music\\Tunes=Tunes) videoall=Videos)";
    EXPECT_EQ(Tree(trvPSPCat()), tree);
    EXPECT_EQ(trvPSPCat().Node("e:\\psp\\music\\Tunes").Parent(), Main().nodMusic);
    EXPECT_EQ(trvPSPCat().Node("e:\\psp\\photo\\Trip").Parent(), Main().nodPhotos);

    trvPSPCat().Node("master").setExpanded(false);
    trvPSPCat().Node("photoall").setExpanded(true);
    trvPSPCat().Node("musicall").setExpanded(true);
    Main().RefreshPSPCats();
    EXPECT_EQ(Tree(trvPSPCat()), tree);
    EXPECT_EQ(trvPSPCat().Node("e:\\psp\\photo\\Trip").Parent(), Main().nodPhotos);
}

TEST_F(DeviceTreeTest, the_node_that_is_listed_stays_selected_in_a_rebuilt_tree) {
    Open();
    for (const char* node : {"videoall", "e:\\psp\\photo\\Trip"}) {
        ClickPSP(node);
        const std::string sRows = RowsOf(grdItems());
        Main().RefreshPSPCats();
        EXPECT_EQ(trvPSPCat().SelectedKey(), node);
        EXPECT_EQ(RowsOf(grdItems()), sRows);
    }
    fs::remove_all(temp.HostPath("stick/psp/photo/Trip"));
    Main().RefreshPSPCats();
    EXPECT_EQ(trvPSPCat().SelectedKey(), "");
}

TEST_F(DeviceTreeTest, folder_nodes_of_photos_have_the_icon_of_music) {
    Open();
    const auto picture = [](const QIcon& icon) { return icon.pixmap(16).toImage(); };
    for (const auto& [key, name] : {std::pair("master", "psp"),
                                    {"photoall", "photo"},
                                    {"musicall", "music"},
                                    {"videoall", "video"},
                                    {"e:\\psp\\photo\\Trip", "music"},
                                    {"e:\\psp\\music\\Tunes", "music"}}) {
        ImageList icons;
        icons.Add(QStringLiteral("a"), QLatin1String(name));
        EXPECT_EQ(picture(trvPSPCat().Node(key).icon(0)), picture(icons.Icon(QStringLiteral("a"))))
            << key;
    }
}

TEST_F(DeviceTreeTest, each_node_lists_its_folder_in_the_columns_of_its_kind) {
    temp.Write("stick/psp/photo/loose.jpg", "no picture");
    temp.Write("stick/psp/music/loose.mp3", "no tag");
    temp.Write("stick/psp/photo/Trip/Deeper/two.jpg", "no picture");
    Open();
    // The case of a path is that of the words it was asked for with.
    const struct {
        const char* key;
        int iListType;
        int columns;
        const char* folder;
        const char* path;
    } nodes[] = {
        {"photoall", 0, 5, "e:psp\\PHOTO\\", "e:\\psp\\PHOTO\\loose.jpg"},
        {"musicall", 5, 6, "e:psp\\MUSIC\\", "e:\\psp\\MUSIC\\loose.mp3"},
        {"e:\\psp\\photo\\Trip", 0, 5, "e:\\psp\\photo\\Trip", "e:\\psp\\photo\\Trip\\one.jpg"},
        {"e:\\psp\\music\\Tunes", 5, 6, "e:\\psp\\music\\Tunes", "e:\\psp\\music\\Tunes\\one.mp3"},
        {"videoall", 3, 4, "e:\\MP_ROOT\\100MNV01\\", "e:\\MP_ROOT\\100MNV01\\M4V10001.mp4"}};
    for (const auto& node : nodes) {
        Main().bPSPView = false;
        files.calls.clear();
        ClickPSP(node.key);
        EXPECT_EQ(Main().iListType, node.iListType) << node.key;
        EXPECT_TRUE(Main().bPSPView);
        EXPECT_EQ(grdItems().model()->columnCount(), node.columns);
        ASSERT_EQ(grdItems().Count(), 1) << node.key;
        EXPECT_EQ(grdItems().Cell(1, grdItems().CellCount(1) - 1), node.path);
        EXPECT_THAT(files.calls, Contains(std::string("GetFolder ") + node.folder));
    }
    ClickPSP("master");
    EXPECT_EQ(Main().iListType, 3);
    EXPECT_EQ(grdItems().Count(), 1);
}

TEST_F(DeviceTreeTest, rows_have_their_cells_and_the_number_of_their_file) {
    ASSERT_TRUE(QImage(30, 20, QImage::Format_RGB32)
                    .save(QString::fromStdString(temp.HostPath("stick/psp/photo/sea.bmp"))));
    const std::string zero(1, '\0');
    temp.Write("stick/psp/music/song.mp3",
               Tag(3, Frame3("TIT2", zero + "Song") + Frame3("TPE1", zero + "Singer") +
                          Frame3("TALB", zero + "Album")));
    temp.Write("stick/MP_ROOT/100MNV01/M4V10001.THM", "thumb");
    temp.Write("stick/MP_ROOT/100MNV01/M4V10002.mp4", std::string(1'500'000, 'v'));
    Open();
    ClickPSP("photoall");
    EXPECT_EQ(CellsOf(grdItems(), 1), "sea|30 X 20|bmp|0 Mb|e:\\psp\\PHOTO\\sea.bmp");
    ClickPSP("musicall");
    EXPECT_EQ(CellsOf(grdItems(), 1), "Song|Singer|Album|mp3|0 Mb|e:\\psp\\MUSIC\\song.mp3");
    ClickPSP("videoall");
    EXPECT_EQ(CellsOf(grdItems(), 2), "M4V10002|mp4|1.5 Mb|e:\\MP_ROOT\\100MNV01\\M4V10002.mp4");
    // The thumbnail between the two has a number, but no row.
    EXPECT_EQ(grdItems().Key(1), "ID1");
    EXPECT_EQ(grdItems().Key(2), "ID3");
}

TEST_F(DeviceTreeTest, a_listing_paints_that_it_is_loading_and_lets_no_event_run) {
    Open();
    ClickPSP("videoall");
    std::vector<std::string> painted;
    int ticks = 0;
    const OnPaint watch(*grdItems().viewport(), [&] { painted.push_back(RowsOf(grdItems())); });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    Main().FillListFromPSP("e:\\MP_ROOT\\100MNV01\\", 3);
    EXPECT_THAT(painted, Contains("Loading..."));
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001");
    painted.clear();
    ClickPSP("photoall");
    EXPECT_THAT(painted, Contains("Loading..."));
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

TEST_F(DeviceTreeTest, its_nodes_can_neither_be_renamed_nor_dropped_on) {
    Open();
    for (const char* key : {"master", "videoall", "e:\\psp\\music\\Tunes"}) {
        trvPSPCat().Select(trvPSPCat().Node(key));
        QTest::keyClick(&trvPSPCat(), Qt::Key_F2);
        EXPECT_EQ(trvPSPCat().findChild<QLineEdit*>(), nullptr) << key;
    }
    EXPECT_FALSE(trvPSPCat().viewport()->acceptDrops());
    EXPECT_TRUE(trvCat().viewport()->acceptDrops());
}

TEST_F(DeviceTreeTest, rows_of_the_device_are_not_taken_as_the_selection) {
    Open();
    ClickPSP("videoall");
    ClickRow(1);
    EXPECT_EQ(Main().sSelected, std::vector<std::string>{""});
}

TEST_F(DeviceTreeTest,
       members_of_a_group_listed_after_the_devices_files_are_still_taken_for_these) {
    AddVideo("vd_a", "Film");
    AddSeries("vs_a", {"vd_a"});
    Open();
    ClickPSP("videoall");
    ClickNode("vs_a");
    EXPECT_EQ(RowsOf(grdItems()), "Film");
    RightClickRow(1);
    EXPECT_TRUE(Shows("mnuPSPRMB"));
    EXPECT_FALSE(Shows("mnuRMB"));
    EXPECT_EQ(Main().sSelected, std::vector<std::string>{""});
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
    EXPECT_EQ(OnStick("MP_ROOT/100MNV01"), "M4V10001.mp4 ");
}

TEST_F(DeviceTreeTest, a_folder_that_has_gone_fails) {
    Open();
    fs::remove_all(temp.HostPath("stick/MP_ROOT"));
    EXPECT_EQ(FatalOf([&] { ClickPSP("videoall"); }), failure::PathNotFound);
}

TEST_F(DeviceTreeTest, a_file_that_fails_leaves_the_rows_before_it_behind_the_message) {
    Open();
    ClickPSP("photoall");
    for (const char* name : {"/M4V10002.mp4", "/noext", "/z.mp4"}) {
        temp.Write(std::string("stick/MP_ROOT/100MNV01") + name, "video");
    }
    EXPECT_EQ(FatalOf([&] { ClickPSP("videoall"); }), failure::Overflow);
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001|M4V10002");
    EXPECT_EQ(Main().iListType, 0) << "still that of the list before";
}

TEST_F(DeviceTreeTest, a_marked_stick_without_the_PSPs_folders_fails) {
    for (const char* missing : {"stick/psp/photo", "stick/psp"}) {
        fs::remove_all(temp.HostPath(missing));
        SingleWindow<frmMain>::Unload();
        bPSPConnected = false;
        EXPECT_EQ(FailureOf([&] { Open(); }), failure::PathNotFound) << missing;
        files.Pull('e');
        PollPSP();
        files.Plug('e', temp.HostPath("stick"));
        EXPECT_EQ(FailureOf([] { PollPSP(); }), failure::PathNotFound) << missing;
    }
}

}  // namespace tavel::test
