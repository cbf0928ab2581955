#pragma once

#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/EdgeScroll.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeView>
#include <utility>

namespace tavel {

// What the Menu key does, on keyboards that have none as well.
inline bool AsksForMenu(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Menu && event.modifiers() == Qt::NoModifier) ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

// Where the desktop takes such a key for itself it tells what is asked for. With the Menu key alone
// it does so behind the key, which has been answered then.
inline bool AsksForMenu(const QContextMenuEvent& event) {
    return event.reason() == QContextMenuEvent::Keyboard && event.modifiers() == Qt::ShiftModifier;
}

// The mouse and the keyboard in lists and trees: View is QTreeView or a class derived from it.
//
// A click is a press on a row, wherever the button is let go: so a drag takes the row in the hand,
// and no row is shown as selected that was not clicked. Other input that makes a row current, or
// selects the current one, counts as a click on it.
template <class View>
class RowInput : public View {
  public:
    explicit RowInput(QWidget* parent) : View(parent), m_scroll(*this) {
        QObject::connect(this, &View::pressed, this, [this] { m_pressed = true; });
    }

    void SetDropTarget(bool bDropTarget) { this->viewport()->setAcceptDrops(bDropTarget); }

  protected:
    virtual void CurrentClicked(const QModelIndex& former) = 0;      // `former` was current before
    virtual void MenuRequestedOfCurrent(QPoint globalPosition) = 0;  // by keyboard
    virtual void RowsDroppedAt(QPoint viewportPosition) = 0;

    void BeginInput() {
        m_former = this->currentIndex();
        m_pressed = false;
        m_selectionChanged = false;
    }

    // Input that has made a row current or selected the current one is a click on it.
    void EndInput() {
        if (IsChosen()) Click();
    }

    // A label under edit keeps its text. Whoever changes the rows does this first: Qt would take
    // what has been typed so far for the new text as soon as the editor goes.
    void BreakOffEdit() {
        if (this->state() != View::EditingState) return;
        View::closeEditor(this->indexWidget(this->currentIndex().siblingAtColumn(0)),
                          QAbstractItemDelegate::RevertModelCache);
    }

    void mousePressEvent(QMouseEvent* event) override {
        BeginInput();
        View::mousePressEvent(event);
        if (m_pressed) Click();
        BeginInput();
    }

    // What an editor leaves unhandled must not move the current row: the edit would end up in
    // another record.
    void keyPressEvent(QKeyEvent* event) override {
        if (this->state() == View::EditingState) return;
        if (AsksForMenu(*event)) return RequestMenu();
        BeginInput();
        View::keyPressEvent(event);
        EndInput();
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        if (AsksForMenu(*event)) return RequestMenu();
        View::contextMenuEvent(event);
    }

    void dragEnterEvent(QDragEnterEvent* event) override { AcceptDraggedRows(*event); }

    void dragMoveEvent(QDragMoveEvent* event) override {
        if (AcceptDraggedRows(*event)) m_scroll.DragAt(event->position().toPoint());
    }

    void dragLeaveEvent(QDragLeaveEvent*) override { m_scroll.Stop(); }

    void dropEvent(QDropEvent* event) override {
        m_scroll.Stop();
        if (!AcceptDraggedRows(*event)) return;
        AfterDrag(*this,
                  [this, position = event->position().toPoint()] { RowsDroppedAt(position); });
    }

    // The Tab key ends an edit; it does not go on to the label of the next row.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint) override {
        View::closeEditor(editor, QAbstractItemDelegate::NoHint);
    }

    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override {
        m_selectionChanged = true;
        View::selectionChanged(selected, deselected);
    }

  private:
    bool IsChosen() const {
        const QModelIndex current = this->currentIndex();
        if (!current.isValid()) return false;
        return QModelIndex(m_former).siblingAtColumn(0) != current.siblingAtColumn(0) ||
               (m_selectionChanged && this->selectionModel()->isSelected(current));
    }

    void Click() { CurrentClicked(m_former); }

    void RequestMenu() {
        const QModelIndex current = this->currentIndex();
        if (!current.isValid()) return;
        this->scrollTo(current);
        const QRect row = this->visualRect(current) & this->viewport()->rect();
        MenuRequestedOfCurrent(this->viewport()->mapToGlobal(row.bottomLeft()));
    }

    EdgeScroll m_scroll;
    QPersistentModelIndex m_former;
    bool m_pressed = false;
    bool m_selectionChanged = false;
};

}  // namespace tavel
