#include "library/Adding.h"
#include "library/Folders.h"
#include "library/LibraryFile.h"
#include "library/LibraryFixture.h"
#include "platform/Failure.h"
#include "platform/Text.h"

#include <filesystem>

namespace tavel::test {
namespace {

// Paths about as long as db.txt gives back.
class LongPath : public LibraryTest {
  protected:
    // A file whose drive path has that many characters, all of them this one but for its ending.
    std::string WriteLong(std::size_t characters, const std::string& character,
                          const std::string& ending = ".mp4") const {
        std::string name = "in";
        while (CharacterCount(temp.DrivePath(name + "/")) + 60 + ending.size() < characters)
            name += "/" + Repeated(character, 60);
        name += "/";
        const std::size_t rest = CharacterCount(temp.DrivePath(name)) + ending.size();
        return Write(name + Repeated(character, characters - rest) + ending, "x");
    }

    static std::string Repeated(const std::string& text, std::size_t times) {
        std::string all;
        for (std::size_t i = 0; i < times; ++i) all += text;
        return all;
    }
};

TEST_F(LongPath, Of_254_characters_of_any_script_comes_back_whole) {
    Contain("");
    for (const char* character : {"a", "\u0436", "\u8a9e"}) {
        const std::string sPath = WriteLong(254, character);
        ASSERT_EQ(CharacterCount(sPath), 254U);
        EXPECT_NE(AddFile(sPath), "-1");
        SaveDB();
        ReleaseCollections();
        LoadDB();
        EXPECT_EQ(colVideo.Item(1).sPath(), sPath);
        ReleaseCollections();
    }
}

TEST_F(LongPath, Of_255_characters_is_rejected_like_an_unsupported_file) {
    for (const char* character : {"a", "\u0436"}) {
        EXPECT_EQ(AddFile(WriteLong(255, character)), "-1");
        EXPECT_EQ(AddFile(WriteLong(255, character, "without")), "-1");
    }
    EXPECT_EQ(colVideo.Count(), 0);
    EXPECT_FALSE(bDBChanged);
}

TEST_F(LongPath, Is_passed_over_among_other_files) {
    const std::string sLong = WriteLong(255, "a");
    const std::string sShort = Write("in/b.mp4", "x");
    AddFolder(temp.DrivePath("in"), true, false, true, true);
    ASSERT_EQ(colVideo.Count(), 1);
    EXPECT_EQ(colVideo.Item(1).sPath(), sShort);
    AddFiles({temp.DrivePath(""), sLong.substr(temp.DrivePath("").size() + 1), "in\\b.mp4", ""});
    ASSERT_EQ(colVideo.Count(), 2);
    EXPECT_EQ(colVideo.Item(2).sPath(), temp.DrivePath("") + "\\in\\b.mp4");
}

TEST_F(LongPath, Is_no_place_to_move_a_file_to) {
    sDefaultDBPath = temp.DrivePath("library");
    const std::string sPath = Write("a.jpg", "x");
    Give(colPhoto, "ph_a", sPath).sName = std::string(240, 'n');
    std::filesystem::create_directories(temp.HostPath("library/Photos"));
    EXPECT_EQ(FailureOf([] { MoveToDBFolder("ph_a"); }), failure::PathNotFound);
    EXPECT_EQ(colPhoto.Item("ph_a").sPath(), sPath);
    EXPECT_EQ(temp.Read("a.jpg"), "x");
}

}  // namespace
}  // namespace tavel::test
