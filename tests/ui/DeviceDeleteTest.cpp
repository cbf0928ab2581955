#include "core/PublicStuff.h"
#include "device/Discovery.h"
#include "ui/support/DeviceWindow.h"
#include "ui/support/Questions.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tavel::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::StartsWith;

namespace fs = std::filesystem;

namespace {

class DeviceDeleteTest : public DeviceWindowTest {
  protected:
    static constexpr const char* videos = "MP_ROOT/100MNV01";

    // Five videos, of which 2 and 4 are selected.
    void OpenWithFiveVideos() {
        for (const char* number : {"2", "3", "4", "5"}) {
            temp.Write(std::string("stick/MP_ROOT/100MNV01/M4V1000") + number + ".mp4", "video");
        }
        temp.Write("stick/MP_ROOT/100MNV01/M4V10004.THM", "thumb");
        Open();
        ClickPSP("videoall");
        ClickRow(2);
        ClickRow(4, Qt::ControlModifier);
        files.calls.clear();
    }

    // What was deleted, in order, by the last letters of its path.
    std::vector<std::string> Deleted() const {
        std::vector<std::string> names;
        for (const std::string& call : files.calls) {
            if (call.rfind("DeleteFile", 0) == 0) names.push_back(call.substr(call.size() - 5));
        }
        return names;
    }
};

}  // namespace

TEST_F(DeviceDeleteTest, a_right_click_on_a_row_of_the_device_opens_its_menu_alone) {
    Open();
    ClickPSP("videoall");
    RightClickRow(1);
    EXPECT_TRUE(Shows("mnuPSPRMB"));
    EXPECT_FALSE(Shows("mnuRMB"));
    EXPECT_EQ(EntriesOf("mnuPSPRMB"), "mnuPSPDel ");
}

TEST_F(DeviceDeleteTest, the_Menu_key_opens_it_too_and_opens_nothing_in_the_devices_tree) {
    Open();
    ClickPSP("videoall");
    QTest::keyClick(&trvPSPCat(), Qt::Key_Menu);
    QTest::keyClick(&trvPSPCat(), Qt::Key_F10, Qt::ShiftModifier);
    ClickNode(trvPSPCat(), "videoall", Qt::RightButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), {Qt::Key_F10, Qt::ShiftModifier}}) {
        QTest::keyClick(&grdItems(), key, modifiers);
        EXPECT_TRUE(Shows("mnuPSPRMB"));
        EXPECT_FALSE(Shows("mnuRMB"));
        EXPECT_TRUE(grdItems().Selected(1));
        Find<QMenu>(Main(), "mnuPSPRMB").close();
    }
}

TEST_F(DeviceDeleteTest, rows_2_and_4_of_5_go_from_the_last_to_the_first) {
    OpenWithFiveVideos();
    files.At('e').freeSpace = 500'000'000;
    DeleteRow(4);
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001|M4V10003|M4V10005");
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 M4V10003.mp4 M4V10005.mp4 ");
    EXPECT_THAT(Deleted(), ElementsAre("4.mp4", "4.THM", "2.mp4"));
    EXPECT_EQ(Text("labEmpty"), "50% Free");
    EXPECT_TRUE(Main().bPSPView);
}

TEST_F(DeviceDeleteTest, a_failure_keeps_the_rows_above_it) {
    OpenWithFiveVideos();
    files.FailOn("DeleteFile e:\\MP_ROOT\\100MNV01\\M4V10002", 70);
    files.At('e').freeSpace = 500'000'000;
    EXPECT_EQ(FatalOf([&] { DeleteRow(4); }), 70);
    EXPECT_EQ(Text("labEmpty"), "40% Free") << "not refreshed";
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001|M4V10002|M4V10003|M4V10005");
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 M4V10002.mp4 M4V10003.mp4 M4V10005.mp4 ");
}

TEST_F(DeviceDeleteTest, each_list_deletes_the_file_of_its_row) {
    const struct {
        const char* key;
        const char* folder;
        const char* extension;
    } lists[] = {{"photoall", "psp/photo", ".jpg"},
                 {"musicall", "psp/music", ".mp3"},
                 {"e:\\psp\\photo\\Trip", "psp/photo/Trip", ".jpg"},
                 {"e:\\psp\\music\\Tunes", "psp/music/Tunes", ".mp3"}};
    Open();
    for (const auto& list : lists) {
        const std::string sFolder = std::string("stick/") + list.folder;
        fs::remove(temp.HostPath(sFolder) + "/one" + list.extension);
        for (const char* name : {"/x1", "/x2", "/x3"}) {
            temp.Write(sFolder + name + list.extension, "file");
        }
        const std::string before = OnStick(list.folder);
        ClickPSP(list.key);
        DeleteRow(2);
        EXPECT_EQ(grdItems().Count(), 2) << list.key;
        const std::string sGone = std::string("x2") + list.extension + " ";
        EXPECT_EQ(OnStick(list.folder), std::string(before).erase(before.find(sGone), sGone.size()))
            << list.key;
    }
}

