#include "ui/support/Replacements.h"

#include "platform/windows/Handle.h"
#include "support/HostPlaces.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace tavel::test {

namespace {

// The host tells of changes later than they are made, but in their order.
constexpr const wchar_t* lastName = L"the last change";

constexpr DWORD kinds = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_LAST_WRITE;

struct Change {
    DWORD action;
    std::wstring name;
};

}  // namespace

class Replacements::Queue {
  public:
    explicit Queue(const std::string& hostFolder)
        : m_path(AsHostPath(hostFolder)),
          m_folder(::CreateFileW(m_path.c_str(), FILE_LIST_DIRECTORY,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED,
                                 nullptr)),
          m_told(::CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
        m_reading.hEvent = m_told.Get();
        if (!Listen()) throw std::runtime_error("cannot watch " + hostFolder);
    }
    // The host writes into this until it has been told to stop.
    ~Queue() {
        DWORD size = 0;
        ::CancelIoEx(m_folder.Get(), &m_reading);
        ::GetOverlappedResult(m_folder.Get(), &m_reading, &size, TRUE);
    }
    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;

    std::vector<Change> Take() {
        std::ofstream(m_path / lastName).close();
        std::vector<Change> changes;
        while (changes.empty() || changes.back().name != lastName) Hear(changes);
        return changes;
    }

  private:
    bool Listen() {
        const auto size = static_cast<DWORD>(m_buffer.size());
        return ::ReadDirectoryChangesW(m_folder.Get(), m_buffer.data(), size, FALSE, kinds, nullptr,
                                       &m_reading, nullptr) != 0;
    }

    void Hear(std::vector<Change>& changes) {
        DWORD size = 0;
        if (!::GetOverlappedResult(m_folder.Get(), &m_reading, &size, TRUE) || size == 0)
            throw std::runtime_error("changes were not told");
        const char* at = m_buffer.data();
        for (DWORD next = 1; next != 0; at += next) {
            const auto& note = *reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(at);
            changes.push_back(
                {note.Action, {note.FileName, note.FileNameLength / sizeof(wchar_t)}});
            next = note.NextEntryOffset;
        }
        if (!Listen()) throw std::runtime_error("cannot go on watching");
    }

    std::filesystem::path m_path;
    Handle m_folder;
    Handle m_told;
    OVERLAPPED m_reading{};
    alignas(FILE_NOTIFY_INFORMATION) std::array<char, 16 * 1024> m_buffer{};
};

Replacements::Replacements(const std::string& hostFolder)
    : m_queue(std::make_unique<Queue>(hostFolder)) {}

Replacements::~Replacements() = default;

int Replacements::Of(const std::string& name) const {
    int count = 0;
    for (const Change& change : m_queue->Take()) {
        const bool isChange =
            change.action == FILE_ACTION_RENAMED_NEW_NAME || change.action == FILE_ACTION_MODIFIED;
        if (isChange && change.name == AsHostPath(name).native()) ++count;
    }
    return count;
}

}  // namespace tavel::test
