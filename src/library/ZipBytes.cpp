#include "library/ZipBytes.h"

#include "library/ZipStart.h"
#include "platform/Failure.h"

#include <algorithm>
#include <new>
#include <span>
#include <utility>

namespace tavel {

ZipBytes::ZipBytes(std::unique_ptr<RawFile> file) : m_file(std::move(file)), m_bytes(*m_file) {
    zip_error_init(&m_error);
}

ZipBytes::~ZipBytes() { zip_error_fini(&m_error); }

zip_t* ZipBytes::Open(int& error) {
    m_start = StartOfArchive(m_bytes);
    m_bytes.Seek(m_start);
    zip_error_t reason;
    zip_error_init(&reason);
    zip_source_t* source = zip_source_function_create(Answer, this, &reason);
    zip_t* archive =
        source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, &reason);
    if (archive == nullptr) zip_source_free(source);
    error = zip_error_code_zip(&reason);
    zip_error_fini(&reason);
    return archive;
}

zip_int64_t ZipBytes::Answer(void* self, void* data, zip_uint64_t length,
                             zip_source_cmd_t command) {
    auto& bytes = *static_cast<ZipBytes*>(self);
    switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_SEEKABLE |
                   ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_ACCEPT_EMPTY);
        case ZIP_SOURCE_OPEN:
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_FREE:
        case ZIP_SOURCE_ACCEPT_EMPTY:  // a file without a byte is no archive
            return 0;
        case ZIP_SOURCE_STAT:
            return bytes.Stat(data, length);
        case ZIP_SOURCE_READ:
            return bytes.Read(data, length);
        case ZIP_SOURCE_SEEK:
            return bytes.Seek(data, length);
        case ZIP_SOURCE_TELL:
            return bytes.m_bytes.Offset() - bytes.m_start;
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&bytes.m_error, data, length);
        default:
            return bytes.Failed(ZIP_ER_OPNOTSUPP);
    }
}

zip_int64_t ZipBytes::Stat(void* data, zip_uint64_t length) {
    if (length < sizeof(zip_stat_t)) return Failed(ZIP_ER_INVAL);
    auto& status = *static_cast<zip_stat_t*>(data);
    zip_stat_init(&status);
    status.size = static_cast<zip_uint64_t>(m_bytes.Length() - m_start);
    status.valid = ZIP_STAT_SIZE;
    return sizeof(zip_stat_t);
}

// A failure must not pass through libzip, which knows nothing of exceptions.
zip_int64_t ZipBytes::Read(void* data, zip_uint64_t length) {
    const auto left = static_cast<zip_uint64_t>(m_bytes.Length() - m_bytes.Offset());
    const std::span bytes(static_cast<char*>(data), std::min(length, left));
    try {
        m_bytes.Read(bytes);
    } catch (const Failure& failure) {
        m_failure = failure.Number();
        return Failed(ZIP_ER_READ);
    } catch (const std::bad_alloc&) {
        return Failed(ZIP_ER_MEMORY);
    }
    return std::ssize(bytes);
}

zip_int64_t ZipBytes::Seek(void* data, zip_uint64_t length) {
    const zip_int64_t offset = zip_source_seek_compute_offset(
        static_cast<zip_uint64_t>(m_bytes.Offset() - m_start),
        static_cast<zip_uint64_t>(m_bytes.Length() - m_start), data, length, &m_error);
    if (offset < 0) return -1;
    m_bytes.Seek(m_start + offset);
    return 0;
}

zip_int64_t ZipBytes::Failed(int error) {
    zip_error_set(&m_error, error, 0);
    return -1;
}

}  // namespace tavel
