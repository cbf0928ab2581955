#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "platform/Failure.h"
#include "ui/support/Wizard.h"
#include "ui/toolkit/Banner.h"
#include "ui/toolkit/ScrollingLabel.h"
#include "ui/toolkit/Strings.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <filesystem>

namespace tavel::test {

using testing::ElementsAre;

namespace {

// The pages and how one gets from one to the other.
class StartWizardTest : public WizardTest {};

}  // namespace

TEST_F(StartWizardTest, opens_with_its_banner_and_buttons_on_the_first_page) {
    OpenWizard();
    EXPECT_EQ(FromQString(Wizard().windowTitle()), "Tavel Setup Wizard");
    EXPECT_FALSE(Wizard().isModal());
    EXPECT_EQ(Wizard().minimumSize(), Wizard().maximumSize());
    EXPECT_EQ(Caption("cmdPrev"), "<< Back");
    EXPECT_EQ(Caption("cmdNext"), "Next >>");
    EXPECT_EQ(Find<Banner>(Wizard(), "Image1").parentWidget()->objectName(),
              QStringLiteral("Frame1"));
    EXPECT_LT(Find(Wizard(), "Frame1").geometry().bottom(), Page(1).mapTo(&Wizard(), QPoint()).y());
    EXPECT_LT(Page(1).mapTo(&Wizard(), Page(1).rect().bottomLeft()).y(),
              Find(Wizard(), "cmdNext").geometry().top());
    EXPECT_THAT(Shown(), ElementsAre(1));
    EXPECT_EQ(Find(Wizard(), "labText(1)").font().family(), QStringLiteral("Verdanda"));
}

TEST_F(StartWizardTest, each_page_has_its_controls) {
    OpenWizard();
    const struct {
        int page;
        const char* panel;  // "" for the page itself
        const char* name;
    } controls[] = {
        {2, "", "txtName"},        {3, "Picture2", "cmdWatch"},      {4, "Picture6", "cmdAddFiles"},
        {6, "Picture4", "drvPSP"}, {7, "Picture1", "txtFolderPath"}, {7, "Picture1", "cmdBrowse"},
        {8, "", "chkAutoGroup"},   {8, "", "chkScanOnStart"}};
    for (const auto& control : controls) {
        const QWidget& parent = *Find(Wizard(), control.name).parentWidget();
        const bool isInPanel = *control.panel != '\0';
        EXPECT_EQ(isInPanel ? parent.parentWidget() : &parent, &Page(control.page));
        if (isInPanel) {
            EXPECT_EQ(parent.objectName(), QLatin1String(control.panel));
        }
    }
    EXPECT_EQ(Caption("cmdWatch"), "Watch Folders");
    EXPECT_EQ(Caption("cmdAddFiles"), "Create Database");
    EXPECT_EQ(Caption("cmdBrowse"), "Browse...");
    EXPECT_EQ(FromQString(Find<QLineEdit>(Wizard(), "txtName").text()), "My PSP");
    EXPECT_EQ(FromQString(Find<QLineEdit>(Wizard(), "txtFolderPath").text()), "");
    auto& chkAutoGroup = Find<QCheckBox>(Wizard(), "chkAutoGroup");
    auto& chkScanOnStart = Find<QCheckBox>(Wizard(), "chkScanOnStart");
    EXPECT_EQ(FromQString(chkAutoGroup.text()),
              "Automatically create media groups from the scanned folder structure?");
    EXPECT_EQ(FromQString(chkScanOnStart.text()), "Perform a scan when Tavel is started");
    EXPECT_FALSE(chkAutoGroup.isChecked() || chkScanOnStart.isChecked());
}

TEST_F(StartWizardTest, Next_goes_from_page_to_page_and_reads_Finish_on_the_last) {
    PlugNewStick();
    OpenWizard();
    const QRect place = Page(1).geometry();
    for (int page = 1; page <= 9; ++page) {
        GoTo(page);
        EXPECT_THAT(Shown(), ElementsAre(page));
        EXPECT_EQ(Page(page).geometry(), place) << page;
        EXPECT_EQ(TextOf(page), "\nThe words of page " + std::to_string(page));
        EXPECT_EQ(Caption("cmdNext"), page == 9 ? "Finish" : "Next >>");
    }
}

TEST_F(StartWizardTest, Back_goes_back_and_does_nothing_on_the_first_page) {
    OpenWizard();
    Back();
    EXPECT_THAT(Shown(), ElementsAre(1));
    GoTo(3);
    Back();
    EXPECT_THAT(Shown(), ElementsAre(2));
    Back();
    Back();
    EXPECT_THAT(Shown(), ElementsAre(1));
    Next();
    EXPECT_THAT(Shown(), ElementsAre(2));
}

TEST_F(StartWizardTest, on_the_way_back_from_the_last_page_Next_goes_on_reading_Finish) {
    OpenWizard();
    GoTo(9);
    Back();
    Back();
    EXPECT_THAT(Shown(), ElementsAre(7));
    EXPECT_EQ(Caption("cmdNext"), "Finish");
    ExpectMessage("Folders created successfully");
    Next();
    EXPECT_THAT(Shown(), ElementsAre(8));
    EXPECT_EQ(Caption("cmdNext"), "Next >>");
}

TEST_F(StartWizardTest, nothing_that_a_page_does_is_done_on_the_way_back) {
    PlugNewStick();
    OpenWizard();
    GoTo(9);
    temp.Write("db.txt", "");
    disk.calls.clear();
    for (int page = 8; page >= 1; --page) {
        Back();
        EXPECT_THAT(Shown(), ElementsAre(page));
    }
    EXPECT_THAT(disk.calls, testing::Not(testing::Contains(testing::StartsWith("DriveExists"))));
    EXPECT_EQ(IdentityFile(), "");
    EXPECT_EQ(DB(), "");
}

TEST_F(StartWizardTest, Enter_is_Next_wherever_no_other_button_has_the_focus) {
    OpenWizard();
    GoTo(2);
    QTest::keyClick(&Find(Wizard(), "txtName"), Qt::Key_Return);
    EXPECT_THAT(Shown(), ElementsAre(3));
    Find(Wizard(), "cmdPrev").setFocus();
    QTest::keyClick(&Find(Wizard(), "cmdPrev"), Qt::Key_Return);
    EXPECT_THAT(Shown(), ElementsAre(2));
}

TEST_F(StartWizardTest, keys_alone_lead_through_the_pages_and_back) {
    PlugNewStick();
    OpenWizard();
    const auto press = [](Qt::Key key) { QTest::keyClick(Wizard().focusWidget(), key); };
    press(Qt::Key_Return);
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "txtName"));
    QTest::keyClicks(Wizard().focusWidget(), QStringLiteral("Anna's"));
    EXPECT_EQ(FromQString(Find<QLineEdit>(Wizard(), "txtName").text()), "Anna's")
        << "what stands there is typed over";
    for (int page = 3; page <= 7; ++page) {
        press(Qt::Key_Return);
        EXPECT_THAT(Shown(), ElementsAre(page));
    }
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "txtFolderPath"));
    Find(Wizard(), "cmdPrev").setFocus();
    for (int page = 6; page >= 1; --page) {
        EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "cmdPrev"));
        press(Qt::Key_Space);
        EXPECT_THAT(Shown(), ElementsAre(page));
    }
}

