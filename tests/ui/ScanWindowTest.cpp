#include "core/PublicStuff.h"
#include "library/Scan.h"
#include "platform/Failure.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmAdd.h"
#include "ui/setup/frmOptions.h"
#include "ui/setup/frmWatchFolders.h"
#include "ui/support/DeviceWindow.h"
#include "ui/support/Questions.h"
#include "ui/support/UserAtYields.h"
#include "ui/toolkit/Strings.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <cstddef>
#include <filesystem>

namespace tavel::test {

using ::testing::Contains;

namespace {

// The scan of a folder, under the real main window.
class ScanWindowTest : public DeviceWindowTest {
  protected:
    ScanWindowTest() {
        sPhotoSupport = {"jpg"};
        sVideoSupport = {"mp4"};
        sMusicSupport = {"mp3"};
    }

    void Watch(const std::string& name, const std::string& delay = "60") const {
        temp.Write("db.txt", "[watch]\r\nnoofflds=1\r\n0=" + temp.DrivePath(name) +
                                 "\r\ndelay=" + delay + "\r\n");
    }
    void WriteFiles(std::initializer_list<const char*> names) const {
        for (const char* name : names) temp.Write(name, "a file");
    }

    void Scan() { Pick({"mnuTools", "mnuBackScan"}); }

    QTimer& tmrBack() { return Find<QTimer>(Main(), "tmrBack"); }
    void Minutes(int count) {
        for (int i = 0; i < count; ++i) QMetaObject::invokeMethod(&tmrBack(), "timeout");
    }

    // How many scans have begun so far.
    std::ptrdiff_t Begun() const {
        return std::count(calls.begin(), calls.end(), "Log BACK SCAN: Begginging background scan");
    }

    // Names of the records, in the order in which they came.
    static std::string Photos() {
        std::string names;
        for (Long i = 1; i <= colPhoto.Count(); ++i) names += colPhoto.Item(i).sName + " ";
        return names;
    }

    void StoreDelay(int item) {
        Pick({"mnuFile", "mnuAdd", "mnuWatchFolders"});
        frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
        Find<QComboBox>(window, "cmbScanDelay").setCurrentIndex(item);
        Click(window, "cmdOK");
        RunEvents();
    }

