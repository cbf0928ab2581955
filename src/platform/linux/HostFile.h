#pragma once

#include "platform/FileService.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/Places.h"
#include "platform/linux/ReadShare.h"
#include "platform/linux/WritePace.h"

#include <optional>

namespace tavel {

// An open file of the host.
class HostFile : public RawFile {
  public:
    HostFile(Descriptor file, Place place, RawMode mode, bool isNew);
    ~HostFile() override;

    bool Read(std::span<char> buffer, std::size_t& bytesRead) override;
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override;
    std::int64_t Size() override;
    bool Seek(std::int64_t position) override;
    bool Close() override;
    Long Error() const override { return m_error; }
    void FlushOnClose() override { m_isFlushed = m_isEntryFlushed = m_isWritten; }
    void SetTime(std::int64_t seconds) override { m_file.SetTime(timespec{seconds, 0}); }

    // Takes over the modification time of another file.
    void CopyTimeOf(const struct stat& status) { m_file.SetTime(status.st_mtim); }

  private:
    bool Failed();
    bool Flush();

    Descriptor m_file;
    Place m_place;
    bool m_isWritten;
    std::optional<ReadShare> m_share;
    bool m_isEntryFlushed;  // together with the file
    bool m_isFlushed;
    std::optional<WritePace> m_pace;  // on a removable drive
    Long m_error = 0;
    bool m_isMediumLost = false;  // what had been taken did not reach it
};

// Null when the file can't be opened; `error` then is the run-time's number for it, else 0.
std::unique_ptr<HostFile> OpenHostFile(Place place, RawMode mode, Long& error);

}  // namespace tavel
