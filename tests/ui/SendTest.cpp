#include "core/PublicStuff.h"
#include "device/Discovery.h"
#include "support/DeviceRecorders.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmCopy.h"
#include "ui/support/DeviceWindow.h"
#include "ui/support/RequestEnd.h"
#include "ui/support/Soon.h"
#include "ui/toolkit/EndOfSession.h"
#include "ui/toolkit/ProgressBar.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavel::test {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class SendTest : public DeviceWindowTest {
  protected:
    SendTest() {
        temp.Write("beach.jpg", "a picture");
        temp.Write("film.mp4", "a film");
        AddPhoto("ph_a", "Beach").sPath(temp.DrivePath("beach.jpg"));
        AddVideo("vd_a", "Film").sPath(temp.DrivePath("film.mp4"));
        AddMagazine("ma_a", {"ph_a"});
    }

    void OpenWith(std::initializer_list<const char*> ids) {
        Open();
        for (const char* id : ids) Main().AddToTransferList(id);
    }
};

// Notes at each painting of frmCopy whether it tells of an end.
class FinishWatch : public QObject {
  public:
    explicit FinishWatch(frmCopy& window) : m_finish(Find(window, "labFinish")) {
        window.installEventFilter(this);
    }

    std::vector<bool> shown;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) shown.push_back(m_finish.isVisible());
        return false;
    }

  private:
    QWidget& m_finish;
};

}  // namespace

TEST_F(SendTest, copies_the_list_and_keeps_it_and_refreshes_the_device_tree) {
    CopyWindowRecorder copyWindow(calls);
    OpenWith({"ma_a", "vd_a"});
    ClickPSP("videoall");
    Click(Main(), "cmdSend");
    EXPECT_EQ(temp.Read("stick/psp/photo/Group ma_a/Beach.jpg"), "a picture");
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10002.mp4"), "a film");
    EXPECT_EQ(grdSync().Key(1) + grdSync().Key(2), "IDma_aIDvd_a");
    EXPECT_EQ(trvPSPCat().Node("photoall").childCount(), 2);  // the magazine's folder is new
    EXPECT_TRUE(Main().bPSPView);

    Click(Main(), "cmdSend");
    EXPECT_EQ(temp.Read("stick/MP_ROOT/100MNV01/M4V10003.mp4"), "a film");
    EXPECT_EQ(grdSync().Count(), 2);
    EXPECT_EQ(trvPSPCat().Node("photoall").childCount(), 2);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "labFinish on"), 2);
}

TEST_F(SendTest, an_empty_list_does_nothing_with_a_PSP_or_without) {
    MessageBoxesRecorder boxes(calls);
    CopyWindowRecorder copyWindow(calls);
    Open();
    for (const bool bConnected : {true, false}) {
        bPSPConnected = bConnected;
        files.calls.clear();
        calls.clear();
        Click(Main(), "cmdSend");
        EXPECT_THAT(calls, IsEmpty());
        EXPECT_THAT(files.calls, IsEmpty());
    }
}

TEST_F(SendTest, the_copy_window_waits_for_its_OK_with_the_main_window_usable_behind_it) {
    WireUpCalls();
    const AppWindowsRecorder noRealEnd(calls);
    OpenWith({"ph_a"});
    Click(Main(), "cmdSend");
    ASSERT_TRUE(SingleWindow<frmCopy>::Loaded());
    frmCopy& window = SingleWindow<frmCopy>::Get();
    EXPECT_TRUE(Find(window, "labFinish").isVisible());
    EXPECT_TRUE(Find(window, "cmdOK").isEnabled());
    ClickPSP("videoall");
    EXPECT_EQ(RowsOf(grdItems()), "M4V10001");

    FinishWatch watch(window);
    Click(Main(), "cmdSend");
    EXPECT_THAT(watch.shown, Contains(true));
    EXPECT_THAT(watch.shown, Not(Contains(false))) << "the end of the first run goes on showing";
    Click(window, "cmdOK");
    EXPECT_FALSE(SingleWindow<frmCopy>::Loaded());
}

