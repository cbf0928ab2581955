#pragma once

#include "library/TextArray.h"
#include "platform/Numbers.h"

#include <array>
#include <string>
#include <utility>

namespace tavel {

// What a library entry is. The numbers stand in db.txt; 6 and 7 are unused.
enum MediaType : Integer {
    mtPhoto = 0,
    mtMagazine = 1,
    mtPhotoAlbum = 2,
    mtVideo = 3,
    mtVidSeries = 4,
    mtMusic = 5,
    mtPlaylist = 8,
};

inline constexpr std::array MediaTypes{mtPhoto,     mtMagazine, mtPhotoAlbum, mtVideo,
                                       mtVidSeries, mtMusic,    mtPlaylist};

bool IsItemType(Integer iType);   // 0, 3, 5
bool IsGroupType(Integer iType);  // 1, 2, 4, 8

// What all seven classes have.
struct Record {
    std::string sName;
    std::string sDBID;
    Long iSize = 0;  // bytes; a group's is never assigned
};

// What the three items have: one file on disk, and the ids of the groups that hold it.
class Item : public Record {
  public:
    std::string sFormat;  // lower-case extension
    Integer iNoGroups = 0;

    // A path changes here alone, since the look for paths keeps an index of them.
    const std::string& sPath() const { return m_sPath; }
    void sPath(std::string sPath);

    TextArray& Groups() { return m_groups; }
    const TextArray& Groups() const { return m_groups; }

    const std::string& Get_sGroups(Integer i) const { return m_groups.Get(i); }
    void Set_sGroups(Integer i, std::string s) { m_groups.Set(i, std::move(s)); }
    void Redim_sGroups(Integer iUpper, bool bKeep) { m_groups.Redim(iUpper, bKeep); }

  private:
    std::string m_sPath;
    TextArray m_groups;
};

class Photo : public Item {
  public:
    Integer iSizeW = 0;  // pixels
    Integer iSizeH = 0;
};

class Video : public Item {
  public:
    std::string sThumbPath;  // empty until a thumbnail is assigned
};

class Music : public Item {
  public:
    std::string sArtist;
    std::string sAlbum;
};

// What the four groups have: the ids of their members, in order, and how many they are. Each class
// has names of its own for both.
class Group : public Record {
  public:
    virtual ~Group() = default;
    Group() = default;
    Group(const Group&) = default;
    Group(Group&&) = default;
    Group& operator=(const Group&) = default;
    Group& operator=(Group&&) = default;

    virtual Integer Count() const = 0;
    virtual void SetCount(Integer iCount) = 0;

    TextArray& Members() { return m_members; }
    const TextArray& Members() const { return m_members; }

  private:
    TextArray m_members;
};

// Magazines and photo albums: groups of photos, which are their pages.
class PagedGroup : public Group {
  public:
    Integer iPages = 0;

    Integer Count() const override { return iPages; }
    void SetCount(Integer iCount) override { iPages = iCount; }
    const std::string& Get_sPageID(Integer i) const { return Members().Get(i); }
    void Set_sPageID(Integer i, std::string s) { Members().Set(i, std::move(s)); }
    void Redim_sPageID(Integer iUpper, bool bKeep) { Members().Redim(iUpper, bKeep); }
};

class Magazine : public PagedGroup {};

class PhotoAlbum : public PagedGroup {};

// Keeps its count as text: reading it before the first assignment fails with 13.
class VidSeries : public Group {
  public:
    Integer iEpisodes() const { return TextToInteger(m_episodes); }
    void iEpisodes(Integer iCount) { m_episodes = std::to_string(iCount); }

    Integer Count() const override { return iEpisodes(); }
    void SetCount(Integer iCount) override { iEpisodes(iCount); }
    const std::string& Get_sEpisodeID(Integer i) const { return Members().Get(i); }
    void Set_sEpisodeID(Integer i, std::string s) { Members().Set(i, std::move(s)); }
    void Redim_sEpisodeID(Integer iUpper, bool bKeep) { Members().Redim(iUpper, bKeep); }

  private:
    std::string m_episodes;
};

class Playlist : public Group {
  public:
    Integer iTracks = 0;

    Integer Count() const override { return iTracks; }
    void SetCount(Integer iCount) override { iTracks = iCount; }
    const std::string& Get_sTrackID(Integer i) const { return Members().Get(i); }
    void Set_sTrackID(Integer i, std::string s) { Members().Set(i, std::move(s)); }
    void Redim_sTrackID(Integer iUpper, bool bKeep) { Members().Redim(iUpper, bKeep); }
};

}  // namespace tavel
