#include "library/PathIndex.h"

#include "library/Collections.h"

#include <cstddef>
#include <map>
#include <string>
#include <unordered_set>

namespace tavel {

namespace {

// The paths of a collection's first `count` records.
struct KnownPaths {
    std::unordered_set<std::string> paths;
    Long count = 0;
    std::size_t removals = 0;  // of the collection's records, when the first was taken in
};

std::map<Integer, KnownPaths> knownOfType;

}  // namespace

bool HasPath(Integer itemType, std::string_view sPath) {
    return WithItems(itemType, [&](const auto& items, auto*) {
        KnownPaths& known = knownOfType[itemType];
        if (known.removals != items.Removals()) known = {{}, 0, items.Removals()};
        while (known.count < items.Count()) known.paths.insert(items.Item(++known.count).sPath());
        return known.paths.count(std::string(sPath)) != 0;
    });
}

void ForgetPaths() { knownOfType.clear(); }

}  // namespace tavel
