#include "ui/support/Replacements.h"

#include "platform/linux/Descriptor.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace tavel::test {

class Replacements::Queue : public Descriptor {
  public:
    using Descriptor::Descriptor;
};

Replacements::Replacements(const std::string& hostFolder)
    : m_queue(std::make_unique<Queue>(inotify_init1(IN_NONBLOCK))) {
    if (inotify_add_watch(m_queue->Get(), hostFolder.c_str(), IN_MOVED_TO | IN_MODIFY) < 0)
        throw std::runtime_error("cannot watch " + hostFolder);
}

Replacements::~Replacements() = default;

int Replacements::Of(const std::string& name) const {
    alignas(inotify_event) std::array<char, 64 * 1024> events{};
    const ssize_t size = read(m_queue->Get(), events.data(), events.size());
    int count = 0;
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
        if (name == event->name) ++count;
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    return count;
}

}  // namespace tavel::test
