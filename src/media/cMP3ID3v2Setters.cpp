#include "media/cMP3ID3v2.h"
#include "platform/Failure.h"

// The setters: each property has its frame, and what stands in front of the text there.

namespace tavel {

using namespace std::string_view_literals;

void cMP3ID3v2::ArtistURL(const std::string& value) { SetText(m_sArtistURL, value, "WOAR"); }
void cMP3ID3v2::BuyURL(const std::string& value) { SetText(m_sBuyURL, value, "WCOM"); }
void cMP3ID3v2::AudioURL(const std::string& value) { SetText(m_sAudioURL, value, "WOAF"); }
void cMP3ID3v2::Copyright(const std::string& value) { SetText(m_sCopyright, value, "TCOP"); }
void cMP3ID3v2::Composer(const std::string& value) { SetText(m_sComposer, value, "TCOM"); }
void cMP3ID3v2::OriginalArtist(const std::string& value) {
    SetText(m_sOriginalArtist, value, "TOPE");
}
void cMP3ID3v2::LinkTo(const std::string& value) { SetText(m_sLinkTo, value, "WXXX", "\0"sv); }
void cMP3ID3v2::PlayCounter(const std::string& value) { SetText(m_sPlayCounter, value, "PCNT"); }
void cMP3ID3v2::EncodedBy(const std::string& value) { SetText(m_sEncodedBy, value, "TENC"); }
void cMP3ID3v2::Title(const std::string& value) { SetText(m_sTitle, value, "TIT2"); }
void cMP3ID3v2::Artist(const std::string& value) { SetText(m_sArtist, value, "TPE1"); }
void cMP3ID3v2::Album(const std::string& value) { SetText(m_sAlbum, value, "TALB"); }
void cMP3ID3v2::Year(const std::string& value) { SetText(m_sYear, value, "TYER"); }
void cMP3ID3v2::Comment(const std::string& value) {
    SetText(m_sComment, value, "COMM", "\0nt\0"sv);
}
void cMP3ID3v2::Lyrics(const std::string& value) { SetText(m_sLyrics, value, "USLT", "\0"sv); }

void cMP3ID3v2::Genre(unsigned char value) {
    m_bGenre = value;
    SetGenreFrame();
}

void cMP3ID3v2::OtherGenreName(const std::string& value) {
    m_sOtherGenreName = value;
    SetGenreFrame();
}

void cMP3ID3v2::Track(const std::string& value) { SetText(m_sTrack, value, "TRCK"); }

void cMP3ID3v2::SetText(std::string& field, const std::string& value, const char* id,
                        std::string_view before) {
    field = value;
    SetFrame(id, std::string(before) + field);
}

void cMP3ID3v2::SetGenreFrame() {
    SetFrame("TCON", "(" + std::to_string(m_bGenre) + ")" + m_sOtherGenreName);
}

// A frame that is not there need not be removed.
void cMP3ID3v2::SetFrame(const std::string& id, const std::string& text) {
    try {
        RemoveFrame(id);
    } catch (const Failure&) {
    }
    AddTag(id, text);
}

}  // namespace tavel
