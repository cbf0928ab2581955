#include "library/Folders.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"

#include <filesystem>

namespace tavel::test {
namespace {

using FolderMoves = LibraryTest;

// Videos and music would go to a path with a second drive in it, which this host could have.
TEST_F(FolderMoves, Are_refused_even_where_all_folders_of_the_target_are_there) {
    sDefaultDBPath = temp.DrivePath("library");
    for (const char* folder : {"library/Video/c:", "library/Music/c:"})
        std::filesystem::create_directories(temp.HostPath(folder) + temp.HostPath("in"));
    Give(colVideo, "vd_a", Write("in/film.MP4", "v"));
    Give(colMusic, "mu_a", Write("in/song.mp3", "m"));
    for (const char* sID : {"vd_a", "mu_a"})
        EXPECT_EQ(FailureOf([&] { MoveToDBFolder(sID); }), failure::BadFileName) << sID;
    EXPECT_EQ(temp.Read("in/film.MP4") + temp.Read("in/song.mp3"), "vm");
}

}  // namespace
}  // namespace tavel::test
