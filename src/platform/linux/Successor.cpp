#include "platform/linux/Successor.h"

#include "platform/Text.h"
#include "platform/linux/Flush.h"

#include <stdio.h>

#include <cerrno>

namespace tavel {

namespace {

// No longer than names on the host may be.
std::string NameBeside(std::string_view name) {
    constexpr std::size_t longest = 255;
    constexpr std::string_view ending = ".new";
    std::string made = ".";
    for (const std::string_view character : Characters(name)) {
        if (made.size() + character.size() + ending.size() > longest) break;
        made += character;
    }
    return made.append(ending);
}

}  // namespace

bool RenameIfFree(int from, const char* old, int to, const char* name) {
    if (renameat2(from, old, to, name, RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // Not every file system knows the flag.
    struct stat taken {};
    if (fstatat(to, name, &taken, AT_SYMLINK_NOFOLLOW) == 0) errno = EEXIST;
    return errno == ENOENT && renameat(from, old, to, name) == 0;
}

// What lies under its name is an earlier one or a stranger's file, and is removed unseen: a link
// could lead anywhere. A folder of that name stays, and there is no successor.
Successor::Successor(const Place& former) : m_former(former), m_name(NameBeside(former.name)) {
    unlinkat(former.Parent(), m_name.c_str(), 0);
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    m_file = Descriptor(openat(former.Parent(), m_name.c_str(), flags, 0600));
    if (Check(m_file.IsOpen())) m_file.TakeOwnerAndMode(former.status);
}

Successor::~Successor() {
    if (m_file.IsOpen() && !m_hasTakenPlace && IsUnderItsName())
        unlinkat(m_former.Parent(), m_name.c_str(), 0);
}

// Another Tavel that saves the same file at this moment removes this one's and makes its own.
bool Successor::IsUnderItsName() const {
    struct stat own {};
    struct stat named {};
    return fstat(m_file.Get(), &own) == 0 &&
           fstatat(m_former.Parent(), m_name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

// A free place may have been taken meanwhile, by a file that nobody may lose.
bool Successor::Rename() const {
    const int folder = m_former.Parent();
    const char* name = m_former.name.c_str();
    if (m_former.failure != 0) return RenameIfFree(folder, m_name.c_str(), folder, name);
    return renameat(folder, m_name.c_str(), folder, name) == 0;
}

bool Successor::Check(bool succeeded) {
    if (!succeeded && m_error == 0) m_error = errno;
    return m_error == 0;
}

void Successor::Write(std::string_view bytes) {
    std::size_t written = 0;
    if (m_error == 0) Check(m_file.Write(bytes, written));
}

bool Successor::TakePlace() {
    if (m_error != 0 || !Check(m_file.Flush())) return false;
    if (!IsUnderItsName()) {
        m_error = ESTALE;
        return false;
    }
    m_hasTakenPlace = Check(Rename());
    return m_hasTakenPlace && Check(m_file.Flush() && FlushFolderOf(m_former));
}

}  // namespace tavel
