#include "library/Folders.h"

#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "platform/Activity.h"
#include "platform/Failure.h"

namespace tavel {

namespace {

// Each below the root; a folder comes before those in it.
constexpr const char* LibraryFolders[] = {
    "\\Photos", "\\Photos\\Magazines", "\\Photos\\PhotoAlbums", "\\Music", "\\Music\\Playlists",
    "\\Videos", "\\Videos\\VidSeries", "\\Videos\\Thumbnails"};

void CreateIfMissing(const std::string& sFolder) {
    if (!oFSO().FolderExists(sFolder)) oFSO().CreateFolder(sFolder);
}

void MoveItem(Item& item, const std::string& sTarget) {
    const std::string sSource = item.sPath();
    const Doing moving("Moving", sSource, "to", sTarget);
    if (IsPathTooLong(sTarget)) Fail(failure::PathNotFound);
    oFSO().MoveFile(sSource, sTarget);
    item.sPath(sTarget);
}

void MovePhoto(Photo& photo) {
    MoveItem(photo, sDefaultDBPath + "\\Photos\\" + photo.sName + "." + GetFileExt(photo.sPath()));
}

void MoveMagazine(const Magazine& magazine) {
    const std::string sFolder = sDefaultDBPath + "\\Photos\\Magazines\\" + magazine.sName + "\\";
    CreateIfMissing(sFolder);
    for (Integer i = 0; i < magazine.iPages; ++i) {
        Photo& photo = colPhoto.Item(magazine.Members().Get(i));
        MoveItem(photo, sFolder + GetFileName(photo.sPath()));
    }
}

// Videos and tracks are named after their whole path. The target has a second drive in its middle,
// so the file service refuses it: such files stay where they lie.
void MoveByWholePath(Item& item, const std::string& sFolder) {
    MoveItem(item, sFolder + StripExt(item.sPath()) + "." + GetFileExt(item.sPath()));
}

// A series has no pages to move; only its folder is made.
[[noreturn]] void MakeFolderOnly(const std::string& sFolder) {
    CreateIfMissing(sFolder);
    Fail(failure::NoSuchMember);
}

}  // namespace

bool MakeDBFolders(const std::string& sRoot) {
    try {
        CreateIfMissing(sRoot);
        for (const char* sFolder : LibraryFolders) CreateIfMissing(sRoot + sFolder);
    } catch (const Failure&) {
        return false;
    }
    sDefaultDBPath = sRoot;
    return true;
}

void MoveToDBFolder(std::string_view sID) {
    switch (GetDBIDType(sID)) {
        case mtPhoto:
            return MovePhoto(colPhoto.Item(sID));
        case mtMagazine:
            return MoveMagazine(colMagazine.Item(sID));
        case mtPhotoAlbum:
            // An album's folder is asked for under a name that the class does not have.
            colPhotoAlbum.Item(sID);
            Fail(failure::NoSuchMember);
        case mtVideo:
            return MoveByWholePath(colVideo.Item(sID), sDefaultDBPath + "\\Video\\");
        case mtVidSeries:
            MakeFolderOnly(sDefaultDBPath + "\\Videos\\VidSeries\\" + colVidSeries.Item(sID).sName +
                           "\\");
        case mtMusic:
            return MoveByWholePath(colMusic.Item(sID), sDefaultDBPath + "\\Music\\");
        case mtPlaylist:
            // The name is looked for among the magazines, where no playlist is.
            MakeFolderOnly(sDefaultDBPath + "\\Music\\Playlists\\" + colMagazine.Item(sID).sName +
                           "\\");
        default:
            return;
    }
}

}  // namespace tavel
