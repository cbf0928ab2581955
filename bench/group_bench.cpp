// Groups of thousands of members taken apart and put together, beside a hash set of the same ids;
// and the letters of ids beside a generator of the library.

#include "NoWindows.h"
#include "Ratio.h"
#include "core/UsefulFunctions.h"
#include "library/Collections.h"
#include "library/Groups.h"

#include <random>
#include <stdexcept>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

using namespace tavel;

using Texts = std::vector<std::string>;

Texts PhotoIDs(int count) {
    Texts ids;
    for (int i = 0; i < count; ++i)
        ids.push_back("ph_Itemnumbe" + std::to_string(10000000 + i) + "abcdefgh");
    return ids;
}

void AddPhotos(const Texts& ids) {
    ReleaseCollections();
    for (const std::string& id : ids) colPhoto.Add(id, Photo{}).sDBID = id;
}

void Remove(const std::string& id) {
    bool bDeleteFile = false;
    RemoveItem(id, bDeleteFile);
}

void Expect(bool isTrue, const char* what) {
    if (!isTrue) throw std::runtime_error(what);
}

void EraseEach(const Texts& ids) {
    std::unordered_set<std::string> set(ids.begin(), ids.end());
    for (const std::string& id : ids) set.erase(id);
    Expect(set.empty(), "ids were left in the set");
}

void InsertEach(const Texts& ids, std::size_t first) {
    std::unordered_set<std::string> set(ids.begin(), ids.begin() + static_cast<long>(first));
    for (std::size_t i = first; i < ids.size(); ++i) set.insert(ids[i]);
    Expect(set.size() == ids.size(), "ids were not taken into the set");
}

void CompareRemoving(int count) {
    const Texts ids = PhotoIDs(count);
    const std::string number = std::to_string(count);
    std::string sGroup;
    const auto prepare = [&](int) {
        AddPhotos(ids);
        sGroup = MakeGroup(ids, "Bench", mtMagazine);
    };
    bench::Compare(
        "RemoveItem of a magazine of " + number + " pages", "erasing from a hash set", 5, 0,
        [&](int) { Remove(sGroup); }, [&](int) { EraseEach(ids); }, prepare);
    Expect(colMagazine.Count() == 0 && colPhoto.Item(count).iNoGroups == 0, "links were left");
    bench::Compare(
        "RemoveItem of " + number + " items of one group", "erasing from a hash set", 5, 0,
        [&](int) {
            for (const std::string& id : ids) Remove(id);
        },
        [&](int) { EraseEach(ids); }, prepare);
    Expect(colMagazine.Item(1).Count() == 0 && colPhoto.Count() == 0, "items were left");
}

void CompareAdding(std::size_t members) {
    const std::size_t count = members + members / 2;
    const Texts ids = PhotoIDs(static_cast<int>(count));
    std::string sGroup;
    bench::Compare(
        "AddToGroup of " + std::to_string(count - members) + " items, one by one, to " +
            std::to_string(members),
        "inserting into a hash set", 5, 0,
        [&](int) {
            for (std::size_t i = members; i < count; ++i) AddToGroup({ids[i]}, sGroup);
        },
        [&](int) { InsertEach(ids, members); },
        [&](int) {
            AddPhotos(ids);
            sGroup = MakeGroup({ids.begin(), ids.begin() + static_cast<long>(members)}, "Bench",
                               mtMagazine);
        });
    Expect(colMagazine.Item(1).iPages == static_cast<Integer>(count), "items were not added");
}

void CompareLetters(int count) {
    std::size_t letters = 0;
    std::mt19937 generator{std::random_device{}()};
    std::uniform_int_distribution<int> letter('a', 'z');
    bench::Compare(
        "random letters of " + std::to_string(count) + " ids", "mt19937", 9, 0,
        [&](int) {
            for (int i = 0; i < count; ++i) letters += RandomLetters(10).size();
        },
        [&](int) {
            for (int i = 0; i < count; ++i) {
                std::string text;
                for (int j = 0; j < 11; ++j) text += static_cast<char>(letter(generator));
                letters += text.size();
            }
        });
    Expect(letters == std::size_t{18} * 11 * static_cast<std::size_t>(count),
           "letters are missing");
}

}  // namespace

int main() {
    const bench::NoWindows windows;
    for (const int count : {16000, 32000}) CompareRemoving(count);
    for (const std::size_t members : {std::size_t{10000}, std::size_t{20000}})
        CompareAdding(members);
    CompareLetters(1000);
    return 0;
}
