// LoadDB beside GLib's GKeyFile, SaveDB beside writing the same bytes once and fsync.

#include "Ratio.h"
#include "SampleLibrary.h"
#include "core/LogWindow.h"
#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/LibraryFile.h"
#include "platform/Service.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tavel;

class SilentLog : public LogWindow {
  public:
    void AddItem(const std::string&) override {}
};

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

// Reading it a while after its writing, as a later run of the program does.
void LoadAnew(const std::string& path, const std::string& text) {
    WriteOnce(path, text);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ReleaseCollections();
    LoadDB();
}

void CheckIsSaved(const std::string& path, const std::string& part) {
    if (ReadBytes(path).find(part) == std::string::npos) {
        throw std::runtime_error("the library was not saved");
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    const std::string path = folder + "/db.txt";
    const std::string text = bench::SampleLibrary(10000);
    WriteOnce(path, text);
    SilentLog log;
    Service<LogWindow>::Use(&log);
    sDBFile = oFSO().FromHostPath(std::filesystem::absolute(path).string());

    const std::vector<Key> keys = KeysOf(text);
    bench::Compare(
        "LoadDB of 30,000 entries", "GKeyFile", 7, 1.0,
        [](int) {
            ReleaseCollections();
            LoadDB();
        },
        [&](int) { ReadWithGKeyFile(path, keys); });
    if (colPhoto.Count() != 10000) throw std::runtime_error("the library was not loaded");

    // A run of the program: the library is loaded from a file that stood untouched, and saved at
    // the end.
    const auto writeOnce = [&](int) { WriteOnce(folder + "/rival.txt", text); };
    const auto rename = [](int round) {
        colVideo.Item(1).sName = "Renamed " + std::to_string(round);
        SaveDB();
    };
    bench::Compare("SaveDB, one name changed", "write once and fsync", 7, 3.0, rename, writeOnce,
                   [&](int) { LoadAnew(path, text); });
    CheckIsSaved(path, "Renamed 6");
    const std::string installed = text.substr(0, text.find("[1]"));
    bench::Compare(
        "SaveDB into an installed db.txt", "write once and fsync", 7, 3.0, [](int) { SaveDB(); },
        writeOnce, [&](int) { WriteOnce(path, installed); });
    CheckIsSaved(path, "Renamed 6");
    const auto removeFirst = [](int) {
        colPhoto.Remove(colPhoto.Item(1).sDBID);
        SaveDB();
    };
    bench::Compare("SaveDB, the first entry removed", "write once and fsync", 7, 3.0, removeFirst,
                   writeOnce, [&](int) { LoadAnew(path, text); });
    CheckIsSaved(path, "NoOfItems=30299");
    return 0;
}
