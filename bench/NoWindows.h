#pragma once

#include "core/LogWindow.h"
#include "library/LibraryWindows.h"
#include "platform/EventLoop.h"
#include "platform/Service.h"

#include <string>

namespace tavel::bench {

// Stands where the windows would, for as long as it lives: nothing shows and nothing is cancelled,
// so that the library's work alone is measured.
class NoWindows : public AddWindow,
                  public InvalidFilesWindow,
                  public CategoryTree,
                  public LogWindow,
                  public EventLoop {
  public:
    NoWindows() { Use(this); }
    ~NoWindows() override { Use(nullptr); }
    NoWindows(const NoWindows&) = delete;
    NoWindows& operator=(const NoWindows&) = delete;

    void Show() override {}
    void SetPath(const std::string&) override {}
    void Repaint() override {}
    bool ExitChecked() override { return false; }
    void Unload() override {}
    void AddItem(const std::string&) override {}
    void RefreshCats() override {}
    void Yield() override {}

  private:
    static void Use(NoWindows* windows) {
        Service<AddWindow>::Use(windows);
        Service<InvalidFilesWindow>::Use(windows);
        Service<CategoryTree>::Use(windows);
        Service<LogWindow>::Use(windows);
        Service<EventLoop>::Use(windows);
    }
};

}  // namespace tavel::bench
