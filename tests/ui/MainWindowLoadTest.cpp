#include "core/PublicStuff.h"
#include "support/DeviceRecorders.h"
#include "ui/support/MainWindow.h"

#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>

namespace tavel::test {

namespace {

class MainWindowLoadTest : public MainWindowTest {
  protected:
    std::string Entries(const QList<QAction*>& actions) {
        std::string text;
        for (const QAction* action : actions) {
            text += action->objectName().toStdString() + "=";
            text += action->isSeparator() ? "-" : action->text().toStdString();
            if (action->menu() != nullptr) text += "(" + Entries(action->menu()->actions()) + ")";
            text += ";";
        }
        return text;
    }
};

}  // namespace

TEST_F(MainWindowLoadTest, the_window_has_one_size_and_the_programs_name) {
    frmMain& window = Open();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Tavel"));
    EXPECT_EQ(window.centralWidget()->size(), QSize(14760 / 15, 8205 / 15));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
}

TEST_F(MainWindowLoadTest, the_controls_stand_where_they_are_designed) {
    frmMain& window = Open();
    const struct {
        const char* name;
        Box box;
    } controls[] = {
        {"picCatBack", {120, 120, 2415, 6615}},     {"trvCat", {0, 0, 2415, 6615}},
        {"picPSPCatBack", {120, 3480, 2415, 3255}}, {"trvPSPCat", {0, 0, 2415, 3255}},
        {"grdItems", {2640, 120, 8895, 6615}},      {"grdSync", {11640, 120, 3015, 6000}},
        {"grdAutoSync", {11640, 120, 3015, 4095}},  {"tbrRightView", {12960, 120, 1650, 360}},
        {"cmdSend", {11640, 6240, 2295, 495}},      {"cmdClear", {14040, 6240, 615, 495}},
        {"imgThumb", {12120, 5160, 1935, 1335}},    {"shpThumb", {11880, 4920, 135, 135}},
        {"Frame1", {8160, 6840, 6495, 1335}},       {"Image1", {240, 6960, 7710, 1110}}};
    for (const auto& control : controls) {
        const Box& box = control.box;
        const auto& widget = Find(window, control.name);
        EXPECT_EQ(widget.geometry(),
                  QRect(box.Left / 15, box.Top / 15, box.Width / 15, box.Height / 15))
            << control.name;
        EXPECT_FALSE(widget.accessibleName().isEmpty()) << control.name;
    }
    EXPECT_EQ(Find<QPushButton>(window, "cmdSend").text(), QStringLiteral("Send To PSP"));
    EXPECT_EQ(Find<QPushButton>(window, "cmdClear").text(), QStringLiteral("Clear List"));
    EXPECT_FALSE(Find(window, "grdAutoSync").isVisible());
    EXPECT_FALSE(Find(window, "imgThumb").isVisible());
}

TEST_F(MainWindowLoadTest, the_menus_have_their_entries_in_order) {
    frmMain& window = Open();
    EXPECT_EQ(Entries(window.menuBar()->actions()),
              "mnuFile=File(mnuAdd=Add to DB(mnuAddFile=Add File(s)...;mnuAddZipFile=Add Zip "
              "File...;mnuAddFolder=Add Folder...;mnuSep1=-;mnuWatchFolders=Watch Folders...;);"
              "mnuSep5=-;mnuExit=Exit;);mnuView=View(mnuShowLog=Show Log Window;);"
              "mnuTools=Tools(mnuBackScan=Scan for Media;mnuSep4=-;mnuSetupPSP=Setup New PSP...;"
              "mnuSep8=-;mnuOptions=Options...;);");
    EXPECT_EQ(Entries(Find<QMenu>(window, "mnuRMB").actions()),
              "mnuAddToTransfer=Add to Transfer List;mnuSep7=-;mnuRename=Rename;"
              "mnuThumbnail=Assign Thumbnail;mnuSep2=-;mnuPhotoGroup=Create Group("
              "mnuPhotoAlbumGroup=Photo Album;mnuPhotoMagazineGroup=Magazine;);"
              "mnuVideoGroup=Group into new Video Series;mnuMusicGroup=Group into new Playlist;"
              "mnuSep3=-;mnuRemFromGroup=Remove From Group;mnuRemoveTop=Delete File("
              "mnuRemoveDB=from DB;mnuRemoveComp=from Computer;);mnuDelGroup=Delete Group;");
    EXPECT_EQ(Entries(Find<QMenu>(window, "mnuPSPRMB").actions()), "mnuPSPDel=Delete from PSP;");
    EXPECT_EQ(Entries(Find<QMenu>(window, "mnuCats").actions()),
              "mnuRename_Cat=Rename...;mnuSep6=-;mnuDelGroup_Cat=Delete Group;");
    EXPECT_EQ(Find<QMenu>(window, "mnuRMB").title(), QStringLiteral("grdItems RMB Menu"));
    EXPECT_EQ(Find<QMenu>(window, "mnuPSPRMB").title(), QStringLiteral("grdItems PSPView RMB"));
    EXPECT_EQ(Find<QMenu>(window, "mnuCats").title(), QStringLiteral("trvCat RMB Menu"));
}

TEST_F(MainWindowLoadTest, the_load_leaves_the_state_at_rest) {
    frmMain window;
    iScanTicks = 5;
    window.iListType = 3;
    window.bPSPView = window.bListDrag = true;
    window.sSelected = {"ph_a", "ph_b"};
    window.Load();
    EXPECT_EQ(iScanDelay, 7);
    EXPECT_EQ(iScanTicks, 0);
    EXPECT_EQ(window.iListType, -1);
    EXPECT_FALSE(window.bPSPView);
    EXPECT_FALSE(window.bListDrag);
    EXPECT_EQ(window.sSelected, std::vector<std::string>{""});
}

TEST_F(MainWindowLoadTest, after_the_load_the_window_shows_neither_items_nor_a_device) {
    AddPhoto("ph_a", "Beach");
    frmMain& window = Open();
    EXPECT_EQ(trvCat().SelectedKey(), "master");
    EXPECT_EQ(grdItems().Count(), 0);
    EXPECT_EQ(grdItems().model()->columnCount(), 0);
    EXPECT_EQ(trvPSPCat().focusPolicy(), Qt::NoFocus);  // there is no device to browse
    EXPECT_EQ(grdSync().ColumnWidth("icon"), 300);
    EXPECT_EQ(grdSync().ColumnWidth("item"), 3015 - 300);
    EXPECT_EQ(Find<QLabel>(window, "labPSPStatus").text(), QStringLiteral("No PSP Connected"));
}

TEST_F(MainWindowLoadTest, the_timers_tick_from_the_load_on) {
    frmMain& window = Open();
    auto& tmrPSP = Find<QTimer>(window, "tmrPSP");
    auto& tmrBack = Find<QTimer>(window, "tmrBack");
    EXPECT_TRUE(tmrPSP.isActive());
    EXPECT_EQ(tmrPSP.interval(), 1000);
    EXPECT_TRUE(tmrBack.isActive());
    EXPECT_EQ(tmrBack.interval(), 60000);
    EXPECT_EQ(iScanTicks, 0);
    EXPECT_TRUE(QMetaObject::invokeMethod(&tmrBack, "timeout"));
    EXPECT_EQ(iScanTicks, 1);
    PlugStick();
    EXPECT_TRUE(QMetaObject::invokeMethod(&tmrPSP, "timeout"));
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(iScanTicks, 1);
    window.Enable(false);
    EXPECT_FALSE(tmrBack.isActive());
    window.Enable(true);
    EXPECT_TRUE(tmrBack.isActive());
    EXPECT_EQ(tmrBack.interval(), 60000);
}

TEST_F(MainWindowLoadTest, the_device_is_polled_only_after_the_first_look) {
    files.FailOn("DriveExists", 57, 2);
    EXPECT_EQ(FailureOf([&] { Open(); }), 57);
    const auto& tmrPSP = Find<QTimer>(Main(), "tmrPSP");
    EXPECT_FALSE(tmrPSP.isActive());
    EXPECT_EQ(tmrPSP.interval(), 1000);
}

TEST_F(MainWindowLoadTest, a_delay_that_is_missing_is_an_hour) {
    temp.Write("db.txt", "");
    Open();
    EXPECT_EQ(iScanDelay, 60);
}

TEST_F(MainWindowLoadTest, the_load_shows_a_device_in_its_order_and_the_figures_always) {
    {
        frmMain window;
        DevicePanelsRecorder panels(calls);
        calls.clear();
        window.Load();
        EXPECT_EQ(calls, Calls{"RefreshPSPStatus"});
    }
    PlugStick();
    frmMain window;
    DevicePanelsRecorder panels(calls);
    panels.onRefreshPSPCats = [] { EXPECT_TRUE(bPSPConnected); };
    calls.clear();
    window.Load();
    calls.erase(std::remove_if(calls.begin(), calls.end(),
                               [](const std::string& call) { return call.rfind("Log ", 0) == 0; }),
                calls.end());
    EXPECT_EQ(calls, (Calls{"RefreshPSPCats", "ShowPSPCats on", "RefreshPSPStatus"}));
}

TEST_F(MainWindowLoadTest, the_load_reads_the_device_in_its_order) {
    PlugStick();
    Open();
    // Found, connected, music before photos, and the figures last.
    std::vector<std::string> wanted{"FileExists e:", "GetDrive e:", "GetFolder e:\\psp\\music",
                                    "GetFolder e:\\psp\\photo", "TotalSize e:"};
    auto next = wanted.begin();
    for (const std::string& call : files.calls) {
        if (next != wanted.end() && call.rfind(*next, 0) == 0) ++next;
    }
    EXPECT_EQ(next, wanted.end()) << *next;
}

}  // namespace tavel::test
