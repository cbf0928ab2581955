#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavel::test {

// An entry of an archive, as a test wants it told. What isn't given is told truly.
struct ZipItem {
    std::string name = {};   // the stored bytes
    std::string bytes = {};  // of the file
    bool isDeflated = false;
    std::uint16_t method = 0;  // in place of what `isDeflated` gives
    std::uint16_t flags = 0;
    std::optional<std::uint32_t> size = {};
    std::optional<std::uint32_t> checksum = {};
    std::optional<std::uint32_t> offset = {};
    std::uint16_t time = 0x70A4;  // 14:05:08
    std::uint16_t date = 0x3575;  // 21 November 2006
    std::uint8_t system = 3;      // that the archive was made on; 3 is Unix, 19 a Mac
    std::uint32_t attributes = 0;
    std::string extra = {};  // fields behind the entry's name
};

// The bytes of an archive. It differs from those that tools make in what its items say alone.
std::string MakeZip(const std::vector<ZipItem>& items, const std::string& comment = {});

// The bytes as they are packed.
std::string Deflate(const std::string& bytes);

}  // namespace tavel::test
