#include "support/linux/HostCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <utility>

namespace {

namespace fs = std::filesystem;

struct Notes {
    fs::path folder;
    std::vector<std::string> calls;
    int flushesToFailure = 0;
    int flushError = 0;
    int flagsError = 0;
    std::string awaited;
    std::function<void()> action;
};

std::optional<Notes>& Running() {
    static std::optional<Notes> notes;
    return notes;
}

fs::path PathOf(int file) {
    std::error_code none;
    if (file == AT_FDCWD) return fs::current_path(none);
    return fs::read_symlink("/proc/self/fd/" + std::to_string(file), none);
}

// Empty for what lies elsewhere.
std::string NameOf(const fs::path& path) {
    const std::string name = path.lexically_normal().lexically_relative(Running()->folder).string();
    return name.rfind("..", 0) == 0 ? std::string() : name;
}

std::string NameOf(int folder, const char* path) { return NameOf(PathOf(folder) / path); }

void Note(const std::string& call) { Running()->calls.push_back(call); }

void Announce(const std::string& call) {
    if (!Running()->action || call.rfind(Running()->awaited, 0) != 0) return;
    std::exchange(Running()->action, nullptr)();
}

bool NoteFlush(int file) {
    if (!Running()) return false;
    const std::string name = NameOf(PathOf(file));
    struct stat status {};
    if (name.empty() || fstat(file, &status) != 0) return false;
    const bool isFolder = S_ISDIR(status.st_mode);
    const std::string call =
        isFolder ? "flush folder " + name : "flush " + name + ' ' + std::to_string(status.st_size);
    Announce(call);
    Note(call);
    return true;
}

// The C library's answer to a flush that goes by this number.
int Flush(long number, int file) {
    const bool isLast =
        NoteFlush(file) && Running()->flushesToFailure > 0 && --Running()->flushesToFailure == 0;
    if (!isLast) return static_cast<int>(syscall(number, file));
    errno = Running()->flushError;
    return -1;
}

// Empty for what lies elsewhere.
std::string RenameCall(int from, const char* old, int to, const char* name) {
    if (!Running()) return {};
    const std::string before = NameOf(from, old);
    const std::string after = NameOf(to, name);
    return before.empty() && after.empty() ? std::string() : "rename " + before + " -> " + after;
}

int Answer(long result) { return static_cast<int>(result); }

}  // namespace

// The program's own symbols come before those of the C library.
extern "C" {

int fsync(int file) { return Flush(SYS_fsync, file); }

int fdatasync(int file) { return Flush(SYS_fdatasync, file); }

int syncfs(int file) noexcept {
    if (Running() && !NameOf(PathOf(file)).empty()) Note("flush all");
    return Answer(syscall(SYS_syncfs, file));
}

int sync_file_range(int file, off_t from, off_t bytes, unsigned flags) {
    if (Running()) Announce("pace " + NameOf(PathOf(file)));
    return Answer(syscall(SYS_sync_file_range, file, from, bytes, flags));
}

int renameat2(int from, const char* old, int to, const char* name, unsigned flags) noexcept {
    const std::string call = RenameCall(from, old, to, name);
    if (!call.empty()) Announce(call);
    if (!call.empty() && flags != 0 && Running()->flagsError != 0) {
        errno = Running()->flagsError;
        return -1;
    }
    const int result = Answer(syscall(SYS_renameat2, from, old, to, name, flags));
    if (result == 0 && !call.empty()) Note(call);
    return result;
}

int renameat(int from, const char* old, int to, const char* name) noexcept {
    return renameat2(from, old, to, name, 0);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    const int result = Answer(syscall(SYS_unlinkat, folder, path, flags));
    const std::string name = Running() ? NameOf(folder, path) : std::string();
    if (result == 0 && !name.empty()) Note("remove " + name);
    return result;
}
}

namespace tavel::test {

HostCalls::HostCalls(const std::string& folder) {
    Running().emplace();
    Running()->folder = fs::canonical(folder);
}

HostCalls::~HostCalls() { Running().reset(); }

std::vector<std::string> HostCalls::Take() { return std::exchange(Running()->calls, {}); }

void HostCalls::FailFlush(int nth, int error) {
    Running()->flushesToFailure = nth;
    Running()->flushError = error;
}

void HostCalls::RefuseRenameFlags(int error) { Running()->flagsError = error; }

void HostCalls::Before(const std::string& callStart, std::function<void()> action) {
    Running()->awaited = callStart;
    Running()->action = std::move(action);
}

}  // namespace tavel::test
