#include "media/cMP3ID3v2.h"

#include "core/PublicStuff.h"
#include "media/Genres.h"
#include "platform/Failure.h"

#include <utility>

namespace tavel {

namespace {

// The label of the class that read tags before this one: what is reported about a file that does
// not open still goes by it.
constexpr std::string_view openLabel = ".cMP3ID3v1";

std::unique_ptr<RawFile> OpenForReading(const std::string& path) {
    Long error = 0;
    auto file = oFSO().OpenRaw(path, RawMode::Read, error);
    if (file) return file;
    const Failure cause(error);
    throw Failure(cause.Number(), cause.Description(), cause.Source() + std::string(openLabel));
}

}  // namespace

struct cMP3ID3v2::FrameField {
    std::string_view Id;
    std::string cMP3ID3v2::*Field;
};

const cMP3ID3v2::FrameField cMP3ID3v2::frameFields[] = {
    {"TIT2", &cMP3ID3v2::m_sTitle},     {"TPE1", &cMP3ID3v2::m_sArtist},
    {"TALB", &cMP3ID3v2::m_sAlbum},     {"TYER", &cMP3ID3v2::m_sYear},
    {"TRCK", &cMP3ID3v2::m_sTrack},     {"PCNT", &cMP3ID3v2::m_sPlayCounter},
    {"TENC", &cMP3ID3v2::m_sEncodedBy}, {"WXXX", &cMP3ID3v2::m_sLinkTo},
    {"TCOP", &cMP3ID3v2::m_sCopyright}, {"TOPE", &cMP3ID3v2::m_sOriginalArtist},
    {"TCOM", &cMP3ID3v2::m_sComposer},  {"WOAF", &cMP3ID3v2::m_sAudioURL},
    {"WOAR", &cMP3ID3v2::m_sArtistURL}, {"WCOM", &cMP3ID3v2::m_sBuyURL},
    {"USLT", &cMP3ID3v2::m_sLyrics},
};

void cMP3ID3v2::MP3File(const std::string& sPath) {
    m_sMP3File = sPath;
    LoadTag();
}

std::string_view cMP3ID3v2::GenreName(unsigned char number) { return GenreNameOf(number); }

const FrameList& cMP3ID3v2::Frames() const {
    if (!m_isLoaded) Fail(failure::ObjectNotSet);
    if (!m_frames) m_frames.emplace(std::exchange(m_framesRead, {}));
    return *m_frames;
}

void cMP3ID3v2::LoadTag() {
    m_isLoaded = true;
    m_framesRead.clear();
    m_frames.reset();
    ResetFields();
    const auto file = OpenForReading(m_sMP3File);
    FileBytes bytes(*file);
    const std::int64_t tagPos = FindTag(bytes);
    if (tagPos == 0) return;

    m_lTagPos = ToLong(tagPos);
    bytes.Seek(tagPos - 1);
    TagContents tag = ReadFrames(bytes);
    m_bVersion = tag.Version;
    for (const TagFrame& frame : tag.Frames) StoreFrame(frame.Id, frame.Text);
    m_framesRead = std::move(tag.Frames);
}

// The lyrics stay: whoever goes through an album with one object keeps them until a file brings its
// own.
void cMP3ID3v2::ResetFields() {
    m_lTagPos = 0;
    m_bVersion = 0;
    m_bGenre = NoGenre;
    m_sComment.clear();
    m_sOtherGenreName.clear();
    for (const auto& [id, field] : frameFields) {
        if (field != &cMP3ID3v2::m_sLyrics) (this->*field).clear();
    }
}

void cMP3ID3v2::StoreFrame(std::string_view id, const std::string& text) {
    if (id == "COMM") {
        StoreComment(text);
    } else if (id == "TCON") {
        ReadGenreText(text, m_bGenre, m_sOtherGenreName);
    } else {
        for (const auto& [fieldId, field] : frameFields) {
            if (fieldId == id) this->*field = text;
        }
    }
}

void cMP3ID3v2::StoreComment(const std::string& text) {
    using namespace std::string_view_literals;
    if (!m_sComment.empty()) m_sComment += "\0\r\n"sv;
    m_sComment += text;
}

}  // namespace tavel
