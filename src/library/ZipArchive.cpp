#include "library/ZipArchive.h"

#include "core/PublicStuff.h"
#include "platform/Failure.h"

#include <algorithm>
#include <new>

namespace tavel {

namespace {

constexpr std::size_t blockBytes = std::size_t{1024} * 1024;

std::unique_ptr<RawFile> OpenOrFail(const std::string& sPath) {
    Long error = 0;
    std::unique_ptr<RawFile> file = oFSO().OpenRaw(sPath, RawMode::Read, error);
    if (!file) Fail(error);
    return file;
}

bool IsRefusal(int error) {
    return error == ZIP_ER_NOPASSWD || error == ZIP_ER_ENCRNOTSUPP || error == ZIP_ER_COMPNOTSUPP;
}

}  // namespace

ZipArchive::ZipArchive(const std::string& sPath) : m_bytes(OpenOrFail(sPath)) {
    int error = 0;
    m_zip.reset(m_bytes.Open(error));
    if (!m_zip) FailFor(error);
}

void ZipArchive::FailFor(int error) const {
    if (m_bytes.Error() != 0) Fail(m_bytes.Error());
    if (error == ZIP_ER_MEMORY) throw std::bad_alloc();
    Fail(failure::InvalidFileFormat);
}

std::uint64_t ZipArchive::Count() const {
    return static_cast<std::uint64_t>(zip_get_num_entries(m_zip.get(), 0));
}

zip_stat_t ZipArchive::StatusOf(std::uint64_t number) const {
    zip_stat_t status;
    if (zip_stat_index(m_zip.get(), number, ZIP_FL_ENC_RAW, &status) != 0)
        FailFor(zip_error_code_zip(zip_get_error(m_zip.get())));
    return status;
}

std::string ZipArchive::StoredName(std::uint64_t number) const { return StatusOf(number).name; }

// The mode of a Unix file stands in the upper half of what the archive's maker keeps for itself,
// and nothing else that looks like a link's does.
bool ZipArchive::IsLink(std::uint64_t number) const {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    zip_file_get_external_attributes(m_zip.get(), number, 0, &system, &attributes);
    // The mode that makers on Unix put there, by their numbers on every host.
    constexpr zip_uint32_t kind = 0170000;
    constexpr zip_uint32_t link = 0120000;
    return ((attributes >> 16) & kind) == link;
}

// The common date has no time zone and counts in steps of two seconds. Many makers put the exact
// one beside it: a byte of flags and four bytes of seconds.
std::int64_t ZipArchive::Time(std::uint64_t number) const {
    constexpr zip_uint16_t exactTime = 0x5455;
    zip_uint16_t length = 0;
    const zip_uint8_t* field =
        zip_file_extra_field_get_by_id(m_zip.get(), number, exactTime, 0, &length, ZIP_FL_CENTRAL);
    if (field == nullptr || length < 5 || (field[0] & 1) == 0) return StatusOf(number).mtime;
    return static_cast<std::int32_t>(field[1] | field[2] << 8 | field[3] << 16 |
                                     std::uint32_t{field[4]} << 24);
}

std::unique_ptr<ZipData> ZipArchive::Data(std::uint64_t number) {
    zip_file_t* file = zip_fopen_index(m_zip.get(), number, 0);
    if (file != nullptr)
        return std::unique_ptr<ZipData>(new ZipData(*this, file, StatusOf(number).size));
    const int error = zip_error_code_zip(zip_get_error(m_zip.get()));
    if (!IsRefusal(error)) FailFor(error);
    return nullptr;
}

std::span<const char> ZipData::Next() {
    std::vector<char>& block = m_archive.m_block;
    block.resize(blockBytes);
    // One byte beyond the last is asked for: libzip has compared the checksum when it has none.
    const auto wanted = std::clamp<std::uint64_t>(m_left, 1, block.size());
    const zip_int64_t count = zip_fread(m_file.get(), block.data(), wanted);
    if (count < 0) m_archive.FailFor(zip_error_code_zip(zip_file_get_error(m_file.get())));
    if ((count == 0) != (m_left == 0)) Fail(failure::InvalidFileFormat);
    m_left -= static_cast<std::uint64_t>(count);
    return std::span(block).first(static_cast<std::size_t>(count));
}

}  // namespace tavel
