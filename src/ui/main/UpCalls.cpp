#include "ui/main/UpCalls.h"

#include "core/AppWindows.h"
#include "core/LogWindow.h"
#include "core/MessageBoxes.h"
#include "device/DeviceWindows.h"
#include "library/LibraryWindows.h"
#include "library/MediaLibraryStore.h"
#include "platform/EventLoop.h"
#include "platform/Service.h"
#include "ui/main/frmAdd.h"
#include "ui/main/frmCopy.h"
#include "ui/main/frmEnd.h"
#include "ui/main/frmInvFiles.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmMain.h"
#include "ui/main/frmSplash.h"
#include "ui/setup/frmStartWizard.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/SingleWindow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/WindowRegistry.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/Yielding.h"

#include <QCoreApplication>
#include <chrono>
#include <cstdlib>

namespace tavel {

namespace {

class AppWindowsOnScreen : public AppWindows {
  public:
    // Qt has readied its classes by the time that there is an application.
    bool InitCommonControls(Long, Long) override { return QCoreApplication::instance() != nullptr; }

    void ShowSplash() override { ShowNow(SingleWindow<frmSplash>::Get()); }
    void UnloadSplash() override { SingleWindow<frmSplash>::Unload(); }
    void ShowStartWizard() override { SingleWindow<frmStartWizard>::Get().show(); }
    void ShowMain() override { SingleWindow<frmMain>::Get().show(); }
    void ShowEnd() override { ShowNow(SingleWindow<frmEnd>::Get()); }
    void UnloadAllButMain() override { WindowRegistry::UnloadAllBut("frmMain"); }
    // At once: frmMain must not be unloaded, since its unload handler is what leads here.
    void EndProcess() override { std::_Exit(EXIT_SUCCESS); }
};

class LogOnScreen : public LogWindow {
  public:
    void AddItem(const std::string& line) override { SingleWindow<frmLog>::Get().AddItem(line); }
};

class BoxesOnScreen : public MessageBoxes {
  public:
    MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons,
                        const std::string& title) override {
        return tavel::MsgBox(ToQString(text), buttons, ToQString(title));
    }
};

class AddOnScreen : public AddWindow {
  public:
    void Show() override { ShowNow(Window()); }
    void SetPath(const std::string& sPath) override { Window().SetPath(sPath); }
    void Repaint() override { RepaintNow(Window()); }
    bool ExitChecked() override { return Window().ExitChecked(); }
    void Unload() override { SingleWindow<frmAdd>::Unload(); }

  private:
    static frmAdd& Window() { return SingleWindow<frmAdd>::Get(); }
};

class InvalidFilesOnScreen : public InvalidFilesWindow {
  public:
    void AddItem(const std::string& sPath) override {
        SingleWindow<frmInvFiles>::Get().AddItem(sPath);
    }
    void Show() override { ShowDialog(SingleWindow<frmInvFiles>::Get()); }
};

class CopyOnScreen : public CopyWindow {
  public:
    void Show() override { ShowNow(Window()); }
    void Repaint() override { RepaintNow(Window()); }
    ProgressBarView& pgbCurr() override { return Window().CurrentBar(); }
    ProgressBarView& pgbTotal() override { return Window().TotalBar(); }
    void SetFile(const std::string& sText) override { Window().SetFile(sText); }
    void SetSubFile(const std::string& sText) override { Window().SetSubFile(sText); }
    void ShowSubFile(bool bVisible) override { Window().ShowSubFile(bVisible); }
    void ShowFinish() override { Window().ShowFinish(); }
    void ShowOK() override { Window().ShowOK(); }

  private:
    static frmCopy& Window() { return SingleWindow<frmCopy>::Get(); }
};

// The parts of frmMain that the engine reaches.
class MainOnScreen : public CategoryTree, public ScanTimer, public DevicePanels {
  public:
    void RefreshCats() override { Window().RefreshCatsLater(); }
    void Enable(bool bEnabled) override { Window().Enable(bEnabled); }
    void RefreshPSPStatus() override { Window().RefreshPSPStatus(); }
    void RefreshPSPCats() override { Window().RefreshPSPCats(); }
    void ShowPSPCats(bool bShow) override { Window().ShowPSPCats(bShow); }

  private:
    static frmMain& Window() { return SingleWindow<frmMain>::Get(); }
};

std::int64_t Milliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

class QtEventLoop : public Yielding {
  public:
    QtEventLoop() : Yielding(Milliseconds) {}
};

template <class Interface, class OnScreen>
void Wire() {
    static OnScreen onScreen;
    Service<Interface>::Use(&onScreen);
}

}  // namespace

void WireUpCalls() {
    Wire<AppWindows, AppWindowsOnScreen>();
    Wire<LibraryStore, MediaLibraryStore>();
    Wire<LogWindow, LogOnScreen>();
    Wire<MessageBoxes, BoxesOnScreen>();
    Wire<AddWindow, AddOnScreen>();
    Wire<InvalidFilesWindow, InvalidFilesOnScreen>();
    Wire<CopyWindow, CopyOnScreen>();
    Wire<EventLoop, QtEventLoop>();
    Wire<CategoryTree, MainOnScreen>();
    Wire<ScanTimer, MainOnScreen>();
    Wire<DevicePanels, MainOnScreen>();
}

}  // namespace tavel
