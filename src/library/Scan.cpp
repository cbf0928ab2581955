#include "library/Scan.h"

#include "core/Log.h"
#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "library/Adding.h"
#include "library/Collections.h"
#include "library/LibraryWindows.h"
#include "library/PathIndex.h"
#include "platform/Activity.h"
#include "platform/EventLoop.h"
#include "platform/Service.h"

namespace tavel {

namespace {

// The library can shrink while the program is yielded, and the comparison goes by position up to
// the count that it began with: it then fails beyond the end. Only the yield behind the last
// comparison is harmless.
bool IsAmongItems(Integer itemType, std::string_view sPath) {
    const auto count = [&] {
        return WithItems(itemType, [](const auto& items, auto*) { return items.Count(); });
    };
    const Long iCount = count();
    const bool bFound = HasPath(itemType, sPath);
    if (iCount > 0) DoEvents();
    if (iCount > 1 && count() < iCount) Fail(failure::SubscriptOutOfRange);
    return bFound;
}

}  // namespace

std::vector<std::string> WatchFolders() {
    const Doing reading("Reading", "[watch]", "of", sDBFile);
    Integer n = 0;
    ReadValue(sDBFile, "watch", "noofflds", "s", "-1", n);
    if (n < 0) Fail(failure::SubscriptOutOfRange);
    std::vector<std::string> folders(static_cast<std::size_t>(n));
    for (std::size_t i = 0; i < folders.size(); ++i)
        ReadValue(sDBFile, "watch", std::to_string(i), "s", "XYZXYZ", folders[i]);
    return folders;
}

void BackgroundScan() {
    if (bScanning) return;
    ScanTimer& tmrBack = Service<ScanTimer>::Get();
    tmrBack.Enable(false);
    bScanning = true;
    const std::vector<std::string> folders = WatchFolders();
    AddLog("Back Scan", "Begginging background scan");
    for (const std::string& folder : folders) {
        AddFolder(folder, true, bAutoGroup, true, false);
        DoEvents();
    }
    AddLog("Back Scan", "Background scan finished");
    bScanning = false;
    tmrBack.Enable(true);
}

void AddWatchFolders() {
    AddWindow& frmAdd = Service<AddWindow>::Get();
    frmAdd.Show();
    const std::vector<std::string> folders = WatchFolders();
    if (folders.empty()) {
        const Doing reading("Reading", "[watch]", "of", sDBFile);
        Fail(failure::SubscriptOutOfRange);
    }
    for (const std::string& folder : folders) AddFolder(folder, true, true, false, true);
    frmAdd.Unload();
}

void ScanTick() {
    iScanTicks = ToInteger(iScanTicks + 1);
    // Equal, not at least: a delay set below the present count stops the timed scans.
    if (iScanTicks != iScanDelay) return;
    iScanTicks = 0;
    BackgroundScan();
}

bool IsFileInDB(std::string_view sPath) {
    const Integer iType = GetFileType(sPath);
    return iType != -1 && IsAmongItems(iType, sPath);
}

}  // namespace tavel
