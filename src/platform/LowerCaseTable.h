#pragma once

namespace tavel {

// The lower case of a character by Unicode's simple mapping; the character itself if it has none.
char32_t LowerOf(char32_t character);

}  // namespace tavel
