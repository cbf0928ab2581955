#include "media/TiffDirectory.h"

#include "media/ByteNumbers.h"

namespace tavel {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t directoryPlace = 4;  // of the first directory's offset
constexpr std::size_t entrySize = 12;

constexpr std::uint16_t shortType = 3;
constexpr std::uint16_t longType = 4;
constexpr std::uint16_t bytesType = 7;

// Appends a number in the byte order of the file.
void Append(std::string& file, std::uint64_t number, std::size_t size) {
    const bool isBigEndian = file[0] == 'M';
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t place = isBigEndian ? size - 1 - i : i;
        file += static_cast<char>(number >> 8 * place);
    }
}

}  // namespace

TiffDirectory::TiffDirectory(std::string_view file)
    : m_file(file), m_number(file.starts_with('M') ? BigEndianNumber : LittleEndianNumber) {
    if (file.size() < headerSize) return;
    const std::uint64_t start = m_number(file.substr(directoryPlace, 4));
    if (start + 2 > file.size()) return;
    std::uint64_t left = m_number(file.substr(start, 2));
    std::string_view entries = file.substr(start + 2);
    for (; left > 0 && entries.size() >= entrySize; --left) {
        const auto tag = static_cast<std::uint16_t>(m_number(entries.substr(0, 2)));
        m_entries.emplace(tag, entries.substr(0, entrySize));
        entries.remove_prefix(entrySize);
    }
}

// The value of an entry, which stands in the entry itself where it has room there. Empty when it
// would reach beyond the file.
std::string_view TiffDirectory::Value(std::string_view entry, std::size_t size) const {
    constexpr std::size_t valuePlace = 8;
    if (size <= 4) return entry.substr(valuePlace, size);
    const std::uint64_t start = m_number(entry.substr(valuePlace, 4));
    if (start > m_file.size() || size > m_file.size() - start) return {};
    return m_file.substr(start, size);
}

TiffNumbers TiffDirectory::Numbers(std::uint16_t tag, std::size_t count) const {
    const auto found = m_entries.find(tag);
    if (found == m_entries.end()) return {};
    const std::string_view entry = found->second;
    const std::uint64_t type = m_number(entry.substr(2, 2));
    if (m_number(entry.substr(4, 4)) != count || (type != shortType && type != longType)) return {};
    const std::size_t size = type == shortType ? 2 : 4;
    TiffNumbers numbers;
    std::string_view value = Value(entry, count * size);
    for (; !value.empty(); value.remove_prefix(size)) {
        numbers.push_back(static_cast<std::uint32_t>(m_number(value.substr(0, size))));
    }
    return numbers;
}

std::int64_t TiffDirectory::Number(std::uint16_t tag, std::int64_t missing) const {
    if (!Has(tag)) return missing;
    const TiffNumbers numbers = Numbers(tag, 1);
    return numbers.empty() ? -1 : numbers[0];
}

std::string_view TiffDirectory::Bytes(std::uint16_t tag) const {
    const auto found = m_entries.find(tag);
    if (found == m_entries.end()) return {};
    const std::string_view entry = found->second;
    if (m_number(entry.substr(2, 2)) != bytesType) return {};
    return Value(entry, m_number(entry.substr(4, 4)));
}

void TiffDirectoryWriter::PutShorts(std::uint16_t tag, const TiffNumbers& numbers) {
    m_entries[tag] = {shortType, 2, numbers};
}

void TiffDirectoryWriter::PutLongs(std::uint16_t tag, const TiffNumbers& numbers) {
    m_entries[tag] = {longType, 4, numbers};
}

void TiffDirectoryWriter::PutBytes(std::uint16_t tag, std::string_view bytes) {
    Entry& entry = m_entries[tag] = {bytesType, 1, {}};
    for (const char byte : bytes) entry.Numbers.push_back(static_cast<unsigned char>(byte));
}

void TiffDirectoryWriter::Replace(std::string& file) const {
    std::map<std::uint16_t, std::size_t> values;  // places of those without room in an entry
    for (const auto& [tag, entry] : m_entries) {
        if (entry.Numbers.size() * entry.NumberSize <= 4) continue;
        file.append(file.size() % 2, '\0');
        values[tag] = file.size();
        for (const std::uint32_t number : entry.Numbers) Append(file, number, entry.NumberSize);
    }
    file.append(file.size() % 2, '\0');
    std::string offset(file, 0, 1);
    Append(offset, file.size(), 4);
    file.replace(directoryPlace, 4, offset, 1, 4);
    Append(file, m_entries.size(), 2);
    for (const auto& [tag, entry] : m_entries) {
        Append(file, tag, 2);
        Append(file, entry.Type, 2);
        Append(file, entry.Numbers.size(), 4);
        const std::size_t end = file.size() + 4;
        if (values.contains(tag)) {
            Append(file, values.at(tag), 4);
        } else {
            for (const std::uint32_t number : entry.Numbers) Append(file, number, entry.NumberSize);
        }
        file.resize(end, '\0');
    }
    Append(file, 0, 4);
}

}  // namespace tavel
