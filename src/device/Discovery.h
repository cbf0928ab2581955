#pragma once

#include <functional>
#include <string>

namespace tavel {

// The first removable drive from b: to z: with the identity file in its root; sDrive is then its
// root ("e:\"), else it stays as it was. The first failure of a search counts as a letter without
// a PSP, a second one goes up.
bool FindPSPDrive(std::string& sDrive);

// Hands over the path ("e:") of the first removable drive from b: to z: that has the folder "\PSP",
// which a stick has before it is known to anybody. False when there is none. Failures count as in
// FindPSPDrive, that of `found` among them.
bool FindPSPFolder(const std::function<void(const std::string& sPath)>& found);

// Sets the connected state for a drive, in any spelling that GetDrive takes. The flag comes first:
// a failure behind it leaves it set.
void ConnectPSP(const std::string& sDrive);

// A tick of tmrPSP: notices that the device has come or gone.
void PollPSP();

// The look for a device while frmMain loads.
void FirstLookForPSP();

// What OK in frmNewPSP does: puts the identity file with the name on the drive of the drive list's
// text. True when the dialog is to close; false leaves it open, after a message or in silence.
bool SetupNewPSP(const std::string& sDriveText, const std::string& sName);

// What the finish of the start wizard does: waits with boxes until the very drive of the drive
// list's text is there, and puts the identity file with the name on it, whatever kind of drive it
// is. Nothing is guarded.
void SetupFirstPSP(const std::string& sDriveText, const std::string& sName);

}  // namespace tavel
