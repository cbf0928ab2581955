#include "media/Thumbnail.h"

#include "core/PublicStuff.h"
#include "media/Pictures.h"
#include "media/ThumbnailPicture.h"
#include "media/TrustedParts.h"
#include "platform/Failure.h"
#include "platform/FileService.h"

#include <optional>
#include <span>

namespace tavel {

namespace {

std::string ThumbFolder() { return sDefaultDBPath + "\\Videos\\Thumbnails\\"; }

// The parts of a picture that may be decoded. A file that tells no size is no picture, and of a
// large one its bytes, a copy of them and the pixels would have to have room together; neither is
// read.
std::optional<TrustedPicture> ReadPicture(const std::string& sPath) {
    constexpr std::int64_t mostBytes = 250'000'000;
    try {
        const bool isPicture = SizeOfPicture(sPath).Width > 0;
        if (!isPicture || oFSO().GetFile(sPath).Size > mostBytes) return std::nullopt;
        return TrustedParts(oFSO().ReadWhole(sPath));
    } catch (const Failure&) {
        return std::nullopt;  // it can't be read, like any other that can't be decoded
    }
}

bool WriteNewFile(const std::string& sPath, std::span<const char> bytes) {
    Long error = 0;
    const std::unique_ptr<RawFile> file = oFSO().OpenRaw(sPath, RawMode::Create, error);
    if (!file) return true;  // there is nothing to take back
    std::size_t written = 0;
    const bool isWritten = file->Write(bytes, written);
    return file->Close() && isWritten;
}

// Half a THM must not get to a PSP: what can't be written as a whole is taken back.
void WriteThumbnail(const std::string& sPath, const std::string& bytes) {
    if (WriteNewFile(sPath, bytes)) return;
    try {
        oFSO().DeleteFile(sPath, true);
    } catch (const Failure&) {
        return;  // the drive has gone, and the file with it
    }
}

}  // namespace

std::string ConvertToTHM(const std::string& sPath) {
    std::string thumbnail;
    if (std::optional<TrustedPicture> picture = ReadPicture(sPath)) {
        thumbnail = ThumbnailPicture(*std::move(picture));
    }
    const std::string sNewPath = ThumbFolder() + GetNextFreeThumbName();
    // A longer path would come back cut from db.txt, and lead nowhere.
    if (!thumbnail.empty() && !IsPathTooLong(sNewPath)) WriteThumbnail(sNewPath, thumbnail);
    return sNewPath;
}

std::string GetNextFreeThumbName() {
    for (Integer n = 1;; n = ToInteger(n + 1)) {
        const std::string sName = std::to_string(n) + ".THM";
        if (!oFSO().FileExists(ThumbFolder() + sName)) return sName;
    }
}

}  // namespace tavel
