// Title, artist and album of many MP3 files beside TagLib, which is told to leave the audio alone.

#include "Ratio.h"
#include "core/PublicStuff.h"
#include "media/cMP3ID3v2.h"

#include <id3v2tag.h>
#include <mpegfile.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    const std::filesystem::path folder = std::filesystem::absolute(argc > 1 ? argv[1] : ".");
    std::vector<std::string> hostPaths;
    std::vector<std::string> drivePaths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        hostPaths.push_back(entry.path().string());
        drivePaths.push_back(tavel::oFSO().FromHostPath(hostPaths.back()));
    }
    std::size_t ourBytes = 0;
    std::size_t rivalBytes = 0;
    tavel::bench::Compare(
        "title, artist, album of " + std::to_string(hostPaths.size()) + " MP3 files", "TagLib", 5,
        0.5,
        [&](int) {
            ourBytes = 0;
            for (const std::string& path : drivePaths) {
                tavel::cMP3ID3v2 tag;
                tag.MP3File(path);
                ourBytes += tag.Title().size() + tag.Artist().size() + tag.Album().size();
            }
        },
        [&](int) {
            rivalBytes = 0;
            for (const std::string& path : hostPaths) {
                TagLib::MPEG::File file(path.c_str(), false);
                const TagLib::Tag* tag = file.tag();
                rivalBytes += tag->title().size() + tag->artist().size() + tag->album().size();
            }
        });
    if (ourBytes < rivalBytes || rivalBytes == 0) throw std::runtime_error("tags were not read");
    return 0;
}
