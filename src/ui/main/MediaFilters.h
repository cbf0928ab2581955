#pragma once

#include <string>

namespace tavel {

// Filters of the file dialogs, made of the extensions that are supported: descriptions and
// patterns, parted by "|", with a semicolon behind each pattern, the last one too.
std::string FilterOfMedia();
std::string FilterOfPictures();  // and thumbnails, which are pictures as well

}  // namespace tavel