TEST_F(StartWizardTest, Tab_goes_through_a_page_then_to_Back_and_Next) {
    OpenWizard();
    GoTo(7);
    for (const char* name : {"txtFolderPath", "cmdBrowse", "cmdPrev", "cmdNext", "txtFolderPath"}) {
        EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), name)) << name;
        QTest::keyClick(Wizard().focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(StartWizardTest, Next_looks_like_the_button_for_Enter_only_while_it_is) {
    OpenWizard();
    GoTo(2);
    const auto& cmdNext = Find<QPushButton>(Wizard(), "cmdNext");
    EXPECT_TRUE(cmdNext.isDefault()) << "from the text box";
    QTest::keyClick(Wizard().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "cmdPrev"));
    EXPECT_FALSE(cmdNext.isDefault());
    QTest::keyClick(Wizard().focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(cmdNext.isDefault());
}

TEST_F(StartWizardTest, a_click_on_Back_leaves_the_keys_to_the_page) {
    OpenWizard();
    GoTo(3);
    auto& cmdPrev = Find(Wizard(), "cmdPrev");
    QTest::mouseClick(&cmdPrev, Qt::LeftButton);
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "txtName"));
    QTest::mouseClick(&cmdPrev, Qt::LeftButton);
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "cmdNext"));
}

