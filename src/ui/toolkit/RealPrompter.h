#pragma once

#include "ui/toolkit/Prompts.h"

namespace tavel {

// Drives the real boxes. Each blocks in an event loop of its own, in which timers go on.
class RealPrompter : public Prompter {
  public:
    MsgBoxAnswer MsgBox(const QString& text, MsgBoxButtons buttons, const QString& title) override;
    QString InputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    FileAnswer PickFiles(const FileRequest& request) override;
    std::string PickFolder(const FolderRequest& request) override;

  private:
    QString m_lastFolder;  // where files were picked last
};

}  // namespace tavel
