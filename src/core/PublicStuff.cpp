#include "core/PublicStuff.h"

namespace tavel {

bool bFirstTime = false;
std::string sDefaultDBPath;
bool bAutoGroup = false;
bool bAddHiddenFiles = false;
bool bScanOnAppStart = false;
Integer iVidThumbMode = 0;
bool bGroupZip = false;

std::vector<std::string> sMusicSupport;
std::vector<std::string> sVideoSupport;
std::vector<std::string> sPhotoSupport;

bool bPSPConnected = false;
std::string sPSPName;
std::string sPSPDataFile;
std::shared_ptr<Drive> oPSPDrive;

std::string sDBFile;
Style gStyle;
Integer iScanTicks = 0;
Integer iScanDelay = 0;
bool bScanning = false;
bool bDBChanged = false;

}  // namespace tavel
