#include "media/cMP3ID3v2.h"

#include "core/PublicStuff.h"
#include "media/Genres.h"
#include "media/TagBuffer.h"
#include "media/TagWriter.h"
#include "platform/Failure.h"

#include <utility>

namespace tavel {

namespace {

// The label of the class that read tags before this one: what is reported about a file that does
// not open still goes by it.
constexpr std::string_view openLabel = ".cMP3ID3v1";
constexpr std::string_view classLabel = ".cMP3ID3v2";

[[noreturn]] void FailUnder(std::string_view label, const Failure& cause) {
    throw Failure(cause.Number(), cause.Description(), cause.Source() + std::string(label));
}

template <class Call>
auto UnderClassLabel(Call&& call) {
    try {
        return call();
    } catch (const Failure& cause) {
        FailUnder(classLabel, cause);
    }
}

std::unique_ptr<RawFile> OpenForReading(const std::string& path) {
    Long error = 0;
    auto file = oFSO().OpenRaw(path, RawMode::Read, error);
    if (!file) FailUnder(openLabel, Failure(error));
    return file;
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

std::string cMP3ID3v2::Frame(Long index) const {
    const FrameList& frames = Frames();
    return UnderClassLabel([&] { return frames.Frame(index); });
}

FrameList& cMP3ID3v2::Frames() const {
    if (!m_isLoaded) FailUnder(classLabel, Failure(failure::ObjectNotSet));
    if (!m_frames) m_frames.emplace(std::exchange(m_framesRead, {}));
    return *m_frames;
}

void cMP3ID3v2::RemoveFrame(const std::string& id) {
    FrameList& frames = Frames();
    UnderClassLabel([&] { frames.RemoveFrame(id); });
}

void cMP3ID3v2::RemoveFrame(Long position) {
    FrameList& frames = Frames();
    UnderClassLabel([&] { frames.RemoveFrame(position); });
}

void cMP3ID3v2::AddTag(const std::string& id, const std::string& text) {
    FrameList& frames = Frames();
    UnderClassLabel([&] { frames.AddTag(id, text); });
}

void cMP3ID3v2::RemoveTag(const std::string& id, Long number) {
    FrameList& frames = Frames();
    UnderClassLabel([&] { frames.RemoveTag(id, number); });
}

void cMP3ID3v2::Update() { WriteTag(); }

void cMP3ID3v2::WriteTag() {
    const FrameList& frames = Frames();
    UnderClassLabel([&] { tavel::WriteTag(m_sMP3File, TagBuffer(frames)); });
}

void cMP3ID3v2::LoadTag() {
    m_isLoaded = true;
    m_framesRead.clear();
    m_frames.reset();
    m_emptyFile.reset();
    ResetFields();
    auto file = OpenForReading(m_sMP3File);
    if (file->Size() == 0) {
        m_emptyFile = std::move(file);
        Fail(failure::InvalidProcedureCall);
    }
    UnderClassLabel([&] { ReadTag(*file); });
}

void cMP3ID3v2::ReadTag(RawFile& file) {
    FileBytes bytes(file);
    const std::int64_t tagPos = FindTag(bytes);
    if (tagPos == 0) return;

    m_lTagPos = ToLong(tagPos);
    bytes.Seek(tagPos - 1);
    ReadFrames(bytes, m_bVersion, [this](TagFrame frame) { StoreFrame(std::move(frame)); });
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

void cMP3ID3v2::StoreFrame(TagFrame frame) {
    if (frame.Id == "COMM") {
        StoreComment(frame.Text);
    } else if (frame.Id == "TCON") {
        ReadGenreText(frame.Text, m_bGenre, m_sOtherGenreName);
    } else {
        for (const auto& [fieldId, field] : frameFields) {
            if (fieldId == frame.Id) this->*field = frame.Text;
        }
    }
    m_framesRead.push_back(std::move(frame));
}

void cMP3ID3v2::StoreComment(const std::string& text) {
    using namespace std::string_view_literals;
    if (!m_sComment.empty()) m_sComment += "\0\r\n"sv;
    m_sComment += text;
}

}  // namespace tavel
