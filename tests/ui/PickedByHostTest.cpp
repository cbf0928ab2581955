#include "platform/HostBoxes.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/RealPrompter.h"

#include <gtest/gtest.h>

// What a box of the host's may tell that is no answer: it is told to the user, and asked again.

namespace tavel::test {

namespace {

// Answers with these files at first, and then with a cancel.
class OneAnswer : public HostBoxes {
  public:
    explicit OneAnswer(std::vector<std::string> files) : m_files(std::move(files)) {
        Service<HostBoxes>::Use(this);
    }
    ~OneAnswer() override { Service<HostBoxes>::Use(nullptr); }

    int asked = 0;

    bool AreThere() override { return true; }
    HostFileAnswer PickFiles(const HostFileRequest&) override {
        if (++asked > 1) return {};
        return {true, 0, m_files, 0, false};
    }
    std::string PickFolder(const HostFolderRequest&) override { return {}; }
    void Cancel(HostWindow) override {}

  private:
    std::vector<std::string> m_files;
};

void ExpectRefusal(const std::vector<std::string>& files, const QString& words) {
    OneAnswer boxes(files);
    RealPrompter prompter;
    PromptQueue prompts;
    prompts.ExpectMsgBox(words, MsgBoxButtons::OK, MsgBoxAnswer::OK);
    EXPECT_EQ(prompter.PickFiles({}).result, 0);
    EXPECT_EQ(boxes.asked, 2);
}

}  // namespace

TEST(PickedByHost, what_has_no_path_is_refused) {
    ExpectRefusal({}, QStringLiteral("What has been picked can't be reached."));
}

TEST(PickedByHost, files_of_several_folders_are_refused) {
    ExpectRefusal({"c:\\Music\\a.mp3", "c:\\Old\\b.mp3"},
                  QStringLiteral("Files of several folders can't be taken at once."));
}

}  // namespace tavel::test
