#pragma once

#include <QDialog>
#include <utility>

namespace tavel {

// Cancels a box whose owner is being deleted, and all boxes and menus that stand over it.
void TakeFromOwner(QDialog& box);

// A box that blocks in an event loop of its own. Its owner may go while the box stands, by a timer
// that unloads a window: the box is cancelled then, but lives on until the routines that wait for
// it, its own and the toolkit's, have returned.
template <class Box>
class Modal {
  public:
    template <class... Arguments>
    explicit Modal(Arguments&&... arguments) : m_box(std::forward<Arguments>(arguments)...) {
        const QWidget* owner = m_box.parentWidget();
        if (owner == nullptr) return;
        QObject::connect(owner, &QObject::destroyed, &m_box, [this] {
            m_hasLostOwner = true;
            TakeFromOwner(m_box);
        });
    }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    Box* operator->() { return &m_box; }
    Box& operator*() { return m_box; }

    // The result, or 0 when the owner has gone.
    int Run() {
        const int result = m_box.exec();
        return m_hasLostOwner ? 0 : result;
    }

  private:
    Box m_box;
    bool m_hasLostOwner = false;
};

}  // namespace tavel
