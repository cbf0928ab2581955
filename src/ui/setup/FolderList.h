#pragma once

#include <QListWidget>
#include <string>

namespace tavel {

// A list of folders, of which one can be selected. A path that doesn't fit loses its middle and is
// shown as a tip.
class FolderList : public QListWidget {
    Q_OBJECT

  public:
    explicit FolderList(QWidget* parent);

    void AddItem(const std::string& sFolder);
    int Count() const { return count(); }
    std::string Folder(int index) const;  // as it was added, byte for byte
    int Selected() const;                 // -1: none
    void RemoveSelected();                // and nothing is selected then

  Q_SIGNALS:
    // The user has selected a folder, by keys or the left button, or pressed the selected one
    // again.
    void Clicked();

  protected:
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace tavel
