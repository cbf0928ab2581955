#include "media/JpegMarkers.h"

#include "media/ByteNumbers.h"

namespace tavel {

namespace {

bool IsRestart(unsigned char marker) { return (marker & 0xF8) == 0xD0; }

bool HasSegment(unsigned char marker) { return marker > 1 && !IsRestart(marker); }

// The end of a scan's data: the next marker that does not belong to it.
std::size_t EndOfData(std::string_view picture, std::size_t at) {
    for (;;) {
        const std::size_t mark = picture.find('\xFF', at);
        const std::size_t code = picture.find_first_not_of('\xFF', mark);
        if (mark == std::string_view::npos || code == std::string_view::npos) return picture.size();
        const auto marker = static_cast<unsigned char>(picture[code]);
        if (marker != 0 && !IsRestart(marker)) return mark;
        at = code + 1;
    }
}

}  // namespace

bool JpegMarkers::Next() {
    do {
        if (!FindMarker()) return false;
    } while (!HasSegment(m_marker));
    const std::uint64_t size = BigEndianNumber(m_picture.substr(m_at, 2));
    m_segment = m_picture.substr(m_at, size);
    m_isSound = m_marker != jpeg::StartOfImage && size >= 2 && m_segment.size() == size;
    m_at += m_segment.size();
    return m_isSound;
}

std::string_view JpegMarkers::TakeData() {
    const std::size_t start = m_at;
    m_at = EndOfData(m_picture, m_at);
    return m_picture.substr(start, m_at - start);
}

// Moves behind the next marker. False at the picture's end.
bool JpegMarkers::FindMarker() {
    const std::size_t mark = m_picture.find('\xFF', m_at);
    const std::size_t code = m_picture.find_first_not_of('\xFF', mark);
    if (mark == std::string_view::npos || code == std::string_view::npos) return false;
    m_marker = static_cast<unsigned char>(m_picture[code]);
    m_at = code + 1;
    return m_marker != jpeg::EndOfImage;
}

}  // namespace tavel
