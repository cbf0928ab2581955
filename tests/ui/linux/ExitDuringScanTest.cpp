#include "core/AppWindows.h"
#include "core/Main.h"
#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Scan.h"
#include "platform/Service.h"
#include "support/Recorders.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmMain.h"
#include "ui/support/WatchedPictures.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/SingleWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>

// The process that ends has the folder of the test that began it: it is its fork.

namespace tavel::test {

TEST(ExitDeathTest, Exit_in_the_middle_of_a_scan_saves_what_it_found_and_ends) {
    WireUpCalls();
    SetupStyle();
    const TempFolder temp;
    WatchTwoPictures(temp);
    Calls yields;
    EventLoopRecorder loop(yields);
    loop.onYield = [] {
        if (colPhoto.Count() == 1) Find<QAction>(SingleWindow<frmMain>::Get(), "mnuExit").trigger();
    };
    const auto exit = [] {
        Service<AppWindows>::Get().ShowMain();
        BackgroundScan();
    };
    EXPECT_EXIT(exit(), testing::ExitedWithCode(0), "");
    EXPECT_THAT(temp.Read("db.txt"),
                testing::AllOf(testing::HasSubstr("NoOfItems=1\r\n"), testing::HasSubstr("a.jpg"),
                               testing::Not(testing::HasSubstr("b.jpg"))));
}

}  // namespace tavel::test
