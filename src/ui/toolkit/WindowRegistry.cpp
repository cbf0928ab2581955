#include "ui/toolkit/WindowRegistry.h"

#include <QWidget>
#include <algorithm>
#include <utility>
#include <vector>

namespace tavel::WindowRegistry {

namespace {

struct Entry {
    QWidget* window;
    std::function<void()> unload;
};

std::vector<Entry>& Entries() {
    static std::vector<Entry> entries;
    return entries;
}

}  // namespace

void Add(QWidget& window, std::function<void()> unload) {
    Entries().push_back({&window, std::move(unload)});
}

void Remove(QWidget& window) {
    std::erase_if(Entries(), [&](const Entry& entry) { return entry.window == &window; });
}

void UnloadAllBut(const char* name) {
    // Unloading takes entries away, so it goes through a copy; an unload that takes another window
    // with it is looked at anew.
    const std::vector<Entry> loaded = Entries();
    for (const Entry& entry : loaded) {
        const bool stillLoaded =
            std::any_of(Entries().begin(), Entries().end(),
                        [&](const Entry& other) { return other.window == entry.window; });
        if (stillLoaded && entry.window->objectName() != QLatin1String(name)) entry.unload();
    }
}

}  // namespace tavel::WindowRegistry
