#include "core/Main.h"
#include "core/PublicStuff.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"
#include "ui/main/UpCalls.h"
#include "ui/main/frmNewPSP.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tavel::test {

namespace {

class NewPSP : public ::testing::Test {
  protected:
    NewPSP() {
        WireUpCalls();
        SetupStyle();
        Service<FileService>::Use(&service);
        service.Plug('b', temp.HostPath());
        service.Plug('e', stick.HostPath());
        Open();
    }
    ~NewPSP() override { Service<FileService>::Use(nullptr); }

    // Keys reach the window that is in front.
    static void Open() {
        Window().show();
        Window().activateWindow();
        RunEvents();
    }

    static frmNewPSP& Window() { return SingleWindow<frmNewPSP>::Get(); }
    static DriveList& Drives() { return Find<DriveList>(Window(), "drvPSP"); }
    static QLineEdit& Name() { return Find<QLineEdit>(Window(), "txtName"); }
    static bool IsOpen() { return SingleWindow<frmNewPSP>::Loaded(); }
    static std::string Text(const char* label) {
        return FromQString(Find<QLabel>(Window(), label).text());
    }

    TempFolder temp;
    TempFolder stick;
    FaultyFileService service;
    PromptQueue prompts;
};

const QString notConnected = QStringLiteral(
    "The PSP is not connected, or you have selected the wrong drive for the PSP.\r\rPlease connect "
    "it and check the selected drive");

}  // namespace

TEST_F(NewPSP, opens_with_a_name_the_current_drive_and_its_words) {
    EXPECT_EQ(FromQString(Window().windowTitle()), "Setup New PSP");
    EXPECT_EQ(Text("Label1"), "PSP Name");
    EXPECT_EQ(Text("Label3"), "PSP Drive");
    EXPECT_EQ(Text("Label2"),
              "We need to create a small file on your PSP to hold some data that Tavel needs to "
              "run properly. The file is tiny (about 2Kb), so it wont take up valuable media space "
              "on your memory stick.");
    for (const auto& [name, text] : {std::pair("cmdOK", "OK"), std::pair("cmdCancel", "Cancel")}) {
        EXPECT_EQ(FromQString(Find<QPushButton>(Window(), name).text()), text);
    }
    int bottom = 0;
    for (const char* name : {"Label1", "txtName", "Label3", "drvPSP", "Label2", "cmdOK"}) {
        const QRect place = Find(Window(), name).geometry();
        EXPECT_GE(place.top(), bottom) << name;
        bottom = place.bottom();
    }
    EXPECT_EQ(FromQString(Name().text()), "My PSP");
    EXPECT_EQ(Drives().Drive().substr(0, 2), "c:");
    EXPECT_EQ(Find(Window(), "Label2").font().family(), QStringLiteral("Verdanda"));
    EXPECT_FALSE(Window().isModal());
}

TEST_F(NewPSP, OK_marks_the_chosen_drive_and_closes) {
    Drives().SetDrive("e:");
    Name().selectAll();
    QTest::keyClicks(&Name(), QStringLiteral("  Anna's PSP "));
    Click(Window(), "cmdOK");
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(stick.Read("TavelDataFile.tavel"), "[Data]\r\nPSPName=Anna's PSP\r\n");
}

TEST_F(NewPSP, Enter_is_OK) {
    Drives().SetDrive("e:");
    QTest::keyClick(&Name(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(bPSPConnected);
}

TEST_F(NewPSP, Enter_belongs_to_the_button_that_has_the_focus) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        Open();
        Drives().SetDrive("e:");
        Find(Window(), "cmdCancel").setFocus();
        QTest::keyClick(&Find(Window(), "cmdCancel"), key);
        EXPECT_FALSE(IsOpen());
        EXPECT_FALSE(bPSPConnected);
        EXPECT_EQ(stick.Read("TavelDataFile.tavel"), "");
    }
    Open();
    Drives().SetDrive("e:");
    Find(Window(), "cmdOK").setFocus();
    QTest::keyClick(&Find(Window(), "cmdOK"), Qt::Key_Enter);
    EXPECT_TRUE(bPSPConnected);
}

TEST_F(NewPSP, Enter_in_the_open_list_of_drives_takes_the_row_and_Escape_closes_the_list_alone) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        Drives().SetDrive("c:");
        Drives().showPopup();
        QWidget& list = *Drives().view();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(list.window()));
        QTest::keyClick(&list, Qt::Key_End);
        QTest::keyClick(&list, key);
        ASSERT_TRUE(IsOpen()) << key;
        EXPECT_FALSE(list.isVisible());
        EXPECT_EQ(Drives().Drive().substr(0, 2), key == Qt::Key_Escape ? "c:" : "e:");
        EXPECT_FALSE(bPSPConnected);
    }
}

TEST_F(NewPSP, a_drive_that_is_not_removable_gets_a_message_and_the_dialog_stays) {
    for (const MsgBoxAnswer answer : {MsgBoxAnswer::OK, MsgBoxAnswer::Cancel}) {
        prompts.ExpectMsgBox(notConnected, MsgBoxButtons::OKCancel, answer);
        Click(Window(), "cmdOK");
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(bPSPConnected);
    }
}

TEST_F(NewPSP, a_drive_without_media_gets_a_message_and_the_dialog_stays) {
    service.At('e').hasMedia = false;
    Drives().SetDrive("e:");
    prompts.ExpectMsgBox(
        QStringLiteral("Selected drive not ready, check the connection or select another drive"),
        MsgBoxButtons::OK, MsgBoxAnswer::OK);
    Click(Window(), "cmdOK");
    EXPECT_TRUE(IsOpen());
}

TEST_F(NewPSP, any_other_failure_is_passed_over_in_silence_and_the_dialog_stays) {
    service.FailOn("CreateTextFile e", 70);
    Drives().SetDrive("e:");
    Click(Window(), "cmdOK");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(stick.Read("TavelDataFile.tavel"), "");
}

TEST_F(NewPSP, Cancel_and_Escape_close_and_do_nothing_else) {
    Drives().SetDrive("e:");
    Click(Window(), "cmdCancel");
    EXPECT_FALSE(IsOpen());
    Open();
    EXPECT_EQ(Drives().Drive().substr(0, 2), "c:") << "a fresh dialog";
    QTest::keyClick(&Name(), Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(bPSPConnected);
    EXPECT_EQ(stick.Read("TavelDataFile.tavel"), "");
}

}  // namespace tavel::test
