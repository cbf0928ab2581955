#include "ui/toolkit/Application.h"

#include "core/MessageBoxes.h"
#include "platform/Activity.h"
#include "ui/toolkit/BoxStyle.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QEvent>
#include <QSettings>
#include <QTimer>
#include <cstdio>
#include <new>
#include <utility>

namespace tavel {

namespace {

constexpr Long outOfMemory = 7;
constexpr Long internalError = 51;

constexpr const char* ending = "Tavel has to close. Changes since the start are not saved.";

// Qt's file dialog keeps its look and the folders it was in in a file that all Qt programs of the
// user share. Ours neither takes anything from it nor leaves anything there. On Windows, where this
// does nothing, files are picked in the system's own box.
void ForgetQtSettings() {
    for (const QSettings::Scope scope : {QSettings::UserScope, QSettings::SystemScope})
        QSettings::setPath(QSettings::NativeFormat, scope, QStringLiteral("/dev/null"));
}

// The failure that is being handled, whatever it was thrown as.
Failure CurrentFailure() {
    try {
        throw;
    } catch (const Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return Failure(outOfMemory, "Out of memory", ProgramTitle);
    } catch (const std::exception& other) {
        return Failure(internalError, other.what(), ProgramTitle);
    } catch (...) {
        return Failure(internalError, "Internal error", ProgramTitle);
    }
}

}  // namespace

Application::Application(int& argc, char** argv, std::function<void()> end)
    : QApplication(argc, argv), m_end(std::move(end)) {
    setApplicationName(QLatin1String(ProgramTitle));
    setApplicationDisplayName(QString());
    setStyle(new BoxStyle);
    SetScale(1);
    // Windows come and go: the splash goes before the main window shows, and a hidden log keeps no
    // process alive. The end is ShutDown's.
    setQuitOnLastWindowClosed(false);
    ForgetQtSettings();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // While the failure message stands, nothing else of the program goes on.
    if (m_failed && event->type() == QEvent::Timer && qobject_cast<QTimer*>(receiver) != nullptr)
        return true;
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        HandleFailure();
    }
    return true;
}

void Application::Guard(const std::function<void()>& work) {
    try {
        work();
    } catch (...) {
        HandleFailure();
    }
}

void Application::HandleFailure() noexcept {
    const std::string activity = TakeFailedActivity();
    const Failure failure = CurrentFailure();
    // A failure of the message's own leaves only the end.
    if (!std::exchange(m_failed, true)) {
        Q_EMIT Failing();
        FailureMessage(failure, activity);
    }
    m_end();
    m_failed = false;
}

void Application::FailureMessage(const Failure& failure, const std::string& activity) {
    const std::string number = std::to_string(failure.Number());
    std::string text = "Run-time error '" + number + "':\r\r" + failure.Description() + "\r\r";
    std::string line = ProgramTitle + (": run-time error " + number) + ": " + failure.Description();
    if (!activity.empty()) {
        text += activity + "\r\r";
        line += " (" + activity + ")";
    }
    std::fprintf(stderr, "%s\n%s\n", line.c_str(), ending);
    MsgBox(ToQString(text + ending));
}

}  // namespace tavel
