#include "support/FaultyFile.h"

#include "platform/Failure.h"

#include <algorithm>
#include <utility>

namespace tavel::test {

namespace {

void TakeFrom(std::int64_t& left, std::int64_t bytes) {
    if (left != FakeDrive::plenty) left -= bytes;
}

}  // namespace

FaultyFile::FaultyFile(FaultyFileService& service, std::unique_ptr<RawFile> real, char letter,
                       std::string path, Faults faults)
    : m_service(service),
      m_real(std::move(real)),
      m_letter(letter),
      m_path(std::move(path)),
      m_faults(faults) {}

bool FaultyFile::IsDriveThere() {
    return m_service.Touch(m_letter) || Failed(failure::DiskNotReady);
}

bool FaultyFile::IsFailing(const std::string& call) {
    const Long number = m_service.RawFailureOf(call);
    return number != 0 && !Failed(number);
}

bool FaultyFile::Failed(Long number) {
    if (m_error == 0) m_error = number;
    return false;
}

Long FaultyFile::Error() const { return m_error == 0 && m_real ? m_real->Error() : m_error; }

void FaultyFile::SetTime(std::int64_t seconds) {
    m_service.RawFailureOf("SetTime " + m_path + " " + std::to_string(seconds));
    m_real->SetTime(seconds);
}

bool FaultyFile::Read(std::span<char> buffer, std::size_t& bytesRead) {
    bytesRead = 0;
    if (IsFailing("Read " + m_path + " " + std::to_string(buffer.size()))) return false;
    if (!IsDriveThere()) return false;
    const auto allowed =
        std::min<std::int64_t>(static_cast<std::int64_t>(buffer.size()), m_faults.bytesToRead);
    if (!m_real->Read(buffer.first(static_cast<std::size_t>(allowed)), bytesRead)) return false;
    TakeFrom(m_faults.bytesToRead, static_cast<std::int64_t>(bytesRead));
    return allowed == static_cast<std::int64_t>(buffer.size()) || Failed(failure::DeviceIO);
}

bool FaultyFile::Write(std::span<const char> buffer, std::size_t& bytesWritten) {
    bytesWritten = 0;
    if (IsFailing("Write " + m_path + " " + std::to_string(buffer.size()))) return false;
    if (!IsDriveThere()) return false;
    FakeDrive& drive = m_service.At(m_letter);
    const std::int64_t allowed =
        std::min({static_cast<std::int64_t>(buffer.size()), m_faults.bytesToWrite,
                  drive.bytesUntilFull, drive.bytesUntilGone});
    if (!m_real->Write(buffer.first(static_cast<std::size_t>(allowed)), bytesWritten)) return false;
    const auto written = static_cast<std::int64_t>(bytesWritten);
    for (std::int64_t* left :
         {&m_faults.bytesToWrite, &drive.bytesUntilFull, &drive.bytesUntilGone}) {
        TakeFrom(*left, written);
    }
    if (allowed == static_cast<std::int64_t>(buffer.size())) return true;
    if (drive.bytesUntilGone == 0) drive.isGone = true;
    return Failed(drive.bytesUntilFull == 0 ? failure::DiskFull : failure::DeviceIO);
}

std::int64_t FaultyFile::Size() {
    const bool isFailing = m_service.RawFailureOf("Size " + m_path) != 0;
    return !isFailing && IsDriveThere() ? m_real->Size() : -1;
}

bool FaultyFile::Seek(std::int64_t position) {
    return m_service.RawFailureOf("Seek " + m_path + " " + std::to_string(position)) == 0 &&
           IsDriveThere() && m_real->Seek(position);
}

bool FaultyFile::Close() {
    if (!m_real) return m_isClosedWell;
    const bool isFailing = IsFailing("Close " + m_path);
    m_isClosedWell = m_real->Close() && !isFailing && IsDriveThere() &&
                     (!m_faults.isCloseFailing || Failed(failure::DeviceIO));
    m_real.reset();
    return m_isClosedWell;
}

}  // namespace tavel::test
