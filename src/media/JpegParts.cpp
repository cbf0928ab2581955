#include "media/ByteNumbers.h"
#include "media/JpegMarkers.h"
#include "media/PictureParts.h"

#include <algorithm>
#include <utility>

namespace tavel {

using namespace std::string_view_literals;

namespace {

// Markers by the numbers of the JPEG standard.
constexpr unsigned char jfifSegment = 0xE0;
constexpr unsigned char adobeSegment = 0xEE;

// Baseline, extended and progressive, the latter two in arithmetic coding as well.
bool IsFrame(unsigned char marker) {
    return "\xC0\xC1\xC2\xC9\xCA"sv.find(static_cast<char>(marker)) != std::string_view::npos;
}

// Huffman and arithmetic tables, quantization tables, the restart interval.
bool IsTable(unsigned char marker) {
    return "\xC4\xCC\xDB\xDD"sv.find(static_cast<char>(marker)) != std::string_view::npos;
}

std::int64_t Number(std::string_view bytes) {
    return static_cast<std::int64_t>(BigEndianNumber(bytes));
}

class JpegCopy {
  public:
    explicit JpegCopy(std::string_view file) : m_markers(file) { m_kept.reserve(file.size()); }

    std::string Parts() {
        while (m_isSound && m_markers.Next()) Take(m_markers.Marker(), m_markers.Segment());
        const bool isPicture =
            m_isSound && m_markers.IsSound() && m_scans > 0 && IsAffordableFrame();
        return isPicture ? std::move(m_kept += "\xFF\xD9") : std::string();
    }

  private:
    // Copies a segment if it is needed.
    void Take(unsigned char marker, std::string_view segment) {
        if (IsTable(marker)) {
            Keep(segment);
        } else if (IsFrame(marker)) {
            TakeFrame(segment);
        } else if (marker == jpeg::StartOfScan) {
            TakeScan(segment);
        } else if (marker == jfifSegment && segment.size() >= 16) {
            TakeJfif(segment);
        } else if (marker == adobeSegment && segment.size() >= 14) {
            TakeAdobe(segment);
        }
    }

    void Keep(std::string_view segment) {
        m_kept += {'\xFF', static_cast<char>(m_markers.Marker())};
        m_kept += segment;
    }

    void TakeFrame(std::string_view segment) {
        if (!m_frame.empty() || segment.size() < 8) m_isSound = false;
        m_frame = segment;
        m_isProgressive = m_markers.Marker() == jpeg::ProgressiveFrame ||
                          m_markers.Marker() == jpeg::ProgressiveArithmeticFrame;
        Keep(segment);
    }

    void TakeScan(std::string_view segment) {
        if (m_frame.empty()) m_isSound = false;
        ++m_scans;
        Keep(segment);
        m_kept += m_markers.TakeData();
    }

    // These two tell which colours the components are; the thumbnail and the resolution that one
    // has room for are not needed.
    void TakeJfif(std::string_view segment) {
        if (segment.substr(2, 5) != "JFIF\0"sv) return;
        m_kept += "\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0"sv;
    }
    void TakeAdobe(std::string_view segment) {
        if (segment.substr(2, 5) != "Adobe") return;
        m_kept +=
            "\xFF\xEE\0\x0E"
            "Adobe\0\x64\0\0\0\0"sv;
        m_kept += segment[13];
    }

    bool IsAffordableFrame() const;

    JpegMarkers m_markers;
    bool m_isSound = true;
    std::string m_kept = "\xFF\xD8";
    std::string_view m_frame;
    bool m_isProgressive = false;
    std::int64_t m_scans = 0;
};

// Whether the samples, and the coefficients of all components where they come in several scans,
// have room, and whether the scans go over the picture no more often than time allows: a few
// kilobytes can hold thousands.
bool JpegCopy::IsAffordableFrame() const {
    const std::int64_t height = Number(m_frame.substr(3, 2));
    const std::int64_t width = Number(m_frame.substr(5, 2));
    const std::string_view components = m_frame.substr(8);
    if (components.size() != 3 * BigEndianNumber(m_frame.substr(7, 1)) || components.empty())
        return false;
    std::int64_t samples = 0;
    std::int64_t across = 1;
    std::int64_t down = 1;
    for (std::size_t i = 1; i < components.size(); i += 3) {
        const std::int64_t sampling = Number(components.substr(i, 1));
        samples += (sampling >> 4) * (sampling & 15);
        across = std::max(across, sampling >> 4);
        down = std::max(down, sampling & 15);
    }
    const bool isWhole = m_isProgressive || m_scans > 1;
    const std::int64_t bits = 8 * Number(m_frame.substr(7, 1));
    constexpr std::int64_t coefficient = 16;
    constexpr std::int64_t mostDecoded = 2'000'000'000;
    return IsAffordable(width, height,
                        isWhole ? bits + coefficient * samples / (across * down) : bits) &&
           m_scans <= mostDecoded / (width * height);
}

}  // namespace

std::string JpegParts(std::string_view file) { return JpegCopy(file).Parts(); }

}  // namespace tavel
