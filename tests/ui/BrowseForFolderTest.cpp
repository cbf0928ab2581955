#include "core/PublicStuff.h"
#include "ui/support/FolderPickers.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/BrowseForFolder.h"
#include "ui/toolkit/FolderDialog.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace tavel::test {

namespace {

class PickerRecorder : public FolderPicker {
  public:
    void Select(const std::string& path) override {
        selected = path;
        if (fails) Fail(failure::PathNotFound);
    }
    void SetStatus(const std::string& text) override {
        status = text;
        if (fails) Fail(failure::PathNotFound);
    }

    std::string selected;
    std::string status;
    bool fails = false;
};

}  // namespace

TEST(BrowseForFolderDlg, asks_with_what_it_was_given_and_gives_what_was_chosen) {
    PromptQueue prompts;
    prompts.ExpectFolder(QStringLiteral("Select a folder"), "c:\\Pictures");
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "", "Select a folder", false, true), "c:\\Pictures");
    EXPECT_FALSE(prompts.LastFolderRequest().includeFiles);
    EXPECT_TRUE(prompts.LastFolderRequest().newStyle);
    EXPECT_EQ(prompts.LastFolderRequest().callback, nullptr) << "no start folder, no callback";
}

TEST(BrowseForFolderDlg, a_cancel_is_the_empty_text) {
    PromptQueue prompts;
    prompts.ExpectFolder(QStringLiteral("Select a folder"), "");
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "c:\\", "Select a folder", true, false), "");
    EXPECT_TRUE(prompts.LastFolderRequest().includeFiles);
    EXPECT_EQ(prompts.LastFolderRequest().callback, &BrowseCallback);
}

TEST(BrowseCallback, selects_the_start_folder_when_the_dialog_is_ready) {
    PromptQueue prompts;
    prompts.ExpectFolder(QString(), "");
    BrowseForFolderDlg(nullptr, "c:\\Music", "", false, false);
    PickerRecorder picker;
    EXPECT_EQ(BrowseCallback(picker, 1, "c:\\"), 0);
    EXPECT_EQ(picker.selected, "c:\\Music");
    EXPECT_EQ(picker.status, "");
}

TEST(BrowseCallback, shows_the_path_of_the_selection_and_does_nothing_else) {
    PickerRecorder picker;
    EXPECT_EQ(BrowseCallback(picker, 2, "c:\\Music"), 0);
    EXPECT_EQ(picker.status, "c:\\Music");
    EXPECT_EQ(BrowseCallback(picker, 2, ""), 0);
    EXPECT_EQ(picker.status, "c:\\Music") << "an item without a path leaves the line alone";
    EXPECT_EQ(BrowseCallback(picker, 3, "c:\\Other"), 0);
    EXPECT_EQ(picker.status, "c:\\Music");
    EXPECT_EQ(picker.selected, "");
}

TEST(BrowseCallback, ignores_all_failures) {
    PickerRecorder picker;
    picker.fails = true;
    EXPECT_EQ(BrowseCallback(picker, 1, ""), 0);
    EXPECT_EQ(BrowseCallback(picker, 2, "c:\\Music"), 0);
    EXPECT_EQ(picker.status, "c:\\Music");
}

TEST_F(FolderPickers, the_tree_has_the_drives_and_reads_folders_as_they_open) {
    FolderDialog dialog(request);
    QTreeWidgetItem* stick = Stick(dialog);
    ASSERT_NE(stick, nullptr);
    EXPECT_EQ(Names(stick), QStringList({QStringLiteral("Music"), QStringLiteral("photos")}))
        << "neither files nor hidden folders";
    QTreeWidgetItem* photos = Child(stick, "photos");
    EXPECT_EQ(photos->childCount(), 0);
    photos->setExpanded(true);
    EXPECT_EQ(Names(photos), QStringList(QStringLiteral("2006")));
}

TEST_F(FolderPickers, files_are_there_when_they_are_asked_for) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        QTreeWidgetItem* file = Child(Stick(box), "top.txt");
        ASSERT_NE(file, nullptr);
        Tree(box).setCurrentItem(file);
        QTest::mouseClick(&Find(box, "cmdOK"), Qt::LeftButton);
    });
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "", "", true, false), "e:\\top.txt");
}

TEST_F(FolderPickers, the_picker_belongs_to_its_owner) {
    QWidget owner;
    EXPECT_EQ(FolderDialog(request).parentWidget(), nullptr);
    request.owner = &owner;
    EXPECT_EQ(FolderDialog(request).parentWidget(), &owner);
}

