#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "library/Adding.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "media/Pictures.h"
#include "media/cMP3ID3v2.h"
#include "platform/Activity.h"

#include <algorithm>

namespace tavel {

namespace {

bool Holds(const std::vector<std::string>& extensions, const std::string& extension) {
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

void SetFile(Item& item, const FileEntry& file, const std::string& sPath) {
    item.sPath(sPath);
    item.iSize = ToLong(file.Size);
}

// A track without a tag has no name: the file's own is not taken for it.
void Fill(Music& music, const FileEntry& file, const std::string& sPath) {
    cMP3ID3v2 tag;
    tag.MP3File(sPath);
    music.sName = tag.Title();
    music.sArtist = tag.Artist();
    music.sAlbum = tag.Album();
    SetFile(music, file, sPath);
}

void Fill(Video& video, const FileEntry& file, const std::string& sPath) {
    SetFile(video, file, sPath);
    video.sName = StripExt(file.Name);
}

void Fill(Photo& photo, const FileEntry& file, const std::string& sPath) {
    SetFile(photo, file, sPath);
    photo.sName = StripExt(file.Name);
    const PictureSize size = SizeOfPicture(sPath);
    photo.iSizeH = ToInteger(size.Height);
    photo.iSizeW = ToInteger(size.Width);
}

}  // namespace

Integer GetFileType(std::string_view sPath) {
    const std::string extension = GetFileExt(sPath);
    if (Holds(sMusicSupport, extension)) return mtMusic;
    if (Holds(sVideoSupport, extension)) return mtVideo;
    if (Holds(sPhotoSupport, extension)) return mtPhoto;
    return -1;
}

std::string AddFile(const std::string& sPath, bool bMayBeHidden) {
    const Doing adding("Adding", sPath);
    // Cut at the next load, it would lead nowhere.
    if (IsPathTooLong(sPath)) return "-1";
    const Integer iType = GetFileType(sPath);
    if (iType == -1) return "-1";
    bDBChanged = true;
    const FileEntry file = oFSO().GetFile(sPath);
    if (bMayBeHidden && !bAddHiddenFiles && file.Hidden) return {};
    std::string sID = MakeDBID(file, iType);
    WithItems(iType, [&](auto& items, auto*& current) {
        current = &items.Add(sID, {});
        current->sDBID = sID;
        current->sFormat = GetFileExt(sPath);
        Fill(*current, file, sPath);
    });
    return sID;
}

}  // namespace tavel
