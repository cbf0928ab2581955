#include "media/Genres.h"
#include "media/cMP3ID3v2.h"

#include <gtest/gtest.h>

#include <array>

namespace tavel::test {

namespace {

// In number order; spelt as users have always seen them.
constexpr std::array<std::string_view, 148> names{"Blues",
                                                  "Classic Rock",
                                                  "Country",
                                                  "Dance",
                                                  "Disco",
                                                  "Funk",
                                                  "Grunge",
                                                  "Hip Hop",
                                                  "Jazz",
                                                  "Metal",
                                                  "New Age",
                                                  "Oldies",
                                                  "Other",
                                                  "Pop",
                                                  "R&B",
                                                  "Rap",
                                                  "Reggae",
                                                  "Rock",
                                                  "Techno",
                                                  "Industrial",
                                                  "Alternative",
                                                  "Ska",
                                                  "Death Metal",
                                                  "Pranks",
                                                  "Soundtrack",
                                                  "Euro - Techno",
                                                  "Ambient",
                                                  "Trip Hop",
                                                  "Vocal",
                                                  "Jazz - Funk",
                                                  "Fusion",
                                                  "Trance",
                                                  "Classical",
                                                  "Instrumental",
                                                  "Acid",
                                                  "House",
                                                  "Game",
                                                  "Sound Clip",
                                                  "Gospel",
                                                  "Noise",
                                                  "Alt.Rock",
                                                  "Bass",
                                                  "Soul",
                                                  "Punk",
                                                  "Space",
                                                  "Meditative",
                                                  "Instrumental Pop",
                                                  "Instrumental Rock",
                                                  "Ethnic",
                                                  "Gothic",
                                                  "Darkwave",
                                                  "Techno - Industrial",
                                                  "Electronic",
                                                  "Pop / Folk",
                                                  "Eurodance",
                                                  "Dream",
                                                  "Southern Rock",
                                                  "Comedy",
                                                  "Cult",
                                                  "Gangsta Rap",
                                                  "Top 40",
                                                  "Christian Rap",
                                                  "Pop / Funk",
                                                  "Jungle",
                                                  "Native American",
                                                  "Cabaret",
                                                  "New Wave",
                                                  "Psychedelic",
                                                  "Rave",
                                                  "Showtunes",
                                                  "Trailer",
                                                  "Lo - fi",
                                                  "Tribal",
                                                  "Acid Punk",
                                                  "Acid Jazz",
                                                  "Polka",
                                                  "Retro",
                                                  "Musical",
                                                  "Rock 'n'Roll",
                                                  "Hard Rock",
                                                  "Folk",
                                                  "Folk / Rock",
                                                  "National Folk",
                                                  "Swing",
                                                  "Fast Fusion",
                                                  "Bebob",
                                                  "Latin",
                                                  "Revival",
                                                  "Celtic",
                                                  "Blue Grass",
                                                  "Avant Garde",
                                                  "Gothic Rock",
                                                  "Progressive Rock",
                                                  "Psychedelic Rock",
                                                  "Symphonic Rock",
                                                  "Slow Rock",
                                                  "Big Band",
                                                  "Chorus",
                                                  "Easy Listening",
                                                  "Acoustic",
                                                  "Humour",
                                                  "Speech",
                                                  "Chanson",
                                                  "Opera",
                                                  "Chamber Music",
                                                  "Sonata",
                                                  "Symphony",
                                                  "Booty Bass",
                                                  "Primus",
                                                  "Pr0n Groove",
                                                  "Satire",
                                                  "Slow Jam",
                                                  "Club",
                                                  "Tango",
                                                  "Samba",
                                                  "Folklore",
                                                  "Ballad",
                                                  "Power Ballad",
                                                  "Rhythmic Soul",
                                                  "Freestyle",
                                                  "Duet",
                                                  "Punk Rock",
                                                  "Drum Solo",
                                                  "",
                                                  "Euro - House",
                                                  "Dance Hall",
                                                  "Goa",
                                                  "Drum & Bass",
                                                  "Club - House",
                                                  "Hardcore",
                                                  "Terror",
                                                  "Indie",
                                                  "Brit Pop",
                                                  "Negerpunk",
                                                  "Polsk Punk",
                                                  "Beat",
                                                  "Christian Gangsta Rap",
                                                  "Heavy Metal",
                                                  "Black Metal",
                                                  "Crossover",
                                                  "Contemporary Christian",
                                                  "Christian Rock",
                                                  "Merengue",
                                                  "Salsa",
                                                  "Thrash Metal",
                                                  "Anime",
                                                  "JPop",
                                                  "Synth Pop"};

struct GenreText {
    std::string Text;
    unsigned char Genre;
    std::string OtherName;
};

void ExpectGenre(const GenreText& expected, unsigned char before) {
    unsigned char genre = before;
    std::string otherName = "left over";
    ReadGenreText(expected.Text, genre, otherName);
    EXPECT_EQ(genre, expected.Genre) << expected.Text;
    EXPECT_EQ(otherName, expected.OtherName) << expected.Text;
}

}  // namespace

TEST(GenreName, Every_number_of_the_vocabulary_has_its_name) {
    for (std::size_t number = 0; number < names.size(); ++number) {
        EXPECT_EQ(cMP3ID3v2::GenreName(static_cast<unsigned char>(number)), names[number]);
    }
    EXPECT_EQ(cMP3ID3v2::GenreName(0), "Blues");
    EXPECT_EQ(cMP3ID3v2::GenreName(147), "Synth Pop");
}

TEST(GenreName, Number_123_and_those_from_148_have_none) {
    EXPECT_EQ(cMP3ID3v2::GenreName(123), "");
    for (int number = 148; number <= 255; ++number) {
        EXPECT_EQ(cMP3ID3v2::GenreName(static_cast<unsigned char>(number)), "");
    }
}

TEST(GenreText, The_number_in_brackets_is_cut_one_short) {
    const std::string utf16 = "\x01\xFF\xFE(17)Rock";
    for (const GenreText& row : {
             GenreText{"(17)", 1, "Classic Rock"},
             GenreText{"(17)Rock", 1, "Rock"},
             GenreText{"(123)", 12, "Other"},
             GenreText{"(1234)", 123, ""},
             GenreText{"(2550)", 255, ""},
             GenreText{"(0099)Folk", 9, "Folk"},
             GenreText{"before (17)", 1, "Classic Rock"},
             GenreText{utf16, 1, "Rock"},
             GenreText{"( 17)", 1, "Classic Rock"},
             GenreText{"(&H11)", 1, "Classic Rock"},
             GenreText{"(1e1x)", 10, "New Age"},
         }) {
        ExpectGenre(row, 255);
    }
}

TEST(GenreText, A_single_character_behind_the_brackets_counts_as_nothing) {
    ExpectGenre({"(17)R", 1, "Classic Rock"}, 255);
    ExpectGenre({"(17)Ro", 1, "Ro"}, 255);
}

TEST(GenreText, A_text_without_a_number_in_brackets_is_a_name_and_leaves_the_number) {
    for (const std::string& text :
         {std::string("(5)"), std::string("()"), std::string("Rock"), std::string(),
          std::string("(17"), std::string("17)"), std::string(")17("), std::string("1)(17)"),
          std::string("(RX)"), std::string("(Cover)"), std::string("(2560)"), std::string("(-17)"),
          std::string("(99999999990)"), std::string("(a(17)")}) {
        ExpectGenre({text, 255, text}, 255);
        ExpectGenre({text, 7, text}, 7);
    }
}

TEST(GenreText, Only_the_first_brackets_of_either_kind_count) {
    ExpectGenre({"(17)(18)", 1, "(18)"}, 255);
    ExpectGenre({"(17) a (b)", 1, " a (b)"}, 255);
}

}  // namespace tavel::test
