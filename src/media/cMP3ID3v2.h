#pragma once

#include "media/FrameList.h"
#include "platform/FileService.h"
#include "platform/Numbers.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The ID3v2 tag of one MP3 file. Assigning MP3File reads the whole tag at once; from then on the
// object answers from memory and no file stays open.
//
// Texts hold one character per byte of the file, with the NUL bytes taken out: a text's encoding
// byte is gone when it is 0 and stays as the leading character when it is not, and so does a byte
// order mark. What a tag lies about, and whatever is cut off or not a tag at all, gives fewer
// frames. A tag that begins beyond 2 GiB is the one that fails.
class cMP3ID3v2 {
  public:
    static constexpr unsigned char NoGenre = 255;

    // Loads the tag of a file; what an earlier one left is dropped, but for the lyrics. A file that
    // cannot be opened fails with the file service's number and the source "Tavel.cMP3ID3v1", and
    // leaves an empty tag. A file that goes away while it is read fails with 57 and leaves what was
    // read until then. A tag that begins beyond 2 GiB fails with 6 and leaves an empty tag. An
    // empty file fails with 5, under the program's name alone, and stays open until the next load
    // or the end of the object.
    void MP3File(const std::string& sPath);
    const std::string& MP3File() const { return m_sMP3File; }

    bool HasID3v2Tag() const { return m_lTagPos >= 1; }  // of a version that is not read, too
    unsigned char ID3v2TagVersion() const { return m_bVersion; }  // 0 without a tag
    unsigned char TagVersion() const { return m_bVersion; }

    // Distinct frame ids, in the order in which they came first. Both fail with 91 before the first
    // load, and Frame with 9 outside 1 to FrameCount.
    Long FrameCount() const { return Frames().FrameCount(); }
    std::string Frame(Long index) const;

    // The number of instances of a frame, by id or by position in the list of counts, where an id
    // goes to the end with each further instance. 0 when there is no such frame.
    Long TagsInFrame(std::string_view id) const {
        return m_isLoaded ? Frames().TagsInFrame(id) : 0;
    }
    Long TagsInFrame(Long position) const {
        return m_isLoaded ? Frames().TagsInFrame(position) : 0;
    }

    const std::string& ArtistURL() const { return m_sArtistURL; }
    const std::string& BuyURL() const { return m_sBuyURL; }
    const std::string& AudioURL() const { return m_sAudioURL; }
    const std::string& Copyright() const { return m_sCopyright; }
    const std::string& Composer() const { return m_sComposer; }
    const std::string& OriginalArtist() const { return m_sOriginalArtist; }
    const std::string& LinkTo() const { return m_sLinkTo; }
    const std::string& PlayCounter() const { return m_sPlayCounter; }
    const std::string& EncodedBy() const { return m_sEncodedBy; }
    const std::string& Title() const { return m_sTitle; }
    const std::string& Artist() const { return m_sArtist; }
    const std::string& Album() const { return m_sAlbum; }
    const std::string& Year() const { return m_sYear; }
    const std::string& Comment() const { return m_sComment; }  // all of them, each on its own line
    const std::string& Lyrics() const { return m_sLyrics; }
    const std::string& OtherGenreName() const { return m_sOtherGenreName; }
    const std::string& Track() const { return m_sTrack; }
    unsigned char Genre() const { return m_bGenre; }  // NoGenre when the file tells none

    // The name of a numbered genre; empty for a number without a name.
    static std::string_view GenreName(unsigned char number);

  private:
    struct FrameField;
    static const FrameField frameFields[];

    const FrameList& Frames() const;  // fails with 91 before the first load

    void LoadTag();
    void ResetFields();
    void ReadTag(RawFile& file);
    void StoreFrame(TagFrame frame);
    void StoreComment(const std::string& text);

    std::string m_sMP3File;
    std::unique_ptr<RawFile> m_emptyFile;
    Long m_lTagPos = 0;  // position, from 1, of the byte behind "ID3"; 0 without a tag
    unsigned char m_bVersion = 0;
    std::string m_sTitle;
    std::string m_sArtist;
    std::string m_sAlbum;
    std::string m_sYear;
    std::string m_sComment;
    unsigned char m_bGenre = NoGenre;
    std::string m_sTrack;
    std::string m_sPlayCounter;
    std::string m_sEncodedBy;
    std::string m_sOtherGenreName;
    std::string m_sLinkTo;
    std::string m_sOriginalArtist;
    std::string m_sComposer;
    std::string m_sCopyright;
    std::string m_sAudioURL;
    std::string m_sBuyURL;
    std::string m_sArtistURL;
    std::string m_sLyrics;

    // What a load read becomes the frame list when that is first asked for: who goes through a
    // folder of music asks for three texts of each file and no more.
    bool m_isLoaded = false;
    mutable std::vector<TagFrame> m_framesRead;
    mutable std::optional<FrameList> m_frames;
};

}  // namespace tavel
