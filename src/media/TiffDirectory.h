#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

using TiffNumbers = std::vector<std::uint32_t>;

// The first directory of a TIFF file, as far as its entries are whole. The file must outlive it.
class TiffDirectory {
  public:
    explicit TiffDirectory(std::string_view file);

    bool Has(std::uint16_t tag) const { return m_entries.contains(tag); }

    // The 16-bit or 32-bit numbers of an entry. None when there is no such entry, when it is of
    // another type, and when it has other than `count` numbers.
    TiffNumbers Numbers(std::uint16_t tag, std::size_t count) const;

    // The one number of an entry; `missing` when there is no such entry.
    std::int64_t Number(std::uint16_t tag, std::int64_t missing) const;

    // The bytes of an entry of untyped bytes; empty when there is none.
    std::string_view Bytes(std::uint16_t tag) const;

  private:
    std::string_view Value(std::string_view entry, std::size_t size) const;

    std::string_view m_file;
    std::uint64_t (*m_number)(std::string_view);  // in the file's byte order
    std::map<std::uint16_t, std::string_view> m_entries;
};

// Collects the entries of a directory that takes the place of the first one.
class TiffDirectoryWriter {
  public:
    void PutShorts(std::uint16_t tag, const TiffNumbers& numbers);
    void PutLongs(std::uint16_t tag, const TiffNumbers& numbers);
    void PutBytes(std::uint16_t tag, std::string_view bytes);

    // Appends the directory to the file and makes it the only one.
    void Replace(std::string& file) const;

  private:
    struct Entry {
        std::uint16_t Type;
        std::size_t NumberSize;
        TiffNumbers Numbers;
    };
    std::map<std::uint16_t, Entry> m_entries;  // by tag, as they have to stand
};

}  // namespace tavel
