#include "device/Browser.h"

#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "core/modRegistry.h"
#include "device/Naming.h"
#include "library/Adding.h"
#include "library/Records.h"
#include "library/SizeText.h"
#include "media/Pictures.h"
#include "media/cMP3ID3v2.h"
#include "platform/Activity.h"
#include "platform/Failure.h"

#include <optional>
#include <utility>

namespace tavel {

namespace {

// No stored title: a video that is really called so shows its number.
constexpr const char* NoTitle = "####";

std::string SizeOf(const FileEntry& file) { return SizeText(static_cast<double>(file.Size)); }

PSPRow TrackRow(const FileEntry& file) {
    cMP3ID3v2 tag;
    tag.MP3File(file.Path);
    return {"",
            tag.Title(),
            {tag.Artist(), tag.Album(), GetFileExt(file.Path), SizeOf(file), file.Path}};
}

std::string TitleOf(const FileEntry& file) {
    std::string sName = StripExt(file.Name);
    std::string sTitle;
    ReadValue(sPSPDataFile, "video", sName, "s", NoTitle, sTitle);
    return sTitle == NoTitle ? sName : sTitle;
}

// Nothing for a file of another kind, as the thumbnails beside the videos are.
std::optional<PSPRow> VideoRow(const FileEntry& file) {
    if (GetFileType(file.Path) == -1) return std::nullopt;
    return PSPRow{"", TitleOf(file), {GetFileExt(file.Path), SizeOf(file), file.Path}};
}

PSPRow PhotoRow(const FileEntry& file) {
    const PictureSize size = SizeOfPicture(file.Path);
    const std::string sSize = std::to_string(size.Width) + " X " + std::to_string(size.Height);
    return {"", StripExt(file.Name), {sSize, GetFileExt(file.Path), SizeOf(file), file.Path}};
}

std::optional<PSPRow> RowOf(const FileEntry& file, Integer iType) {
    switch (iType) {
        case mtMusic:
            return TrackRow(file);
        case mtVideo:
            return VideoRow(file);
        case mtPhoto:
            return PhotoRow(file);
        default:
            return std::nullopt;
    }
}

const std::string& SubItem(const PSPRow& row, std::size_t number) {
    if (number > row.sSubItems.size()) Fail(failure::SubscriptOutOfRange);
    return row.sSubItems[number - 1];
}

void DeleteFile(const std::string& sPath) {
    const Doing deleting("Deleting", sPath);
    oFSO().DeleteFile(sPath, false);
}

void DeleteVideo(const std::string& sPath) {
    DeleteFile(sPath);
    const std::string sThumb = StripExt(sPath) + ".THM";
    if (oFSO().FileExists(sThumb)) DeleteFile(sThumb);
}

std::vector<FolderEntry> FoldersIn(const std::string& sPath) {
    const Doing listing("Listing", sPath);
    return oFSO().GetFolder(sPath).SubFolders;
}

}  // namespace

std::vector<FolderEntry> PSPMusicFolders() { return FoldersIn(PSPPath(MusicFolder)); }

std::vector<FolderEntry> PSPPhotoFolders() { return FoldersIn(PSPPath(PhotoFolder)); }

// The keys count all files of the folder, those that get no row too.
void ListPSPFiles(const std::string& sPath, Integer iType, std::vector<PSPRow>& rows) {
    const Doing listing("Listing", sPath);
    std::size_t number = 0;
    for (const FileEntry& file : oFSO().GetFolder(sPath).Files) {
        const Doing reading("Listing", file.Path);
        ++number;
        std::optional<PSPRow> row = RowOf(file, iType);
        if (!row) continue;
        row->sKey = "ID" + std::to_string(number);
        rows.push_back(std::move(*row));
    }
}

void DeletePSPFile(const PSPRow& row, Integer iListType) {
    switch (iListType) {
        case mtVideo:
            return DeleteVideo(SubItem(row, 3));
        case mtMusic:
            return DeleteFile(SubItem(row, 5));
        case mtPhoto:
            return DeleteFile(SubItem(row, 4));
        default:
            return;
    }
}

}  // namespace tavel
