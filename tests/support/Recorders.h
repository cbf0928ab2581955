#pragma once

#include "core/AppWindows.h"
#include "core/LibraryStore.h"
#include "core/LogWindow.h"
#include "core/MessageBoxes.h"
#include "library/LibraryWindows.h"
#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/Service.h"

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tavel::test {

// Stands in for one of the engine's faces to the windows while it lives.
template <class Interface>
class Standing : public Interface {
  public:
    Standing() { Service<Interface>::Use(this); }
    ~Standing() override { Service<Interface>::Use(nullptr); }
    Standing(const Standing&) = delete;
    Standing& operator=(const Standing&) = delete;
};

// What was asked of the windows, as text, in the order in which it was asked. Several recorders
// share one list.
using Calls = std::vector<std::string>;

class AppWindowsRecorder : public Standing<AppWindows> {
  public:
    explicit AppWindowsRecorder(Calls& calls) : m_calls(calls) {}

    std::function<bool()> initCommonControls = [] { return true; };
    std::function<void()> onFirstWindow = [] {};  // the wizard or the main window
    std::function<void()> onShowEnd = [] {};

    bool InitCommonControls(Long requestSize, Long classMask) override;
    void ShowSplash() override { m_calls.push_back("ShowSplash"); }
    void UnloadSplash() override { m_calls.push_back("UnloadSplash"); }
    void ShowStartWizard() override;
    void ShowMain() override;
    void ShowEnd() override;
    void UnloadAllButMain() override { m_calls.push_back("UnloadAllButMain"); }
    void EndProcess() override { m_calls.push_back("EndProcess"); }

  private:
    Calls& m_calls;
};

// Does nothing but record, unless a test gives a step something to do.
class LibraryStoreRecorder : public Standing<LibraryStore> {
  public:
    explicit LibraryStoreRecorder(Calls& calls) : m_calls(calls) {}

    std::function<void()> onLoadDB = [] {};
    std::function<void()> onSaveDB = [] {};
    std::function<void()> onBackgroundScan = [] {};
    std::function<void()> onRelease = [] {};

    void LoadDB() override;
    void SaveDB() override;
    void BackgroundScan() override;
    void Release() override;

  private:
    Calls& m_calls;
};

// "Log <category>: <message>"; the date of the lines is kept apart.
class LogWindowRecorder : public Standing<LogWindow> {
  public:
    explicit LogWindowRecorder(Calls& calls) : m_calls(calls) {}

    std::vector<std::string> lines;  // as they came

    void AddItem(const std::string& line) override;

  private:
    Calls& m_calls;
};

// Answers message boxes from a queue of expected ones. A box that nobody expected, and one that
// never came, fail the test.
class MessageBoxesRecorder : public Standing<MessageBoxes> {
  public:
    explicit MessageBoxesRecorder(Calls& calls) : m_calls(calls) {}
    ~MessageBoxesRecorder() override;

    void Expect(std::string text, MsgBoxAnswer answer) {
        m_expected.emplace_back(std::move(text), answer);
    }

    // "MsgBox <title>: <text> (YesNo)"
    MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons,
                        const std::string& title) override;

  private:
    Calls& m_calls;
    std::deque<std::pair<std::string, MsgBoxAnswer>> m_expected;
};

// frmAdd.
class AddWindowRecorder : public Standing<AddWindow> {
  public:
    explicit AddWindowRecorder(Calls& calls) : m_calls(calls) {}

    // The user's cancelling; unloading clears it, as a fresh window's flag is clear.
    bool exitChecked = false;
    std::function<void(const std::string&)> onSetPath = [](const std::string&) {};

    void Show() override { m_calls.push_back("frmAdd.Show"); }
    void SetPath(const std::string& sPath) override;
    void Repaint() override { m_calls.push_back("frmAdd.Repaint"); }
    bool ExitChecked() override { return exitChecked; }
    void Unload() override;

  private:
    Calls& m_calls;
};

class InvalidFilesWindowRecorder : public Standing<InvalidFilesWindow> {
  public:
    explicit InvalidFilesWindowRecorder(Calls& calls) : m_calls(calls) {}

    void AddItem(const std::string& sPath) override {
        m_calls.push_back("frmInvFiles.AddItem " + sPath);
    }
    void Show() override { m_calls.push_back("frmInvFiles.Show"); }

  private:
    Calls& m_calls;
};

class CategoryTreeRecorder : public Standing<CategoryTree> {
  public:
    explicit CategoryTreeRecorder(Calls& calls) : m_calls(calls) {}
    void RefreshCats() override { m_calls.push_back("RefreshCats"); }

  private:
    Calls& m_calls;
};

class ScanTimerRecorder : public Standing<ScanTimer> {
  public:
    explicit ScanTimerRecorder(Calls& calls) : m_calls(calls) {}
    void Enable(bool bEnabled) override {
        m_calls.push_back(bEnabled ? "tmrBack on" : "tmrBack off");
    }

  private:
    Calls& m_calls;
};

// Records each yield, and does what a test wants to happen while the program is yielded.
class EventLoopRecorder : public Standing<EventLoop> {
  public:
    explicit EventLoopRecorder(Calls& calls) : m_calls(calls) {}

    std::function<void()> onYield = [] {};

    void Yield() override;

  private:
    Calls& m_calls;
};

// A clock that stands still until it is set.
class FixedClock : public Standing<Clock> {
  public:
    std::string now = "21/11/2006 14:05:09";
    double timer = 50709.0;

    std::string NowText() override { return now; }
    double Timer() override { return timer; }
};

// All windows that core and the library speak to, on one list of calls.
struct Recorders {
    Calls calls;
    AppWindowsRecorder app{calls};
    LogWindowRecorder log{calls};
    MessageBoxesRecorder boxes{calls};
    AddWindowRecorder add{calls};
    InvalidFilesWindowRecorder invalid{calls};
    CategoryTreeRecorder tree{calls};
    ScanTimerRecorder scanTimer{calls};
    EventLoopRecorder events{calls};
    FixedClock clock;
};

}  // namespace tavel::test
