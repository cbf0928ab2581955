#pragma once

#include "ui/support/NoHostBoxes.h"
#include "ui/toolkit/Prompts.h"

#include <deque>
#include <functional>

namespace tavel::test {

// Answers message boxes, input boxes and pickers from a queue of what a test expects to be asked,
// in order. A prompt that was not expected and one that was not asked fail the test. It is in
// place for as long as it lives.
class PromptQueue : public Prompter {
  public:
    using During = std::function<void()>;  // runs while the box stands

    PromptQueue();
    ~PromptQueue() override;
    PromptQueue(const PromptQueue&) = delete;
    PromptQueue& operator=(const PromptQueue&) = delete;

    void ExpectMsgBox(const QString& text, MsgBoxButtons buttons, MsgBoxAnswer answer,
                      const QString& title = QLatin1String(ProgramTitle), During during = {});
    void ExpectInputBox(const QString& prompt, const QString& title, const QString& defaultText,
                        const QString& answer, During during = {});
    // Files picked, as host paths; none is a cancel.
    void ExpectFiles(const QString& title, const QStringList& hostFiles, int filterIndex = 0);
    void ExpectFileAnswer(const QString& title, const FileAnswer& answer);
    void ExpectFolder(const QString& title, const std::string& answer);

    // What the latest picker was asked.
    const FileRequest& LastFileRequest() const { return m_fileRequest; }
    const FolderRequest& LastFolderRequest() const { return m_folderRequest; }

    MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons buttons, const QString& title) override;
    QString InputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    FileAnswer PickFiles(const FileRequest& request) override;
    std::string PickFolder(const FolderRequest& request) override;

  private:
    struct Expected {
        QString question;  // kind, title and words, as a failing test shows them
        MsgBoxAnswer answer = MsgBoxAnswer::Cancel;
        QString text;
        FileAnswer files;
        During during;
    };

    Expected Take(const QString& question);

    std::deque<Expected> m_expected;
    FileRequest m_fileRequest;
    FolderRequest m_folderRequest;
};

// Puts the real boxes in place for as long as it lives, which are the toolkit's on every host.
class RealPrompts {
  public:
    RealPrompts() { Service<Prompter>::Use(nullptr); }
    ~RealPrompts();
    RealPrompts(const RealPrompts&) = delete;
    RealPrompts& operator=(const RealPrompts&) = delete;

  private:
    const NoHostBoxes m_noHostBoxes;
};

}  // namespace tavel::test
