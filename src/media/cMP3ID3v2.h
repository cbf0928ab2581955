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
// object answers from memory and no file stays open. What is set changes the object alone until
// Update writes it.
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
    // leaves an empty tag. A file that goes away while it is read fails with the number that it
    // then tells, 57 for one, and leaves what was read until then. A tag that begins beyond 2 GiB
    // fails with 6 and leaves an empty tag. An empty file fails with 5, under the program's name
    // alone, and stays open until the next load or the end of the object.
    void MP3File(const std::string& sPath);
    const std::string& MP3File() const { return m_sMP3File; }

    bool HasID3v2Tag() const { return m_lTagPos >= 1; }  // of a version that is not read, too
    unsigned char ID3v2TagVersion() const { return m_bVersion; }  // 0 without a tag
    unsigned char TagVersion() const { return m_bVersion; }

    // Distinct frame ids, in the order in which they came first. Frame fails with 9 outside 1 to
    // FrameCount. These and all that changes the list of frames, the setters included, fail with 91
    // before the first load; all of it has the source "Tavel.cMP3ID3v2".
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

    // Removes a frame with all its instances; fails with 5 when there is none of the id or it has
    // lost its count, with 9 outside 1 to FrameCount or where there are fewer counts. By position,
    // the count that goes is the one at that position among the counts, which may be another
    // frame's: that one is then not written, nor removed by its id.
    void RemoveFrame(const std::string& id);
    void RemoveFrame(Long position);

    // Adds an instance of a frame. Only the first one gets the text: a further one has the id as
    // its text. An id of fewer than four characters keeps Update from writing; of a longer one the
    // first four are written.
    void AddTag(const std::string& id, const std::string& text);

    // Removes an instance, numbered from 1, and with the last one the frame; fails with 5 when
    // there is none. As long as others of the frame stay, they are numbered anew, and the texts of
    // all other frames are lost: Update fails until those frames are removed or set.
    void RemoveTag(const std::string& id, Long number);

    // Writes the frames as a tag of version 3 into the file, as media/TagWriter.h tells, failures
    // and what they leave included. Before the file is opened it fails with 5 at an id of fewer
    // than four characters or a frame whose texts were lost, and with 6 when a text or the whole is
    // too long for 65,535 bytes. Frames with "ID3" in their id are left out. The object stays as it
    // is: HasID3v2Tag and the versions tell of the tag that was read.
    void Update();

    // The setters below change the property, remove its frame, and add it anew at the end; an empty
    // text makes a frame, too. What is read back is the same but for this: NUL bytes are gone.
    // Comment begins with "nt". The number of a Genre lacks its last digit, and an OtherGenreName
    // of fewer than two characters comes back as the name of that number; a number of a single
    // digit is not read: Genre is then NoGenre, and OtherGenreName the whole, "(8)Rock". And as the
    // reader counts 16 bytes for a frame's header, which has 10, the last frames of a tag that
    // fills its size are not read: all are where 6 bytes a frame, less 14, fit into the room behind
    // it. Of a tag that does not begin the file there may be fewer.

    const std::string& ArtistURL() const { return m_sArtistURL; }
    void ArtistURL(const std::string& value);
    const std::string& BuyURL() const { return m_sBuyURL; }
    void BuyURL(const std::string& value);
    const std::string& AudioURL() const { return m_sAudioURL; }
    void AudioURL(const std::string& value);
    const std::string& Copyright() const { return m_sCopyright; }
    void Copyright(const std::string& value);
    const std::string& Composer() const { return m_sComposer; }
    void Composer(const std::string& value);
    const std::string& OriginalArtist() const { return m_sOriginalArtist; }
    void OriginalArtist(const std::string& value);
    const std::string& LinkTo() const { return m_sLinkTo; }
    void LinkTo(const std::string& value);
    const std::string& PlayCounter() const { return m_sPlayCounter; }
    void PlayCounter(const std::string& value);
    const std::string& EncodedBy() const { return m_sEncodedBy; }
    void EncodedBy(const std::string& value);
    const std::string& Title() const { return m_sTitle; }
    void Title(const std::string& value);
    const std::string& Artist() const { return m_sArtist; }
    void Artist(const std::string& value);
    const std::string& Album() const { return m_sAlbum; }
    void Album(const std::string& value);
    const std::string& Year() const { return m_sYear; }
    void Year(const std::string& value);
    const std::string& Comment() const { return m_sComment; }  // all of them, each on its own line
    void Comment(const std::string& value);
    const std::string& Lyrics() const { return m_sLyrics; }
    void Lyrics(const std::string& value);
    const std::string& OtherGenreName() const { return m_sOtherGenreName; }
    void OtherGenreName(const std::string& value);
    const std::string& Track() const { return m_sTrack; }
    void Track(const std::string& value);
    unsigned char Genre() const { return m_bGenre; }  // NoGenre when the file tells none
    void Genre(unsigned char value);                  // NoGenre is written as 255

    // The name of a numbered genre; empty for a number without a name.
    static std::string_view GenreName(unsigned char number);

  private:
    struct FrameField;
    static const FrameField frameFields[];

    FrameList& Frames() const;  // fails with 91 before the first load
    void SetText(std::string& field, const std::string& value, const char* id,
                 std::string_view before = {});
    void SetFrame(const std::string& id, const std::string& text);
    void SetGenreFrame();
    void WriteTag();

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
