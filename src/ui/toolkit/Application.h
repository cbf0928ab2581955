#pragma once

#include "platform/Failure.h"

#include <QApplication>
#include <functional>
#include <string>

namespace tavel {

// The process's application object. A failure that reaches the event loop, and one that Guard
// lets through, is fatal: its number and text are shown in a box with what the program was doing,
// and the process ends with nothing saved.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // Runs what stands outside the event loop, start-up above all, under the same rule.
    void Guard(const std::function<void()>& work);

    // What ends the process after the message; tests put a recorder here.
    void SetEnd(std::function<void()> end) { m_end = std::move(end); }

  private:
    void HandleFailure() noexcept;
    static void FailureMessage(const Failure& failure, const std::string& activity);

    std::function<void()> m_end;
    bool m_failed = false;
};

}  // namespace tavel
