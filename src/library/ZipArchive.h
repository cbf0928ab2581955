#pragma once

#include "library/ZipBytes.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tavel {

struct ZipCloser {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

class ZipArchive;

// The unpacked bytes of an entry, block by block.
class ZipData {
  public:
    // The next bytes, good until the next call on the archive; none when all have been told. Fails
    // with 321 as soon as they are not those that the archive declares: by their checksum, by being
    // fewer or more. More than it declares are never told.
    std::span<const char> Next();

  private:
    friend class ZipArchive;
    ZipData(ZipArchive& archive, zip_file_t* file, std::uint64_t size)
        : m_archive(archive), m_file(file), m_left(size) {}

    ZipArchive& m_archive;
    std::unique_ptr<zip_file_t, ZipCloser> m_file;
    std::uint64_t m_left;  // of what is declared
};

// A zip archive as libzip reads it: entries by their number, names as they are stored. What it
// can't make sense of fails with 321, a file that can't be read as the file service does.
class ZipArchive {
  public:
    explicit ZipArchive(const std::string& sPath);

    std::uint64_t Count() const;
    std::string StoredName(std::uint64_t number) const;
    bool IsLink(std::uint64_t number) const;
    std::int64_t Time(std::uint64_t number) const;  // seconds from 1970 on (UTC)
    // Null when the entry is encrypted or packed by a method that libzip doesn't know. It must be
    // let go of before the archive.
    std::unique_ptr<ZipData> Data(std::uint64_t number);

  private:
    friend class ZipData;
    zip_stat_t StatusOf(std::uint64_t number) const;
    [[noreturn]] void FailFor(int error) const;

    ZipBytes m_bytes;
    std::unique_ptr<zip_t, ZipCloser> m_zip;
    std::vector<char> m_block;
};

}  // namespace tavel
