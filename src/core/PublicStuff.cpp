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

FileService& oFSO() { return oFSO(); }

void Service<FileService>::Use(FileService* service) { Service<FileService>::Use(service); }

void ResetPublicStuff() {
    bFirstTime = false;
    sDefaultDBPath.clear();
    bAutoGroup = false;
    bAddHiddenFiles = false;
    bScanOnAppStart = false;
    iVidThumbMode = 0;
    bGroupZip = false;

    sMusicSupport.clear();
    sVideoSupport.clear();
    sPhotoSupport.clear();

    bPSPConnected = false;
    sPSPName.clear();
    sPSPDataFile.clear();
    oPSPDrive.reset();

    sDBFile.clear();
    gStyle = Style{};
    iScanTicks = 0;
    iScanDelay = 0;
    bScanning = false;
    bDBChanged = false;

    Service<FileService>::Use(nullptr);
}

}  // namespace tavel
