#pragma once

#include "platform/Failure.h"

#include <QApplication>
#include <cstdlib>
#include <functional>
#include <string>

namespace tavel {

// The process's application object. A failure that reaches the event loop, and one that Guard
// lets through, is fatal: its number and text are shown in a box with what the program was doing,
// and the process ends with nothing saved.
class Application : public QApplication {
    Q_OBJECT

  public:
    // `end` is what ends the process after the message.
    Application(
        int& argc, char** argv, std::function<void()> end = [] { std::_Exit(1); });

    bool notify(QObject* receiver, QEvent* event) override;

    // Runs what stands outside the event loop, start-up above all, under the same rule.
    void Guard(const std::function<void()>& work);

  private:
    void HandleFailure() noexcept;
    static void FailureMessage(const Failure& failure, const std::string& activity);

    std::function<void()> m_end;
    bool m_failed = false;
};

}  // namespace tavel
