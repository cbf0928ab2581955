#pragma once

#include "platform/FileService.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Places.h"
#include "platform/windows/WritePace.h"

#include <memory>
#include <optional>

namespace tavel {

// An open file of the host. One that is read is shared for reading alone, with other programs as
// well; one that is made may be written by others meanwhile.
class HostFile : public RawFile {
  public:
    HostFile(Handle file, Place place, RawMode mode);
    ~HostFile() override;

    bool Read(std::span<char> buffer, std::size_t& bytesRead) override;
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override;
    std::int64_t Size() override;
    bool Seek(std::int64_t position) override;
    bool Close() override;
    Long Error() const override { return m_error; }
    void FlushOnClose() override { m_isFlushed = m_isWritten; }
    void SetTime(std::int64_t seconds) override;

    // Takes over what a copy has of its source: the modification time, and whether it is read-only
    // or hidden.
    void CopyTraits(const HostStatus& source) { m_file.SetTraits(source); }

  private:
    bool Failed();
    bool Flush();

    Handle m_file;
    Place m_place;
    bool m_isWritten;
    bool m_isFlushed;
    std::optional<WritePace> m_pace;  // on a removable drive
    Long m_error = 0;
    bool m_isMediumLost = false;  // what had been taken did not reach it
};

// Null when the file can't be opened; `error` then is the run-time's number for it, else 0.
std::unique_ptr<HostFile> OpenHostFile(Place place, RawMode mode, Long& error);

}  // namespace tavel
