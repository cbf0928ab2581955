#pragma once

#include "library/Records.h"
#include "platform/Collection.h"

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

// Look-ups that need not know the class. Each fails with 5 when no record has the id.
Item& ItemOf(MediaType itemType, std::string_view sID);     // 0, 3 or 5
Group& GroupOf(MediaType groupType, std::string_view sID);  // 1, 2, 4 or 8
Record& RecordOf(MediaType type, std::string_view sID);

// Takes a record out of its collection, and lets go of a working reference to it. Fails with 5
// when no record has the id.
void RemoveRecord(MediaType type, std::string_view sID);

bool IsItemType(Integer iType);   // 0, 3, 5
bool IsGroupType(Integer iType);  // 1, 2, 4, 8

}  // namespace tavel
