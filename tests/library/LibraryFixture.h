#pragma once

#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "support/HostPlaces.h"
#include "support/Recorders.h"
#include "support/Support.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavel::test {

using Texts = std::vector<std::string>;

// An empty library with recorders for windows and a folder of its own, with db.txt in it.
class LibraryTest : public ::testing::Test {
  protected:
    LibraryTest() {
        sDBFile = temp.DrivePath("db.txt");
        sMusicSupport = {"mp3", "wav"};
        sVideoSupport = {"mp4"};
        sPhotoSupport = {"jpg", "bmp"};
    }
    ~LibraryTest() override {
        ReleaseCollections();
        ResetPublicStuff();
    }

    void Contain(const std::string& text) const { temp.Write("db.txt", text); }
    std::string DB() const { return temp.Read("db.txt"); }

    // Makes db.txt hold these watch folders and nothing else.
    void Watch(const Texts& folders) const {
        std::string text = "[watch]\r\nnoofflds=" + std::to_string(folders.size()) + "\r\n";
        for (std::size_t i = 0; i < folders.size(); ++i)
            text += std::to_string(i) + "=" + temp.DrivePath(folders[i]) + "\r\n";
        Contain(text);
    }

    std::string Write(const std::string& name, const std::string& bytes) const {
        temp.Write(name, bytes);
        return temp.DrivePath(name);
    }
    // The name begins with a dot, which is enough on some hosts.
    std::string WriteHidden(const std::string& name) const {
        temp.Write(name, "x");
        Hide(AsHostPath(temp.HostPath(name)));
        return temp.DrivePath(name);
    }

    TempFolder temp;
    Recorders windows;
};

template <class T>
T& Give(Collection<T>& collection, const std::string& sID, const std::string& sPath = {}) {
    T& record = collection.Add(sID, T{});
    record.sDBID = sID;
    if constexpr (requires { record.sPath(); }) record.sPath(sPath);
    return record;
}

inline Texts GroupsOf(const Item& item) {
    Texts ids;
    for (Integer i = 0; i < item.iNoGroups; ++i) ids.push_back(item.Get_sGroups(i));
    return ids;
}

inline Texts MembersOf(const Group& group) {
    Texts ids;
    for (Integer i = 0; i < group.Count(); ++i) ids.push_back(group.Members().Get(i));
    return ids;
}

// The header of a bitmap, which is all that its size is read from.
inline std::string Bitmap(std::uint32_t width, std::uint32_t height) {
    const auto number = [](std::uint32_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
        return text;
    };
    return "BM" + std::string(12, '\0') + number(40, 4) + number(width, 4) + number(height, 4) +
           number(1, 2) + number(24, 2) + std::string(24, '\0');
}

}  // namespace tavel::test
