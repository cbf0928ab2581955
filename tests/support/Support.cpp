#include "support/Support.h"

#include "core/PublicStuff.h"
#include "support/HostPlaces.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace tavel::test {

namespace {

namespace fs = std::filesystem;

std::string NewFolder() {
    std::random_device random;
    std::string path;
    do {
        path = fs::temp_directory_path().generic_string();
        if (path.back() != '/') path += '/';
        path += "tavel-test-" + std::to_string(random());
    } while (!fs::create_directory(path));
    fs::permissions(path, fs::perms::owner_all);
    return path;
}

// What may be written may be removed, on any host.
void RemoveAll(const fs::path& folder) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    if (!fs::exists(folder, ignored)) return;
    fs::recursive_directory_iterator entry(folder, ignored);
    for (; entry != fs::recursive_directory_iterator(); entry.increment(ignored))
        fs::permissions(*entry, fs::perms::owner_write, fs::perm_options::add, ignored);
    fs::remove_all(folder, ignored);
}

}  // namespace

TempFolder::TempFolder() : m_path(NewFolder()) {}

TempFolder::~TempFolder() { RemoveAll(m_path); }

std::string TempFolder::DrivePath(const std::string& name) const {
    return OnDrive(name.empty() ? m_path : HostPath(name));
}

void TempFolder::Write(const std::string& name, const std::string& bytes) const {
    const fs::path path = AsHostPath(HostPath(name));
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    if (!(file << bytes).flush()) throw std::runtime_error(name + " was not written");
}

std::string TempFolder::Read(const std::string& name) const {
    std::ifstream file(AsHostPath(HostPath(name)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool TempFolder::Has(const std::string& name) const {
    const fs::path wanted = AsHostPath(HostPath(name));
    if (!fs::exists(wanted)) return false;
    const fs::directory_iterator entries(wanted.parent_path());
    return std::any_of(begin(entries), end(entries), [&](const fs::directory_entry& entry) {
        return entry.path().filename() == wanted.filename();
    });
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

std::int64_t ModifiedAt(const std::filesystem::path& hostPath) {
    const auto time = std::chrono::file_clock::to_sys(fs::last_write_time(hostPath));
    return std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
}

}  // namespace tavel::test
