#pragma once

#include "support/FaultyFileService.h"

namespace tavel::test {

// A raw file of a FaultyFileService.
class FaultyFile : public RawFile {
  public:
    struct Faults {
        std::int64_t bytesToRead = FakeDrive::plenty;
        std::int64_t bytesToWrite = FakeDrive::plenty;
        bool isCloseFailing = false;
    };

    FaultyFile(FaultyFileService& service, std::unique_ptr<RawFile> real, char letter,
               std::string path, Faults faults);
    ~FaultyFile() override { Close(); }

    bool Read(std::span<char> buffer, std::size_t& bytesRead) override;
    bool Write(std::span<const char> buffer, std::size_t& bytesWritten) override;
    std::int64_t Size() override;
    bool Seek(std::int64_t position) override;
    bool Close() override;
    Long Error() const override;
    void FlushOnClose() override { m_real->FlushOnClose(); }
    void SetTime(std::int64_t seconds) override;

  private:
    bool IsDriveThere();
    bool IsFailing(const std::string& call);
    bool Failed(Long number);

    FaultyFileService& m_service;
    std::unique_ptr<RawFile> m_real;
    char m_letter;
    std::string m_path;
    Faults m_faults;
    bool m_isClosedWell = true;
    Long m_error = 0;
};

}  // namespace tavel::test
