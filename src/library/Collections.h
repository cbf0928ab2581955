#pragma once

#include "library/Records.h"
#include "platform/Collection.h"
#include "platform/Failure.h"

#include <string_view>

namespace tavel {

// The library in memory. Each record's sDBID is its key in the collection of its class.
extern Collection<Photo> colPhoto;
extern Collection<Magazine> colMagazine;
extern Collection<PhotoAlbum> colPhotoAlbum;
extern Collection<Video> colVideo;
extern Collection<VidSeries> colVidSeries;
extern Collection<Music> colMusic;
extern Collection<Playlist> colPlaylist;

// Working references: the record of each class most recently made by LoadDB, AddFile or MakeGroup.
extern Photo* curPhoto;
extern Magazine* curMagazine;
extern PhotoAlbum* curPhotoAlbum;
extern Video* curVideo;
extern VidSeries* curVidSeries;
extern Music* curMusic;
extern Playlist* curPlaylist;

// Empties the collections and drops the working references.
void ReleaseCollections();

// Hands the collection of a type and its working reference to `use`, and gives back what that
// returns. A type that is none of these fails with 5: items are 0, 3 and 5, groups 1, 2, 4 and 8.
template <class Use>
decltype(auto) WithItems(Integer iType, Use&& use) {
    switch (iType) {
        case mtPhoto:
            return use(colPhoto, curPhoto);
        case mtVideo:
            return use(colVideo, curVideo);
        case mtMusic:
            return use(colMusic, curMusic);
        default:
            Fail(failure::InvalidProcedureCall);
    }
}

template <class Use>
decltype(auto) WithGroups(Integer iType, Use&& use) {
    switch (iType) {
        case mtMagazine:
            return use(colMagazine, curMagazine);
        case mtPhotoAlbum:
            return use(colPhotoAlbum, curPhotoAlbum);
        case mtVidSeries:
            return use(colVidSeries, curVidSeries);
        case mtPlaylist:
            return use(colPlaylist, curPlaylist);
        default:
            Fail(failure::InvalidProcedureCall);
    }
}

template <class Use>
decltype(auto) WithCollection(Integer iType, Use&& use) {
    if (IsItemType(iType)) return WithItems(iType, use);
    return WithGroups(iType, use);
}

// Look-ups that need not know the class. Each fails with 5 when no record has the id.
Item& ItemOf(Integer itemType, std::string_view sID);
Group& GroupOf(Integer groupType, std::string_view sID);
Record& RecordOf(Integer iType, std::string_view sID);

// Takes a record out of its collection, and lets go of a working reference to it. Fails with 5
// when no record has the id.
void RemoveRecord(Integer iType, std::string_view sID);

}  // namespace tavel
