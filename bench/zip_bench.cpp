// AddZipFile beside unzip of the same archive to the same disk, and its reader beside libzip told
// to write every entry to a file.

#include "NoWindows.h"
#include "Ratio.h"
#include "core/PublicStuff.h"
#include "library/Collections.h"
#include "library/Folders.h"
#include "library/ZipImport.h"
#include "library/ZipReader.h"

#include <zip.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace tavel;
namespace fs = std::filesystem;

void Run(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw std::runtime_error(command + " failed");
}

std::string DrivePath(const fs::path& hostPath) {
    return oFSO().FromHostPath(fs::absolute(hostPath).string());
}

// A folder for what is unpacked.
class Scratch {
  public:
    explicit Scratch(fs::path folder) : m_folder(std::move(folder)) {}

    void Clear() const {
        for (const auto& entry : fs::directory_iterator(m_folder)) fs::remove_all(entry);
    }

    fs::path NewFolder(const std::string& name) const {
        fs::create_directories(m_folder / name);
        return m_folder / name;
    }

    // A library folder with so many pictures in it already.
    void NewLibrary(const std::string& name, int pictures) const {
        const fs::path library = NewFolder(name);
        if (!MakeDBFolders(DrivePath(library))) throw std::runtime_error("no library folders");
        for (int i = 0; i < pictures; ++i)
            std::ofstream(library / "Photos" / ("older " + std::to_string(i) + ".jpg")) << i;
    }

    void ImportInto(const std::string& library, const std::string& sZip, bool bMakeGroup) const {
        ReleaseCollections();
        sDefaultDBPath = DrivePath(m_folder / library);
        AddZipFile(sZip, bMakeGroup);
    }

  private:
    fs::path m_folder;
};

void Unzip(const std::string& archive, const fs::path& target) {
    Run("unzip -q -d '" + target.string() + "' '" + archive + "'");
}

void ExtractByReader(const std::string& archive, const fs::path& target) {
    const std::string sFolder = DrivePath(target);
    ZipReader zip;
    zip.ZipFile(DrivePath(archive));
    for (std::uint64_t i = 0; i < zip.Count(); ++i) zip.Item(i).Extract(sFolder);
}

void ExtractByLibzip(const std::string& archive, const fs::path& target) {
    std::vector<char> block(std::size_t{1024} * 1024);
    zip_t* zip = zip_open(archive.c_str(), ZIP_RDONLY, nullptr);
    if (zip == nullptr) throw std::runtime_error("libzip does not open " + archive);
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
        const auto number = static_cast<zip_uint64_t>(i);
        zip_file_t* entry = zip_fopen_index(zip, number, 0);
        const fs::path name = fs::path(zip_get_name(zip, number, 0)).filename();
        FILE* file = std::fopen((target / name).c_str(), "wb");
        for (zip_int64_t count = 1; count > 0;) {
            count = zip_fread(entry, block.data(), block.size());
            std::fwrite(block.data(), 1, static_cast<std::size_t>(count), file);
        }
        std::fclose(file);
        zip_fclose(entry);
    }
    zip_discard(zip);
}

// How much more memory than before an import holds at most; to be asked before any other work.
double MegabytesOfImport(const std::string& archive, const Scratch& scratch) {
    scratch.NewLibrary("library", 0);
    const double before = bench::PeakMegabytes();
    scratch.ImportInto("library", DrivePath(archive), false);
    scratch.Clear();
    return bench::PeakMegabytes() - before;
}

void CompareArchive(const std::string& archive, const Scratch& scratch, double target) {
    constexpr int rounds = 5;
    const std::string name = fs::path(archive).stem().string();
    for (const bool bMakeGroup : {false, true}) {
        bench::Compare(
            "`AddZipFile` of " + name + (bMakeGroup ? ", as a magazine" : ""), "unzip -q", rounds,
            target, [&](int) { scratch.ImportInto("library", DrivePath(archive), bMakeGroup); },
            [&](int) { Unzip(archive, scratch.NewFolder("unzip")); },
            [&](int) {
                scratch.Clear();
                scratch.NewLibrary("library", 0);
            });
        scratch.Clear();
    }
    bench::Compare(
        "`ZipReader` with " + name, "libzip and fwrite", rounds, 0,
        [&](int) { ExtractByReader(archive, scratch.NewFolder("reader")); },
        [&](int) { ExtractByLibzip(archive, scratch.NewFolder("libzip")); },
        [&](int) { scratch.Clear(); });
    scratch.Clear();
}

void CompareFullFolder(const std::string& archive, const Scratch& scratch) {
    constexpr int rounds = 3;
    for (int round = 0; round < rounds; ++round) {
        scratch.NewLibrary("empty " + std::to_string(round), 0);
        scratch.NewLibrary("full " + std::to_string(round), 10'000);
    }
    const auto importInto = [&](const std::string& library) {
        return [&, library](int round) {
            scratch.ImportInto(library + std::to_string(round), DrivePath(archive), false);
        };
    };
    bench::Compare("`AddZipFile` of " + fs::path(archive).stem().string() + " to 10,000 pictures",
                   "to none", rounds, 0, importInto("full "), importInto("empty "));
    scratch.Clear();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: zip_bench SCRATCH-FOLDER LARGE-ARCHIVE ARCHIVE...\n");
        return 2;
    }
    const bench::NoWindows windows;
    sPhotoSupport = {"jpg"};

    const Scratch scratch{fs::path(argv[1])};
    const double megabytes = MegabytesOfImport(argv[2], scratch);
    CompareArchive(argv[3], scratch, 2.0);
    for (int i = 4; i < argc; ++i) CompareArchive(argv[i], scratch, 0);
    CompareFullFolder(argv[3], scratch);
    std::printf("\nThe import of %s took %.1f MB of memory at most.\n",
                fs::path(argv[2]).stem().c_str(), megabytes);
    return 0;
}
