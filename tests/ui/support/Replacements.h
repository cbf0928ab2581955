#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>

namespace tavel::test {

// Counts what changes the files of a folder while it lives: a file that takes the place of another,
// and a write into one that was there. What a file of another name goes through before it takes its
// place is no change.
class Replacements {
  public:
    explicit Replacements(const std::string& hostFolder) : m_queue(inotify_init1(IN_NONBLOCK)) {
        if (inotify_add_watch(m_queue, hostFolder.c_str(), IN_MOVED_TO | IN_MODIFY) < 0)
            throw std::runtime_error("cannot watch " + hostFolder);
    }
    ~Replacements() { close(m_queue); }
    Replacements(const Replacements&) = delete;
    Replacements& operator=(const Replacements&) = delete;

    // Of the file of that name, since the last call.
    int Of(const std::string& name) const {
        alignas(inotify_event) std::array<char, 64 * 1024> events{};
        const ssize_t size = read(m_queue, events.data(), events.size());
        int count = 0;
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
            if (name == event->name) ++count;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
        return count;
    }

  private:
    int m_queue;
};

}  // namespace tavel::test
