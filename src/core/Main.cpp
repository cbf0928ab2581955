#include "core/Main.h"

#include "core/AppWindows.h"
#include "core/LibraryStore.h"
#include "core/Log.h"
#include "core/Options.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "platform/Service.h"

namespace tavel {

namespace {

constexpr Long CommonControlsSize = 8;        // bytes of the request: its size and its classes
constexpr Long ExtendedComboClasses = 0x200;  // the combo boxes with pictures

void InitCommonControls() {
    try {
        Service<AppWindows>::Get().InitCommonControls(CommonControlsSize, ExtendedComboClasses);
    } catch (const Failure&) {
        // Without the classes the program still runs, in a plainer look.
    }
}

}  // namespace

void Main() {
    InitCommonControls();
    StartUp();
}

void SetupStyle() {
    // No font is called that. What every window shows is the host's fallback for it, and their
    // layouts are made for that.
    gStyle.sFontName = "Verdanda";
    gStyle.lBackColorA = -1;
    gStyle.lBackColorB = -1;
}

void StartUp() {
    AppWindows& windows = Service<AppWindows>::Get();
    LibraryStore& library = Service<LibraryStore>::Get();

    sDBFile = GetAppPath() + "db.txt";
    SetupStyle();
    LoadOptions();
    windows.ShowSplash();
    library.LoadDB();
    windows.UnloadSplash();
    LoadSupportedExts();
    bPSPConnected = false;
    bDBChanged = false;
    if (bFirstTime)
        windows.ShowStartWizard();
    else
        windows.ShowMain();
    AddLog("Form", "frmMain and frmLog Opened");
    if (bScanOnAppStart) library.BackgroundScan();
}

void ShutDown() {
    AppWindows& windows = Service<AppWindows>::Get();
    LibraryStore& library = Service<LibraryStore>::Get();

    windows.ShowEnd();
    if (bDBChanged) library.SaveDB();
    Service<FileService>::Use(nullptr);
    library.Release();
    windows.UnloadAllButMain();
    windows.EndProcess();
}

}  // namespace tavel
