#include "core/PublicStuff.h"
#include "platform/HostBoxes.h"
#include "support/Support.h"
#include "ui/support/AsHostTells.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/BrowseForFolder.h"
#include "ui/toolkit/RealPrompter.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/WorkWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace tavel::test {

namespace {

// A host with boxes of its own, which answer from a queue.
class FakeBoxes : public HostBoxes {
  public:
    FakeBoxes() { Service<HostBoxes>::Use(this); }
    ~FakeBoxes() override { Service<HostBoxes>::Use(nullptr); }

    std::vector<HostFileRequest> asked;
    std::vector<HostFileAnswer> answers;
    std::vector<HostWindow> cancelled;
    HostFolderRequest folderAsked;
    std::function<std::string(const HostFolderRequest&)> pickFolder;
    std::function<void()> during = [] {};

    bool AreThere() override { return true; }
    HostFileAnswer PickFiles(const HostFileRequest& request) override {
        asked.push_back(request);
        during();
        const HostFileAnswer answer = answers.empty() ? HostFileAnswer() : answers.front();
        if (!answers.empty()) answers.erase(answers.begin());
        return answer;
    }
    std::string PickFolder(const HostFolderRequest& request) override {
        folderAsked = request;
        return pickFolder(request);
    }
    void Cancel(HostWindow owner) override { cancelled.push_back(owner); }
};

class FakeFolderBox : public HostFolderBox {
  public:
    std::string selected;
    std::string status;
    bool isAllowed = true;

    void Select(const std::string& path) override { selected = path; }
    void SetStatus(const std::string& text) override { status = text; }
    void Allow(bool ok) override { isAllowed = ok; }
};

const std::string tooLong = "c:\\" + std::string(MaxPathCharacters, 'x');

class HostPrompts : public ::testing::Test {
  protected:
    HostPrompts() {
        folder.Write("a.jpg", "");
        owner.show();
        request.owner = &owner;
        request.title = QStringLiteral("Select a picture");
        request.startFolder = ToQString(folder.HostPath());
    }

    TempFolder folder;
    QWidget owner;
    FileRequest request;
    FakeBoxes boxes;
    RealPrompter prompter;
};

}  // namespace

TEST_F(HostPrompts, the_box_of_the_host_is_asked_what_the_program_asks) {
    request.saving = true;
    request.startName = QStringLiteral("b.jpg");
    request.defaultSuffix = QStringLiteral("jpg");
    request.descriptions = {QStringLiteral("Pictures"), QStringLiteral("All")};
    request.patterns = {QStringLiteral("*.jpg;*.png;"), QStringLiteral("*.*")};
    request.filterIndex = 1;
    request.flags = PickOverwritePrompt | 0x80000;
    prompter.PickFiles(request);

    ASSERT_EQ(boxes.asked.size(), 1u);
    const HostFileRequest& asked = boxes.asked.front();
    EXPECT_EQ(asked.owner, owner.winId());
    EXPECT_TRUE(asked.saving);
    EXPECT_EQ(asked.title, "Select a picture");
    EXPECT_EQ(asked.startFolder, FromQString(AsHostTells(folder.HostPath())));
    EXPECT_EQ(asked.startName, "b.jpg");
    EXPECT_EQ(asked.defaultExtension, "jpg");
    const std::vector<std::pair<std::string, std::string>> filters{{"Pictures", "*.jpg;*.png;"},
                                                                   {"All", "*.*"}};
    EXPECT_EQ(asked.filters, filters);
    EXPECT_EQ(asked.filterIndex, 1);
    EXPECT_EQ(asked.flags, PickOverwritePrompt | 0x80000);
}

TEST_F(HostPrompts, what_is_picked_comes_back_as_the_hosts_paths) {
    boxes.answers = {{true, 0, {folder.DrivePath("a.jpg")}, 1, true}};
    const FileAnswer answer = prompter.PickFiles(request);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.files, QStringList{AsHostTells(folder.HostPath("a.jpg"))});
    EXPECT_EQ(answer.filterIndex, 1);
    EXPECT_TRUE(answer.readOnly);
}

TEST_F(HostPrompts, a_cancelled_box_and_one_that_failed_pick_nothing) {
    constexpr Long bufferTooSmall = 0x3003;
    boxes.answers = {{}, {false, bufferTooSmall, {}, 0, false}};
    FileAnswer answer = prompter.PickFiles(request);
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.error, 0);
    EXPECT_TRUE(answer.files.isEmpty());
    answer = prompter.PickFiles(request);
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.error, bufferTooSmall);
}

TEST_F(HostPrompts, a_path_that_is_too_long_is_told_and_asked_for_again) {
    boxes.answers = {{true, 0, {tooLong}, 0, false},
                     {true, 0, {folder.DrivePath("a.jpg")}, 0, false}};
    PromptQueue prompts;
    prompts.ExpectMsgBox(QStringLiteral("A path of more than 254 characters can't be taken."),
                         MsgBoxButtons::OK, MsgBoxAnswer::OK);
    const FileAnswer answer = prompter.PickFiles(request);
    EXPECT_EQ(boxes.asked.size(), 2u);
    EXPECT_EQ(answer.files, QStringList{AsHostTells(folder.HostPath("a.jpg"))});
}

