#include "device/DeviceTest.h"

#include "core/PublicStuff.h"
#include "device/Discovery.h"
#include "library/Collections.h"
#include "platform/ProfileText.h"

#include <filesystem>

namespace tavel::test {

namespace fs = std::filesystem;

void DeviceFiles::CreateFolder(std::string_view path) {
    m_calls.push_back("CreateFolder " + std::string(path));
    FaultyFileService::CreateFolder(path);
}

void DeviceFiles::CopyFile(std::string_view source, std::string_view target, bool overwrite) {
    m_calls.push_back("CopyFile " + std::string(target) + (overwrite ? "" : " only if new"));
    FaultyFileService::CopyFile(source, target, overwrite);
}

std::unique_ptr<RawFile> DeviceFiles::OpenRaw(std::string_view path, RawMode mode, Long& error) {
    if (mode == RawMode::Create) m_calls.push_back("Create " + std::string(path));
    std::unique_ptr<RawFile> file = replaceRaw ? replaceRaw(path, mode) : nullptr;
    return file ? std::move(file) : FaultyFileService::OpenRaw(path, mode, error);
}

DeviceTest::DeviceTest() {
    ResetPublicStuff();
    ReleaseCollections();
    Service<FileService>::Use(&files);
}

DeviceTest::~DeviceTest() {
    ReleaseCollections();
    ResetPublicStuff();
}

FakeDrive& DeviceTest::PlugStick(char letter) {
    fs::create_directories(HostOf(letter, ""));
    return files.Plug(letter, temp.HostPath(std::string("stick-") + letter));
}

FakeDrive& DeviceTest::PlugPSP(char letter) {
    FakeDrive& drive = PlugStick(letter);
    for (const char* folder : {"PSP/PHOTO", "PSP/MUSIC", "MP_ROOT/100MNV01"}) {
        fs::create_directories(HostOf(letter, folder));
    }
    Put(letter, "TavelDataFile.tavel", "");
    return drive;
}

void DeviceTest::Connect() {
    PlugPSP('e');
    ConnectPSP("e:\\");
    calls.clear();
    files.calls.clear();
    files.rawCalls.clear();
}

std::string DeviceTest::HostOf(char letter, const std::string& path) const {
    return temp.HostPath(std::string("stick-") + letter + "/" + path);
}

void DeviceTest::Put(char letter, const std::string& path, const std::string& bytes) const {
    temp.Write(std::string("stick-") + letter + "/" + path, bytes);
}

std::string DeviceTest::BytesOn(char letter, const std::string& path) const {
    return temp.Read(std::string("stick-") + letter + "/" + path);
}

bool DeviceTest::IsOn(char letter, const std::string& path) const {
    return temp.Has(std::string("stick-") + letter + "/" + path);
}

void DeviceTest::SpoilIdentityFile() const {
    fs::resize_file(HostOf('e', "TavelDataFile.tavel"), ProfileText::MaxSize + 1);
}

}  // namespace tavel::test
