#include "device/ProgressBarFileCopy.h"

#include "core/PublicStuff.h"
#include "platform/FileService.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tavel {

namespace {

// The bar steps by pieces; reading and writing that little at a time would cost more than the stick
// does, so blocks of whole pieces are moved and their steps shown behind them.
constexpr std::size_t pieceBytes = 1024;
constexpr std::size_t blockBytes = 1024 * pieceBytes;

class PieceCopy {
  public:
    // Either file may be null: it could not be opened, and its reads or writes fail.
    PieceCopy(std::unique_ptr<RawFile> source, std::unique_ptr<RawFile> dest, ProgressBarView& bar)
        : m_source(std::move(source)), m_dest(std::move(dest)), m_bar(bar), m_buffer(blockBytes) {}

    void Run() {
        while (CopyBlock()) {
        }
    }

  private:
    // False when the end of the source, or of what can be read of it, has been reached.
    bool CopyBlock() {
        std::size_t read = 0;
        if (m_source == nullptr || !m_source->Read({m_buffer.data(), m_block}, read)) {
            return GoOnInPieces();
        }
        m_position += static_cast<std::int64_t>(read);
        ShowBlock(read, Write(read));
        return read == m_block;
    }

    // After a block that could not be read: what lies before the bad place is still to be copied.
    bool GoOnInPieces() {
        if (m_source != nullptr && m_block > pieceBytes && m_source->Seek(m_position)) {
            m_block = pieceBytes;
            return true;
        }
        ShowPiece(0);
        return false;
    }

    // The bytes that count: of a write that failed, those of the pieces before the failing one. A
    // failure is not remembered: the next block is tried.
    std::size_t Write(std::size_t size) {
        std::size_t written = 0;
        if (m_dest == nullptr || m_dest->Write({m_buffer.data(), size}, written)) return written;
        // The flush behind a whole block may fail, too.
        return std::min(written, size - 1) / pieceBytes * pieceBytes;
    }

    // A block that the source does not fill ends in a piece of less than 1024 bytes, perhaps of 0.
    void ShowBlock(std::size_t read, std::size_t written) {
        for (std::size_t whole = read / pieceBytes; whole > 0; --whole) {
            const std::size_t step = std::min(pieceBytes, written);
            written -= step;
            ShowPiece(step);
        }
        if (read < m_block) ShowPiece(written);
    }

    void ShowPiece(std::size_t written) {
        m_total = ToLong(m_total + static_cast<std::int64_t>(written));
        m_bar.SetValue(static_cast<float>(m_total));
        m_bar.Repaint();
    }

    std::unique_ptr<RawFile> m_source;
    std::unique_ptr<RawFile> m_dest;
    ProgressBarView& m_bar;
    std::vector<char> m_buffer;
    std::size_t m_block = blockBytes;
    std::int64_t m_position = 0;  // in the source
    Long m_total = 0;             // bytes written
};

}  // namespace

void CopyWithProgress(const std::string& sSource, const std::string& sDest, ProgressBarView& bar) {
    bar.SetMax(static_cast<float>(oFSO().GetFile(sSource).Size));
    Long error = 0;
    std::unique_ptr<RawFile> source = oFSO().OpenRaw(sSource, RawMode::Read, error);
    // Not for a library file that lies on the stick under this very name: the open source keeps it
    // from being emptied.
    std::unique_ptr<RawFile> dest = oFSO().OpenRaw(sDest, RawMode::Create, error);
    PieceCopy copy(std::move(source), std::move(dest), bar);
    copy.Run();
    bar.SetValue(0);
}

}  // namespace tavel
