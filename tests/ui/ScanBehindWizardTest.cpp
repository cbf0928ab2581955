#include "core/Main.h"
#include "core/PublicStuff.h"
#include "library/Scan.h"
#include "support/ProgramDB.h"
#include "ui/support/UserAtYields.h"
#include "ui/support/Wizard.h"
#include "ui/toolkit/WorkWindow.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavel::test {

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// The first start with the scan at the start switched on: the scan runs while the wizard stands.
class ScanBehindWizardTest : public WizardTest {
  protected:
    ScanBehindWizardTest() {
        temp.Write("m/a.jpg", "x");
        temp.Write("m/b.jpg", "x");
        temp.Write("m/c.jpg", "x");
        appWindows.onFirstWindow = [] { OpenWizard(); };
        store.onBackgroundScan = [] { BackgroundScan(); };
    }

    // The user acts at the first yield; the scan has found a.jpg by then.
    void StartUp(const std::function<void()>& act) {
        user.act = [act](int yield) {
            if (yield == 1) act();
        };
        tavel::StartUp();
        EXPECT_GT(user.yields, 0);
    }

    QTimer& tmrBack() { return Find<QTimer>(Main(), "tmrBack"); }

    static std::string Photos() {
        std::string names;
        for (Long i = 1; i <= colPhoto.Count(); ++i) names += colPhoto.Item(i).sName + " ";
        return names;
    }

    const ProgramDB db{
        "[options]\r\nbFirstTime=1\r\nbScanOnAppStart=1\r\n[watch]\r\nnoofflds=1\r\n0=" +
        temp.DrivePath("m") +
        "\r\n[photosupport]\r\nno=1\r\n0=jpg\r\n[musicsupport]\r\nno=1\r\n0=mp3\r\n"
        "[videosupport]\r\nno=1\r\n0=mp4\r\n"};
    UserAtYields user;
};

}  // namespace

TEST_F(ScanBehindWizardTest,
       the_main_window_stays_unseen_and_the_wizard_is_what_the_user_works_in) {
    StartUp([this] {
        EXPECT_TRUE(bScanning);
        EXPECT_FALSE(tmrBack().isActive());
        Next();
        EXPECT_THAT(Shown(), ElementsAre(2));
        EXPECT_FALSE(Main().isVisible());
        EXPECT_EQ(WorkWindow(), &Wizard());
    });
    EXPECT_EQ(Photos(), "a b c ");
    EXPECT_FALSE(bScanning);
    EXPECT_TRUE(tmrBack().isActive());
    EXPECT_THAT(Shown(), ElementsAre(2));
    EXPECT_FALSE(Main().isVisible());
    EXPECT_EQ(WorkWindow(), &Wizard());
}

TEST_F(ScanBehindWizardTest, closing_the_wizard_saves_what_was_found_by_then) {
    std::string saved;
    store.onSaveDB = [&] { saved = Photos(); };
    // In the program the process ends behind this.
    store.onRelease = [this] { Service<FileService>::Use(&disk); };
    StartUp([this] {
        calls.clear();
        Wizard().close();
        EXPECT_EQ(calls, (Calls{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"}));
        EXPECT_FALSE(IsOpen());
        EXPECT_FALSE(Main().isVisible());
    });
    EXPECT_EQ(saved, "a ");
    EXPECT_THAT(db.Read(), HasSubstr("bFirstTime=1\r\n"));
}

TEST_F(ScanBehindWizardTest, Create_Database_adds_all_files_in_the_midst_of_it) {
    StartUp([this] {
        GoTo(4);
        Click(Wizard(), "cmdAddFiles");
        EXPECT_EQ(Photos(), "a a b c ");
        EXPECT_EQ(colMagazine.Count(), 1);
        EXPECT_THAT(Shown(), ElementsAre(4));
    });
    EXPECT_EQ(Photos(), "a a b c ") << "the scan knows them then";
    EXPECT_EQ(WorkWindow(), &Wizard());
}

TEST_F(ScanBehindWizardTest, the_finish_opens_the_main_window_and_the_scan_goes_on) {
    PlugNewStick();
    StartUp([this] {
        GoTo(9);
        Next();
        EXPECT_FALSE(IsOpen());
        EXPECT_TRUE(Main().isVisible());
        EXPECT_EQ(WorkWindow(), &Main());
        EXPECT_TRUE(bScanning);
        EXPECT_FALSE(tmrBack().isActive());
    });
    EXPECT_EQ(Photos(), "a b c ");
    EXPECT_TRUE(tmrBack().isActive());
    EXPECT_EQ(IdentityFile(), "[Data]\r\nPSPName=My PSP\r\n");
    EXPECT_THAT(db.Read(), HasSubstr("bFirstTime=0\r\n"));
}

}  // namespace tavel::test