TEST_F(SendTest, clicks_and_keys_that_came_during_a_transfer_are_dropped_at_its_end) {
    CopyWindowRecorder copyWindow(calls);
    OpenWith({"ph_a", "vd_a"});
    const auto sends = [&] { return std::count(calls.begin(), calls.end(), "frmCopy.Show"); };
    copyWindow.total.onValue = [&](float) {
        ClickSoon(Find(Main(), "cmdSend"));
        PressSoon(Main(), Qt::Key_Space);  // the button has the focus
        PressSoon(Main(), Qt::Key_F10);
        CloseSoon(Main());
    };
    Click(Main(), "cmdSend");
    RunEvents();
    EXPECT_EQ(sends(), 1);
    EXPECT_THAT(calls, Not(Contains("ShowEnd")));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the menu of F10";

    copyWindow.total.onValue = [](float) {};
    ClickSoon(Find(Main(), "cmdSend"));
    RunEvents();
    EXPECT_EQ(sends(), 2) << "what comes afterwards is taken";
    PressSoon(Main(), Qt::Key_Space);
    RunEvents();
    EXPECT_EQ(sends(), 3);
}

TEST_F(SendTest, keys_that_came_before_a_failure_do_not_answer_its_message) {
    CopyWindowRecorder copyWindow(calls);
    OpenWith({"ph_a", "vd_a"});
    copyWindow.total.onValue = [&](float) {
        PressSoon(Main(), Qt::Key_Space);  // the button has the focus
        Fail(failure::DiskFull);
    };
    EXPECT_EQ(FatalOf([&] {
                  Click(Main(), "cmdSend");
                  RunEvents();
              }),
              failure::DiskFull);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "frmCopy.Show"), 1);
}

TEST_F(SendTest, no_timer_runs_while_input_is_dropped) {
    const CopyWindowRecorder copyWindow(calls);
    OpenWith({"ph_a"});
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    Click(Main(), "cmdSend");
    EXPECT_EQ(ticks, 0);
}

TEST_F(SendTest, a_request_to_end_that_came_during_a_transfer_is_done_behind_it) {
    const EndOfSession endOfSession;
    CopyWindowRecorder copyWindow(calls);
    OpenWith({"ph_a", "vd_a"});
    copyWindow.total.onValue = [](float) { RequestEnd(); };
    Click(Main(), "cmdSend");
    EXPECT_THAT(calls, Not(Contains("ShowEnd")));
    EXPECT_EQ(calls.back(), "cmdOK on");
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls.back() == "EndProcess"; }));
}

TEST_F(SendTest, Clear_List_touches_nothing_else) {
    WireUpCalls();
    const AppWindowsRecorder noRealEnd(calls);
    OpenWith({"ph_a", "vd_a"});
    Click(Main(), "cmdSend");
    ClickNode("videoall");
    ClickRow(1);
    auto& total = SingleWindow<frmCopy>::Get().TotalBar();
    ASSERT_EQ(total.Value(), 2);
    Click(Main(), "cmdClear");
    EXPECT_EQ(grdSync().Count(), 0);
    EXPECT_EQ(total.Value(), 2);
    EXPECT_EQ(RowsOf(grdItems()), "Film");
    EXPECT_EQ(Main().sSelected, std::vector<std::string>{"vd_a"});
    EXPECT_FALSE(bDBChanged);
}

TEST_F(SendTest, a_stick_that_is_pulled_on_the_way_ends_the_program_at_the_trees_folders) {
    CopyWindowRecorder copyWindow(calls);
    OpenWith({"ph_a"});
    files.At('e').bytesUntilGone = 3;
    EXPECT_EQ(FatalOf([&] { Click(Main(), "cmdSend"); }), failure::PathNotFound);
    EXPECT_THAT(calls, Contains("cmdOK on"));
}

TEST_F(SendTest, a_library_file_that_is_missing_ends_the_program) {
    CopyWindowRecorder copyWindow(calls);
    colVideo.Item("vd_a").sPath(temp.DrivePath("none.mp4"));
    OpenWith({"vd_a"});
    EXPECT_EQ(FatalOf([&] { Click(Main(), "cmdSend"); }), failure::FileNotFound);
    EXPECT_THAT(calls, Not(Contains("labFinish on")));
}

}  // namespace tavel::test
