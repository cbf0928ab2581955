// AddFolder into an empty library and of the same folder again, beside find listing the tree; and
// how much the process grows by adding large pictures.

#include "NoWindows.h"
#include "Ratio.h"
#include "core/PublicStuff.h"
#include "library/Adding.h"
#include "library/Collections.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

using namespace tavel;

void Add(const std::string& path) { AddFolder(path, true, false, true, true); }

std::string DrivePath(const std::string& hostPath) {
    return oFSO().FromHostPath(std::filesystem::absolute(hostPath).string());
}

void CompareAdding(const std::string& folder) {
    const std::string path = DrivePath(folder);
    const std::string find = "find '" + folder + "' -type f -printf '%s %p\\n' > /dev/null";
    const auto runFind = [&](int) {
        if (std::system(find.c_str()) != 0) throw std::runtime_error("find failed");
    };
    Long added = 0;
    bench::Compare(
        "AddFolder into an empty library", "find with sizes", 5, 8.0,
        [&](int) {
            ReleaseCollections();
            Add(path);
            added = colPhoto.Count() + colMusic.Count() + colVideo.Count();
        },
        runFind);
    bench::Compare(
        "AddFolder of the same " + std::to_string(added) + " files again", "find with sizes", 5, 0,
        [&](int) { Add(path); }, runFind);
    if (colPhoto.Count() + colMusic.Count() + colVideo.Count() != added || added == 0) {
        throw std::runtime_error("the second pass must add nothing");
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: add_bench files FOLDER... | pictures FOLDER\n");
        return 2;
    }
    const bench::NoWindows windows;
    sMusicSupport = {"mp3"};
    sVideoSupport = {"mp4"};
    sPhotoSupport = {"jpg"};

    if (std::string(argv[1]) == "files") {
        for (int i = 2; i < argc; ++i) CompareAdding(argv[i]);
        return 0;
    }
    const double before = bench::ResidentMegabytes();
    Add(DrivePath(argv[2]));
    std::printf("\nAdding %d pictures: the process holds %.1f MB more, and held %.1f MB at most.\n",
                colPhoto.Count(), bench::ResidentMegabytes() - before, bench::PeakMegabytes());
    return 0;
}