TEST_F(HostPrompts, a_file_in_a_folder_that_is_not_there_is_told_and_asked_for_again) {
    const std::string file = folder.DrivePath("none\\a.jpg");
    boxes.answers = {{true, 0, {file}, 0, false},
                     {true, 0, {folder.DrivePath("new.jpg")}, 0, false}};
    PromptQueue prompts;
    prompts.ExpectMsgBox(ToQString(file + " can't be reached."), MsgBoxButtons::OK,
                         MsgBoxAnswer::OK);
    const FileAnswer answer = prompter.PickFiles(request);
    EXPECT_EQ(answer.files, QStringList{AsHostTells(folder.HostPath("new.jpg"))});
}

TEST_F(HostPrompts, what_is_told_of_a_path_stands_over_the_programs_window) {
    boxes.answers = {{true, 0, {tooLong}, 0, false}};
    const RealPrompts real;
    Service<HostBoxes>::Use(&boxes);
    SetWorkWindow(owner);
    ConfirmNext([this](QWidget& box) { EXPECT_EQ(box.parentWidget(), &owner); });
    EXPECT_EQ(prompter.PickFiles(request).result, 0);
    EXPECT_EQ(boxes.asked.size(), 2u);
}

TEST_F(HostPrompts, an_owner_that_goes_while_a_path_is_told_is_not_asked_over_again) {
    boxes.answers = {{true, 0, {tooLong}, 0, false},
                     {true, 0, {folder.DrivePath("a.jpg")}, 0, false}};
    const RealPrompts real;
    Service<HostBoxes>::Use(&boxes);
    auto* unloaded = new QWidget;
    request.owner = unloaded;
    SetWorkWindow(*unloaded);
    WhenModal([unloaded](QWidget& box) {
        const QPointer<QWidget> alive(&box);
        delete unloaded;
        if (alive) QTest::keyClick(alive, Qt::Key_Return);
    });
    EXPECT_EQ(prompter.PickFiles(request).result, 0);
    EXPECT_EQ(boxes.asked.size(), 1u);
}

TEST_F(HostPrompts, other_windows_take_no_input_while_the_box_stands) {
    bool isBlocked = false;
    boxes.during = [&] { isBlocked = QApplication::activeModalWidget() != nullptr; };
    prompter.PickFiles(request);
    EXPECT_TRUE(isBlocked);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(HostPrompts, closing_what_stands_in_front_cancels_the_box) {
    boxes.during = [&] { QApplication::activeModalWidget()->close(); };
    prompter.PickFiles(request);
    EXPECT_EQ(boxes.cancelled, std::vector<HostWindow>{owner.winId()});
}

TEST_F(HostPrompts, a_folder_box_without_a_start_folder_tells_nothing_of_the_selection) {
    FakeFolderBox box;
    boxes.pickFolder = [&](const HostFolderRequest& asked) {
        asked.onReady(box);
        asked.onSelection(box, "c:\\Music");
        return std::string("c:\\Music");
    };
    Service<Prompter>::Use(&prompter);
    EXPECT_EQ(BrowseForFolderDlg(&owner, {}, "Select a folder", true, false), "c:\\Music");
    Service<Prompter>::Use(nullptr);
    EXPECT_EQ(boxes.folderAsked.owner, owner.winId());
    EXPECT_EQ(boxes.folderAsked.title, "Select a folder");
    EXPECT_TRUE(boxes.folderAsked.includeFiles);
    EXPECT_FALSE(boxes.folderAsked.newStyle);
    EXPECT_EQ(box.selected, "");
    EXPECT_EQ(box.status, "");
}

TEST_F(HostPrompts, a_folder_box_begins_in_its_start_folder_and_shows_the_selection) {
    FakeFolderBox box;
    const std::string start = folder.DrivePath("");
    boxes.pickFolder = [&](const HostFolderRequest& asked) {
        asked.onReady(box);
        asked.onSelection(box, "c:\\Music");
        return std::string();
    };
    Service<Prompter>::Use(&prompter);
    EXPECT_EQ(BrowseForFolderDlg(&owner, start, "Select a folder", false, true), "");
    EXPECT_TRUE(boxes.folderAsked.newStyle);
    EXPECT_EQ(box.selected, start);
    EXPECT_EQ(box.status, "c:\\Music");

    box.selected.clear();
    BrowseForFolderDlg(&owner, start + "none", "Select a folder", false, true);
    Service<Prompter>::Use(nullptr);
    EXPECT_EQ(box.selected, "") << "there is no such folder";
}

TEST_F(HostPrompts, what_is_no_folder_to_keep_cannot_be_chosen) {
    FakeFolderBox box;
    std::vector<bool> allowed;
    boxes.pickFolder = [&](const HostFolderRequest& asked) {
        for (const std::string& path : {std::string("c:\\a"), std::string(), tooLong}) {
            asked.onSelection(box, path);
            allowed.push_back(box.isAllowed);
        }
        return std::string();
    };
    prompter.PickFolder({});
    EXPECT_EQ(allowed, (std::vector<bool>{true, false, false}));
}

}  // namespace tavel::test
