#include "device/Discovery.h"

#include "core/MessageBoxes.h"
#include "core/PublicStuff.h"
#include "core/modRegistry.h"
#include "device/DeviceWindows.h"
#include "device/Naming.h"
#include "platform/Activity.h"
#include "platform/EventLoop.h"
#include "platform/Failure.h"
#include "platform/Service.h"
#include "platform/Text.h"

namespace tavel {

namespace {

constexpr const char* NotConnectedText =
    "The PSP is not connected, or you have selected the wrong drive for the PSP.\r\r"
    "Please connect it and check the selected drive";
constexpr const char* ConnectText =
    "The PSP is not connected, please connect it and click OK to try again";
constexpr const char* NotReadyText =
    "Selected drive not ready, check the connection or select another drive";

// Looks into the removable drives from b: to z: until one is taken. A drive of another type is left
// alone: a network drive may answer slowly.
bool TakeDrive(
    const std::function<bool(const std::string& sRoot, const std::string& sPath)>& take) {
    bool bHasFailed = false;
    for (char letter = 'b'; letter <= 'z'; ++letter) {
        const std::string sRoot = std::string(1, letter) + ":\\";
        try {
            const Doing looking("Looking for a PSP on", sRoot);
            if (!oFSO().DriveExists(sRoot)) continue;
            const std::shared_ptr<Drive> drive = oFSO().GetDrive(sRoot);
            if (drive->DriveType() == DriveRemovable && take(sRoot, drive->Path())) return true;
        } catch (const Failure&) {
            if (bHasFailed) throw;
            bHasFailed = true;
            ForgetFailedActivity();
        }
    }
    return false;
}

void PSPHasGone() {
    bPSPConnected = false;
    DevicePanels& panels = Service<DevicePanels>::Get();
    panels.RefreshPSPStatus();
    panels.ShowPSPCats(false);
}

void PSPHasCome(const std::string& sDrive) {
    ConnectPSP(sDrive);
    DevicePanels& panels = Service<DevicePanels>::Get();
    panels.RefreshPSPStatus();
    panels.ShowPSPCats(true);
    panels.RefreshPSPCats();
}

void WriteIdentityFile(const std::string& sName) {
    const std::string sPath = PSPPath(IdentityFile);
    if (!oFSO().FileExists(sPath)) oFSO().CreateTextFile(sPath, true);
    WriteValue(sPath, "Data", "PSPName", "S", Trim(sName));
}

// The stick is connected before its identity file is there, so a fresh one is called "PSP" until
// it is connected again; nothing in frmMain is refreshed.
bool MarkDrive(const std::string& sDriveText, const std::string& sName) {
    const std::shared_ptr<Drive> drive = oFSO().GetDrive(sDriveText);
    const bool bExists = oFSO().DriveExists(sDriveText);
    if (drive->DriveType() != DriveRemovable || !bExists) {
        Service<MessageBoxes>::Get().MsgBox(NotConnectedText, MsgBoxButtons::OKCancel,
                                            ProgramTitle);
        return false;
    }
    ConnectPSP(sDriveText);
    WriteIdentityFile(sName);
    return true;
}

}  // namespace

bool FindPSPDrive(std::string& sDrive) {
    return TakeDrive([&](const std::string& sRoot, const std::string& sPath) {
        if (!oFSO().FileExists(std::string(sPath).append(IdentityFile))) return false;
        sDrive = sRoot;
        return true;
    });
}

bool FindPSPFolder(const std::function<void(const std::string& sPath)>& found) {
    return TakeDrive([&](const std::string&, const std::string& sPath) {
        if (!oFSO().FolderExists(sPath + "\\PSP")) return false;
        found(sPath);
        return true;
    });
}

void ConnectPSP(const std::string& sDrive) {
    bPSPConnected = true;
    oPSPDrive = oFSO().GetDrive(sDrive);
    sPSPDataFile = PSPPath(ConnectedIdentityFile);
    ReadValue(sPSPDataFile, "data", "pspname", "s", "PSP", sPSPName);
}

// A marked drive on another letter than the connected one goes unnoticed: the connected state stays
// as it is until no marked drive is left.
void PollPSP() {
    std::string sDrive;
    const bool bFound = FindPSPDrive(sDrive);
    if (bPSPConnected && !bFound) {
        PSPHasGone();
    } else if (!bPSPConnected && bFound) {
        PSPHasCome(sDrive);
    }
    DoEvents();
}

// Another order than the poll's: the window is not on the screen yet, and the status panel must
// leave its design state even when there is no device.
void FirstLookForPSP() {
    DevicePanels& panels = Service<DevicePanels>::Get();
    std::string sDrive;
    if (FindPSPDrive(sDrive)) {
        ConnectPSP(sDrive);
        panels.RefreshPSPCats();
        panels.ShowPSPCats(true);
    }
    panels.RefreshPSPStatus();
}

bool SetupNewPSP(const std::string& sDriveText, const std::string& sName) {
    try {
        return MarkDrive(sDriveText, sName);
    } catch (const Failure& failure) {
        if (failure.Number() == failure::DiskNotReady) {
            Service<MessageBoxes>::Get().MsgBox(NotReadyText, MsgBoxButtons::OK, ProgramTitle);
        }
        return false;
    }
}

// A request to end the program is heard between two boxes: the user has no way out of them but to
// connect the drive.
void SetupFirstPSP(const std::string& sDriveText, const std::string& sName) {
    const Doing setting("Setting up the PSP on", sDriveText);
    while (!oFSO().DriveExists(sDriveText)) {
        Service<MessageBoxes>::Get().MsgBox(ConnectText, MsgBoxButtons::OK, ProgramTitle);
        DoEvents();
    }
    ConnectPSP(sDriveText);
    WriteIdentityFile(sName);
}

}  // namespace tavel
