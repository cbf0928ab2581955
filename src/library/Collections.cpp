#include "library/Collections.h"

#include "platform/Failure.h"

namespace tavel {

Collection<Photo> colPhoto;
Collection<Magazine> colMagazine;
Collection<PhotoAlbum> colPhotoAlbum;
Collection<Video> colVideo;
Collection<VidSeries> colVidSeries;
Collection<Music> colMusic;
Collection<Playlist> colPlaylist;

Photo* curPhoto = nullptr;
Magazine* curMagazine = nullptr;
PhotoAlbum* curPhotoAlbum = nullptr;
Video* curVideo = nullptr;
VidSeries* curVidSeries = nullptr;
Music* curMusic = nullptr;
Playlist* curPlaylist = nullptr;

namespace {

template <class T>
void Empty(Collection<T>& collection, T*& current) {
    current = nullptr;
    collection.Clear();
}

template <class T>
void Remove(Collection<T>& collection, T*& current, std::string_view sID) {
    if (&collection.Item(sID) == current) current = nullptr;
    collection.Remove(sID);
}

}  // namespace

void ReleaseCollections() {
    Empty(colPhoto, curPhoto);
    Empty(colMagazine, curMagazine);
    Empty(colPhotoAlbum, curPhotoAlbum);
    Empty(colVideo, curVideo);
    Empty(colVidSeries, curVidSeries);
    Empty(colMusic, curMusic);
    Empty(colPlaylist, curPlaylist);
}

Item& ItemOf(MediaType itemType, std::string_view sID) {
    switch (itemType) {
        case mtPhoto:
            return colPhoto.Item(sID);
        case mtVideo:
            return colVideo.Item(sID);
        case mtMusic:
            return colMusic.Item(sID);
        default:
            Fail(failure::InvalidProcedureCall);
    }
}

Group& GroupOf(MediaType groupType, std::string_view sID) {
    switch (groupType) {
        case mtMagazine:
            return colMagazine.Item(sID);
        case mtPhotoAlbum:
            return colPhotoAlbum.Item(sID);
        case mtVidSeries:
            return colVidSeries.Item(sID);
        case mtPlaylist:
            return colPlaylist.Item(sID);
        default:
            Fail(failure::InvalidProcedureCall);
    }
}

Record& RecordOf(MediaType type, std::string_view sID) {
    if (IsItemType(type)) return ItemOf(type, sID);
    return GroupOf(type, sID);
}

void RemoveRecord(MediaType type, std::string_view sID) {
    switch (type) {
        case mtPhoto:
            return Remove(colPhoto, curPhoto, sID);
        case mtMagazine:
            return Remove(colMagazine, curMagazine, sID);
        case mtPhotoAlbum:
            return Remove(colPhotoAlbum, curPhotoAlbum, sID);
        case mtVideo:
            return Remove(colVideo, curVideo, sID);
        case mtVidSeries:
            return Remove(colVidSeries, curVidSeries, sID);
        case mtMusic:
            return Remove(colMusic, curMusic, sID);
        case mtPlaylist:
            return Remove(colPlaylist, curPlaylist, sID);
    }
    Fail(failure::InvalidProcedureCall);
}

bool IsItemType(Integer iType) { return iType == mtPhoto || iType == mtVideo || iType == mtMusic; }

bool IsGroupType(Integer iType) {
    return iType == mtMagazine || iType == mtPhotoAlbum || iType == mtVidSeries ||
           iType == mtPlaylist;
}

}  // namespace tavel
