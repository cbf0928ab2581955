#pragma once

#include <QPointer>

namespace tavel {

// A box that blocks in an event loop of its own. It dies with its owner, which a timer may unload
// while the box stands; so it is made on the heap and looked at again after it has run.
template <class Box>
class Modal {
  public:
    template <class... Arguments>
    explicit Modal(Arguments&&... arguments) : m_box(new Box(arguments...)) {}
    ~Modal() { delete m_box; }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    Box* operator->() const { return m_box; }
    Box& operator*() const { return *m_box; }

    // The result, or 0 when the box has gone with its owner.
    int Run() {
        const int result = m_box->exec();
        return m_box.isNull() ? 0 : result;
    }

  private:
    QPointer<Box> m_box;
};

}  // namespace tavel
