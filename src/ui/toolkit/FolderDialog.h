#pragma once

#include "ui/toolkit/Prompts.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tavel {

// The folder chooser: a tree of the drives and their folders, read as it is opened up.
class FolderDialog : public QDialog, private FolderPicker {
    Q_OBJECT

  public:
    explicit FolderDialog(const FolderRequest& request);

    // The drive path of the selection, as the tree has it and as one to keep.
    std::string Path() const;
    std::string StablePath() const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Select(const std::string& path) override;
    void SetStatus(const std::string& text) override;

    void BuildControls(const FolderRequest& request);
    void ListDrives();
    void ReadFolder(QTreeWidgetItem& item);
    void SelectionChanged();
    void MakeNewFolder();
    void Notify(Long message);
    QTreeWidgetItem* AddItem(QTreeWidgetItem* parent, const std::string& name,
                             const std::string& path, bool isFolder);

    FolderCallback m_callback;
    bool m_includeFiles;
    bool m_ready = false;
    QTreeWidget* trvFolders = nullptr;
    QLabel* labStatus = nullptr;
    QPushButton* cmdOK = nullptr;
};

}  // namespace tavel
