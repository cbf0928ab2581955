#pragma once

#include <QString>
#include <QTest>
#include <QWidget>
#include <stdexcept>
#include <string>

namespace tavel::test {

// The control of that object name in a window; throws when there is none of that kind.
template <class Control = QWidget>
Control& Find(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(QLatin1String(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
}

// A real click of the left button in the middle of the control.
inline void Click(QWidget& window, const char* name) {
    QTest::mouseClick(&Find(window, name), Qt::LeftButton);
}

// What the tip over a point of the control reads; empty when there is none.
QString TipAt(QWidget& control, QPoint position);

// Lets what was posted run, deferred deletes included.
void RunEvents();

// What the program's failures end in here. It fails the test, unless FatalEnds counts them.
void EndOfTheProcess();

// Counts the fatal ends of the process for as long as it lives.
class FatalEnds {
  public:
    FatalEnds();
    ~FatalEnds();
    FatalEnds(const FatalEnds&) = delete;
    FatalEnds& operator=(const FatalEnds&) = delete;

    int Count() const { return m_count; }

  private:
    int m_count = 0;
};

// Waits for a window to become the active one itself. To Qt's own wait a dialog is active as soon
// as the window that it belongs to is.
bool BecomesActive(QWidget& window);

// Runs between tests: no window and no state of one reaches the next.
void CleanUp();

}  // namespace tavel::test
