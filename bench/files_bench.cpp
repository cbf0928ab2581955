// Many files made, copied and moved in one folder beside the same calls of the host. The stick is
// the folder linked as drives/E beside this program.

#include "Ratio.h"
#include "core/PublicStuff.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

using namespace tavel;

void Require(bool succeeded) {
    if (!succeeded) throw std::runtime_error("a call of the host failed");
}

// The calls of the host that the same promise takes: on the stick all is on the medium.
class Host {
  public:
    Host(const std::string& folder, bool isStick)
        : m_folder(open(folder.c_str(), O_RDONLY | O_DIRECTORY)), m_isStick(isStick) {
        Require(m_folder >= 0);
    }
    ~Host() { close(m_folder); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void Create(const std::string& name) const { Finish(Make(name)); }

    void Copy(const std::string& name, const std::string& copy) const {
        const int source = openat(m_folder, name.c_str(), O_RDONLY);
        struct stat status {};
        Require(source >= 0 && fstat(source, &status) == 0);
        const int target = Make(copy);
        std::array<char, 65536> buffer;
        ssize_t count = 0;
        while ((count = read(source, buffer.data(), buffer.size())) > 0)
            Require(write(target, buffer.data(), static_cast<std::size_t>(count)) == count);
        const timespec times[2] = {{0, UTIME_OMIT}, status.st_mtim};
        Require(futimens(target, times) == 0);
        close(source);
        Finish(target);
    }

    void Move(const std::string& name, const std::string& other) const {
        if (renameat2(m_folder, name.c_str(), m_folder, other.c_str(), RENAME_NOREPLACE) != 0)
            Require(renameat(m_folder, name.c_str(), m_folder, other.c_str()) == 0);
        if (m_isStick) Finish(openat(m_folder, other.c_str(), O_RDONLY));
    }

  private:
    int Make(const std::string& name) const {
        const int file = openat(m_folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
        Require(file >= 0);
        return file;
    }

    void Finish(int file) const {
        if (m_isStick) Require(fsync(file) == 0 && fsync(m_folder) == 0);
        Require(close(file) == 0);
    }

    int m_folder;
    bool m_isStick;
};

struct Place {
    std::string name;
    std::string hostFolder;
    std::string folder;  // as the engine speaks it
    bool isStick;
    int rounds;
};

std::string Name(const char* kind, int number) { return kind + std::to_string(number) + ".jpg"; }

const std::string source = "source.jpg";
const std::string picture(20'000, 'x');

void Compare(const Place& place, int count) {
    const auto hostFolder = [&](const char* whose, int round) {
        return place.hostFolder + "/" + whose + std::to_string(round);
    };
    const auto ourPath = [&](int round, const std::string& name) {
        return place.folder + "\\ours" + std::to_string(round) + "\\" + name;
    };
    for (int round = 0; round < place.rounds; ++round) {
        for (const char* whose : {"ours", "host"}) {
            std::filesystem::create_directory(hostFolder(whose, round));
            std::ofstream(hostFolder(whose, round) + "/" + source) << picture;
        }
    }
    const auto compare = [&](const std::string& work, const std::function<void(int, int)>& ours,
                             const std::function<void(const Host&, int)>& rival) {
        bench::Compare(
            work + " " + std::to_string(count) + " files in one folder, " + place.name,
            "the same calls", place.rounds, 3.0,
            [&](int round) {
                for (int i = 0; i < count; ++i) ours(round, i);
            },
            [&](int round) {
                const Host host(hostFolder("host", round), place.isStick);
                for (int i = 0; i < count; ++i) rival(host, i);
            });
    };
    compare(
        "create",
        [&](int round, int i) { oFSO().CreateTextFile(ourPath(round, Name("a", i)), false); },
        [](const Host& host, int i) { host.Create(Name("a", i)); });
    compare(
        "copy",
        [&](int round, int i) {
            oFSO().CopyFile(ourPath(round, source), ourPath(round, Name("b", i)), true);
        },
        [](const Host& host, int i) { host.Copy(source, Name("b", i)); });
    compare(
        "move",
        [&](int round, int i) {
            oFSO().MoveFile(ourPath(round, Name("b", i)), ourPath(round, Name("c", i)));
        },
        [](const Host& host, int i) { host.Move(Name("b", i), Name("c", i)); });
    for (int round = 0; round < place.rounds; ++round) {
        std::filesystem::remove_all(hostFolder("ours", round));
        std::filesystem::remove_all(hostFolder("host", round));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: files_bench FOLDER STICK-FOLDER\n");
        return 2;
    }
    const std::string folder = std::filesystem::absolute(argv[1]).string();
    const Place disk{"on c:", folder, oFSO().FromHostPath(folder), false, 3};
    const Place stick{"on the stick", argv[2], "E:", true, 1};
    for (const int count : {1000, 8000}) Compare(disk, count);
    // There the flushes take nearly all of the time.
    for (const int count : {100, 400}) Compare(stick, count);
    return 0;
}
