#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "library/Collections.h"
#include "support/Recorders.h"
#include "support/Support.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmAdd.h"
#include "ui/main/frmInvFiles.h"
#include "ui/support/OnPaint.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"

#include <QLabel>
#include <QWindow>

namespace tavel::test {

namespace {

// The real windows of adding, behind their up-calls.
class AddingWindows : public ::testing::Test {
  protected:
    AddingWindows() {
        WireUpCalls();
        sPhotoSupport = {"jpg"};
    }
    ~AddingWindows() override { ReleaseCollections(); }

    static frmAdd& Add() { return SingleWindow<frmAdd>::Get(); }

    TempFolder temp;
};

}  // namespace

TEST_F(AddingWindows, a_cancel_takes_the_window_away_and_the_next_folder_goes_into_a_hidden_one) {
    for (const char* name : {"m/one/a.jpg", "m/one/b.jpg", "m/two/c.jpg"})
        temp.Write(name, "a file");
    Calls calls;
    EventLoopRecorder events(calls);
    bool isCancelled = false;
    events.onYield = [&] {
        if (isCancelled) return;
        isCancelled = true;
        Click(Add(), "cmdCancel");
        Click(Add(), "cmdCancel");  // a second click changes nothing
    };
    Service<AddWindow>::Get().Show();
    AddFolder(temp.DrivePath("m"), true, false, false, false);
    ASSERT_EQ(colPhoto.Count(), 2);
    EXPECT_EQ(colPhoto.Item(1).sName + colPhoto.Item(2).sName, "ac");
    EXPECT_TRUE(SingleWindow<frmAdd>::Loaded());
    EXPECT_FALSE(Add().isVisible());
    EXPECT_EQ(FromQString(Find<QLabel>(Add(), "labPath").text()), temp.DrivePath("m\\two\\c.jpg"));
}

TEST_F(AddingWindows, the_path_is_painted_before_the_file_is_added) {
    AddWindow& window = Service<AddWindow>::Get();
    window.Show();
    EXPECT_TRUE(Add().windowHandle()->isExposed());
    int paints = 0;
    const OnPaint watch(Find(Add(), "labPath"), [&] { ++paints; });
    window.SetPath("c:\\a.jpg");
    EXPECT_EQ(paints, 0);
    window.Repaint();
    EXPECT_EQ(paints, 1);
}

TEST_F(AddingWindows, none_of_them_locks_the_others_and_what_was_rejected_adds_up) {
    Service<AddWindow>::Get().Show();
    EXPECT_FALSE(Add().isModal());
    ShowInvalidFiles({"c:\\a.doc"});
    ShowInvalidFiles({"c:\\b.doc", "c:\\c.doc"});
    frmInvFiles& rejected = SingleWindow<frmInvFiles>::Get();
    EXPECT_FALSE(rejected.isModal());
    EXPECT_EQ(Find<LineList>(rejected, "lstItems").rowCount(), 3);
}

}  // namespace tavel::test
