#pragma once

#include "media/FileBytes.h"

#include <zip.h>

#include <cstdint>
#include <memory>

namespace tavel {

// The bytes of an archive for libzip, read through the file service, so that an archive on a stick
// that is pulled fails like any other file on it.
class ZipBytes {
  public:
    explicit ZipBytes(std::unique_ptr<RawFile> file);
    ~ZipBytes();
    ZipBytes(const ZipBytes&) = delete;
    ZipBytes& operator=(const ZipBytes&) = delete;

    // The archive, which must be let go of before this; null when libzip doesn't open it, and
    // `error` then is its reason. What stands in front of it in the file is not shown to libzip.
    // Fails with 57 when the file can't be read.
    zip_t* Open(int& error);

    // The run-time's number for a read that failed, 0 while none has.
    Long Error() const { return m_failure; }

  private:
    // libzip's way of asking: one function for all questions.
    static zip_int64_t Answer(void* self, void* data, zip_uint64_t length,
                              zip_source_cmd_t command);

    zip_int64_t Stat(void* data, zip_uint64_t length);
    zip_int64_t Read(void* data, zip_uint64_t length);
    zip_int64_t Seek(void* data, zip_uint64_t length);
    zip_int64_t Failed(int error);

    std::unique_ptr<RawFile> m_file;
    FileBytes m_bytes;
    std::int64_t m_start = 0;  // of the archive in its file
    zip_error_t m_error{};     // for libzip
    Long m_failure = 0;
};

}  // namespace tavel
