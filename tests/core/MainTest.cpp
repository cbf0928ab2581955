#include "core/Main.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "platform/Failure.h"
#include "support/FaultyFileService.h"
#include "support/ProgramDB.h"
#include "support/Recorders.h"
#include "support/Support.h"

namespace tavel::test {
namespace {

constexpr const char* Lists =
    "[musicsupport]\r\nno=1\r\n0=mp3\r\n[videosupport]\r\nno=1\r\n0=mp4\r\n"
    "[photosupport]\r\nno=1\r\n0=jpg\r\n";

class MainTest : public ::testing::Test {
  protected:
    ~MainTest() override { ResetPublicStuff(); }

    Recorders windows;
    LibraryStoreRecorder library{windows.calls};
};

std::string WithOptions(const std::string& lines) { return "[options]\r\n" + lines + Lists; }

TEST_F(MainTest, Main_readies_the_controls_and_then_starts_up) {
    const ProgramDB db(WithOptions(""));
    Main();
    EXPECT_EQ(windows.calls,
              (Calls{"InitCommonControls 8 512", "ShowSplash", "LoadDB", "UnloadSplash", "ShowMain",
                     "Log FORM: frmMain and frmLog Opened"}));
}

TEST_F(MainTest, Controls_that_cannot_be_readied_keep_nothing_from_starting) {
    const ProgramDB db(WithOptions(""));
    windows.app.initCommonControls = [] { return false; };
    Main();
    EXPECT_EQ(windows.calls.back(), "Log FORM: frmMain and frmLog Opened");

    windows.app.initCommonControls = []() -> bool { Fail(failure::InvalidProcedureCall); };
    EXPECT_EQ(FailureOf(Main), 0);
}

TEST_F(MainTest, The_wizard_takes_the_place_of_the_main_window_for_every_text_that_is_true) {
    const struct {
        const char* option;
        bool isTrue;
    } rows[] = {{"bFirstTime=True\r\n", true},
                {"bFirstTime=true\r\n", true},
                {"bFirstTime=-1\r\n", true},
                {"bFirstTime=1\r\n", true},
                {"bFirstTime=2\r\n", true},
                {"bFirstTime=0\r\n", false},
                {"", false},
                {"bFirstTime=False\r\n", false}};
    for (const auto& row : rows) {
        const ProgramDB db(WithOptions(row.option));
        windows.calls.clear();
        StartUp();
        EXPECT_EQ(windows.calls, (Calls{"ShowSplash", "LoadDB", "UnloadSplash",
                                        row.isTrue ? "ShowStartWizard" : "ShowMain",
                                        "Log FORM: frmMain and frmLog Opened"}))
            << row.option;
    }
}

TEST_F(MainTest, A_scan_at_the_start_comes_last_on_both_paths) {
    for (const char* first : {"0", "1"}) {
        const ProgramDB db(
            WithOptions("bScanOnAppStart=1\r\nbFirstTime=" + std::string(first) + "\r\n"));
        windows.calls.clear();
        StartUp();
        EXPECT_EQ(windows.calls, (Calls{"ShowSplash", "LoadDB", "UnloadSplash",
                                        *first == '1' ? "ShowStartWizard" : "ShowMain",
                                        "Log FORM: frmMain and frmLog Opened", "BackgroundScan"}));
    }
}

TEST_F(MainTest, Path_style_and_options_are_there_before_the_library_and_the_lists_are_not) {
    const ProgramDB db(WithOptions("bAutoGroup=1\r\n"));
    bool bSeen = false;
    library.onLoadDB = [&] {
        bSeen = true;
        EXPECT_EQ(sDBFile, GetAppPath() + "db.txt");
        EXPECT_EQ(gStyle.sFontName, "Verdanda");
        EXPECT_TRUE(bAutoGroup);
        EXPECT_TRUE(sMusicSupport.empty());
    };
    StartUp();
    EXPECT_TRUE(bSeen);
    EXPECT_EQ(sMusicSupport, std::vector<std::string>{"mp3"});
}

// The main window looks for a PSP in its load, and may have found one when it is shown.
TEST_F(MainTest, StartUp_clears_the_flags_between_the_library_and_the_first_window) {
    for (const char* first : {"0", "1"}) {
        const ProgramDB db(WithOptions("bFirstTime=" + std::string(first) + "\r\n"));
        library.onLoadDB = [] { bPSPConnected = bDBChanged = true; };
        windows.app.onFirstWindow = [] {
            EXPECT_FALSE(bPSPConnected);
            EXPECT_FALSE(bDBChanged);
            bPSPConnected = true;
        };
        StartUp();
        EXPECT_TRUE(bPSPConnected);
        EXPECT_FALSE(bDBChanged);
    }
}

TEST_F(MainTest, An_option_that_does_not_convert_ends_the_start_before_any_window) {
    const ProgramDB db(WithOptions("bFirstTime=\r\n"));
    EXPECT_EQ(FailureOf(StartUp), failure::TypeMismatch);
    EXPECT_EQ(windows.calls, Calls{});
}

TEST_F(MainTest, The_style_is_there_before_the_options_so_that_their_failure_is_shown_in_it) {
    const ProgramDB db(WithOptions("bFirstTime=\r\n"));
    EXPECT_EQ(FailureOf(StartUp), failure::TypeMismatch);
    EXPECT_EQ(gStyle.sFontName, "Verdanda");
}

TEST_F(MainTest, A_library_that_does_not_load_leaves_only_the_splash) {
    const ProgramDB db(WithOptions(""));
    library.onLoadDB = [] { Fail(failure::TypeMismatch); };
    EXPECT_EQ(FailureOf(StartUp), failure::TypeMismatch);
    EXPECT_EQ(windows.calls, (Calls{"ShowSplash", "LoadDB"}));
}

TEST_F(MainTest, Missing_extension_lists_end_the_start_behind_the_splash) {
    const ProgramDB db("");
    EXPECT_EQ(FailureOf(StartUp), failure::SubscriptOutOfRange);
    EXPECT_EQ(windows.calls, (Calls{"ShowSplash", "LoadDB", "UnloadSplash"}));
}

TEST_F(MainTest, Without_its_file_the_start_ends_behind_the_splash_and_makes_none) {
    const ProgramDB db("");
    db.Remove();
    EXPECT_EQ(FailureOf(StartUp), failure::SubscriptOutOfRange);
    EXPECT_EQ(windows.calls, (Calls{"ShowSplash", "LoadDB", "UnloadSplash"}));
    EXPECT_FALSE(oFSO().FileExists(sDBFile));
}

TEST_F(MainTest, A_failure_of_the_scan_at_the_start_is_not_guarded) {
    const ProgramDB db(WithOptions("bScanOnAppStart=1\r\n"));
    library.onBackgroundScan = [] { Fail(failure::PathNotFound); };
    EXPECT_EQ(FailureOf(StartUp), failure::PathNotFound);
    EXPECT_EQ(windows.calls.back(), "BackgroundScan");
}

TEST_F(MainTest, A_save_that_fails_ends_the_shutdown_there) {
    bDBChanged = true;
    library.onSaveDB = [] { Fail(failure::Overflow); };
    EXPECT_EQ(FailureOf(ShutDown), failure::Overflow);
    EXPECT_EQ(windows.calls, (Calls{"ShowEnd", "SaveDB"}));
}

TEST_F(MainTest, ShutDown_lets_go_of_the_file_service_between_the_save_and_the_collections) {
    FaultyFileService other;
    Service<FileService>::Use(&other);
    bDBChanged = true;
    bool bReleased = false;
    library.onSaveDB = [&] { EXPECT_EQ(&oFSO(), &other); };
    library.onRelease = [&] {
        bReleased = true;
        EXPECT_NE(&oFSO(), &other);
    };
    ShutDown();
    EXPECT_TRUE(bReleased);
}

TEST_F(MainTest, SetupStyle_names_its_font_and_leaves_all_colours) {
    SetupStyle();
    EXPECT_EQ(gStyle.sFontName, "Verdanda");
    EXPECT_EQ(gStyle.lBackColorA, -1);
    EXPECT_EQ(gStyle.lBackColorB, -1);
}

TEST_F(MainTest, ShutDown_saves_a_changed_library_between_frmEnd_and_the_release) {
    bDBChanged = true;
    ShutDown();
    EXPECT_EQ(windows.calls,
              (Calls{"ShowEnd", "SaveDB", "Release", "UnloadAllButMain", "EndProcess"}));
}

TEST_F(MainTest, ShutDown_shows_frmEnd_and_saves_nothing_when_nothing_has_changed) {
    ShutDown();
    EXPECT_EQ(windows.calls, (Calls{"ShowEnd", "Release", "UnloadAllButMain", "EndProcess"}));
}

}  // namespace
}  // namespace tavel::test
