#include "platform/windows/FileIdentity.h"

#include "platform/windows/Handle.h"

#include <algorithm>
#include <cstring>

namespace tavel {

namespace {

// The older call, for file systems without ids of 128 bits.
bool ShortIdOf(const Handle& opened, FILE_ID_INFO& id) {
    BY_HANDLE_FILE_INFORMATION data{};
    if (GetFileInformationByHandle(opened.Get(), &data) == 0) return false;
    id.VolumeSerialNumber = data.dwVolumeSerialNumber;
    std::memcpy(&id.FileId.Identifier[0], &data.nFileIndexLow, sizeof data.nFileIndexLow);
    std::memcpy(&id.FileId.Identifier[4], &data.nFileIndexHigh, sizeof data.nFileIndexHigh);
    return true;
}

// Some servers give their files no ids at all, and all of them would be the same one.
bool IdOf(const Handle& opened, FILE_ID_INFO& id) {
    const bool isTold =
        GetFileInformationByHandleEx(opened.Get(), FileIdInfo, &id, sizeof id) != 0 ||
        ShortIdOf(opened, id);
    return isTold && std::ranges::any_of(id.FileId.Identifier, [](BYTE byte) { return byte != 0; });
}

}  // namespace

FileIdentity::FileIdentity(const std::wstring& callPath) {
    const Handle opened = OpenToLook(callPath, true);
    m_isKnown = opened.IsOpen() && IdOf(opened, m_id);
}

bool FileIdentity::operator==(const FileIdentity& other) const {
    return m_isKnown && other.m_isKnown &&
           m_id.VolumeSerialNumber == other.m_id.VolumeSerialNumber &&
           std::ranges::equal(m_id.FileId.Identifier, other.m_id.FileId.Identifier);
}

std::string FileIdentity::Text() const {
    std::string text = std::to_string(m_id.VolumeSerialNumber);
    for (const BYTE byte : m_id.FileId.Identifier) text += ' ' + std::to_string(byte);
    return text;
}

}  // namespace tavel
