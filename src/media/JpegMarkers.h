#pragma once

#include <cstddef>
#include <string_view>

namespace tavel {

// Markers by the numbers of the JPEG standard.
namespace jpeg {
inline constexpr unsigned char ProgressiveFrame = 0xC2;
inline constexpr unsigned char ProgressiveArithmeticFrame = 0xCA;
inline constexpr unsigned char StartOfImage = 0xD8;
inline constexpr unsigned char EndOfImage = 0xD9;
inline constexpr unsigned char StartOfScan = 0xDA;
}  // namespace jpeg

// Goes over the segments of a JPEG as decoders do, past whatever lies between them. The picture
// must outlive it; its first two bytes are taken for the start of an image.
class JpegMarkers {
  public:
    explicit JpegMarkers(std::string_view picture) : m_picture(picture) {}

    // Moves on to the next segment. False at the end of the picture, and where a segment is not
    // whole or a second image begins: then it is no longer sound.
    bool Next();

    unsigned char Marker() const { return m_marker; }
    std::string_view Segment() const { return m_segment; }  // from its length on

    // Behind the head of a scan: the data of the scan, and moves behind it.
    std::string_view TakeData();

    bool IsSound() const { return m_isSound; }

  private:
    bool FindMarker();

    std::string_view m_picture;
    std::size_t m_at = 2;
    unsigned char m_marker = 0;
    std::string_view m_segment;
    bool m_isSound = true;
};

}  // namespace tavel
