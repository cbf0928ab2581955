// Update of an MP3 file of 10 MB that has to grow, and of one whose room will do, beside cp and a
// sync of the same file; and frames set, added and removed, by their number.

#include "Ratio.h"
#include "core/PublicStuff.h"
#include "media/cMP3ID3v2.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;
using tavel::Long;

constexpr std::size_t soundSize = 10'000'000;

void Shell(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

void CompareUpdates(const fs::path& folder) {
    const fs::path file = folder / "update.mp3";
    const std::string drivePath = tavel::oFSO().FromHostPath(file.string());
    const std::string copy = "cp '" + file.string() + "' '" + file.string() + ".copy' && sync '" +
                             file.string() + ".copy'";
    tavel::cMP3ID3v2 tag;
    const auto setTitle = [&](std::size_t size) {
        tag.MP3File(drivePath);
        tag.Title(std::string(size, 't'));
    };
    const auto makeFile = [&](int) {
        std::ofstream(file, std::ios::binary) << "\xFF\xFB" << std::string(soundSize, 'a');
        setTitle(100);
    };
    const auto update = [&](int) { tag.Update(); };
    const auto rival = [&](int) { Shell(copy); };
    const auto none = [](int) {};
    makeFile(0);
    tavel::bench::Compare("`Update` that makes 10 MB grow", "cp and sync of the file", 7, 3.0,
                          update, rival, makeFile, none);
    tavel::bench::Compare(
        "`Update` in place of the same", "cp and sync of the file", 7, 1.0, update, rival,
        [&](int) { setTitle(200); }, none);
}

// A tag of so many ids is built, read through and emptied.
double MillisecondsOfFrames(const std::string& drivePath, int count) {
    return tavel::bench::MedianMilliseconds(5, [&](int) {
        tavel::cMP3ID3v2 tag;
        tag.MP3File(drivePath);
        for (int i = 0; i < count; ++i) tag.AddTag(std::to_string(100'000 + i), "text");
        for (int i = 0; i < count; ++i) tag.Title("title " + std::to_string(i));
        while (tag.FrameCount() > 0) tag.RemoveFrame(tag.FrameCount() / 2 + 1);
    });
}

}  // namespace

int main(int argc, char** argv) {
    const fs::path folder = fs::absolute(argc > 1 ? argv[1] : ".");
    CompareUpdates(folder);
    const std::string drivePath = tavel::oFSO().FromHostPath((folder / "update.mp3").string());
    for (const int count : {10'000, 40'000}) {
        std::printf(
            "| %d frames added, a title set as often, the frames removed | %.1f | | | | |\n", count,
            MillisecondsOfFrames(drivePath, count));
    }
    return 0;
}