TEST_F(StartWizardTest, the_first_page_keeps_the_focus_off_Back) {
    OpenWizard();
    QTest::keyClick(Wizard().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "cmdNext"));
    GoTo(2);
    Find(Wizard(), "cmdPrev").setFocus();
    QTest::keyClick(&Find(Wizard(), "cmdPrev"), Qt::Key_Space);
    EXPECT_THAT(Shown(), ElementsAre(1));
    EXPECT_EQ(Wizard().focusWidget(), &Find(Wizard(), "cmdNext"));
}

TEST_F(StartWizardTest, Escape_does_not_close_it) {
    OpenWizard();
    QTest::keyClick(&Wizard(), Qt::Key_Escape);
    EXPECT_TRUE(Wizard().isVisible());
}

TEST_F(StartWizardTest, the_words_are_read_anew_for_each_page) {
    OpenWizard();
    Words("//2\r\nEdited meanwhile\r\n");
    Next();
    EXPECT_EQ(TextOf(2), "\nEdited meanwhile");
}

TEST_F(StartWizardTest, words_of_a_hand_on_Unix_read_the_same) {
    Words("//1\nOne\n\nTwo\n//2\nb\n");
    OpenWizard();
    EXPECT_EQ(TextOf(1), "\nOne\n\nTwo");
}

TEST_F(StartWizardTest, without_words_for_page_1_it_shows_as_designed_and_stays_there) {
    Words("//2\r\nTwo\r\n");
    OpenWizard();
    EXPECT_THAT(Shown(), ElementsAre(1)) << "the pages lie side by side, the first one in view";
    for (int page = 1; page <= 9; ++page) {
        EXPECT_FALSE(Page(page).isHidden()) << page;
        EXPECT_EQ(Page(page).x(), (page - 1) * Page(page).width()) << page;
        EXPECT_EQ(TextOf(page), "");
    }
    Next();
    EXPECT_THAT(Shown(), ElementsAre(1));
    EXPECT_EQ(TextOf(1), "");
    EXPECT_EQ(Caption("cmdNext"), "Next >>");
    Words("//1\r\nOne\r\n");
    Next();
    EXPECT_EQ(TextOf(1), "\nOne") << "the number had become 0";
}

TEST_F(StartWizardTest, words_for_page_0_are_never_shown) {
    Words("//0\r\nZero\r\n//2\r\nTwo\r\n");
    OpenWizard();
    for (const auto press : {Next, Back, Next, Back, Back, Next}) {
        press();
        EXPECT_THAT(Shown(), ElementsAre(1)) << "as designed";
        EXPECT_TRUE(Page(0).isHidden());
        EXPECT_EQ(TextOf(0), "");
        EXPECT_EQ(Caption("cmdNext"), "Next >>");
    }
}

TEST_F(StartWizardTest, a_page_without_words_is_not_reached) {
    Words("//1\na\n//2\nb\n//4\nd\n");
    OpenWizard();
    GoTo(2);
    Next();
    EXPECT_THAT(Shown(), ElementsAre(2));
    Next();
    EXPECT_THAT(Shown(), ElementsAre(2));
    Back();
    EXPECT_THAT(Shown(), ElementsAre(1));
}

