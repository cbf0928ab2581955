#include "library/ZipReader.h"

#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "library/ZipArchive.h"
#include "library/ZipNames.h"
#include "platform/Failure.h"
#include "platform/Text.h"

#include <algorithm>
#include <vector>

namespace tavel {

namespace {

// Looked at as a whole before anything is made, so that a refused file leaves no folders.
bool AreNamesAllowed(const std::string& sBelow) {
    return std::ranges::all_of(Split(sBelow, '\\'), [](const std::string& sPart) {
        return sPart.empty() || IsNameAllowed(sPart);
    });
}

// Returns the folder in which the file is to lie. A link on the way would lead out of the first.
std::string MakeFoldersOf(const std::string& sFolder, const std::string& sBelow) {
    std::string sPath = sFolder;
    std::vector<std::string> sParts = Split(sBelow, '\\');
    sParts.pop_back();
    for (const std::string& sPart : sParts) {
        if (sPart.empty()) continue;
        oFSO().DeleteLinks(sPath, sPart);
        sPath += "\\" + sPart;
        if (!oFSO().FolderExists(sPath)) oFSO().CreateFolder(sPath);
    }
    return sPath;
}

// What lies there is removed, not written into: the file may have another name somewhere else.
std::unique_ptr<RawFile> Replace(const std::string& sFolder, const std::string& sName) {
    const std::string sPath = sFolder + "\\" + sName;
    oFSO().DeleteLinks(sFolder, sName);
    if (oFSO().FileExists(sPath)) oFSO().DeleteFile(sPath, true);
    Long error = 0;
    std::unique_ptr<RawFile> file = oFSO().OpenRaw(sPath, RawMode::Create, error);
    if (!file) Fail(error);
    return file;
}

// Null when the drive makes no such name.
std::unique_ptr<RawFile> MakeFile(const std::string& sFolder, const std::string& sBelow) {
    try {
        return Replace(MakeFoldersOf(sFolder, sBelow), GetFileName(sBelow));
    } catch (const Failure& failure) {
        if (failure.Number() != failure::BadFileName) throw;
        return nullptr;
    }
}

void Unpack(ZipData& data, RawFile& file) {
    std::size_t written = 0;
    for (auto block = data.Next(); !block.empty(); block = data.Next()) {
        if (!file.Write(block, written)) Fail(file.Error());
    }
}

}  // namespace

ZipEntry::ZipEntry(ZipArchive& archive, std::uint64_t number)
    : m_archive(archive), m_number(number), m_sName(ZipEntryName(archive.StoredName(number))) {}

std::string ZipEntry::Extract(const std::string& sFolder) const {
    const std::string sBelow = bWithPath ? m_sName : GetFileName(m_sName);
    std::string sPath = sFolder + "\\" + sBelow;
    if (!StaysBelow(m_sName) || !AreNamesAllowed(sBelow) || IsPathTooLong(sPath)) return {};
    if (m_archive.IsLink(m_number)) return {};
    const std::unique_ptr<ZipData> data = m_archive.Data(m_number);
    const std::unique_ptr<RawFile> file = data ? MakeFile(sFolder, sBelow) : nullptr;
    if (!file) return {};
    Unpack(*data, *file);
    file->SetTime(m_archive.Time(m_number));
    if (!file->Close()) Fail(file->Error());
    return sPath;
}

ZipReader::ZipReader() = default;
ZipReader::~ZipReader() = default;

void ZipReader::ZipFile(const std::string& sPath) {
    m_archive = std::make_unique<ZipArchive>(sPath);
    m_sPath = sPath;
}

std::uint64_t ZipReader::Count() const { return m_archive->Count(); }

ZipEntry ZipReader::Item(std::uint64_t number) const { return {*m_archive, number}; }

void ZipReader::Close() { m_archive.reset(); }

}  // namespace tavel
