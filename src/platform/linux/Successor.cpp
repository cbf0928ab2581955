#include "platform/linux/Successor.h"

#include "platform/linux/Flush.h"

#include <stdio.h>

#include <cerrno>

namespace tavel {

// What lies under its name is an earlier one or a stranger's file, and is removed unseen: a link
// could lead anywhere. A folder of that name stays, and there is no successor.
Successor::Successor(const Place& former) : m_former(former), m_name('.' + former.name + ".new") {
    unlinkat(former.Parent(), m_name.c_str(), 0);
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    m_file = Descriptor(openat(former.Parent(), m_name.c_str(), flags, 0600));
    if (Check(m_file.IsOpen())) TakeOwnerAndMode();
}

Successor::~Successor() {
    if (m_file.IsOpen() && !m_hasTakenPlace && IsUnderItsName())
        unlinkat(m_former.Parent(), m_name.c_str(), 0);
}

// Without the right to give it to the former owner it is the user's, who may write it. A file
// system without owners and modes refuses both.
void Successor::TakeOwnerAndMode() {
    const struct stat& former = m_former.status;
    [[maybe_unused]] const bool hasOwner = fchown(m_file.Get(), former.st_uid, former.st_gid) == 0;
    [[maybe_unused]] const bool hasMode = fchmod(m_file.Get(), former.st_mode & 0777) == 0;
}

// Another Tavel that saves the same file at this moment removes this one's and makes its own.
bool Successor::IsUnderItsName() const {
    struct stat own {};
    struct stat named {};
    return fstat(m_file.Get(), &own) == 0 &&
           fstatat(m_former.Parent(), m_name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
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
    const int folder = m_former.Parent();
    errno = ESTALE;
    m_hasTakenPlace = Check(IsUnderItsName() &&
                            renameat(folder, m_name.c_str(), folder, m_former.name.c_str()) == 0);
    return m_hasTakenPlace && Check(m_file.Flush() && FlushFolderOf(m_former));
}

}  // namespace tavel
