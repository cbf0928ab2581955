// ConvertToTHM of a picture beside ImageMagick doing the same.

#include "Ratio.h"
#include "core/PublicStuff.h"
#include "media/Thumbnail.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

int main(int argc, char** argv) {
    using namespace tavel;
    if (argc != 3) {
        std::fprintf(stderr, "usage: thumbnail_bench PICTURE SCRATCH-FOLDER\n");
        return 2;
    }
    const auto drivePath = [](const std::string& hostPath) {
        return oFSO().FromHostPath(std::filesystem::absolute(hostPath).string());
    };
    const std::string folder = std::string(argv[2]) + "/thumbnails";
    std::filesystem::create_directories(folder + "/Videos/Thumbnails");
    sDefaultDBPath = drivePath(folder);
    const std::string picture = drivePath(argv[1]);
    const std::string convert = "convert '" + std::string(argv[1]) +
                                "' -resize '160x120!' 'JPEG:" + folder + "/convert.thm'";
    bench::Compare(
        "THM of a JPEG of 12 megapixels", "convert -resize", 7, 1.0,
        [&](int) {
            if (!oFSO().FileExists(ConvertToTHM(picture))) throw std::runtime_error("no THM");
        },
        [&](int) {
            if (std::system(convert.c_str()) != 0) throw std::runtime_error("convert failed");
        });
    return 0;
}
