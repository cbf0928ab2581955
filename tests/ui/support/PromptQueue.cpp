#include "ui/support/PromptQueue.h"

#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <utility>

namespace tavel::test {

namespace {

// Where a test has no queue of its own, any prompt fails it.
class RefuseAll : public Prompter {
  public:
    MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons, const QString&) override {
        ADD_FAILURE() << "message box not expected: " << FromQString(text);
        return MsgBoxAnswer::Cancel;
    }
    QString InputBox(const QString& prompt, const QString&, const QString&) override {
        ADD_FAILURE() << "input box not expected: " << FromQString(prompt);
        return {};
    }
    FileAnswer PickFiles(const FileRequest& request) override {
        ADD_FAILURE() << "file dialog not expected: " << FromQString(request.title);
        return {};
    }
    std::string PickFolder(const FolderRequest& request) override {
        ADD_FAILURE() << "folder picker not expected: " << FromQString(request.title);
        return {};
    }
};

Prompter& Refusing() {
    static RefuseAll refusing;
    return refusing;
}

const bool refusesFromTheStart = (Service<Prompter>::Use(&Refusing()), true);

QString MsgBoxQuestion(const QString& text, MsgBoxButtons buttons, const QString& title) {
    const char* const names[] = {"OK", "OKCancel", "YesNo", "YesNoDefaultNo"};
    return QStringLiteral("MsgBox [%1] %2 (%3)")
        .arg(title, text, QLatin1String(names[static_cast<int>(buttons)]));
}

QString InputBoxQuestion(const QString& prompt, const QString& title, const QString& defaultText) {
    return QStringLiteral("InputBox [%1] %2 (%3)").arg(title, prompt, defaultText);
}

QString FilesQuestion(const QString& title) { return QStringLiteral("PickFiles [%1]").arg(title); }

QString FolderQuestion(const QString& title) {
    return QStringLiteral("PickFolder [%1]").arg(title);
}

}  // namespace

PromptQueue::PromptQueue() { Service<Prompter>::Use(this); }

PromptQueue::~PromptQueue() {
    for (const Expected& expected : m_expected)
        ADD_FAILURE() << "never asked: " << FromQString(expected.question);
    Service<Prompter>::Use(&Refusing());
}

RealPrompts::~RealPrompts() { Service<Prompter>::Use(&Refusing()); }

void PromptQueue::ExpectMsgBox(const QString& text, MsgBoxButtons buttons, MsgBoxAnswer answer,
                               const QString& title, During during) {
    m_expected.push_back({MsgBoxQuestion(text, buttons, title), answer, {}, {}, std::move(during)});
}

void PromptQueue::ExpectInputBox(const QString& prompt, const QString& title,
                                 const QString& defaultText, const QString& answer, During during) {
    m_expected.push_back({InputBoxQuestion(prompt, title, defaultText),
                          MsgBoxAnswer::OK,
                          answer,
                          {},
                          std::move(during)});
}

void PromptQueue::ExpectFiles(const QString& title, const QStringList& hostFiles, int filterIndex) {
    FileAnswer answer;
    answer.result = hostFiles.isEmpty() ? 0 : 1;
    answer.files = hostFiles;
    answer.filterIndex = filterIndex;
    ExpectFileAnswer(title, answer);
}

void PromptQueue::ExpectFileAnswer(const QString& title, const FileAnswer& answer) {
    m_expected.push_back({FilesQuestion(title), MsgBoxAnswer::OK, {}, answer, {}});
}

void PromptQueue::ExpectFolder(const QString& title, const std::string& answer) {
    m_expected.push_back({FolderQuestion(title), MsgBoxAnswer::OK, ToQString(answer), {}, {}});
}

PromptQueue::Expected PromptQueue::Take(const QString& question) {
    if (m_expected.empty()) {
        ADD_FAILURE() << "not expected: " << FromQString(question);
        return {};
    }
    Expected expected = std::move(m_expected.front());
    m_expected.pop_front();
    EXPECT_EQ(FromQString(expected.question), FromQString(question));
    if (expected.during) expected.during();
    return expected;
}

MsgBoxAnswer PromptQueue::MsgBox(const QString& text, MsgBoxButtons buttons, const QString& title) {
    return Take(MsgBoxQuestion(text, buttons, title)).answer;
}

QString PromptQueue::InputBox(const QString& prompt, const QString& title,
                              const QString& defaultText) {
    return Take(InputBoxQuestion(prompt, title, defaultText)).text;
}

FileAnswer PromptQueue::PickFiles(const FileRequest& request) {
    m_fileRequest = request;
    return Take(FilesQuestion(request.title)).files;
}

std::string PromptQueue::PickFolder(const FolderRequest& request) {
    m_folderRequest = request;
    return FromQString(Take(FolderQuestion(request.title)).text);
}

}  // namespace tavel::test