TEST_F(FolderPickers, a_folder_that_cannot_be_read_looks_empty) {
    FolderDialog dialog(request);
    QTreeWidgetItem* stick = Stick(dialog);
    service.Pull('e');
    Child(stick, "photos")->setExpanded(true);
    EXPECT_EQ(Child(stick, "photos")->childCount(), 0);
}

TEST_F(FolderPickers, the_chosen_folder_comes_back_on_OK_and_nothing_on_Escape) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(Find<QLabel>(box, "labTitle").text()), "Select a folder");
        Tree(box).setCurrentItem(Child(Stick(box), "photos"));
        QTest::mouseClick(&Find(box, "cmdOK"), Qt::LeftButton);
    });
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "", "Select a folder", false, false), "e:\\photos");
    WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "", "Select a folder", false, false), "");
}

TEST_F(FolderPickers, a_start_folder_is_selected_and_its_path_stands_in_the_status_line) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(Tree(box).currentItem()->text(0)), "2006");
        const auto& status = Find<QLabel>(box, "labStatus");
        EXPECT_TRUE(status.isVisible());
        EXPECT_EQ(FromQString(status.text()), "e:\\photos\\2006");
        Tree(box).setCurrentItem(Child(Stick(box), "Music"));
        EXPECT_EQ(FromQString(status.text()), "e:\\Music");
        QTest::keyClick(&Tree(box), Qt::Key_Return);
    });
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "E:\\Photos\\2006", "", false, false), "e:\\Music");
}

TEST_F(FolderPickers, without_a_start_folder_the_status_line_stays_empty) {
    FolderDialog dialog(request);
    dialog.show();
    Tree(dialog).setCurrentItem(Stick(dialog));
    EXPECT_FALSE(Find<QLabel>(dialog, "labStatus").isVisible());
    EXPECT_EQ(FromQString(Find<QLabel>(dialog, "labStatus").text()), "");
}

TEST_F(FolderPickers, a_start_folder_that_does_not_exist_leaves_the_default_selection) {
    std::string byDefault;
    {
        FolderDialog dialog(request);
        dialog.show();
        byDefault = dialog.Path();
    }
    EXPECT_EQ(byDefault, service.FromHostPath(FromQString(QDir::homePath())));
    const RealPrompts real;
    WhenModal([](QWidget& box) { QTest::mouseClick(&Find(box, "cmdOK"), Qt::LeftButton); });
    EXPECT_EQ(BrowseForFolderDlg(nullptr, "e:\\nowhere", "", false, false), byDefault);
}

TEST_F(FolderPickers, a_start_folder_that_is_hidden_or_below_a_hidden_one_is_put_there) {
    folder.Write(".hidden/within/c", "");
    const RealPrompts real;
    for (const char* sPath : {"e:\\.hidden", "e:\\.hidden\\within"}) {
        WhenModal([](QWidget& box) { QTest::mouseClick(&Find(box, "cmdOK"), Qt::LeftButton); });
        EXPECT_EQ(BrowseForFolderDlg(nullptr, sPath, "", false, false), sPath);
    }
}

TEST_F(FolderPickers, a_new_folder_can_be_made_in_the_new_style_alone) {
    EXPECT_EQ(FolderDialog(request).findChild<QPushButton*>(QStringLiteral("cmdNewFolder")),
              nullptr);
    request.newStyle = true;
    FolderDialog dialog(request);
    dialog.show();
    Tree(dialog).setCurrentItem(Stick(dialog));
    PromptQueue prompts;
    prompts.ExpectInputBox(QStringLiteral("Name of the new folder:"), dialog.windowTitle(),
                           QStringLiteral("New Folder"), QStringLiteral("Videos"));
    Click(dialog, "cmdNewFolder");
    EXPECT_EQ(dialog.Path(), "e:\\Videos");
    EXPECT_TRUE(service.FolderExists("e:\\Videos"));

    Tree(dialog).setCurrentItem(Stick(dialog));
    prompts.ExpectInputBox(QStringLiteral("Name of the new folder:"), dialog.windowTitle(),
                           QStringLiteral("New Folder"), QStringLiteral("videos"));
    prompts.ExpectMsgBox(QStringLiteral("File already exists"), MsgBoxButtons::OK,
                         MsgBoxAnswer::OK);
    Click(dialog, "cmdNewFolder");
    EXPECT_EQ(dialog.Path(), "e:\\");
}

}  // namespace tavel::test
