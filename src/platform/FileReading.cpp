#include "platform/FileReading.h"

#include <algorithm>

namespace tavel {

std::string ReadToEnd(RawFile& file) {
    std::string bytes(static_cast<std::size_t>(std::max<std::int64_t>(file.Size(), 0)) + 1, '\0');
    std::size_t length = 0;
    std::size_t count = 0;
    while (file.Read({bytes.data() + length, bytes.size() - length}, count)) {
        length += count;
        const bool isAtEnd = length < bytes.size();
        bytes.resize(isAtEnd ? length : 2 * length);
        if (isAtEnd) return bytes;
    }
    Fail(file.Error());
}

}  // namespace tavel