TEST_F(StartWizardTest, back_over_a_page_without_words_leaves_the_page_in_view_and_counts_on) {
    Words("//1\na\n//2\nb\n//3\nc\n");
    OpenWizard();
    GoTo(3);
    Words("//1\na\n//3\nc\n");
    Back();
    EXPECT_THAT(Shown(), ElementsAre(3)) << "as designed";
    EXPECT_EQ(TextOf(3), "\nc");
    Words("//1\na\n//2\nb\n//3\nc\n");
    Next();
    EXPECT_THAT(Shown(), ElementsAre(2));
}

TEST_F(StartWizardTest, words_for_a_page_below_the_first_end_the_program) {
    Words("//-1\nbelow\n//2\nTwo\n");
    OpenWizard();
    EXPECT_EQ(FatalOf([] { Back(); }), failure::SubscriptOutOfRange);
}

TEST_F(StartWizardTest, a_missing_file_ends_the_program) {
    const auto opening = [] { OpenWizard(); };
    const std::string sFile = GetAppPath() + "text\\wizard.txt";
    ASSERT_TRUE(std::filesystem::remove(temp.HostPath("wizard.txt")));
    EXPECT_EQ(FailureOf(opening), failure::FileNotFound);
    EXPECT_EQ(FailedActivityOf(opening), "Reading " + sFile);
}

TEST_F(StartWizardTest, an_empty_file_ends_the_program) {
    Words("");
    EXPECT_EQ(FailureOf([] { OpenWizard(); }), failure::InputPastEnd);
    EXPECT_EQ(FailedActivityOf([] { OpenWizard(); }),
              "Reading " + GetAppPath() + "text\\wizard.txt");
}

TEST_F(StartWizardTest, a_file_that_ends_with_the_header_of_the_page_ends_the_program) {
    Words("//1\r\nOne\r\n//2");
    OpenWizard();
    EXPECT_EQ(FatalOf([] { Next(); }), failure::InputPastEnd);
}

TEST_F(StartWizardTest, ten_megabytes_of_words_are_shown_and_scroll) {
    std::string words = "//1\r\n";
    while (words.size() < 10'000'000)
        words +=
            "A line of words that goes on for so long that it does not fit the page in any "
            "size of letters and has to be wrapped.\r\n";
    Words(words);
    OpenWizard();
    Wizard().grab();
    auto& label = Find<ScrollingLabel>(Wizard(), "labText(1)");
    EXPECT_GT(label.verticalScrollBar()->maximum(), 10'000);
    EXPECT_FALSE(label.horizontalScrollBar()->isVisible());
    label.setFocus();
    QTest::keyClick(&label, Qt::Key_End);
    EXPECT_EQ(label.verticalScrollBar()->value(), label.verticalScrollBar()->maximum());
}

TEST_F(StartWizardTest, a_word_of_megabytes_is_shown_and_scrolls) {
    Words("//1\r\n" + std::string(3'000'000, 'A') + "\r\n");
    OpenWizard();
    Wizard().grab();
    auto& label = Find<ScrollingLabel>(Wizard(), "labText(1)");
    EXPECT_GT(label.verticalScrollBar()->maximum(), 1'000);
}

TEST_F(StartWizardTest, Enter_is_Next_over_words_that_scroll) {
    Words("//1\r\n" + std::string(10'000, '\n') + "//2\r\nTwo\r\n");
    OpenWizard();
    Wizard().grab();
    QWidget& label = Find(Wizard(), "labText(1)");
    label.setFocus();
    ASSERT_TRUE(label.hasFocus());
    QTest::keyClick(&label, Qt::Key_Return);
    EXPECT_THAT(Shown(), ElementsAre(2));
}

TEST_F(StartWizardTest, words_that_fit_take_no_keys) {
    OpenWizard();
    EXPECT_EQ(Find(Wizard(), "labText(1)").focusPolicy(), Qt::NoFocus);
}

}  // namespace tavel::test
