#include "media/PartsOf.h"

#include <gtest/gtest.h>

namespace tavel::test {

using namespace std::string_literals;

TEST(TrustedParts, Other_kinds_of_files_have_none) {
    for (const std::string& file :
         {""s, "x"s, "BM"s, "\xFF\xD8"s, "GIF89a"s, "II*\0"s, "\x89PNG\r\n\x1A\n"s,
          "P6 2 2 255 ......"s, "RIFF....WEBPVP8 "s, "8BPS\0\1"s, "\0\0\1\0\1\0"s,
          "II+\0\x8\0\0\0"s, std::string(1000, '\0')}) {
        EXPECT_EQ(Parts(file), "") << file;
    }
}

}  // namespace tavel::test
