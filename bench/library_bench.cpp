// LoadDB beside GLib's GKeyFile, SaveDB beside writing the same bytes once and fsync.

#include "NoWindows.h"
#include "Ratio.h"
#include "SampleLibrary.h"
#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tavel;

struct Key {
    std::string section;
    std::string key;
};

// Every key of the numbered sections, as LoadDB asks for them.
std::vector<Key> KeysOf(const std::string& text) {
    std::vector<Key> keys;
    std::string section;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find("\r\n", start);
        const std::string line = text.substr(start, end - start);
        start = end + 2;
        if (line.front() == '[') {
            section = line.substr(1, line.size() - 2);
        } else if (section.find_first_not_of("0123456789") == std::string::npos) {
            keys.push_back({section, line.substr(0, line.find('='))});
        }
    }
    return keys;
}

void ReadWithGKeyFile(const std::string& path, const std::vector<Key>& keys) {
    GKeyFile* file = g_key_file_new();
    if (!g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr)) {
        throw std::runtime_error("GKeyFile cannot read " + path);
    }
    for (const Key& key : keys) {
        char* value = g_key_file_get_value(file, key.section.c_str(), key.key.c_str(), nullptr);
        if (value == nullptr) throw std::runtime_error("GKeyFile lacks " + key.key);
        g_free(value);
    }
    g_key_file_free(file);
}

void WriteOnce(const std::string& path, const std::string& bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
        fsync(file) != 0) {
        throw std::runtime_error("cannot write " + path);
    }
    close(file);
}

std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CheckIsSaved(const std::string& path, const std::string& part) {
    if (ReadBytes(path).find(part) == std::string::npos) {
        throw std::runtime_error("the library was not saved");
    }
}

constexpr int rounds = 7;

// A file as a run of the program finds it: one that has stood untouched for a while.
void PutInPlace(const std::string& path, const std::string& text) {
    WriteOnce(path, text);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

void CompareLoading(const std::string& path, const std::string& entries, const std::string& text) {
    const auto load = [](int) {
        ReleaseCollections();
        LoadDB();
    };
    const std::vector<Key> keys = KeysOf(text);
    PutInPlace(path, text);
    bench::Compare(
        "LoadDB of " + entries, "GKeyFile", rounds, 1.0, load,
        [&](int) { ReadWithGKeyFile(path, keys); }, [&](int) { PutInPlace(path, text); });
}

// A run of the program: the library is loaded, and saved at the end. Of a small library the flushes
// are nearly all of it, so that only the large one has something to reach.
void CompareSaving(const std::string& path, const std::string& entries, const std::string& text,
                   double target) {
    const auto compare = [&](const std::string& what, const std::function<void(int)>& save,
                             const std::function<void(int)>& prepare) {
        bench::Compare(
            "SaveDB of " + entries + what, "write once and fsync", rounds, target, save,
            [&](int) { WriteOnce(path + ".rival", text); }, prepare);
    };
    const auto loadAnew = [&](int) {
        PutInPlace(path, text);
        ReleaseCollections();
        LoadDB();
    };
    const auto rename = [](int round) {
        colVideo.Item(1).sName = "Renamed " + std::to_string(round);
        SaveDB();
    };
    const auto removeFirst = [](int) {
        colPhoto.Remove(colPhoto.Item(1).sDBID);
        SaveDB();
    };
    const std::string installed = text.substr(0, text.find("[1]"));
    const auto installAnew = [&](int) { PutInPlace(path, installed); };

    compare(", one name changed", rename, loadAnew);
    CheckIsSaved(path, "Renamed 6");
    compare(
        " into an installed db.txt", [](int) { SaveDB(); }, installAnew);
    CheckIsSaved(path, "Renamed 6");
    const Long groups = colMagazine.Count() + colPhotoAlbum.Count() + colVidSeries.Count() + 1;
    const Long left = 3 * colPhoto.Count() + groups - 1;
    compare(", the first entry removed", removeFirst, loadAnew);
    CheckIsSaved(path, "NoOfItems=" + std::to_string(left) + "\r\n");
}

}  // namespace

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    const std::string path = folder + "/db.txt";
    WriteOnce(path, "");
    const bench::NoWindows windows;
    sDBFile = oFSO().FromHostPath(std::filesystem::absolute(path).string());

    for (const bool isLarge : {false, true}) {
        const int perKind = isLarge ? 10000 : 2500;
        const std::string entries = isLarge ? "30,000 entries" : "7,500 entries";
        const std::string text = bench::SampleLibrary(perKind);
        CompareLoading(path, entries, text);
        if (colPhoto.Count() != perKind) throw std::runtime_error("the library was not loaded");
        CompareSaving(path, entries, text, isLarge ? 6.0 : 0);
    }
    return 0;
}
