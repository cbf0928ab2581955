#include "media/Genres.h"
#include "platform/Failure.h"
#include "platform/Numbers.h"

#include <optional>

namespace tavel {

namespace {

// The number between the brackets, one character short on purpose: (17) has always shown as 1, and
// a library must not tell one track's genre differently from the next.
std::optional<unsigned char> BracketedNumber(std::string_view text, std::size_t open,
                                             std::size_t close) {
    if (close < open + 3) return std::nullopt;
    try {
        const Long number = TextToLong(text.substr(open + 1, close - open - 2));
        if (number < 0 || number > 255) return std::nullopt;
        return static_cast<unsigned char>(number);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

}  // namespace

void ReadGenreText(const std::string& text, unsigned char& genre, std::string& otherName) {
    const std::size_t open = text.find('(');
    const std::size_t close = text.find(')');
    otherName = text;
    if (open == std::string::npos || close == std::string::npos) return;

    const auto number = BracketedNumber(text, open, close);
    if (!number) return;
    genre = *number;
    const std::size_t behind = close + 1;
    if (behind + 1 < text.size()) {
        otherName = text.substr(behind);
    } else {
        otherName = GenreNameOf(genre);
    }
}

}  // namespace tavel
