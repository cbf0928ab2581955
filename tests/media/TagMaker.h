#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Tags byte by byte, so that a test can lie about any of it.
namespace tavel::test {

inline std::string BigEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
        text += static_cast<char>(value >> shift & 0xFF);
    }
    return text;
}

inline std::string Frame2(std::string_view id, std::string_view body) {
    return std::string(id) + BigEndian(static_cast<std::uint32_t>(body.size()), 3) +
           std::string(body);
}

// Of versions 3 and 4, under any size.
inline std::string Frame3(std::string_view id, std::string_view body, std::uint32_t size) {
    return std::string(id) + BigEndian(size, 4) + std::string(2, '\0') + std::string(body);
}

inline std::string Frame3(std::string_view id, std::string_view body) {
    return Frame3(id, body, static_cast<std::uint32_t>(body.size()));
}

// A header with any size and what follows it.
inline std::string TagOfSize(int version, std::uint32_t size, std::string_view frames) {
    return std::string("ID3") + static_cast<char>(version) + std::string(2, '\0') +
           BigEndian(size, 4) + std::string(frames);
}

// A tag with so much padding behind its frames that every one of them is read.
inline std::string Tag(int version, const std::string& frames) {
    const std::string padded = frames + std::string(1024, '\0');
    return TagOfSize(version, static_cast<std::uint32_t>(padded.size()), padded);
}

}  // namespace tavel::test
