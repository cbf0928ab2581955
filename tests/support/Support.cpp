#include "support/Support.h"

#include "core/PublicStuff.h"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tavel::test {

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavel-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_path = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TempFolder::DrivePath(const std::string& name) const {
    std::string path = "c:" + m_path + (name.empty() ? "" : "/" + name);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

void TempFolder::Write(const std::string& name, const std::string& bytes) const {
    const std::filesystem::path path = HostPath(name);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string TempFolder::Read(const std::string& name) const {
    std::ifstream file(HostPath(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

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

std::string SourceFile(const std::string& path) { return TAVEL_SOURCE_FOLDER "/" + path; }

}  // namespace tavel::test