TEST_F(DeviceDeleteTest, the_last_file_of_a_group_leaves_its_folder_and_the_tree_as_it_is) {
    Open();
    trvPSPCat().Node("photoall").setExpanded(true);
    ClickPSP("e:\\psp\\photo\\Trip");
    const std::string tree = Tree(trvPSPCat());
    files.calls.clear();
    DeleteRow(1);
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(OnStick("psp/photo"), "Trip ");
    EXPECT_EQ(OnStick("psp/photo/Trip"), "");
    EXPECT_THAT(files.calls, Not(Contains(StartsWith("GetFolder"))));
    EXPECT_EQ(Tree(trvPSPCat()), tree);
    EXPECT_EQ(trvPSPCat().SelectedKey(), "e:\\psp\\photo\\Trip");
}

TEST_F(DeviceDeleteTest, No_deletes_nothing_and_reads_no_figures) {
    Open();
    ClickPSP("videoall");
    files.calls.clear();
    AnswerDelete(1, MsgBoxAnswer::No);
    EXPECT_EQ(grdItems().Count(), 1);
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 ");
    EXPECT_TRUE(files.calls.empty());
}

TEST_F(DeviceDeleteTest, Yes_without_a_selected_row_reads_the_figures_alone) {
    Open();
    ClickPSP("videoall");
    RightClickRow(1);
    grdItems().clearSelection();
    files.At('e').freeSpace = 500'000'000;
    prompts.ExpectMsgBox(QStringLiteral("This will remove the file(s) from the PSP, are you sure?"),
                         MsgBoxButtons::YesNoDefaultNo, MsgBoxAnswer::Yes,
                         QStringLiteral("Confirm Delete"));
    Pick({"mnuPSPRMB", "mnuPSPDel"});
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 ");
    EXPECT_EQ(grdItems().Count(), 1);
    EXPECT_EQ(Text("labEmpty"), "50% Free");
}

TEST_F(DeviceDeleteTest, a_list_type_without_files_loses_its_rows_and_no_file) {
    Open();
    ClickPSP("videoall");
    Main().iListType = 8;
    DeleteRow(1);
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 ");
}

TEST_F(DeviceDeleteTest, a_file_that_has_gone_or_is_read_only_or_on_a_pulled_stick_fails) {
    const std::string sFile = temp.HostPath("stick/MP_ROOT/100MNV01/M4V10001.mp4");
    Open();
    ClickPSP("videoall");
    fs::permissions(sFile, fs::perms::owner_read);
    EXPECT_EQ(FatalOf([&] { DeleteRow(1); }), 70);
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 ");
    fs::permissions(sFile, fs::perms::owner_all);
    fs::remove(sFile);
    EXPECT_EQ(FatalOf([&] { DeleteRow(1); }), 53);
    files.Pull('e');
    EXPECT_EQ(FatalOf([&] { DeleteRow(1); }), 76);
    EXPECT_EQ(grdItems().Count(), 1);
}

TEST_F(DeviceDeleteTest, the_Delete_key_acts_on_the_librarys_selection_and_fails_at_the_row) {
    AddPhotosWithFiles();
    Open();
    ClickPSP("videoall");
    ClickRow(1);
    const auto pressDelete = [&] {
        prompts.ExpectMsgBox(fromComputer, ButtonsOf(fromComputer), MsgBoxAnswer::Yes, deleteTitle);
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
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 ");
}

// A group's members are listed with the view of the device still on.
TEST_F(DeviceDeleteTest, a_row_of_a_library_group_after_the_device_loses_its_file_on_the_computer) {
    AddPhotosWithFiles();
    AddAlbum("pa_a", {"ph_a"});
    Open();
    ClickPSP("videoall");
    ClickNode("pa_a");
    ASSERT_EQ(RowsOf(grdItems()), "a");
    DeleteRow(1);
    EXPECT_FALSE(FileIsThere("a"));
    EXPECT_TRUE(colPhoto.Has("ph_a"));
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(OnStick(videos), "M4V10001.mp4 ");
    EXPECT_FALSE(bDBChanged);
}

TEST_F(DeviceDeleteTest, the_library_is_left_alone) {
    temp.Write("one.jpg", "mine");
    Photo& photo = AddPhoto("ph_one", "one");
    photo.sPath(temp.DrivePath("one.jpg"));
    Open();
    ClickPSP("e:\\psp\\photo\\Trip");
    DeleteRow(1);
    EXPECT_EQ(OnStick("psp/photo/Trip"), "");
    EXPECT_EQ(colPhoto.Count(), 1);
    EXPECT_EQ(temp.Read("one.jpg"), "mine");
    EXPECT_FALSE(bDBChanged);
}

}  // namespace tavel::test
