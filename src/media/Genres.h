#pragma once

#include <string>
#include <string_view>

namespace tavel {

// The numbered genres that tags refer to. Empty for 123 and for 148 to 255, which have no name.
std::string_view GenreNameOf(unsigned char number);

// Reads a tag's genre text: "(17)Rock" tells a number in brackets and a name behind it, any other
// text is a name. A number leaves the name to the vocabulary when less than two characters follow.
// `genre` stays as it is when the text tells no number from 0 to 255.
void ReadGenreText(const std::string& text, unsigned char& genre, std::string& otherName);

}  // namespace tavel