    UserAtYields user;
};

}  // namespace

TEST_F(ScanWindowTest, Scan_for_Media_scans_at_once_and_the_minutes_go_on_being_counted) {
    WriteFiles({"m/a.jpg", "m/b.mp4"});
    Watch("m");
    Open();
    Minutes(3);
    user.act = [&](int) {
        EXPECT_TRUE(bScanning);
        EXPECT_FALSE(tmrBack().isActive());
    };
    Scan();
    EXPECT_GT(user.yields, 0);
    EXPECT_EQ(colPhoto.Count() + colVideo.Count(), 2);
    EXPECT_FALSE(bScanning);
    EXPECT_TRUE(tmrBack().isActive());
    EXPECT_EQ(iScanTicks, 3);
    EXPECT_TRUE(bDBChanged);
}

TEST_F(ScanWindowTest, the_lists_stay_usable_and_show_what_was_found_by_then) {
    WriteFiles({"m/a.jpg", "m/b.jpg", "m/c.jpg"});
    Watch("m");
    Open();
    user.act = [&](int) {
        if (colPhoto.Count() != 2) return;
        ClickNode("photoall");
        ClickRow(2);
    };
    Scan();
    EXPECT_EQ(Photos(), "a b c ");
    EXPECT_EQ(RowsOf(grdItems()), "a|b") << "the next click in the tree shows the rest";
    EXPECT_EQ(Main().sSelected, std::vector<std::string>{colPhoto.Item(2).sDBID});
    ClickNode("videoall");
    ClickNode("photoall");
    EXPECT_EQ(RowsOf(grdItems()), "a|b|c");
}

TEST_F(ScanWindowTest, what_the_user_adds_meanwhile_is_known_when_the_scan_comes_to_it) {
    WriteFiles({"m/1/a.jpg", "m/2/b.jpg"});
    Watch("m");
    Open();
    user.act = [&](int yield) {
        if (yield != 1) return;
        prompts.ExpectFolder(QStringLiteral("Select a folder"), temp.DrivePath("m\\2"));
        Pick({"mnuFile", "mnuAdd", "mnuAddFolder"});
    };
    Scan();
    EXPECT_EQ(Photos(), "a b ");
}

TEST_F(ScanWindowTest, a_record_that_the_user_deletes_while_paths_are_compared_ends_the_program) {
    AddPhotosWithFiles();
    WriteFiles({"m/x.jpg"});
    Watch("m");
    Open();
    ClickNode("photoall");
    ClickRow(1);
    const Long number = FatalOf([&] {
        user.act = [&](int yield) {
            if (yield != 1) return;
            prompts.ExpectMsgBox(fromComputer, ButtonsOf(fromComputer), MsgBoxAnswer::Yes,
                                 deleteTitle);
            QTest::keyClick(&grdItems(), Qt::Key_Delete);
        };
        Scan();
    });
    EXPECT_EQ(number, failure::SubscriptOutOfRange);
    EXPECT_EQ(colPhoto.Count(), 3);
}

TEST_F(ScanWindowTest, a_record_that_goes_before_its_group_is_made_ends_the_program) {
    WriteFiles({"m/a.jpg"});
    Watch("m");
    bAutoGroup = true;
    Open();
    const Long number = FatalOf([&] {
        user.act = [&](int yield) {
            if (yield != 1) return;
            ClickNode("photoall");
            ClickRow(1);
            prompts.ExpectMsgBox(fromComputer, ButtonsOf(fromComputer), MsgBoxAnswer::Yes,
                                 deleteTitle);
            QTest::keyClick(&grdItems(), Qt::Key_Delete);
        };
        Scan();
    });
    EXPECT_EQ(number, failure::InvalidProcedureCall);
    EXPECT_EQ(colPhoto.Count(), 0);
}

TEST_F(ScanWindowTest, a_group_that_the_user_deletes_meanwhile_is_no_matter) {
    WriteFiles({"m/1/a.jpg", "m/2/b.jpg", "m/3/c.jpg"});
    Watch("m");
    bAutoGroup = true;
    Open();
    bool isDeleted = false;
    user.act = [&](int) {
        if (isDeleted || colMagazine.Count() == 0) return;
        isDeleted = true;
        ClickNode("magazines");
        ClickRow(1);
        prompts.ExpectMsgBox(theGroup, MsgBoxButtons::YesNo, MsgBoxAnswer::Yes, deleteTitle);
        RightClickRow(1);
        Pick({"mnuRMB", "mnuDelGroup"});
    };
    Scan();
    EXPECT_EQ(Photos(), "a b c ");
    ASSERT_EQ(colMagazine.Count(), 2);
    EXPECT_EQ(colMagazine.Item(1).sName + colMagazine.Item(2).sName, "23");
}

TEST_F(ScanWindowTest, a_transfer_started_meanwhile_runs_to_its_end_and_the_scan_goes_on) {
    WireUpCalls();
    Service<EventLoop>::Use(&user);
    WriteFiles({"beach.jpg", "m/a.jpg", "m/b.jpg"});
    AddPhoto("ph_x", "Beach").sPath(temp.DrivePath("beach.jpg"));
    Watch("m");
    Open();
    Main().AddToTransferList("ph_x");
    user.act = [&](int yield) {
        if (yield == 1) Click(Main(), "cmdSend");
    };
    Scan();
    EXPECT_EQ(temp.Read("stick/psp/photo/Beach.jpg"), "a file");
    EXPECT_EQ(Photos(), "Beach a b ");
    EXPECT_FALSE(bScanning);
}

TEST_F(ScanWindowTest, Exit_meanwhile_saves_what_was_found_by_then) {
    WriteFiles({"m/a.jpg", "m/b.jpg", "m/c.jpg"});
    Watch("m");
    Open();
    Long saved = -1;
    store.onSaveDB = [&] { saved = colPhoto.Count(); };
    user.act = [&](int yield) {
        if (yield == 2) Pick({"mnuFile", "mnuExit"});
    };
    calls.clear();
    Scan();
    EXPECT_GE(saved, 1);
    EXPECT_LT(saved, 3);
    const auto end = std::find(calls.begin(), calls.end(), "ShowEnd");
    ASSERT_GE(calls.end() - end, 5);
    EXPECT_EQ(Calls(end, end + 5),
              (Calls{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"}));
}

TEST_F(ScanWindowTest, a_second_scan_is_refused_while_one_runs) {
    WriteFiles({"m/a.jpg", "m/b.jpg"});
    Watch("m");
    Open();
    user.act = [&](int) {
        Scan();
        EXPECT_FALSE(tmrBack().isActive());
    };
    Scan();
    EXPECT_GT(user.yields, 1);
    EXPECT_EQ(Begun(), 1);
    EXPECT_EQ(Photos(), "a b ");
    user.act = [](int) {};
    Scan();
    EXPECT_EQ(Begun(), 2);
}

TEST_F(ScanWindowTest, leaf_folders_of_each_kind_become_groups_in_the_tree) {
    WriteFiles({"m/Sea/a.jpg", "m/Sea/b.jpg", "m/Films/a.mp4", "m/Songs/a.mp3", "m/Both/a.jpg",
                "m/Both/a.mp4", "m/Notes/a.txt", "m/own.jpg"});
    Watch("m");
    bAutoGroup = true;
    Open();
    Scan();
    RunEvents();
    const auto children = [&](const char* key) {
        std::string names;
        TreeNode& node = trvCat().Node(key);
        for (int i = 0; i < node.childCount(); ++i) names += TextOf(*node.child(i)) + " ";
        return names;
    };
    EXPECT_EQ(children("magazines"), "Sea ");
    EXPECT_EQ(children("videoseries"), "Films ");
    EXPECT_EQ(children("playlists"), "Songs ");
    EXPECT_EQ(children("photoalbums"), "");
    EXPECT_EQ(colMagazine.Item(1).Count(), 2);

    WriteFiles({"m/Sea/c.jpg"});
    Scan();
    RunEvents();
    EXPECT_EQ(children("magazines"), "Sea Sea ");
    EXPECT_EQ(colMagazine.Item(1).Count(), 2) << "the old group stays as it was";
    EXPECT_EQ(colMagazine.Item(2).Count(), 1);
}

TEST_F(ScanWindowTest, the_option_for_groups_counts_from_the_next_folder_on) {
    WriteFiles({"m/1/a.jpg", "m/2/b.jpg"});
    Watch("m");
    Open();
    user.act = [&](int yield) {
        if (yield != 1) return;
        Pick({"mnuTools", "mnuOptions"});
        frmOptions& options = SingleWindow<frmOptions>::Get();
        Find<QCheckBox>(options, "chkScan_AutoGroup").setChecked(true);
        Click(options, "cmdOK");
    };
    Scan();
    ASSERT_EQ(colMagazine.Count(), 1);
    EXPECT_EQ(colMagazine.Item(1).sName, "2");
}

TEST_F(ScanWindowTest, the_watch_folders_may_be_changed_meanwhile_for_the_next_scan) {
    WriteFiles({"m/a.jpg", "n/b.jpg"});
    Watch("m");
    Open();
    user.act = [&](int yield) {
        if (yield != 1) return;
        Pick({"mnuFile", "mnuAdd", "mnuWatchFolders"});
        frmWatchFolders& window = SingleWindow<frmWatchFolders>::Get();
        prompts.ExpectFolder(QStringLiteral("Please select a folder:"), temp.DrivePath("n"));
        Click(window, "cmdAddFolder");
        Click(window, "cmdOK");
    };
    Scan();
    EXPECT_EQ(Photos(), "a ");
    Scan();
    EXPECT_EQ(Photos(), "a b ");
}

TEST_F(ScanWindowTest, the_path_goes_into_a_window_that_is_not_seen) {
    WireUpCalls();
    Service<EventLoop>::Use(&user);
    WriteFiles({"m/a.jpg"});
    Watch("m");
    Open();
    Scan();
    ASSERT_TRUE(SingleWindow<frmAdd>::Loaded());
    EXPECT_FALSE(SingleWindow<frmAdd>::Get().isVisible());
}

TEST_F(ScanWindowTest, a_watch_folder_that_has_gone_ends_the_program_with_the_timer_off) {
    Watch("gone");
    Open();
    EXPECT_EQ(FatalOf([&] { Scan(); }), failure::PathNotFound);
    EXPECT_FALSE(tmrBack().isActive());
    EXPECT_THAT(calls, ::testing::Not(Contains("SaveDB")));
}

TEST_F(ScanWindowTest, the_timer_scans_every_so_many_minutes) {
    Watch("", "5");
    Open();
    EXPECT_EQ(tmrBack().interval(), 60000);
    EXPECT_TRUE(tmrBack().isActive());
    Minutes(4);
    EXPECT_EQ(Begun(), 0);
    Minutes(1);
    EXPECT_EQ(Begun(), 1);
    Minutes(10);
    EXPECT_EQ(Begun(), 3);
}

TEST_F(ScanWindowTest, a_delay_lowered_below_the_count_stops_the_timed_scans) {
    Watch("");
    Open();
    Minutes(6);
    StoreDelay(1);
    EXPECT_EQ(iScanDelay, 5);
    Minutes(100);
    EXPECT_EQ(Begun(), 0);
    Scan();
    EXPECT_EQ(Begun(), 1) << "the one by hand does not";
    Minutes(100);
    EXPECT_EQ(Begun(), 1);
}

TEST_F(ScanWindowTest, a_delay_raised_or_still_ahead_counts_at_once) {
    Watch("", "30");
    Open();
    Minutes(4);
    StoreDelay(1);
    Minutes(1);
    EXPECT_EQ(Begun(), 1);
}

TEST_F(ScanWindowTest, a_delay_of_0_never_scans_and_a_missing_one_is_an_hour) {
    Watch("", "0");
    Open();
    Minutes(200);
    EXPECT_EQ(Begun(), 0);
    SingleWindow<frmMain>::Unload();
    temp.Write("db.txt", "[watch]\r\nnoofflds=0\r\n");
    Open();
    EXPECT_EQ(iScanDelay, 60);
}

}  // namespace tavel::test
