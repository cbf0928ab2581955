#pragma once

#include "platform/FileService.h"
#include "platform/Numbers.h"

#include <memory>
#include <string>
#include <vector>

namespace tavel {

// The shared state of the program. Any module may read or assign any of it; the library's own
// collections stand beside their records in library/Collections.h.

// Options, read from the profile at each start (LoadOptions).
extern bool bFirstTime;             // show the start wizard instead of the main window
extern std::string sDefaultDBPath;  // root of the library folders
extern bool bAutoGroup;             // the scan makes a group of a leaf folder of one media type
extern bool bAddHiddenFiles;        // hidden files may enter the library
extern bool bScanOnAppStart;        // one BackgroundScan at the end of start-up
extern Integer iVidThumbMode;       // video thumbnail mode
extern bool bGroupZip;              // a zip import makes a group

// Supported extensions of each media kind, lower case, no dot (LoadSupportedExts).
extern std::vector<std::string> sMusicSupport;
extern std::vector<std::string> sVideoSupport;
extern std::vector<std::string> sPhotoSupport;

// The connected state; written by ConnectPSP and the poll alone. Only the flag is cleared when
// the device goes away.
extern bool bPSPConnected;
extern std::string sPSPName;
extern std::string sPSPDataFile;  // path of the identity file
extern std::shared_ptr<Drive> oPSPDrive;

extern std::string sDBFile;  // full path of db.txt

// The look that StyleApply puts on each window; -1 leaves a control's colour as it is.
struct Style {
    std::string sFontName;
    Long lBackColorA = 0;
    Long lBackColorB = 0;
};
extern Style gStyle;

extern Integer iScanTicks;  // minutes since the last timed scan
extern Integer iScanDelay;  // minutes between timed scans
extern bool bScanning;      // a BackgroundScan is running
extern bool bDBChanged;     // the library has changes that ShutDown must save

}  // namespace tavel
