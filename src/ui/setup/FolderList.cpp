#include "ui/setup/FolderList.h"

#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/Strings.h"

#include <QMouseEvent>

namespace tavel {

namespace {

// The text on the screen is Unicode, which not every name on a disk can be told back from.
constexpr int FolderRole = LabelDelegate::ElideModeRole + 1;

}  // namespace

FolderList::FolderList(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new LabelDelegate(this));
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FolderList::AddItem(const std::string& sFolder) {
    auto* item = new QListWidgetItem(ToQString(sFolder), this);
    item->setData(FolderRole, QByteArray::fromStdString(sFolder));
}

std::string FolderList::Folder(int index) const {
    return item(index)->data(FolderRole).toByteArray().toStdString();
}

// The list makes a folder current that nobody has selected, as soon as it has the focus.
int FolderList::Selected() const {
    const QList<QListWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? -1 : row(selected.constFirst());
}

// The list would select the neighbour.
void FolderList::RemoveSelected() {
    const int index = Selected();
    if (index < 0) return;
    setCurrentRow(-1);
    delete takeItem(index);
}

void FolderList::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
    QListWidget::selectionChanged(selected, deselected);
    if (Selected() >= 0) Q_EMIT Clicked();
}

// The list would select with any button.
void FolderList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int before = Selected();
    QListWidget::mousePressEvent(event);
    const bool bOnFolder = itemAt(event->position().toPoint()) != nullptr;
    if (bOnFolder && before >= 0 && Selected() == before) Q_EMIT Clicked();
}

}  // namespace tavel
