#pragma once

#include "ui/toolkit/Prompts.h"

#include <QFileDialog>

class QCheckBox;

namespace tavel {

// The box in which the user picks files to open or names one to save: Qt's own dialog, told what a
// FileRequest asks.
class FileDialog : public QFileDialog {
    Q_OBJECT

  public:
    explicit FileDialog(const FileRequest& request);

    // What was picked, after the dialog was accepted.
    FileAnswer Answer() const;

  protected:
    void done(int result) override;

  private:
    int FilterIndex() const;
    QStringList Picked() const;
    bool IsCountRight() const;
    QString Refusal() const;
    bool CanAnswer() const;
    bool CanOpen(const QString& file) const;
    bool CanSave(const std::string& path) const;
    bool MayReplace() const;
    void SetSizes();
    void SetFilters(const FileRequest& request);
    void ListDrives();
    void AddReadOnlyBox(bool checked);

    bool m_saving;
    bool m_mustExist;
    bool m_asksToReplace;
    QCheckBox* chkReadOnly = nullptr;
};

}  // namespace tavel
